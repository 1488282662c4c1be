// How native functions become methods of Ruby classes. A handler takes the class object and then one Ruby value for
// each argument, answers a Ruby value, and is registered by
//
//     const VALUE klass = Ruby::open_class("ExtInstance");
//     Ruby::define<&Instance::SetVisibility>(klass, "set_visibility");
//
// which reads the argument count off the signature. A handler converts its arguments (arguments.h), calls one operation
// and converts the answer (answers.h):
//
//     VALUE SetVisibility(VALUE, VALUE id, VALUE visible) {
//         const int instance_id = Ruby::to_int(id);
//         const bool is_visible = Ruby::is_true(visible);
//         return Ruby::to_value(SketchupManager::SetVisibility(instance_id, is_visible));
//     }
//
// What leaves a handler as a C++ exception is caught here, once all its frames are unwound, and raised in the Ruby
// caller: a Jump goes on as the Ruby exception, throw or exit that it stands for; std::invalid_argument is an
// ArgumentError, std::out_of_range and std::length_error a RangeError, std::bad_alloc a NoMemoryError, NotImplemented a
// NotImplementedError, all else a RuntimeError, with the native message. No interpreter function that can raise may be
// called bare: the conversions of arguments.h and answers.h are safe wherever they stand, anything else goes through
// protect() (guard.h). A command that is not built yet is registered by define_not_implemented<Count>(klass, "name").
//
// The way from Ruby into a handler costs one direct call, which the compiler takes in: a handler of the geometry stream
// needs no form of its own.
#pragma once

#include <cstddef>
#include <string>
#include <utility>

#include "plugin/ruby/guard.h"
#include "plugin/utils/not_implemented.h"

namespace Velmar::Ruby {

namespace Detail {

/// What is to be raised in Ruby in the place of a native exception. The text is kept aside, as this one passes jumps.
struct Failure {
    VALUE exception_class;
    int tag;
};

/// Describes the exception that is being handled. To be called in a catch block.
Failure describe_failure() noexcept;
[[noreturn]] void raise(Failure failure);

template <typename Signature>
struct HandlerTraits;

template <typename... Args, bool Quiet>
struct HandlerTraits<VALUE (*)(VALUE, Args...) noexcept(Quiet)> {
    static_assert((std::is_same_v<Args, VALUE> && ...), "a handler takes Ruby values");
    static constexpr int arity = sizeof...(Args);

    template <auto Handler>
    static VALUE call(VALUE self, Args... args) {
        Failure failure;
        try {
            return Handler(self, args...);
        } catch (...) {
            failure = describe_failure();
        }
        raise(failure);
    }
};

void define(VALUE klass, const char* name, VALUE (*function)(ANYARGS), int arity);

}  // namespace Detail

/// Defines a singleton method on `klass` that runs Handler; Ruby rejects any other argument count.
template <auto Handler>
void define(VALUE klass, const char* name) {
    using Traits = Detail::HandlerTraits<decltype(Handler)>;
    Detail::define(klass, name, RUBY_METHOD_FUNC(&Traits::template call<Handler>), Traits::arity);
}

namespace Detail {

/// Name of the method that Ruby called last.
std::string current_method();

template <std::size_t>
using ArgumentAt = VALUE;

template <typename Indices>
struct MissingHandler;

template <std::size_t... Indices>
struct MissingHandler<std::index_sequence<Indices...>> {
    static VALUE call(VALUE, ArgumentAt<Indices>...) { throw NotImplemented(current_method()); }
};

}  // namespace Detail

/// Defines a singleton method of `Count` arguments that has no body yet: it raises NotImplementedError with its name.
template <std::size_t Count>
void define_not_implemented(VALUE klass, const char* name) {
    define<&Detail::MissingHandler<std::make_index_sequence<Count>>::call>(klass, name);
}

/// Defines a class under Object, or finds the one that there is.
VALUE open_class(const char* name);

namespace Detail {

template <void (*Entry)()>
VALUE handle_entry(VALUE) {
    Entry();
    return Qnil;
}

}  // namespace Detail

/// Runs an entry of the library, which Ruby calls without arguments, with the same care as a handler.
template <void (*Entry)()>
void run_entry() {
    Detail::HandlerTraits<VALUE (*)(VALUE)>::call<&Detail::handle_entry<Entry>>(Qnil);
}

}  // namespace Velmar::Ruby
