// Plays the sign's sequence file on its face.
#pragma once

#include "sim/content/playOrder.h"
#include "sim/content/schedule.h"
#include "sim/content/sequence.h"
#include "sim/content/show.h"
#include "sim/face/canvas.h"
#include "sim/face/font.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vxsim {

// Where a file of the sign lies on this machine: "D:\\T\\QMSG.Nmg" gives the local file, or nullopt if there is none.
using PathResolver = std::function<std::optional<std::filesystem::path>(std::string_view signPath)>;

// What the sign's clock shows at that time of the caller's.
using MomentClock = std::function<Moment(std::uint64_t nowMs)>;

// Shows the files of a list in their order, each for its stay time and as often as its record says, and then again
// from the start. Every turn reads its file anew, so a file that was written over appears at its next turn. What is
// missing, broken or not due by its schedules is passed over; a file that is no longer due gives way at once. A list
// without a file to show leaves the face black and is tried again every second. Time is the caller's, in milliseconds
// from any origin. Not for use from two threads at once.
class Player
{
public:
    // Without a clock every file is always due; players may share a font, and one without has its own. Throws
    // std::runtime_error when the sign's font can't be opened.
    Player(int width, int height, PathResolver resolve, std::filesystem::path sequenceFile, MomentClock clock = {},
           std::shared_ptr<Font> font = {});

    // Modes and stay time used where a file has none of its own, from the sign's display style: byte 11 entry mode,
    // byte 12 exit mode, byte 14 stay time in seconds, or 255 for the 32-bit stay time at offset 16; a stay time
    // of 0 means the sign's own. Takes effect with the next file that starts.
    void SetDefaults(std::span<const std::uint8_t, 52> displayStyle);

    // Reads the sequence file anew and starts playing. A missing or unknown sequence file leaves the face black.
    void Restart(std::uint64_t nowMs);

    // Plays this list from its start, in place of that of the sequence file, until Restart.
    void Play(Sequence sequence, std::uint64_t nowMs);

    // Plays nothing until Restart or Play.
    void Stop();

    // What Restart reads from now on.
    void SetSequenceFile(std::filesystem::path sequence) { sequenceFile = std::move(sequence); }

    // Stops the time of what plays, and lets it run again.
    void Pause(std::uint64_t nowMs);
    void Continue(std::uint64_t nowMs);

    // Each of these ends a pause. Those that find nothing to play leave what plays.
    void PlayNext(std::uint64_t nowMs);
    void PlayPrevious(std::uint64_t nowMs);
    void ReplayFile(std::uint64_t nowMs);

    // Plays a file that need not be in the list at once and in full, then goes on with the list. False if it cannot be
    // shown; what plays then goes on.
    bool PlayOnce(const std::string& signPath, std::uint64_t nowMs);

    // Moves within the turn of the file that plays, not before its start; a file that is over gives way to the next.
    void Move(std::int64_t ms, std::uint64_t nowMs);
    void MoveToNextPage(std::uint64_t nowMs);

    // Passes the turns that are over. Draw does so as well.
    void KeepUp(std::uint64_t nowMs) { Advance(PlayMs(nowMs)); }

    // When something of the list comes next: the end of the turn, or the next look for a file to show. Nothing where
    // nothing will.
    std::optional<std::uint64_t> NextMs() const;

    // Whether a file has its turn.
    bool IsShowing() const { return show.has_value(); }

    // Draws what the face shows at that time. A canvas of another size than that given at
    // construction gets the part that it has room for.
    void Draw(std::uint64_t nowMs, Canvas& face);

    // Sign path of what plays as of the last call with a time, empty if nothing does.
    std::string CurrentFile() const { return current.path; }

    // What Restart or Play has begun with, and the file in it that plays; null if none of them does.
    const Sequence& List() const { return order.List(); }
    const FileEntry* ListedFile();

    // How many turns have begun.
    std::uint64_t Turns() const { return turns; }

    // How often the list that plays has begun, its first round included; 0 while there is none.
    std::uint64_t Rounds() const { return order.Size() != 0 ? (next - 1) / order.Size() : 0; }

    // Sign path of the file whose turn comes then, empty if no file of the list is both there and due.
    std::string NextFile(std::uint64_t nowMs);

private:
    // The time of what plays: the caller's less all pauses.
    std::uint64_t PlayMs(std::uint64_t nowMs) const
    {
        return pausedAtMs ? *pausedAtMs : nowMs - std::min(nowMs, lagMs);
    }
    bool IsDue(const FileEntry& file, std::uint64_t playMs) const;
    std::uint64_t EndMs() const;
    void Advance(std::uint64_t playMs);
    void StartNext(std::uint64_t turnMs);
    void Begin(Show loaded, const FileEntry& file, std::uint64_t turnMs);
    void Clear();
    std::optional<Show> Load(const FileEntry& file);

    int width;
    int height;
    PathResolver resolve;
    std::filesystem::path sequenceFile;
    MomentClock clock;
    std::shared_ptr<Font> font;
    Timing defaults;
    PlayOrder order;
    std::uint64_t next = 0;   // the turn after the current one
    std::size_t misses = 0;   // files passed over since the last one that could be shown
    std::optional<Show> show; // what plays
    FileEntry current;        // its record
    std::uint64_t turns = 0;
    std::optional<std::uint64_t> pausedAtMs; // times from here on are those of PlayMs
    std::uint64_t lagMs = 0;
    std::uint64_t startMs = 0; // when the current turn began; while nothing plays, when the next one is looked for
    bool resting = false;      // nothing could be shown: the next turn begins when it is looked for, not at startMs
};

} // namespace vxsim
