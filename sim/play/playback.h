// What the commands that steer need of whatever plays.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace vxsim {

enum class PlayStep
{
    kReplayList,
    kReplayFile,
    kPause,
    kContinue,
    kNext,
    kPrevious,
    kForward,
    kBack,
    kNextPage
};

// What plays on the face of a sign, for the commands that steer it. Times are those of Arrival.
class Playback
{
public:
    virtual ~Playback() = default;

    virtual void Steer(PlayStep step, std::uint64_t nowMs) = 0;

    // Plays the list of this sequence file instead of the one that plays.
    virtual void PlayList(const std::filesystem::path& sequence, std::uint64_t nowMs) = 0;

    // Plays the file at once, then goes on with the list. False if it cannot be shown.
    virtual bool PlayOnce(const std::string& signPath, std::uint64_t nowMs) = 0;

    // Sign paths; empty for none.
    virtual std::string CurrentFile(std::uint64_t nowMs) = 0;
    virtual std::string NextFile(std::uint64_t nowMs) = 0;

    // The face as a JPEG file; empty if it cannot be made.
    virtual std::vector<std::uint8_t> Screenshot(std::uint64_t nowMs) = 0;
};

} // namespace vxsim
