#include <gtest/gtest.h>

#include <chrono>
#include <ctime>
#include <set>
#include <thread>

#include "plugin/utils/strings.h"

namespace Velmar {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;

std::string utcSeconds() {
    const std::time_t now = std::time(nullptr);
    std::tm utc{};
    gmtime_r(&now, &utc);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &utc);
    return text;
}

TEST(Timestamp, IsNowInUtcWithThreeDigitsOfMilliseconds) {
    setenv("TZ", "Pacific/Kiritimati", 1);
    tzset();
    const std::string before = utcSeconds();
    const std::string stamp = Strings::Timestamp();
    const std::string after = utcSeconds();
    unsetenv("TZ");
    tzset();
    ASSERT_THAT(stamp, testing::MatchesRegex("[0-9]+-[0-9][0-9]-[0-9][0-9] [0-9:]+[.][0-9][0-9][0-9]"));
    const std::string seconds = stamp.substr(0, stamp.size() - 4);
    EXPECT_GE(seconds, before);
    EXPECT_LE(seconds, after);
}

TEST(Timestamp, AlwaysHasThreeDigitsOfMilliseconds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(1100);
    std::set<std::string> leading;
    while (std::chrono::steady_clock::now() < end) {
        const std::string stamp = Strings::Timestamp();
        ASSERT_EQ(stamp.size(), 23U) << stamp;
        leading.insert(stamp.substr(20, 1));
        std::this_thread::sleep_for(std::chrono::milliseconds(7));
    }
    EXPECT_TRUE(leading.contains("0")) << "a full second passed without a small fraction";
}

TEST(RandomUuidString, HasTheShapeOfAnIdentifier) {
    const std::string id = Strings::RandomUuidString();
    ASSERT_EQ(id.size(), 36U);
    for (std::size_t i = 0; i < id.size(); ++i) {
        const bool dash = i == 8 || i == 13 || i == 18 || i == 23;
        const std::string allowed = dash ? "-" : "0123456789abcdef";
        EXPECT_NE(allowed.find(id[i]), std::string::npos) << id << " at " << i;
    }
}

TEST(RandomUuidString, DiffersFromCallToCallOnAllThreads) {
    constexpr int count = 500;
    std::vector<std::vector<std::string>> found(4);
    std::vector<std::thread> threads;
    for (auto& list : found) {
        threads.emplace_back([&list] {
            for (int i = 0; i < count; ++i) list.push_back(Strings::RandomUuidString());
        });
    }
    for (std::thread& thread : threads) thread.join();
    std::set<std::string> distinct;
    for (const auto& list : found) distinct.insert(list.begin(), list.end());
    EXPECT_EQ(distinct.size(), 4U * count);
}

TEST(Str2int, ReadsTheLeadingNumberInItsBase) {
    EXPECT_EQ(Strings::Str2int("-42", 10), -42);
    EXPECT_EQ(Strings::Str2int(" 12 rest", 10), 12);
    EXPECT_EQ(Strings::Str2int("ff", 16), 255);
    EXPECT_EQ(Strings::Str2int("0x1F", 0), 31);
    EXPECT_EQ(Strings::Str2int("none", 10), 0);
    EXPECT_EQ(Strings::Str2int("", 10), 0);
    EXPECT_EQ(Strings::Str2int("99999999999999999999", 10), INT64_MAX);
}

TEST(Str2uint, ReadsTheLeadingNumberInItsBase) {
    EXPECT_EQ(Strings::Str2uint("18446744073709551615", 10), UINT64_MAX);
    EXPECT_EQ(Strings::Str2uint("777", 8), 511U);
    EXPECT_EQ(Strings::Str2uint("-1", 10), UINT64_MAX);
    EXPECT_EQ(Strings::Str2uint("none", 10), 0U);
}

TEST(Trim, TakesTheCharactersOffTheEnds) {
    EXPECT_EQ(Strings::Trim("/-a-b-/", "/-"), "a-b");
    EXPECT_EQ(Strings::TrimLeft("//a//", "/"), "a//");
    EXPECT_EQ(Strings::TrimRight("//a//", "/"), "//a");
}

TEST(Trim, LeavesTheTextWhenThereIsNothingToTakeOff) {
    for (const std::string& text : {"  a  "s, ""s}) {
        EXPECT_EQ(Strings::Trim(text, ""), text);
        EXPECT_EQ(Strings::TrimLeft(text, ""), text);
        EXPECT_EQ(Strings::TrimRight(text, ""), text);
    }
}

TEST(Trim, EmptiesATextOfOnlySuchCharacters) {
    EXPECT_EQ(Strings::Trim("----", "-"), "");
    EXPECT_EQ(Strings::TrimLeft("----", "-"), "");
    EXPECT_EQ(Strings::TrimRight("----", "-"), "");
}

TEST(Case, ChangesEachByte) {
    EXPECT_EQ(Strings::UpperCase("aZ1_\xc3\xa9"), "AZ1_\xc3\xa9");
    EXPECT_EQ(Strings::LowerCase("aZ1_\xc3\x89"), "az1_\xc3\x89");
}

TEST(Case, TitleStartsEachRunOfLettersWithACapital) {
    EXPECT_EQ(Strings::TitleCase("GLOSSY"), "Glossy");
    EXPECT_EQ(Strings::TitleCase("ab_cd"), "Ab_Cd");
    EXPECT_EQ(Strings::TitleCase("ab1cD ef"), "Ab1Cd Ef");
    EXPECT_EQ(Strings::TitleCase(""), "");
}

TEST(Split, GivesTheTokensBetweenRunsOfDelimiters) {
    EXPECT_THAT(Strings::Split("VelmarPlugin::Settings.update", ".:"),
                ElementsAre("VelmarPlugin", "Settings", "update"));
    EXPECT_THAT(Strings::Split("..a..b..", "."), ElementsAre("a", "b"));
    EXPECT_THAT(Strings::Split("abc", "."), ElementsAre("abc"));
    EXPECT_THAT(Strings::Split("...", "."), IsEmpty());
    EXPECT_THAT(Strings::Split("", "."), IsEmpty());
}

TEST(Split, TakesBlanksWhenNoDelimiterIsGiven) {
    EXPECT_THAT(Strings::Split("a\tb\nc\fd\re f\vg", ""), ElementsAre("a", "b", "c", "d", "e", "f\vg"));
}

TEST(ReplaceAll, DoesNotLookAgainAtWhatItPutIn) {
    EXPECT_EQ(Strings::ReplaceAll("aaa", "aa", "b"), "ba");
    EXPECT_EQ(Strings::ReplaceAll("aXbX", "X", "XX"), "aXXbXX");
    EXPECT_EQ(Strings::ReplaceAll("abc", "b", ""), "ac");
    EXPECT_EQ(Strings::ReplaceAll("abc", "z", "y"), "abc");
    EXPECT_EQ(Strings::ReplaceAll("", "a", "b"), "");
}

TEST(ReplaceAll, ChangesNothingForNothing) {
    EXPECT_EQ(Strings::ReplaceAll("abc", "", "x"), "abc");
}

}  // namespace
}  // namespace Velmar
