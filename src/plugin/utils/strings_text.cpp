// Plain text, time and identifiers of Strings.
#include <algorithm>
#include <array>
#include <cctype>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <mutex>
#include <random>

#include "plugin/utils/strings.h"

namespace Velmar {

namespace {

/// The identifier generator: one engine for the process, one lock around the draws of one identifier.
class GlobalRng128 {
public:
    static std::array<std::uint32_t, 4> draw() {
        static GlobalRng128& rng = *new GlobalRng128;  // lives to the end: threads may still draw at exit
        const std::lock_guard<std::mutex> lock(rng.mutex_);
        std::array<std::uint32_t, 4> numbers;
        for (std::uint32_t& number : numbers) number = static_cast<std::uint32_t>(rng.engine_());
        return numbers;
    }

private:
    GlobalRng128() : engine_(std::random_device("/dev/urandom")()) {}

    std::mutex mutex_;
    std::mt19937 engine_;
};

char upper(char character) {
    return static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
}

char lower(char character) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
}

bool isLetter(char character) {
    return std::isalpha(static_cast<unsigned char>(character)) != 0;
}

}  // namespace

std::string Strings::Timestamp() {
    const auto now = std::chrono::system_clock::now();
    const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    const auto since_epoch = std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch());
    std::tm utc{};
    gmtime_r(&seconds, &utc);
    char date[32];
    std::strftime(date, sizeof date, "%Y-%m-%d %H:%M:%S", &utc);
    const std::string milliseconds = std::to_string(since_epoch.count() % 1000);
    return std::string(date) + "." + std::string(3 - milliseconds.size(), '0') + milliseconds;
}

std::string Strings::RandomUuidString() {
    const std::array<std::uint32_t, 4> r = GlobalRng128::draw();
    return Hex(r[0], 8) + "-" + Hex(r[1] & 0xffff, 4) + "-" + Hex(r[1] >> 16, 4) + "-" + Hex(r[2] & 0xffff, 4) + "-" +
           Hex(r[2] >> 16, 4) + Hex(r[3], 8);
}

std::int64_t Strings::Str2int(const std::string& text, int base) {
    return std::strtoll(text.c_str(), nullptr, base);
}

std::uint64_t Strings::Str2uint(const std::string& text, int base) {
    return std::strtoull(text.c_str(), nullptr, base);
}

std::string Strings::Trim(const std::string& text, const std::string& chars) {
    return TrimLeft(TrimRight(text, chars), chars);
}

std::string Strings::TrimLeft(const std::string& text, const std::string& chars) {
    const std::size_t first = text.find_first_not_of(chars);
    return first == std::string::npos ? std::string() : text.substr(first);
}

std::string Strings::TrimRight(const std::string& text, const std::string& chars) {
    const std::size_t last = text.find_last_not_of(chars);
    return last == std::string::npos ? std::string() : text.substr(0, last + 1);
}

std::string Strings::UpperCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), upper);
    return text;
}

std::string Strings::LowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), lower);
    return text;
}

std::string Strings::TitleCase(std::string text) {
    bool follows_letter = false;
    for (char& character : text) {
        const bool letter = isLetter(character);
        character = follows_letter ? lower(character) : upper(character);
        follows_letter = letter;
    }
    return text;
}

std::vector<std::string> Strings::Split(const std::string& text, const std::string& delimiters) {
    const std::string separators = delimiters.empty() ? "\t\n\f\r " : delimiters;
    std::vector<std::string> tokens;
    std::size_t start = text.find_first_not_of(separators);
    while (start != std::string::npos) {
        const std::size_t end = text.find_first_of(separators, start);
        tokens.push_back(text.substr(start, end - start));
        start = text.find_first_not_of(separators, end);
    }
    return tokens;
}

std::string Strings::ReplaceAll(const std::string& text, const std::string& from, const std::string& to) {
    if (from.empty()) return text;
    std::string result;
    std::size_t start = 0;
    for (std::size_t hit = text.find(from); hit != std::string::npos; hit = text.find(from, start)) {
        result.append(text, start, hit - start).append(to);
        start = hit + from.size();
    }
    return result.append(text, start);
}

}  // namespace Velmar
