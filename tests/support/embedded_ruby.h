// A Ruby interpreter inside a C++ test program. The program runs it on its main thread from the first test that asks
// for it to the end of the process.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "plugin/ruby/interpreter.h"

// The interpreter does not give its memory back, so the leak check of such a program would report the interpreter
// alone.
extern "C" __attribute__((weak, used, visibility("default"))) const char* __asan_default_options() {
    return "detect_leaks=0";
}

namespace Velmar::TestSupport {

/// Base of tests that need the interpreter.
class RubyTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        static const bool running = start();
        ASSERT_TRUE(running);
    }

    /// The value of a piece of Ruby code; a failure of the test when it raises.
    static VALUE eval(const std::string& code) {
        int tag = 0;
        const VALUE value = rb_eval_string_protect(code.c_str(), &tag);
        if (tag == 0) return value;
        ADD_FAILURE() << code << " raised " << inspect(rb_errinfo());
        rb_set_errinfo(Qnil);
        return Qnil;
    }

    /// The value of a piece of Ruby code as text; empty, with a failure of the test, when it raises.
    static std::string evalText(const std::string& code) {
        const VALUE value = eval("(" + code + ").to_s");
        return NIL_P(value) ? std::string() : text(value);
    }

    static std::string inspect(VALUE value) {
        int tag = 0;
        const VALUE described = rb_protect(rb_inspect, value, &tag);
        return tag == 0 ? text(described) : "what cannot be inspected";
    }

    /// What leaves `body` as a Jump: the class and message of the Ruby exception; "nothing" when nothing does.
    template <typename Body>
    static std::string raised(Body body) {
        try {
            body();
        } catch (const Ruby::Jump&) {
            const VALUE exception = rb_errinfo();
            const std::string described = rb_obj_classname(exception) + (": " + text(rb_obj_as_string(exception)));
            rb_set_errinfo(Qnil);
            return described;
        }
        return "nothing";
    }

    static std::string text(VALUE string) {
        return {RSTRING_PTR(string), static_cast<std::size_t>(RSTRING_LEN(string))};
    }

private:
    static bool start() {
        // An empty program: it makes the interpreter define its own classes completely.
        static char words[][16] = {"velmar-test", "--disable=gems", "-EUTF-8:UTF-8", "-e", ""};
        static char* arguments[] = {words[0], words[1], words[2], words[3], words[4], nullptr};
        static int argc = 5;
        static char** argv = arguments;
        ruby_sysinit(&argc, &argv);
        RUBY_INIT_STACK;
        if (ruby_setup() != 0) return false;
        ruby_options(argc, argv);
        return true;
    }
};

}  // namespace Velmar::TestSupport
