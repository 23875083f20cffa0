#include "tools/build_sounds/ScoreFile.h"

#include "tools/build_sounds/Score.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

namespace synth {

namespace {

constexpr std::string_view blanks = " \t\r";

std::optional<double> ToNumber(std::string_view text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    double value = 0.0;
    const auto [endPtr, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || endPtr != text.data() + text.size() || !std::isfinite(value)) return std::nullopt;
    return value;
}

} // namespace

std::vector<std::string_view> Split(std::string_view text, std::string_view separators) {
    std::vector<std::string_view> parts;
    for (std::size_t at = text.find_first_not_of(separators); at != std::string_view::npos;) {
        const std::size_t end = std::min(text.find_first_of(separators, at), text.size());
        parts.push_back(text.substr(at, end - at));
        at = text.find_first_not_of(separators, end);
    }
    return parts;
}

std::string Quoted(std::string_view text) { return "'" + std::string(text) + "'"; }

std::string Short(double value) {
    std::array<char, 32> text{};
    const auto result = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, 5);
    return {text.data(), result.ptr};
}

ScoreFile::ScoreFile(const std::filesystem::path& path) : path(path), stream(path) {
    if (!stream) Fail("cannot be read");
}

bool ScoreFile::NextLine() {
    while (std::getline(stream, text)) {
        ++line;
        for (std::string more; text.ends_with('\\') && std::getline(stream, more); ++line) {
            text.back() = ' ';
            text += more;
        }
        // a sharp follows its letter, so only a '#' after a blank or at the front begins a comment
        for (std::size_t at = text.find('#'); at != std::string::npos; at = text.find('#', at + 1)) {
            if (at == 0 || blanks.find(text[at - 1]) != std::string_view::npos) text.resize(at);
        }
        words = Split(text, blanks);
        if (!words.empty()) return true;
    }
    return false;
}

bool ScoreFile::IsIndented() const { return blanks.find(text.front()) != std::string_view::npos; }

void ScoreFile::Fail(const std::string& what) const {
    throw ScoreError(path.string() + ":" + std::to_string(line) + ": " + what);
}

void ScoreFile::Expect(std::size_t least, std::size_t most, std::string_view form) const {
    if (words.size() < least || words.size() > most) Fail("expected: " + std::string(form));
}

double ScoreFile::Number(std::string_view text, double least, double most) const {
    const std::optional<double> value = ToNumber(text);
    if (!value) Fail(Quoted(text) + " is not a number");
    if (*value < least || *value > most) {
        Fail(Quoted(text) + " is not between " + Short(least) + " and " + Short(most));
    }
    return *value;
}

double ScoreFile::Single(double least, double most) const {
    Expect(2, 2, std::string(words[0]) + " NUMBER");
    return Number(words[1], least, most);
}

} // namespace synth
