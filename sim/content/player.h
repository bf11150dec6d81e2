// Plays the sign's sequence file on its face.
#pragma once

#include "sim/content/sequence.h"
#include "sim/content/show.h"
#include "sim/face/canvas.h"
#include "sim/face/font.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vxsim {

// Where a file of the sign lies on this machine: "D:\\T\\QMSG.Nmg" gives the local file, or nullopt if there is none.
using PathResolver = std::function<std::optional<std::filesystem::path>(std::string_view signPath)>;

// Shows the files of the sequence file in their order, each for its stay time, and then again from the start. Every
// turn reads its file anew, so a file that was written over appears at its next turn. What is missing or broken is
// passed over, and a list without one good file is tried again every second. Time is the caller's, in milliseconds from
// any origin. Not for use from two threads at once.
class Player
{
public:
    // Throws std::runtime_error when the sign's font can't be opened.
    Player(int width, int height, PathResolver resolve, std::filesystem::path sequenceFile);

    // Modes and stay time used where a file has none of its own, from the sign's display style: byte 11 entry mode,
    // byte 12 exit mode, byte 14 stay time in seconds, or 255 for the 32-bit stay time at offset 16; a stay time
    // of 0 means the sign's own. Takes effect with the next file that starts.
    void SetDefaults(std::span<const std::uint8_t, 52> displayStyle);

    // Reads the sequence file anew and starts playing. A missing or unknown sequence file leaves the face black.
    void Restart(std::uint64_t nowMs);

    // Draws what the face shows at that time. A canvas of another size than that given at
    // construction gets the part that it has room for.
    void Draw(std::uint64_t nowMs, Canvas& face);

    // Sign path of what plays as of the last Restart or Draw, empty if nothing does.
    std::string CurrentFile() const;

private:
    void Advance(std::uint64_t nowMs);
    void StartNext(std::uint64_t turnMs);
    std::optional<Show> Load(const FileEntry& file);

    int width;
    int height;
    PathResolver resolve;
    std::filesystem::path sequenceFile;
    Font font;
    Timing defaults;
    std::vector<FileEntry> files;
    std::size_t next = 0;     // the file whose turn comes after the current one
    std::size_t misses = 0;   // files passed over since the last one that could be shown
    std::optional<Show> show; // what plays
    std::string currentFile;
    std::uint64_t startMs = 0; // when the current file's turn began; while nothing plays, when the next one's does
};

} // namespace vxsim
