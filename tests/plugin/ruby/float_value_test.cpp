// Floats are read the way the interpreter reads them, whichever of its two forms they have.
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

#include "plugin/ruby/arguments.h"
#include "support/embedded_ruby.h"

namespace Velmar {
namespace {

class FloatValue : public TestSupport::RubyTest {
protected:
    static void expectRead(double number) {
        VALUE value = rb_float_new(number);
        const auto bits = std::bit_cast<std::uint64_t>(number);
        ASSERT_EQ(std::bit_cast<std::uint64_t>(rb_float_value(value)), bits);
        ASSERT_EQ(std::bit_cast<std::uint64_t>(Ruby::float_value(value)), bits) << number;
        ASSERT_EQ(std::bit_cast<std::uint64_t>(Ruby::to_double(value)), bits) << number;
        RB_GC_GUARD(value);
    }
};

TEST_F(FloatValue, AgreesWithTheInterpreterOnNumbersOfAllSizes) {
    std::mt19937_64 random(13);
    int in_the_reference = 0;
    for (int i = 0; i < 200'000; ++i) {
        const auto number = std::bit_cast<double>(random());
        ASSERT_NO_FATAL_FAILURE(expectRead(number));
        const double usual =
            std::ldexp(static_cast<double>(random() % 2'000'001) - 1e6, static_cast<int>(random() % 80) - 60);
        ASSERT_NO_FATAL_FAILURE(expectRead(usual));
        if (RB_FLONUM_P(rb_float_new(usual))) ++in_the_reference;
    }
    EXPECT_GT(in_the_reference, 150'000);
}

TEST_F(FloatValue, AgreesWithTheInterpreterAtTheEdgesOfTheForms) {
    using Limits = std::numeric_limits<double>;
    for (const double sign : {1.0, -1.0}) {
        for (const double number :
             {0.0, 1.0, Limits::min(), Limits::max(), Limits::denorm_min(), Limits::infinity(), Limits::quiet_NaN()}) {
            ASSERT_NO_FATAL_FAILURE(expectRead(std::copysign(number, sign)));
        }
        for (int exponent = -1030; exponent < 1024; ++exponent) {
            const double power = std::ldexp(sign, exponent);
            for (const double number : {power, std::nextafter(power, 0.0), std::nextafter(power, 4.0 * power)}) {
                ASSERT_NO_FATAL_FAILURE(expectRead(number));
            }
        }
    }
}

}  // namespace
}  // namespace Velmar
