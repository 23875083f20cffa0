#include "tools/demo_player/TraceCompare.h"

#include <algorithm>
#include <istream>
#include <vector>

namespace {

/// The way to a place in a line of JSON, from the outermost value in: "enemies[3].velocity[1]".
class Way {
public:
    /// To the value that holds the character at `place`, or begins there.
    Way(const std::string& line, std::size_t place) {
        for (std::size_t i = 0; i < place; ++i) {
            switch (line[i]) {
            case '{': steps.emplace_back(); break;
            case '[': steps.push_back({0, ""}); break;
            case '}':
            case ']':
                if (!steps.empty()) steps.pop_back();
                break;
            case ',':
                if (!steps.empty()) ++steps.back().index;
                break;
            case '"': i = PassText(line, i, place); continue;
            default: continue;
            }
            begin = i + 1;
        }
    }

    std::string Text() const {
        std::string text;
        for (const Step& step : steps)
            text += step.name.empty() ? "[" + std::to_string(step.index) + "]" : (text.empty() ? "" : ".") + step.name;
        return text;
    }
    /// Where that value begins.
    std::size_t Begin() const { return begin; }

private:
    struct Step {
        int index = 0;
        std::string name; // empty in a list
    };

    /// Passes over the text that begins at `first`, to its closing quote or up to `place`. One before a colon is a
    /// name.
    std::size_t PassText(const std::string& line, std::size_t first, std::size_t place) {
        std::size_t last = first + 1;
        while (last < place && line[last] != '"') last += line[last] == '\\' ? 2 : 1;
        if (last + 1 >= place || line[last + 1] != ':' || steps.empty()) return last;
        steps.back().name = line.substr(first + 1, last - first - 1);
        begin = last + 2;
        return last + 1;
    }

    std::vector<Step> steps;
    std::size_t begin = 0;
};

} // namespace

std::string FirstDifference(std::istream& old, std::istream& changed) {
    std::string oldLine;
    std::string changedLine;
    for (int tick = 0;; ++tick) {
        const std::string at = "tick " + std::to_string(tick) + ": ";
        const bool oldGoesOn = !std::getline(old, oldLine).fail();
        const bool changedGoesOn = !std::getline(changed, changedLine).fail();
        if (!oldGoesOn && !changedGoesOn) return "";
        if (!changedGoesOn) return at + "only the old trace goes on";
        if (!oldGoesOn) return at + "only the new trace goes on";
        if (oldLine == changedLine) continue;
        const auto place = static_cast<std::size_t>(std::ranges::mismatch(oldLine, changedLine).in1 - oldLine.begin());
        const Way way(oldLine, place);
        const auto valueOf = [&](const std::string& line) {
            return line.substr(way.Begin(), line.find_first_of(",]}", place) - way.Begin());
        };
        return at + way.Text() + " was " + valueOf(oldLine) + " and is " + valueOf(changedLine);
    }
}
