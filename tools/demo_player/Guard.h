#pragma once

#include "platform/Desktop.h"
#include "tools/demo/Trace.h"
#include "tools/demo_player/Hash.h"
#include "tools/demo_player/KeptHashes.h"

#include <filesystem>
#include <string>
#include <vector>

/// Guards the play of NAME.demo by what is kept beside it:
///
/// - NAME.trace-hashes has a line for every 60 frames, and for what is left of them at the end: the number of the
///   second, and for each field of the trace the hash of its values, each with a line end;
/// - NAME.picture-hashes has a line for every 30th frame: its number and the hash of its pixels, row by row.
///
/// A frame with debug text counts without its top rows, where that stands: fonts differ between machines.
class Guard {
public:
    /// Throws DemoError if the files are to be checked and cannot be read.
    Guard(std::string demoPath, HashUse use, std::filesystem::path picturesFolder);

    /// Looks at a frame of the play. The first one that does not look as kept is written to the pictures folder.
    void Look(int frame, Trace trace, const platform::FrameView& view, bool showsText);
    /// Ends the play, writes the files if they are to be renewed (throws DemoError if they cannot be) and tells what
    /// was not as kept, a line each.
    std::string Finish();

private:
    void EndSecond();
    void LookAtPicture(int frame, const platform::FrameView& view, int firstRow);
    void Tell(const std::string& what, const KeptHashes& kept);

    std::string demo;
    std::filesystem::path pictures;
    KeptHashes traceHashes;
    KeptHashes pictureHashes;
    int frames = 0;
    Trace lastTrace;
    std::vector<Hash> second; // a hash for each field of the trace
    std::string faults;
};
