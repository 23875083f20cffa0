#include "tools/demo/Demo.h"

#include "platform/Messages.h"

#include <cctype>
#include <charconv>
#include <cmath>
#include <fstream>
#include <istream>
#include <optional>
#include <sstream>
#include <utility>

namespace {

constexpr int mostFrames = 100'000'000; // nineteen days of play

template <typename Number>
std::optional<Number> Parse(const std::string& word) {
    Number number{};
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (error != std::errc() || end != word.data() + word.size()) return std::nullopt;
    return number;
}

std::vector<std::string> Words(std::string line) {
    std::istringstream stream(line.substr(0, line.find('#')));
    std::vector<std::string> words;
    for (std::string word; stream >> word;) words.push_back(word);
    return words;
}

/// Reads line by line; each step says what is wrong, the caller where.
class DemoReader {
public:
    /// The fault of this line, empty if there is none.
    std::string Read(const std::vector<std::string>& words) {
        if (words.empty()) return "";
        if (ended) return "nothing may follow 'end'";
        if (words.front() == "dt") return ReadStep(words);
        if (words.front() == "end") return ReadEnd(words);
        return ReadEvent(words);
    }

    bool HasEnded() const { return ended; }
    Demo Take() { return std::move(demo); }

private:
    std::string ReadStep(const std::vector<std::string>& words) {
        const auto seconds = words.size() == 2 ? Parse<double>(words[1]) : std::nullopt;
        if (!seconds || !std::isfinite(*seconds) || *seconds <= 0.0) return "expected 'dt SECONDS'";
        if (!demo.events.empty()) return "'dt' must come before the first event";
        demo.frameSeconds = *seconds;
        return "";
    }

    std::string ReadEnd(const std::vector<std::string>& words) {
        const auto frame = words.size() == 2 ? Frame(words[1]) : std::nullopt;
        if (!frame) return "expected 'end FRAME'";
        if (*frame < lastFrame)
            return "out of order: frame " + words[1] + " comes after frame " + std::to_string(lastFrame);
        demo.endFrame = *frame;
        ended = true;
        return "";
    }

    std::string ReadEvent(const std::vector<std::string>& words) {
        const auto frame = words.size() == 3 ? Frame(words[0]) : std::nullopt;
        if (!frame || (words[1] != "press" && words[1] != "release"))
            return "expected 'FRAME press KEY' or 'FRAME release KEY'";
        const int key = DemoKey(words[2]);
        if (key < 0) return "unknown key '" + words[2] + "'";
        if (*frame < lastFrame)
            return "out of order: frame " + words[0] + " comes after frame " + std::to_string(lastFrame);
        lastFrame = *frame;
        demo.events.push_back({*frame, key, words[1] == "press"});
        return "";
    }

    static std::optional<int> Frame(const std::string& word) {
        const auto frame = Parse<int>(word);
        return frame && *frame >= 0 && *frame <= mostFrames ? frame : std::nullopt;
    }

    Demo demo;
    int lastFrame = 0;
    bool ended = false;
};

} // namespace

int DemoKey(const std::string& name) {
    static constexpr std::pair<const char*, int> namedKeys[] = {
        {"LEFT", VK_LEFT},     {"RIGHT", VK_RIGHT}, {"UP", VK_UP},   {"DOWN", VK_DOWN}, {"SPACE", VK_SPACE},
        {"ESCAPE", VK_ESCAPE}, {"HOME", VK_HOME},   {"END", VK_END}, {"TAB", VK_TAB},   {"DELETE", VK_DELETE},
    };
    if (name.size() == 1 && name[0] >= 'A' && name[0] <= 'Z') return name[0];
    if (name.size() == 7 && name.starts_with("NUMPAD") && std::isdigit(static_cast<unsigned char>(name[6])) != 0) {
        return VK_NUMPAD0 + (name[6] - '0');
    }
    for (const auto& [keyName, virtualKey] : namedKeys) {
        if (name == keyName) return virtualKey;
    }
    return -1;
}

Demo ReadDemo(std::istream& text, const std::string& name) {
    DemoReader reader;
    int lineNumber = 0;
    for (std::string line; std::getline(text, line);) {
        ++lineNumber;
        const std::string fault = reader.Read(Words(line));
        if (!fault.empty()) throw DemoError(name + ":" + std::to_string(lineNumber) + ": " + fault);
    }
    if (!reader.HasEnded()) throw DemoError(name + ":" + std::to_string(lineNumber) + ": 'end FRAME' is missing");
    return reader.Take();
}

Demo ReadDemoFile(const std::string& path) {
    std::ifstream file(path);
    if (!file) throw DemoError(path + ": cannot be opened");
    if (file.peek(); file.bad()) throw DemoError(path + ": cannot be read");
    return ReadDemo(file, path);
}
