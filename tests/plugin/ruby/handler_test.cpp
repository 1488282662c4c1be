#include "plugin/ruby/handler.h"

#include <functional>
#include <new>
#include <stdexcept>

#include "plugin/ruby/answers.h"
#include "plugin/ruby/arguments.h"
#include "plugin/ruby/protect.h"
#include "support/embedded_ruby.h"

namespace Velmar {
namespace {

/// Counts how many of its kind live.
struct Witness {
    Witness() { ++living; }
    Witness(const Witness&) = delete;
    Witness& operator=(const Witness&) = delete;
    ~Witness() { --living; }
    static inline int living = 0;
};

std::function<void()> native_body;

VALUE None(VALUE) {
    return INT2FIX(0);
}
VALUE Three(VALUE, VALUE a, VALUE b, VALUE c) {
    return rb_ary_new_from_args(3, a, b, c);
}
VALUE RunNative(VALUE) {
    const Witness witness;
    native_body();
    return Qtrue;
}
/// Converts its arguments amid objects with destructors.
VALUE Add(VALUE, VALUE text, VALUE number, VALUE list) {
    const Witness first;
    const std::string copy = Ruby::to_text(text) + std::string(100, '.');
    const Witness second;
    const double value = Ruby::to_double(number);
    const std::vector<int> numbers = Ruby::to_ints(list);
    const Witness third;
    return Ruby::to_utf8(copy + std::to_string(value) + std::to_string(numbers.size()));
}
VALUE Doubles(VALUE, VALUE list) {
    double sum = 0;
    for (const double number : Ruby::to_doubles<3>(list)) sum += number;
    return rb_float_new(sum);
}
VALUE Int(VALUE, VALUE value) {
    return Ruby::to_value(Ruby::to_int(value));
}
VALUE Uint(VALUE, VALUE value) {
    return rb_uint2inum(Ruby::to_uint(value));
}
VALUE Double(VALUE, VALUE value) {
    return rb_float_new(Ruby::to_double(value));
}
VALUE Float(VALUE, VALUE value) {
    return rb_float_new(static_cast<double>(Ruby::to_float(value)));
}
VALUE Text(VALUE, VALUE value) {
    return Ruby::to_utf8(Ruby::to_text(value));
}
VALUE Cstr(VALUE, VALUE value) {
    return Ruby::to_binary(Ruby::to_cstr(value));
}
VALUE IsTrue(VALUE, VALUE value) {
    return Ruby::to_value(Ruby::is_true(value));
}
VALUE CheckArray(VALUE, VALUE value) {
    Ruby::check_array(value);
    return Qtrue;
}
VALUE CheckString(VALUE, VALUE value) {
    Ruby::check_string(value);
    return Qtrue;
}
VALUE CallBack(VALUE, VALUE path) {
    const Witness witness;
    bool result = false;
    const bool done = Ruby::call_class_method(Ruby::to_text(path), result);
    return Ruby::to_value(done && result);
}

class HandlerTest : public TestSupport::RubyTest {
protected:
    static void SetUpTestSuite() {
        RubyTest::SetUpTestSuite();
        const VALUE klass = Ruby::open_class("H");
        Ruby::define<&None>(klass, "none");
        Ruby::define<&Three>(klass, "three");
        Ruby::define<&RunNative>(klass, "run");
        Ruby::define<&Add>(klass, "add");
        Ruby::define<&Doubles>(klass, "doubles");
        Ruby::define<&Int>(klass, "int");
        Ruby::define<&Uint>(klass, "uint");
        Ruby::define<&Double>(klass, "double");
        Ruby::define<&Float>(klass, "float");
        Ruby::define<&Text>(klass, "text");
        Ruby::define<&Cstr>(klass, "cstr");
        Ruby::define<&IsTrue>(klass, "true?");
        Ruby::define<&CheckArray>(klass, "check_array");
        Ruby::define<&CheckString>(klass, "check_string");
        Ruby::define<&CallBack>(klass, "call_back");
        Ruby::define_not_implemented<2>(klass, "later");
    }

    /// The value of the code as text, or class and message of the exception that it raises, of whatever family.
    static std::string outcome(const std::string& code) {
        return evalText("begin; (" + code + ").inspect; rescue Exception => e; \"#{e.class}: #{e.message}\"; end");
    }

    /// What Ruby sees when a handler's native operation does `body`.
    static std::string outcomeOf(std::function<void()> body) {
        native_body = std::move(body);
        return outcome("H.run");
    }
};

TEST_F(HandlerTest, ArgumentCountsComeFromTheSignature) {
    EXPECT_EQ(evalText("[H.method(:none).arity, H.method(:three).arity, H.method(:later).arity].inspect"), "[0, 3, 2]");
    EXPECT_EQ(outcome("H.three(1, :b, nil)"), "[1, :b, nil]");
    EXPECT_EQ(outcome("H.three(1, 2)"), "ArgumentError: wrong number of arguments (given 2, expected 3)");
    EXPECT_EQ(outcome("H.none(1)"), "ArgumentError: wrong number of arguments (given 1, expected 0)");
}

TEST_F(HandlerTest, MethodsStandOnTheClassAlone) {
    EXPECT_EQ(evalText("H.new.respond_to?(:none)"), "false");
    EXPECT_EQ(evalText("H.superclass"), "Object");
    EXPECT_EQ(Ruby::open_class("H"), eval("H")) << "opening it again finds the class";
}

TEST_F(HandlerTest, NativeExceptionsBecomeTheRubyOnesThatStandForThem) {
    EXPECT_EQ(outcomeOf([] { throw std::invalid_argument("stoi"); }), "ArgumentError: stoi");
    EXPECT_EQ(outcomeOf([] { throw std::out_of_range("at"); }), "RangeError: at");
    EXPECT_EQ(outcomeOf([] { throw std::length_error("reserve"); }), "RangeError: reserve");
    EXPECT_EQ(outcomeOf([] { throw std::bad_alloc(); }), "NoMemoryError: failed to allocate memory");
    EXPECT_EQ(outcomeOf([] { throw NotImplemented("X.y"); }), "NotImplementedError: X.y is not implemented");
    EXPECT_EQ(outcomeOf([] { throw std::logic_error("logic"); }), "RuntimeError: logic");
    EXPECT_EQ(outcomeOf([] { throw std::runtime_error("100%s %n"); }), "RuntimeError: 100%s %n");
    EXPECT_EQ(outcomeOf([] { throw 5; }), "RuntimeError: unknown native error");
    EXPECT_EQ(outcomeOf([] {}), "true");
    EXPECT_EQ(Witness::living, 0);
}

TEST_F(HandlerTest, MessagesOfNativeExceptionsAreUtf8AndMayBeLong) {
    EXPECT_EQ(outcomeOf([] { throw std::runtime_error("\xc3\xa9"); }), "RuntimeError: \xc3\xa9");
    EXPECT_EQ(evalText("begin; H.run; rescue => e; e.message.encoding; end"), "UTF-8");
    native_body = [] { throw std::runtime_error(std::string(5000, 'x')); };
    EXPECT_EQ(evalText("begin; H.run; rescue => e; e.message.size > 500; end"), "true");
}

TEST_F(HandlerTest, ACommandToBeBuiltRaisesNotImplementedErrorWithItsName) {
    EXPECT_EQ(outcome("H.later(1, 2)"), "NotImplementedError: later is not implemented");
    EXPECT_EQ(outcome("H.later(1)"), "ArgumentError: wrong number of arguments (given 1, expected 2)");
}

TEST_F(HandlerTest, WrongTypesRaiseTheInterpretersOwnErrorsAndUnwindAllFrames) {
    EXPECT_EQ(outcome("H.add('a', 1.5, [1, 2])").substr(0, 3), "\"a.");
    EXPECT_EQ(outcome("H.add(1, 1.5, [])"), "TypeError: no implicit conversion of Integer into String");
    EXPECT_EQ(outcome("H.add('a', 'b', [])"), "TypeError: no implicit conversion to float from string");
    EXPECT_EQ(outcome("H.add('a', nil, [])"), "TypeError: no implicit conversion to float from nil");
    EXPECT_EQ(outcome("H.add('a', 1, 5)"), "TypeError: wrong argument type Integer (expected Array)");
    EXPECT_EQ(outcome("H.add('a', 1, [1, 'x'])"), "TypeError: no implicit conversion of String into Integer");
    EXPECT_EQ(outcome("H.add('a', 1, [2**40])"), "RangeError: integer 1099511627776 too big to convert to `int'");
    EXPECT_EQ(Witness::living, 0);
}

TEST_F(HandlerTest, TheExceptionObjectIsTheOneThatWasRaised) {
    eval("$error = RuntimeError.new('mine'); O = Object.new; def O.to_str; raise $error; end");
    EXPECT_EQ(outcome("begin; H.add(O, 1, []); rescue => e; e.equal?($error) && e.backtrace.size > 0; end"), "true");
    EXPECT_EQ(Witness::living, 0);
}

TEST_F(HandlerTest, ThrowBreakAndExitPassThrough) {
    eval("T = Object.new; def T.to_f; throw :out, 42; end; class T2; def self.back; throw :out, 43; end; end");
    eval("def T.to_str; throw :out, 44; end; class T3; def self.back; exit 3; end; end");
    EXPECT_EQ(outcome("catch(:out) { H.add(T, 1, []) }"), "44");
    EXPECT_EQ(outcome("catch(:out) { H.call_back('T2.back') }"), "43");
    EXPECT_EQ(outcome("begin; H.call_back('T3.back'); rescue SystemExit => e; e.status; end"), "3");
    EXPECT_EQ(Witness::living, 0);
}

TEST_F(HandlerTest, ExceptionsOfCalledRubyCodeGoOnAsTheSame) {
    eval("class T4; def self.back; raise NotImplementedError, 'inner'; end; def self.fine; 1; end; end");
    eval(
        "class T5; def self.back; H.call_back('T4.back'); end; def self.name_error; H.call_back('T4::Gone.x'); end; "
        "end");
    EXPECT_EQ(outcome("H.call_back('T4.fine')"), "true");
    EXPECT_EQ(outcome("H.call_back('T4.back')"), "NotImplementedError: inner");
    EXPECT_EQ(outcome("H.call_back('T5.back')"), "NotImplementedError: inner") << "through two handlers";
    EXPECT_EQ(outcome("H.call_back('T4::Gone.x')"), "NameError: uninitialized constant T4::Gone");
    EXPECT_EQ(outcome("H.call_back('T5.name_error')"), "false") << "rescued by the outer call";
    EXPECT_EQ(Witness::living, 0);
}

TEST_F(HandlerTest, IntIsReadAsTheInterpreterReadsIt) {
    const std::map<std::string, std::string> cases = {
        {"0", "0"},
        {"2**31 - 1", "2147483647"},
        {"-2**31", "-2147483648"},
        {"1.9", "1"},
        {"-1.9", "-1"},
        {"Rational(7, 2)", "3"},
        {"2**31", "RangeError: integer 2147483648 too big to convert to `int'"},
        {"-2**31 - 1", "RangeError: integer -2147483649 too small to convert to `int'"},
        {"2**70", "RangeError: bignum too big to convert into `long'"},
        {"nil", "TypeError: no implicit conversion from nil to integer"},
        {"true", "TypeError: no implicit conversion of true into Integer"},
        {"'1'", "TypeError: no implicit conversion of String into Integer"},
        {"Float::NAN", "RangeError: float NaN out of range of integer"},
    };
    for (const auto& [code, expected] : cases) EXPECT_EQ(outcome("H.int(" + code + ")"), expected) << code;
}

TEST_F(HandlerTest, UnsignedIsReadAsTheInterpreterReadsIt) {
    const std::map<std::string, std::string> cases = {
        {"0", "0"},
        {"2**32 - 1", "4294967295"},
        {"-1", "4294967295"},
        {"-2**31", "2147483648"},
        {"1.9", "1"},
        {"2**32", "RangeError: integer 4294967296 too big to convert to `unsigned int'"},
        {"-2**31 - 1", "RangeError: integer -2147483649 too small to convert to `unsigned int'"},
        {"nil", "TypeError: no implicit conversion from nil to integer"},
        {"'1'", "TypeError: no implicit conversion of String into Integer"},
    };
    for (const auto& [code, expected] : cases) EXPECT_EQ(outcome("H.uint(" + code + ")"), expected) << code;
}

TEST_F(HandlerTest, DoubleIsReadAsTheInterpreterReadsIt) {
    const std::map<std::string, std::string> cases = {
        {"1", "1.0"},
        {"-2.5", "-2.5"},
        {"1e-310", "1.0e-310"},
        {"-0.0", "-0.0"},
        {"Float::INFINITY", "Infinity"},
        {"2**70", "1.1805916207174113e+21"},
        {"Rational(1, 4)", "0.25"},
        {"nil", "TypeError: no implicit conversion to float from nil"},
        {"true", "TypeError: no implicit conversion to float from true"},
        {"'1'", "TypeError: no implicit conversion to float from string"},
        {"Object.new.freeze.class", "TypeError: can't convert Class into Float"},
    };
    for (const auto& [code, expected] : cases) EXPECT_EQ(outcome("H.double(" + code + ")"), expected) << code;
    EXPECT_EQ(outcome("H.float(0.1) == [0.1].pack('f').unpack1('f')"), "true");
    EXPECT_EQ(outcome("H.float(1e300)"), "Infinity");
}

TEST_F(HandlerTest, TextsAreCopiesWithTheirLength) {
    EXPECT_EQ(outcome("H.text(\"a\\0\xc3\xa9\")"), "\"a\\u0000\xc3\xa9\"");
    EXPECT_EQ(outcome("H.text('x' * 10000).size"), "10000");
    EXPECT_EQ(outcome("S = Object.new; def S.to_str; 'from to_str'; end; H.text(S)"), "\"from to_str\"");
    EXPECT_EQ(outcome("H.text(:symbol)"), "TypeError: no implicit conversion of Symbol into String");
    EXPECT_EQ(outcome("H.text(nil)"), "TypeError: no implicit conversion of nil into String");
}

TEST_F(HandlerTest, ZeroTerminatedTextsRefuseAZeroByte) {
    EXPECT_EQ(outcome("H.cstr('abc')"), "\"abc\"");
    EXPECT_EQ(outcome("H.cstr('abc').encoding"), "#<Encoding:ASCII-8BIT>");
    EXPECT_EQ(outcome("H.cstr(\"a\\0b\")"), "ArgumentError: string contains null byte");
    EXPECT_EQ(outcome("H.cstr(5)"), "TypeError: no implicit conversion of Integer into String");
}

TEST_F(HandlerTest, OnlyTrueItselfIsTrue) {
    EXPECT_EQ(outcome("[true, false, nil, 1, 'true', :true, []].map { |v| H.true?(v) }"),
              "[true, false, false, false, false, false, false]");
}

TEST_F(HandlerTest, ChecksOfTypesConvertNothing) {
    EXPECT_EQ(outcome("H.check_array([])"), "true");
    EXPECT_EQ(outcome("H.check_array('x')"), "TypeError: wrong argument type String (expected Array)");
    EXPECT_EQ(outcome("H.check_array({})"), "TypeError: wrong argument type Hash (expected Array)");
    EXPECT_EQ(outcome("H.check_string('x')"), "true");
    EXPECT_EQ(outcome("H.check_string(nil)"), "TypeError: wrong argument type nil (expected String)");
    EXPECT_EQ(outcome("S2 = Object.new; def S2.to_str; 'x'; end; H.check_string(S2)"),
              "TypeError: wrong argument type Object (expected String)");
}

TEST_F(HandlerTest, ListsOfFixedLengthNeedAllTheirElements) {
    EXPECT_EQ(outcome("H.doubles([1, 2.5, 3])"), "6.5");
    EXPECT_EQ(outcome("H.doubles([1, 2, 3, 'not looked at'])"), "6.0");
    EXPECT_EQ(outcome("H.doubles([1, 2])"), "TypeError: no implicit conversion to float from nil");
    EXPECT_EQ(outcome("H.doubles(1)"), "TypeError: wrong argument type Integer (expected Array)");
}

TEST_F(HandlerTest, AListThatShrinksWhileItIsReadIsReadToItsNewEnd) {
    eval("L = [1, Object.new, 3, 4]; o = L[1]; o.define_singleton_method(:to_int) { L.clear; 2 }");
    EXPECT_EQ(outcome("H.add('a', 0, L)[-1]"), "\"2\"");
}

TEST_F(HandlerTest, WorksUnderGarbageCollectionAtEveryStep) {
    EXPECT_EQ(
        outcome("GC.stress = true; begin; 20.times { H.add('a' * 50, 1, [1]); H.text(S3) rescue 0; "
                "begin; H.add(1, 2, 3); rescue TypeError; end; H.cstr('b' * 50); H.later(1, 2) rescue 0 }; 'done'; "
                "rescue NotImplementedError; 'done'; ensure; GC.stress = false; end"),
        "\"done\"");
}

}  // namespace
}  // namespace Velmar
