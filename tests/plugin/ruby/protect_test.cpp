#include "plugin/ruby/protect.h"

#include <filesystem>
#include <fstream>
#include <map>

#include "plugin/ruby/arguments.h"
#include "plugin/ruby/guard.h"
#include "plugin/utils/strings.h"
#include "support/embedded_ruby.h"

namespace Velmar {
namespace {

namespace fs = std::filesystem;
using Texts = std::map<std::string, std::string>;

/// Tests that also look at the debug log.
class ProtectTest : public TestSupport::RubyTest {
protected:
    void SetUp() override {
        fs::create_directories(fs::path(logFile()).parent_path());
        before_ = lines().size();
    }

    static std::string logFile() { return Strings::GetUserHome() + "/Documents/Velmar/SketchUp/logs/debug-log.txt"; }

    /// Messages that the test has written so far.
    std::vector<std::string> logged() const {
        std::vector<std::string> all = lines();
        return {all.begin() + static_cast<std::ptrdiff_t>(before_), all.end()};
    }

private:
    static std::vector<std::string> lines() {
        std::ifstream file(logFile());
        std::vector<std::string> messages;
        for (std::string line; std::getline(file, line);) messages.push_back(line.substr(52));
        return messages;
    }

    std::size_t before_ = 0;
};

TEST_F(ProtectTest, AnswersTrueWhenNothingIsRaised) {
    bool called = false;
    bool rescued = false;
    EXPECT_TRUE(Ruby::protect_call([&] { called = true; }, [&](Ruby::Value) { rescued = true; }));
    EXPECT_TRUE(called);
    EXPECT_FALSE(rescued);
    EXPECT_TRUE(logged().empty());
}

TEST_F(ProtectTest, RescuesAStandardErrorAndLogsItsClass) {
    EXPECT_FALSE(Ruby::protect_call([] { rb_raise(rb_eTypeError, "no message survives"); }, {}));
    EXPECT_EQ(logged(), std::vector<std::string>{"Ruby exception [protect_call]:  TypeError"});
    EXPECT_TRUE(NIL_P(rb_errinfo()));
}

TEST_F(ProtectTest, HandsTheExceptionObjectToTheRescue) {
    std::string message;
    Ruby::protect_call([] { rb_raise(rb_eArgError, "the message"); },
                       [&](Ruby::Value exception) { message = text(rb_obj_as_string(exception)); });
    EXPECT_EQ(message, "the message");
}

TEST_F(ProtectTest, RescuesWhatAConversionRaisesToo) {
    const VALUE word = eval("'word'");
    EXPECT_FALSE(Ruby::protect_call([&] { Ruby::to_double(word); }, {}));
    EXPECT_EQ(logged().size(), 1U);
}

TEST_F(ProtectTest, AnEmptyCallIsABadFunctionCall) {
    EXPECT_THROW(Ruby::protect_call(nullptr, {}), std::bad_function_call);
}

TEST_F(ProtectTest, NativeExceptionsPass) {
    const auto thrower = [] { throw std::out_of_range("native"); };
    EXPECT_THROW(Ruby::protect_call(thrower, {}), std::out_of_range);
    EXPECT_THROW(Ruby::protect_call([] { rb_raise(rb_eTypeError, "x"); }, [&](Ruby::Value) { thrower(); }),
                 std::out_of_range);
}

TEST_F(ProtectTest, ExceptionsOutsideStandardErrorLeaveAsAJump) {
    for (const char* name : {"ScriptError", "NotImplementedError", "NoMemoryError", "SystemExit", "Interrupt"}) {
        const VALUE klass = eval(name);
        bool rescued = false;
        const std::string outcome = raised([&] {
            Ruby::protect_call([&] { rb_exc_raise(rb_exc_new_cstr(klass, "out")); },
                               [&](Ruby::Value) { rescued = true; });
        });
        EXPECT_EQ(outcome, std::string(name) + ": out");
        EXPECT_FALSE(rescued);
    }
    EXPECT_TRUE(logged().empty());
}

TEST_F(ProtectTest, AnExceptionRaisedInTheRescueLeavesAsAJump) {
    const std::string outcome = raised([] {
        Ruby::protect_call([] { rb_raise(rb_eTypeError, "first"); },
                           [](Ruby::Value) { rb_raise(rb_eArgError, "second"); });
    });
    EXPECT_EQ(outcome, "ArgumentError: second");
}

TEST_F(ProtectTest, DestroysItsFunctionsWhateverHappens) {
    const auto witness = std::make_shared<int>(0);
    Ruby::protect_call([witness] {}, [witness](Ruby::Value) {});
    Ruby::protect_call([witness] { rb_raise(rb_eTypeError, "x"); }, [witness](Ruby::Value) {});
    raised([&] { Ruby::protect_call([witness] { rb_raise(rb_eScriptError, "x"); }, {}); });
    EXPECT_EQ(witness.use_count(), 1);
}

TEST_F(ProtectTest, CallsAClassMethodByItsPath) {
    eval("module Outer; class Inner; def self.ready; true; end; end; end");
    bool result = false;
    EXPECT_TRUE(Ruby::call_class_method("Outer::Inner.ready", result));
    EXPECT_TRUE(result);
    result = false;
    EXPECT_TRUE(Ruby::call_class_method(":Outer...Inner::ready.", result));
    EXPECT_TRUE(result);
}

TEST_F(ProtectTest, HandsAHashOverAndConvertsTheAnswer) {
    eval("module Settings; def self.update(h); $seen = h; { 'count' => h.size.to_s, :sym => :value }; end; end");
    Texts result;
    const Texts argument = {{"a", "1"}, {"\xc3\xa9", "2"}};
    EXPECT_TRUE(Ruby::call_class_method("Settings.update", result, argument));
    EXPECT_EQ(result, (Texts{{"count", "2"}, {"sym", "value"}}));
    EXPECT_EQ(evalText("$seen.inspect"), "{\"a\"=>\"1\", \"\xc3\xa9\"=>\"2\"}");
    EXPECT_EQ(evalText("$seen.flatten.map(&:encoding).uniq.inspect"), "[#<Encoding:UTF-8>]");
}

TEST_F(ProtectTest, APathOfOneWordCallsAMethodOfObject) {
    eval("class Object; def self.lonely; 'yes'; end; end");
    std::string result;
    EXPECT_TRUE(Ruby::call_class_method("lonely", result));
    EXPECT_EQ(result, "yes");
}

TEST_F(ProtectTest, APathWithoutPartsCallsNothing) {
    for (const char* path : {"", ".:", ":::..."}) {
        bool result = true;
        EXPECT_FALSE(Ruby::call_class_method(path, result)) << path;
        EXPECT_TRUE(result) << "the result is left alone";
    }
}

TEST_F(ProtectTest, AMethodThatRaisesLeavesTheDefault) {
    eval("module Broken; def self.fail(h); raise KeyError, 'x'; end; end");
    Texts result = {{"old", "entry"}};
    EXPECT_FALSE(Ruby::call_class_method("Broken.fail", result, Texts()));
    EXPECT_TRUE(result.empty());
    EXPECT_EQ(logged(), std::vector<std::string>{"Ruby exception [protect_call]:  KeyError"});
}

TEST_F(ProtectTest, AMissingMethodIsRescuedToo) {
    bool result = true;
    EXPECT_FALSE(Ruby::call_class_method("Object.no_such_method", result));
    EXPECT_FALSE(result);
    EXPECT_EQ(logged(), std::vector<std::string>{"Ruby exception [protect_call]:  NoMethodError"});
}

TEST_F(ProtectTest, AMissingConstantIsANameErrorOfTheCaller) {
    bool result = true;
    EXPECT_EQ(raised([&] { Ruby::call_class_method("Object::NoSuchThing.call", result); }),
              "NameError: uninitialized constant NoSuchThing");
    EXPECT_TRUE(result);
    EXPECT_TRUE(logged().empty());
}

TEST_F(ProtectTest, AWrongAnswerBecomesTheDefault) {
    eval("module Odd; def self.number; 17.5; end; end");
    Texts map = {{"old", "entry"}};
    EXPECT_TRUE(Ruby::call_class_method("Odd.number", map));
    EXPECT_TRUE(map.empty());
}

}  // namespace
}  // namespace Velmar
