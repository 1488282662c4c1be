#include "plugin/ruby/handler.h"

#include <cstring>
#include <new>
#include <stdexcept>

namespace Velmar::Ruby::Detail {

namespace {

/// Message of the exception on its way to Ruby. Nothing runs between its writing and its raising, and both are done by
/// the thread that runs Ruby.
char message[1024];

Failure fail(VALUE exception_class, const char* text) {
    std::snprintf(message, sizeof message, "%s", text);
    return {exception_class, 0};
}

}  // namespace

Failure describe_failure() noexcept {
    try {
        throw;
    } catch (const Jump& jump) {
        return {Qnil, jump.tag};
    } catch (const NotImplemented& error) {
        return fail(rb_eNotImpError, error.what());
    } catch (const std::invalid_argument& error) {
        return fail(rb_eArgError, error.what());
    } catch (const std::out_of_range& error) {
        return fail(rb_eRangeError, error.what());
    } catch (const std::length_error& error) {
        return fail(rb_eRangeError, error.what());
    } catch (const std::bad_alloc&) {
        return fail(rb_eNoMemError, "failed to allocate memory");
    } catch (const std::exception& error) {
        return fail(rb_eRuntimeError, error.what());
    } catch (...) {
        return fail(rb_eRuntimeError, "unknown native error");
    }
}

void raise(Failure failure) {
    if (failure.tag != 0) rb_jump_tag(failure.tag);
    const VALUE text = rb_utf8_str_new(message, static_cast<long>(std::strlen(message)));
    rb_exc_raise(rb_exc_new_str(failure.exception_class, text));
}

std::string current_method() {
    const char* name = nullptr;
    protect([&] { name = rb_id2name(rb_frame_this_func()); });
    return name == nullptr ? "this command" : name;
}

void define(VALUE klass, const char* name, VALUE (*function)(ANYARGS), int arity) {
    protect([&] { define_singleton_method(klass, name, function, arity); });
}

}  // namespace Velmar::Ruby::Detail

namespace Velmar::Ruby {

VALUE open_class(const char* name) {
    return protect([&] { return rb_define_class(name, rb_cObject); });
}

}  // namespace Velmar::Ruby
