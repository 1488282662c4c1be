#include <gtest/gtest.h>

#include <random>
#include <set>

#include "plugin/utils/strings.h"

namespace Velmar {
namespace {

using namespace std::string_literals;

std::string encoded(const std::string& text) {
    std::string out = "left over";
    Strings::Base64Encode(text, out);
    return out;
}

std::string decoded(const std::string& text) {
    std::string out = "left over";
    Strings::Base64Decode(text, out);
    return out;
}

TEST(Base64Encode, PadsTheTailToFourCharacters) {
    EXPECT_EQ(encoded(""), "");
    EXPECT_EQ(encoded("M"), "TQ==");
    EXPECT_EQ(encoded("Ma"), "TWE=");
    EXPECT_EQ(encoded("Man"), "TWFu");
    EXPECT_EQ(encoded("Many"), "TWFueQ==");
}

TEST(Base64Encode, UsesTheStandardAlphabetAndNoLineBreaks) {
    EXPECT_EQ(encoded("\xfb\xff\xfe"s), "+//+");
    EXPECT_EQ(encoded("\0\0\0"s), "AAAA");
    EXPECT_EQ(encoded(std::string(300, 'x')).find('\n'), std::string::npos);
}

TEST(Base64Decode, TakesPaddedAndUnpaddedTails) {
    EXPECT_EQ(decoded(""), "");
    EXPECT_EQ(decoded("TWFu"), "Man");
    EXPECT_EQ(decoded("TWE="), "Ma");
    EXPECT_EQ(decoded("TWE"), "Ma");
    EXPECT_EQ(decoded("TQ=="), "M");
    EXPECT_EQ(decoded("TQ="), "M");
    EXPECT_EQ(decoded("TQ"), "M");
}

TEST(Base64Decode, DropsAGroupWithMoreThanTwoPlacesMissing) {
    EXPECT_EQ(decoded("T"), "");
    EXPECT_EQ(decoded("T==="), "");
    EXPECT_EQ(decoded("===="), "");
    EXPECT_EQ(decoded("TWFuT"), "Man");
}

TEST(Base64Decode, SkipsWhatIsNotInTheTable) {
    EXPECT_EQ(decoded("TW\r\nFu"), "Man");
    EXPECT_EQ(decoded("\nT W\tF u\n"), "Man");
    EXPECT_EQ(decoded("T\x7fW\x80!F\xff!#$%&'()*,.:;<>?@[\\]^`{|}~u"), "Man");
    EXPECT_EQ(decoded("T\0W\x01!F\x1fu"s), "Man");
}

TEST(Base64Decode, TakesTheUrlFormToo) {
    EXPECT_EQ(decoded("-__-"), "\xfb\xff\xfe");
    EXPECT_EQ(decoded("+//+"), "\xfb\xff\xfe");
}

TEST(Base64Decode, CountsPaddingAnywhereInTheGroup) {
    EXPECT_EQ(decoded("=WFu").size(), 2U);
    EXPECT_EQ(decoded("T=F=").size(), 1U);
}

TEST(Base64Decode, GoesOnAfterAPaddedGroup) {
    EXPECT_EQ(decoded("TQ==TWFu"), "MMan");
}

TEST(Base64Decode, UndoesTheEncodingOfRandomBytes) {
    std::mt19937 random(7);
    for (std::size_t length = 0; length < 200; ++length) {
        std::string text(length, '\0');
        for (char& byte : text) byte = static_cast<char>(random());
        EXPECT_EQ(decoded(encoded(text)), text);
    }
}

/// What the quoting functions write for one byte, without the quotes around it.
std::string quoted(unsigned char byte, bool utf8) {
    const std::string text(1, static_cast<char>(byte));
    const std::string quote = utf8 ? Strings::Uquote(text) : Strings::Bquote(text);
    EXPECT_EQ(quote.front(), '"');
    EXPECT_EQ(quote.back(), '"');
    return quote.substr(1, quote.size() - 2);
}

std::string hexEscape(unsigned char byte) {
    char text[5];
    std::snprintf(text, sizeof text, "\\x%02x", byte);
    return text;
}

TEST(Quote, WritesEveryByteAsItsRowSays) {
    const std::map<int, std::string> named = {{0, "\\0"},  {9, "\\t"},   {10, "\\n"}, {12, "\\f"},
                                              {13, "\\r"}, {34, "\\\""}, {92, "\\\\"}};
    for (int value = 0; value < 256; ++value) {
        const auto byte = static_cast<unsigned char>(value);
        const std::string itself(1, static_cast<char>(byte));
        if (named.contains(value)) {
            EXPECT_EQ(quoted(byte, false), named.at(value));
            EXPECT_EQ(quoted(byte, true), named.at(value));
        } else if (value < 31 || value == 127) {
            EXPECT_EQ(quoted(byte, false), hexEscape(byte));
            EXPECT_EQ(quoted(byte, true), hexEscape(byte));
        } else {
            EXPECT_EQ(quoted(byte, false), value < 128 ? itself : hexEscape(byte)) << value;
            EXPECT_EQ(quoted(byte, true), itself) << value;
        }
    }
}

TEST(Quote, LeavesByte31AsItIs) {
    EXPECT_EQ(Strings::Bquote("\x1f"s), "\"\x1f\"");
    EXPECT_EQ(Strings::Uquote("\x1f"s), "\"\x1f\"");
}

TEST(Quote, KeepsUtf8OnlyInUquote) {
    EXPECT_EQ(Strings::Bquote("\xc3\xa9"s), "\"\\xc3\\xa9\"");
    EXPECT_EQ(Strings::Uquote("\xc3\xa9"s), "\"\xc3\xa9\"");
}

TEST(Quote, NamesANullPointerWithoutQuotes) {
    const char* nothing = nullptr;
    EXPECT_EQ(Strings::Bquote(nothing), "<null>");
    EXPECT_EQ(Strings::Uquote(nothing), "<null>");
    EXPECT_EQ(Strings::Bquote("a"), "\"a\"");
    EXPECT_EQ(Strings::Uquote(""), "\"\"");
}

TEST(Hex, FillsWithZerosToTheWidthAndNeverCutsDigits) {
    EXPECT_EQ(Strings::Hex(0xabcU, 8), "00000abc");
    EXPECT_EQ(Strings::Hex(0xabcdefU, 2), "abcdef");
    EXPECT_EQ(Strings::Hex(0U, 0), "0");
    EXPECT_EQ(Strings::Hex(0U, 4), "0000");
}

TEST(Hex, TakesAllItsTypes) {
    EXPECT_EQ(Strings::Hex(static_cast<int>(255), 4), "00ff");
    EXPECT_EQ(Strings::Hex(static_cast<int>(-1), 4), "ffffffff");
    EXPECT_EQ(Strings::Hex(static_cast<unsigned short>(0xbeef), 1), "beef");
    EXPECT_EQ(Strings::Hex(static_cast<unsigned char>(7), 2), "07");
    EXPECT_EQ(Strings::Hex(0xfedcba9876543210UL, 16), "fedcba9876543210");
}

TEST(Hexdump, WritesTwoDigitsPerByteWithBlanksBetween) {
    EXPECT_EQ(Strings::Hexdump("\x01\xab\xff", 3), "01 ab ff");
    EXPECT_EQ(Strings::Hexdump("\x09", 1), "09");
    EXPECT_EQ(Strings::Hexdump("x", 0), "<empty>");
    EXPECT_EQ(Strings::Hexdump(nullptr, 0), "<null>");
    EXPECT_EQ(Strings::Hexdump(nullptr, 5), "<null>");
}

}  // namespace
}  // namespace Velmar
