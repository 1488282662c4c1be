#include "plugin/ruby/convert.h"

#include <cmath>
#include <cstdint>
#include <limits>

#include "plugin/ruby/interpreter.h"
#include "support/embedded_ruby.h"

namespace Velmar {
namespace {

using Ruby::Convert;

class ConvertTest : public TestSupport::RubyTest {
protected:
    template <typename T>
    static T from(const std::string& code, T default_value) {
        return Convert<T>::from_ruby(eval(code), default_value);
    }

    /// The values at the ends of T's range come through; the ones beyond give the default, what is no number gives 0.
    template <typename T>
    static void expectNarrowRange() {
        const std::string low = std::to_string(std::numeric_limits<T>::min());
        const std::string high = std::to_string(std::numeric_limits<T>::max());
        EXPECT_EQ(from<T>(low, 7), std::numeric_limits<T>::min());
        EXPECT_EQ(from<T>(high, 7), std::numeric_limits<T>::max());
        EXPECT_EQ(from<T>(low + " - 1", 7), T{7});
        EXPECT_EQ(from<T>(high + " + 1", 7), T{7});
        EXPECT_EQ(from<T>("2**40", 7), T{7});
        EXPECT_EQ(from<T>("'text'", 7), T{0});
        EXPECT_EQ(from<T>("nil", 7), T{0});
        EXPECT_EQ(from<T>("2**70", 7), T{0}) << "the base type cannot hold it";
        EXPECT_EQ(from<T>("3.9", 7), T{3});
    }
};

TEST_F(ConvertTest, NarrowIntegersTestTheirRange) {
    expectNarrowRange<char>();
    expectNarrowRange<signed char>();
    expectNarrowRange<unsigned char>();
    expectNarrowRange<short>();
    expectNarrowRange<unsigned short>();
    expectNarrowRange<int>();
    expectNarrowRange<unsigned int>();
}

TEST_F(ConvertTest, LongTakesWhatFitsAndElseTheDefault) {
    EXPECT_EQ(from<long>("-5", 7), -5);
    EXPECT_EQ(from<long>("2**62", 7), 1L << 62);
    EXPECT_EQ(from<long>("-2**63", 7), INT64_MIN);
    EXPECT_EQ(from<long>("2**63", 7), 7);
    EXPECT_EQ(from<long>("12.7", 7), 12);
    EXPECT_EQ(from<long>("'text'", 7), 7);
    EXPECT_EQ(from<long>("nil", 7), 7);
    EXPECT_EQ(from<long>("Object.new", 7), 7);
}

TEST_F(ConvertTest, LongLongIsAsLong) {
    EXPECT_EQ(from<long long>("-5", 7), -5);
    EXPECT_EQ(from<long long>("-2**63", 7), INT64_MIN);
    EXPECT_EQ(from<long long>("2**63", 7), 7);
    EXPECT_EQ(from<long long>("[]", 7), 7);
}

TEST_F(ConvertTest, UnsignedLongTakesWhatFits) {
    EXPECT_EQ(from<unsigned long>("5", 7), 5U);
    EXPECT_EQ(from<unsigned long>("2**64 - 1", 7), UINT64_MAX);
    EXPECT_EQ(from<unsigned long>("2**64", 7), 7U);
    EXPECT_EQ(from<unsigned long>("-1", 7), UINT64_MAX);
    EXPECT_EQ(from<unsigned long>("'text'", 7), 7U);
}

TEST_F(ConvertTest, UnsignedLongLongTakesWhatFits) {
    EXPECT_EQ(from<unsigned long long>("5", 7), 5U);
    EXPECT_EQ(from<unsigned long long>("2**64 - 1", 7), UINT64_MAX);
    EXPECT_EQ(from<unsigned long long>("2**64", 7), 7U);
    EXPECT_EQ(from<unsigned long long>("'text'", 7), 7U);
}

TEST_F(ConvertTest, FloatingNumbersTakeAnyNumber) {
    EXPECT_EQ(from<double>("1.25", 7), 1.25);
    EXPECT_EQ(from<double>("3", 7), 3.0);
    EXPECT_EQ(from<double>("2**70", 7), std::ldexp(1.0, 70));
    EXPECT_EQ(from<double>("Rational(1, 4)", 7), 0.25);
    EXPECT_EQ(from<double>("1e-310", 7), 1e-310) << "a float that stands on the heap";
    EXPECT_EQ(from<double>("'1.5'", 7), 7.0);
    EXPECT_EQ(from<double>("true", 7), 7.0);
    EXPECT_EQ(from<float>("0.1", 7), 0.1F);
    EXPECT_EQ(from<float>("1e300", 7), std::numeric_limits<float>::infinity());
    EXPECT_EQ(from<float>("nil", 7), 7.0F);
}

TEST_F(ConvertTest, BoolLooksAtTheValueItself) {
    const std::map<std::string, bool> cases = {
        {"true", true},
        {"false", false},
        {"nil", false},
        {"0", false},
        {"1", true},
        {"-1", true},
        {"2**32", true},
        {"2**61", true},
        {"2**70", true},
        {"-2**70", true},
        {"0.0", false},
        {"-0.0", false},
        {"0.5", true},
        {"1e-310", true},
        {"Float::NAN", true},
        {"''", false},
        {"'0'", true},
        {":''", false},
        {":a", true},
        {"'dyn'.to_sym", true},
        {"'rnd9x71'.to_sym", true},
        {"[]", false},
        {"[nil]", true},
        {"{}", false},
        {"{a: nil}", true},
    };
    for (const auto& [code, expected] : cases) {
        EXPECT_EQ(from<bool>(code, !expected), expected) << code;
        EXPECT_EQ(from<bool>(code, expected), expected) << code;
    }
}

TEST_F(ConvertTest, BoolOfAnyOtherObjectIsTheDefault) {
    for (const char* code :
         {"Object.new", "Object", "1..2", "Rational(0, 1)", "/x/", "proc {}", "Struct.new(:a).new(1)"}) {
        EXPECT_TRUE(from<bool>(code, true)) << code;
        EXPECT_FALSE(from<bool>(code, false)) << code;
    }
}

TEST_F(ConvertTest, BoolAndTextOfTheUndefinedValue) {
    EXPECT_FALSE(Convert<bool>::from_ruby(Qundef, true));
    EXPECT_EQ(Convert<std::string>::from_ruby(Qundef, "default"), "default");
}

TEST_F(ConvertTest, TextIsTheBytesOfAString) {
    EXPECT_EQ(from<std::string>("\"a\\0b\"", "x"), std::string("a\0b", 3));
    EXPECT_EQ(from<std::string>("''", "x"), "");
    EXPECT_EQ(from<std::string>("\"\\xff\\xfe\".b", "x"), "\xff\xfe");
    EXPECT_EQ(from<std::string>("'long ' * 1000", "x").size(), 5000U);
}

TEST_F(ConvertTest, TextIsTheNameOfASymbol) {
    EXPECT_EQ(from<std::string>(":name", "x"), "name");
    EXPECT_EQ(from<std::string>("('made' + 'up7713').to_sym", "x"), "madeup7713");
}

TEST_F(ConvertTest, TextOfAnythingElseIsTheDefault) {
    for (const char* code : {"nil", "true", "false", "1", "1.5", "2**70", "[]", "{}", "Object.new"}) {
        EXPECT_EQ(from<std::string>(code, "default"), "default") << code;
    }
}

TEST_F(ConvertTest, TextGoesToRubyAsUtf8WithItsLength) {
    const VALUE string = Convert<std::string>::to_ruby(std::string("\xc3\xa9\0z", 4));
    rb_gv_set("$text", string);
    EXPECT_EQ(evalText("$text.encoding"), "UTF-8");
    EXPECT_EQ(evalText("$text.bytes"), "[195, 169, 0, 122]");
}

TEST_F(ConvertTest, MapGoesToRubyInKeyOrder) {
    rb_gv_set("$map", (Convert<std::map<std::string, std::string>>::to_ruby({{"b", "2"}, {"a", "1"}, {"c", ""}})));
    EXPECT_EQ(evalText("$map.to_a.inspect"), R"([["a", "1"], ["b", "2"], ["c", ""]])");
}

TEST_F(ConvertTest, MapTakesTextsAndEmptiesWhatIsNone) {
    using Map = std::map<std::string, std::string>;
    EXPECT_EQ(from<Map>("{}", {{"d", "d"}}), Map());
    EXPECT_EQ(from<Map>("{'a' => :b, :c => 'd'}", {}), (Map{{"a", "b"}, {"c", "d"}}));
    EXPECT_EQ(from<Map>("{'a' => 1, 2 => 'b', nil => 'c'}", {}), (Map{{"a", ""}, {"", "b"}}));
}

TEST_F(ConvertTest, MapKeepsTheFirstOfEqualKeys) {
    using Map = std::map<std::string, std::string>;
    EXPECT_EQ(from<Map>("{'a' => 'text', :a => 'symbol'}", {}), (Map{{"a", "text"}}));
    EXPECT_EQ(from<Map>("{:a => 'symbol', 'a' => 'text'}", {}), (Map{{"a", "symbol"}}));
}

TEST_F(ConvertTest, MapOfAnythingElseIsTheDefault) {
    using Map = std::map<std::string, std::string>;
    const Map default_value = {{"d", "d"}};
    for (const char* code : {"nil", "true", "1", "1.5", "'a'", ":a", "[['a', 'b']]", "Object.new"}) {
        EXPECT_EQ(from<Map>(code, default_value), default_value) << code;
    }
}

TEST_F(ConvertTest, AnExceptionOutsideStandardErrorLeavesAsAJump) {
    const VALUE object = eval("Class.new { def to_int; raise NotImplementedError, 'not here'; end }.new");
    EXPECT_EQ(raised([&] { Convert<long>::from_ruby(object, 7); }), "NotImplementedError: not here");
}

TEST_F(ConvertTest, SurvivesGarbageCollectionAtEveryStep) {
    using Map = std::map<std::string, std::string>;
    Map map;
    for (int i = 0; i < 30; ++i) map["key " + std::to_string(i)] = "value " + std::to_string(i);
    eval("GC.stress = true");
    const VALUE hash = Convert<Map>::to_ruby(map);
    eval("GC.stress = false");
    EXPECT_EQ(Convert<Map>::from_ruby(hash, {}), map);
}

}  // namespace
}  // namespace Velmar
