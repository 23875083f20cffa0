#pragma once

#include <filesystem>
#include <string>

/// How a program ended and what it printed, errors included.
struct Ending {
    int exitCode = -1; // -1 when a signal ended it
    std::string told;
};

/// Runs a shell command to its end, with `folder` as its working directory.
Ending RunCommand(const std::string& command, const std::filesystem::path& folder = ".");

/// Runs a program of this build, such as "demo_player", with its arguments.
Ending RunProgram(const std::string& nameAndArguments, const std::filesystem::path& folder = ".");
