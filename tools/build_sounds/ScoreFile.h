#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace synth {

/// The parts of `text` between runs of `separators`, none of them empty. They point into `text`.
std::vector<std::string_view> Split(std::string_view text, std::string_view separators);

/// `text` between single quotes, for messages.
std::string Quoted(std::string_view text);

/// `value` with at most five digits, for messages.
std::string Short(double value);

/// A file of a score, read line by line. Its checks throw ScoreError, which names the file and the current line.
class ScoreFile {
public:
    /// Opens the file; a failure names line 0.
    explicit ScoreFile(const std::filesystem::path& path);
    ScoreFile(const ScoreFile&) = delete;
    ScoreFile& operator=(const ScoreFile&) = delete;

    /// Goes to the next line that has words; false at the end. A backslash at the end of a line joins the next one to
    /// it.
    bool NextLine();

    const std::filesystem::path& Path() const { return path; }
    bool IsIndented() const;
    /// The words of the current line without its comment, at least one; valid until the next NextLine.
    const std::vector<std::string_view>& Words() const { return words; }

    [[noreturn]] void Fail(const std::string& what) const;
    /// Fails with `form` unless the line has `least` to `most` words, both included.
    void Expect(std::size_t least, std::size_t most, std::string_view form) const;
    /// The finite number that `text` spells; fails outside `least` to `most`, both included.
    double Number(std::string_view text, double least, double most) const;
    /// The number on a line that has one name and one number.
    double Single(double least, double most) const;
    /// The value of `name` in `map`; fails with "no KIND named NAME".
    template <typename Map>
    auto& Find(Map& map, std::string_view name, std::string_view kind) const {
        const auto found = map.find(std::string(name));
        if (found == map.end()) Fail("no " + std::string(kind) + " named " + Quoted(name));
        return found->second;
    }

private:
    std::filesystem::path path;
    int line = 0;
    std::ifstream stream;
    std::string text;
    std::vector<std::string_view> words; // parts of `text`
};

} // namespace synth
