#include "plugin/ruby/protect.h"

#include <exception>
#include <utility>
#include <vector>

#include "plugin/ruby/guard.h"
#include "plugin/utils/debug_log.h"
#include "plugin/utils/strings.h"

namespace Velmar::Ruby {

namespace {

/// One protected call, passed through the interpreter by address.
struct CallContext {
    std::function<void()> call;
    std::function<void(Value)> rescue;
    std::string error;                    ///< class name of the exception that was rescued
    std::exception_ptr native_exception;  ///< on its way around the interpreter's frames
};

/// Runs one of the two functions with C++ exceptions kept inside. Answers the tag of a jump that one stood for, or 0.
template <typename Body>
int contain(CallContext& context, const Body& body) {
    try {
        body();
    } catch (const Jump& jump) {
        return jump.tag;
    } catch (...) {
        context.native_exception = std::current_exception();
    }
    return 0;
}

VALUE call_wrapper(VALUE data) {
    auto& context = *reinterpret_cast<CallContext*>(data);
    if (const int tag = contain(context, [&] { context.call(); })) rb_jump_tag(tag);
    return Qnil;
}

VALUE call_rescue(VALUE data, VALUE exception) {
    auto& context = *reinterpret_cast<CallContext*>(data);
    const int tag = contain(context, [&] {
        if (context.rescue) context.rescue(exception);
        const char* const name = rb_obj_classname(exception);
        context.error = name == nullptr || *name == '\0' ? "(unnamed class)" : name;
    });
    if (tag != 0) rb_jump_tag(tag);
    return Qnil;
}

}  // namespace

bool protect_call(std::function<void()> call, std::function<void(Value)> rescue) {
    CallContext context{std::move(call), std::move(rescue), std::string(), nullptr};
    const VALUE data = reinterpret_cast<VALUE>(&context);
    protect([data] { return rescue_standard_error(call_wrapper, data, call_rescue, data); });
    if (context.native_exception) std::rethrow_exception(context.native_exception);
    if (context.error.empty()) return true;
    DebugLog("Ruby exception [protect_call]: ", context.error);
    return false;
}

ClassMethod resolve_class_method(const std::string& path) {
    const std::vector<std::string> parts = Strings::Split(path, ".:");
    if (parts.empty()) return {};
    ClassMethod method{rb_cObject, 0, true};
    for (std::size_t i = 0; i + 1 < parts.size(); ++i) {
        method.receiver = protect([&] { return rb_const_get(method.receiver, (rb_intern)(parts[i].c_str())); });
    }
    protect([&] { method.method_id = (rb_intern)(parts.back().c_str()); });
    return method;
}

bool call_resolved(const ClassMethod& method, const Value* arguments, std::size_t count, Value& result) {
    result = Qnil;
    const auto call = [&] {
        result = (rb_funcallv)(method.receiver, static_cast<ID>(method.method_id), static_cast<int>(count), arguments);
    };
    return protect_call(call, {});
}

}  // namespace Velmar::Ruby
