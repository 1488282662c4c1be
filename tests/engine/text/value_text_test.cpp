#include "engine/text/value_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <limits>
#include <random>

namespace Velmar::Engine {
namespace {

std::string textOf(const Value& value) {
    std::string text;
    appendValue(text, value);
    return text;
}

bool reads(const std::string& text, Value value) {
    return readValue(text, value);
}

template <typename T>
SharedArray<T> array(std::vector<T> values) {
    return std::make_shared<const std::vector<T>>(std::move(values));
}

void expectSameBits(std::uint32_t bits) {
    const Value value = std::bit_cast<float>(bits);
    Value back = 0.0F;
    ASSERT_TRUE(readValue(textOf(value), back)) << textOf(value);
    ASSERT_EQ(std::bit_cast<std::uint32_t>(std::get<float>(back)), bits) << textOf(value);
}

TEST(ValueText, WritesFloatsInShortestForm) {
    EXPECT_EQ(textOf(0.1F), "0.1");
    EXPECT_EQ(textOf(1.0F), "1");
    EXPECT_EQ(textOf(-0.0F), "-0");
    EXPECT_EQ(textOf(16777216.0F), "16777216");
    EXPECT_EQ(textOf(1.0e-45F), "1e-45");
    EXPECT_EQ(textOf(std::numeric_limits<float>::infinity()), "inf");
    EXPECT_EQ(textOf(-std::numeric_limits<float>::infinity()), "-inf");
    EXPECT_EQ(textOf(std::bit_cast<float>(0x7FC00000U)), "nan");
    EXPECT_EQ(textOf(std::bit_cast<float>(0xFFC00001U)), "nan:ffc00001");
}

TEST(ValueText, ReadsFloatsBackBitByBit) {
    for (std::uint32_t exponent = 0; exponent < 512; ++exponent) {
        for (const std::uint32_t mantissa : {0U, 1U, 2U, 0x2AAAAAU, 0x400000U, 0x7FFFFEU, 0x7FFFFFU}) {
            expectSameBits(exponent << 23U | mantissa);
        }
    }
    std::mt19937 random(3);
    for (int i = 0; i < 300000; ++i) expectSameBits(static_cast<std::uint32_t>(random()));
}

TEST(ValueText, WritesAndReadsEachKind) {
    const std::vector<std::pair<Value, std::string>> rows = {
        {true, "true"},
        {false, "false"},
        {-2147483647 - 1, "-2147483648"},
        {Vec2<int>{1, -2}, "1 -2"},
        {Vec3<int>{1, 2, 3}, "1 2 3"},
        {Vec4<int>{1, 2, 3, 4}, "1 2 3 4"},
        {Vec2<float>{0.5F, 2}, "0.5 2"},
        {Vec3<float>{1, 2, 3}, "1 2 3"},
        {Vec4<float>{1, 2, 3, 4}, "1 2 3 4"},
        {Matrix<float>{{{1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}}}, "1 2 3 4 5 6 7 8 9 10 11 12"},
        {array<int>({1, 2, 3}), "\n1 2 3\n"},
        {array<Vec2<int>>({{1, 2}, {3, 4}}), "\n1 2\n3 4\n"},
        {array<Vec3<int>>({{1, 2, 3}}), "\n1 2 3\n"},
        {array<Vec4<int>>({{1, 2, 3, 4}}), "\n1 2 3 4\n"},
        {array<float>({0.5F}), "\n0.5\n"},
        {array<Vec2<float>>({{1, 2}, {3, 4}}), "\n1 2\n3 4\n"},
        {array<Vec3<float>>({{1, 2, 3}, {4, 5, 6}}), "\n1 2 3\n4 5 6\n"},
        {array<Vec4<float>>({{1, 2, 3, 4}}), "\n1 2 3 4\n"},
        {array<Matrix<float>>({Matrix<float>{}}), "\n0 0 0 0 0 0 0 0 0 0 0 0\n"},
        {array<unsigned char>({0, 255, 16}), "\n00ff10\n"},
    };
    for (const auto& [value, text] : rows) {
        EXPECT_EQ(textOf(value), text);
        Value back = value;
        std::visit([](auto& held) { held = {}; }, back);
        EXPECT_TRUE(readValue(text, back)) << text;
        EXPECT_TRUE(sameValue(back, value)) << text;
    }
}

TEST(ValueText, BreaksLongArraysIntoLines) {
    EXPECT_EQ(textOf(array(std::vector<int>(18, 7))), "\n7 7 7 7 7 7 7 7 7 7 7 7 7 7 7 7\n7 7\n");
    std::string bytes = "\n";
    for (int i = 0; i < 32; ++i) bytes += "01";
    EXPECT_EQ(textOf(array(std::vector<unsigned char>(33, 1))), bytes + "\n01\n");
    EXPECT_EQ(textOf(SharedArray<int>()), "");
}

TEST(ValueText, RefusesWhatIsNotExactlyAValue) {
    for (const char* text : {"", "x", "1 2", "1.5", "99999999999", "1,2", "0x10", "+1", "1a"}) {
        EXPECT_FALSE(reads(text, 0)) << text;
    }
    for (const char* text :
         {"", "1 2", "1e99", "1.0.0", "nan:", "nan:0", "nan:7fc00001x", "nanx", "--1", "+1", "nan(1)"}) {
        EXPECT_FALSE(reads(text, 0.0F)) << text;
    }
    for (const char* text : {"", "1", "TRUE", "truefalse", "true true"}) EXPECT_FALSE(reads(text, false)) << text;
    for (const char* text : {"1", "1 2", "1 2 3 4", "1 2 x"}) EXPECT_FALSE(reads(text, Vec3<float>())) << text;
    for (const char* text : {"1 2 3 4", "x"}) EXPECT_FALSE(reads(text, SharedArray<Vec3<float>>())) << text;
    for (const char* text : {"0", "0g", "00 1", "001", "-1"})
        EXPECT_FALSE(reads(text, SharedArray<unsigned char>())) << text;
    EXPECT_FALSE(reads("text", std::string()));
}

TEST(ValueText, TakesAnyBlanksBetweenNumbers) {
    Value value = Vec3<float>();
    EXPECT_TRUE(readValue("\n 1\t2\r\n3 ", value));
    EXPECT_EQ(std::get<Vec3<float>>(value), (Vec3<float>{1, 2, 3}));
}

TEST(ValueText, TellsEqualValuesBitByBit) {
    EXPECT_FALSE(sameValue(0.0F, -0.0F));
    EXPECT_TRUE(sameValue(std::bit_cast<float>(0x7FC00000U), std::bit_cast<float>(0x7FC00000U)));
    EXPECT_TRUE(sameValue(SharedArray<int>(), array<int>({})));
    EXPECT_FALSE(sameValue(array<int>({1}), SharedArray<int>()));
    EXPECT_TRUE(sameValue(SharedTexts(), makeTexts(nullptr, 0)));
    const char* one = "a";
    EXPECT_FALSE(sameValue(makeTexts(&one, 1), SharedTexts()));
    EXPECT_TRUE(sameValue(makeTexts(&one, 1), makeTexts(&one, 1)));
}

}  // namespace
}  // namespace Velmar::Engine
