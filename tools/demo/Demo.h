#pragma once

#include <iosfwd>
#include <stdexcept>
#include <string>
#include <vector>

/// A text of keys that plays the game:
///
///     # a comment; blank lines are ignored
///     dt 0.016666666666666666
///     0 press RIGHT
///     95 release RIGHT
///     end 600
///
/// `dt` is the seconds of a frame, 1/60 when absent; the events stand in the order of their frames; `end` comes last,
/// and the frames before it run. Keys: LEFT RIGHT UP DOWN SPACE ESCAPE HOME END DELETE TAB, A to Z, NUMPAD0 to NUMPAD9.
struct Demo {
    struct Event {
        int frame = 0;
        int virtualKey = 0;
        bool isPress = false;
    };
    double frameSeconds = 1.0 / 60.0;
    std::vector<Event> events;
    int endFrame = 0;
};

/// What is wrong with a demo, as one line that names file and line number.
class DemoError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Reads a demo; throws DemoError. `name` is what the message calls it.
Demo ReadDemo(std::istream& text, const std::string& name);
Demo ReadDemoFile(const std::string& path);

/// The virtual-key code of a key's name in a demo, -1 if there is no such key.
int DemoKey(const std::string& name);
