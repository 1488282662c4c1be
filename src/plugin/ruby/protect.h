// How native code that is no handler calls Ruby: run code under a rescue, call a class method by its path. Ruby thread
// only. See handler.h for the other direction.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <string>

#include "plugin/ruby/convert.h"
#include "plugin/ruby/value.h"

namespace Velmar::Ruby {

/// Runs `call`, which may call Ruby. An exception of the StandardError family ends it: `rescue`, when set, gets the
/// exception object, the debug log gets a line with its class, and the answer is false. Any other exception, throw or
/// exit leaves as a Jump. Native exceptions of both functions pass; an empty `call` throws std::bad_function_call.
bool protect_call(std::function<void()> call, std::function<void(Value)> rescue);

/// A method to call and the object to call it on. Both live as long as the interpreter.
struct ClassMethod {
    Value receiver = 0;
    Value method_id = 0;
    bool found = false;  ///< false when the path has no part at all
};

/// Resolves "Module::Class.method", the parts separated by runs of "." and ":"; one part alone is a method of Object. A
/// constant that does not exist raises its NameError, as a Jump.
ClassMethod resolve_class_method(const std::string& path);
/// Calls the method under protect_call. `result` is nil after a rescued exception.
bool call_resolved(const ClassMethod& method, const Value* arguments, std::size_t count, Value& result);

/// Calls a class method of the script layer and converts its answer. `result` is T() when the method raised or answered
/// something else, and is left alone when the path is empty. Answers what protect_call does.
template <typename T, typename... Args>
bool call_class_method(const std::string& path, T& result, const Args&... arguments) {
    const ClassMethod method = resolve_class_method(path);
    if (!method.found) return false;
    const std::array<Value, sizeof...(Args) + 1> values = {Convert<Args>::to_ruby(arguments)..., Value()};
    Value answer = 0;
    const bool done = call_resolved(method, values.data(), sizeof...(Args), answer);
    result = Convert<T>::from_ruby(answer, T());
    return done;
}

}  // namespace Velmar::Ruby
