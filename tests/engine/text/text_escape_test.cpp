#include "engine/text/text_escape.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace Velmar::Engine {
namespace {

std::string escaped(std::string_view text) {
    std::string storage;
    return std::string(escapeText(text, storage));
}

TEST(TextEscape, LeavesOrdinaryTextAsItIs) {
    for (const char* text : {"", "Steel", "C:\\maps\\a_b.png", "caf\xC3\xA9 \xE6\xBC\xA2 \xF0\x9F\x99\x82", "a<b>&\"'",
                             "_x", "_x12_", "x0041_", "_xzzzz_"}) {
        EXPECT_EQ(escaped(text), text);
        EXPECT_EQ(unescapeText(text), text);
    }
}

TEST(TextEscape, WritesControlCharactersAsGroups) {
    EXPECT_EQ(escaped("a\tb\nc\rd\x01"), "a_x0009_b_x000A_c_x000D_d_x0001_");
    EXPECT_EQ(unescapeText("a_x0009_b_x000A_c_x000D_d_x0001_"), "a\tb\nc\rd\x01");
}

TEST(TextEscape, WritesBytesThatAreNoTextAsGroups) {
    EXPECT_EQ(escaped("\xFF"
                      "A\xC3"),
              "_xDCFF_A_xDCC3_");
    EXPECT_EQ(escaped("\xED\xA0\x80"), "_xDCED__xDCA0__xDC80_");  // a surrogate
    EXPECT_EQ(escaped("\xC0\xAF"), "_xDCC0__xDCAF_");             // an overlong slash
    EXPECT_EQ(escaped("\xF4\x90\x80\x80"), "_xDCF4__xDC90__xDC80__xDC80_");
    EXPECT_EQ(escaped("\xEF\xBF\xBE\xEF\xBF\xBF"), "_xFFFE__xFFFF_");
    EXPECT_EQ(escaped("\xEF\xBF\xBD"), "\xEF\xBF\xBD");
}

TEST(TextEscape, KeepsWhatLooksLikeAGroup) {
    EXPECT_EQ(escaped("_x0041_"), "_x005F_x0041_");
    EXPECT_EQ(unescapeText("_x005F_x0041_"), "_x0041_");
    EXPECT_EQ(unescapeText("_x0041_"), "_x0041_");  // nothing that is written so
    EXPECT_EQ(unescapeText("_x0000_"), "_x0000_");
}

TEST(TextEscape, ReadsBackEveryPair) {
    for (int a = 1; a < 256; ++a) {
        for (int b = 1; b < 256; ++b) {
            const std::string text{static_cast<char>(a), static_cast<char>(b)};
            ASSERT_EQ(unescapeText(escaped(text)), text);
        }
    }
}

// Letters that groups are made of, so that they meet in all ways.
TEST(TextEscape, ReadsBackTextsFullOfGroups) {
    std::mt19937 random(1);
    const std::string letters = "__xx00159AFDC\x01\n\xFF\xEF\xBF\xBE";
    for (int i = 0; i < 200000; ++i) {
        std::string text;
        for (unsigned length = random() % 24; length > 0; --length) text += letters[random() % letters.size()];
        ASSERT_EQ(unescapeText(escaped(text)), text) << escaped(text);
    }
}

TEST(TextEscape, WritesNothingThatXmlCannotHold) {
    std::mt19937 random(2);
    for (int i = 0; i < 20000; ++i) {
        std::string text;
        for (int length = 0; length < 12; ++length) text += static_cast<char>(1 + random() % 255);
        const std::string written = escaped(text);
        // A second time there is nothing left to escape but the groups of the first.
        std::string again = escaped(written);
        for (std::size_t at = 0; (at = again.find("_x005F_", at)) != std::string::npos; ++at) again.replace(at, 7, "_");
        ASSERT_EQ(again, written);
        for (const char c : written) ASSERT_GE(static_cast<unsigned char>(c), 0x20);
    }
}

}  // namespace
}  // namespace Velmar::Engine
