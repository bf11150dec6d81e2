// Commands for programs, and what plays of them.
#pragma once

#include "sim/command/commandFamily.h"
#include "sim/files/drives.h"
#include "sim/files/storedRecord.h"
#include "sim/zones/programDisplay.h"
#include "sim/zones/programStore.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vxsim {

// How the windows of programs stand to what else is on the face.
enum class WindowMode : std::uint8_t
{
    kOver = 0,
    kAlone = 1, // on an unlit face
    kHidden = 2
};

// Major 122: named programs in named projects, which play on the face, in windows and for an emergency. What hosts tell
// of projects and windows is kept over a restart; what plays is not.
class PlayerCore : public CommandFamily
{
public:
    // Keeps its file in the folder.
    PlayerCore(const Drives& drives, const std::filesystem::path& folder, int faceWidth, int faceHeight);

    // What shows the programs. Stays attached as long as the sign lives.
    void Attach(ProgramDisplay& shownOn) { display = &shownOn; }

    std::span<const CommandRow> Commands() const override;
    Reply Execute(const Call& call) override;

    // Ends all programs.
    void Restart(std::uint64_t nowMs, bool isCold) override;

    WindowMode Windows() const;

    // Whether a program plays there at that time, seen or not.
    bool Plays(ProgramPlace place, std::uint64_t nowMs);

private:
    // What follows when a program has played.
    enum class Follow : std::uint8_t
    {
        kItself = 0,
        kNextProgram = 1, // of the project, in the order of their names
        kNothing = 2
    };
    struct Running
    {
        std::string project;
        std::string program;
        std::string firstFile; // that it began with; empty for its first
        Follow follow = Follow::kItself;
    };

    Reply Play(const Call& call);
    Reply PlayEmergency(const Call& call);
    Reply StopEmergency(const Call& call);
    Reply Stop(const Call& call);
    Reply SetWindows(const Call& call);
    Reply SwitchProgram(const Call& call);
    Reply SwitchMode(const Call& call);
    Reply KeepProject(const Call& call);
    Reply TellProperty(const Call& call);
    Reply TellProgress(const Call& call);
    Reply TellPlaying(const Call& call);

    Reply Begin(ProgramPlace place, std::span<const std::string> names, Follow follow, std::uint64_t nowMs);
    bool Start(ProgramPlace place, Running wanted, std::uint64_t nowMs);
    void End(ProgramPlace place);
    void Settle(std::uint64_t nowMs);
    FaceArea AreaOf(ProgramPlace place) const;
    std::optional<Running>& At(ProgramPlace place) { return running[static_cast<std::size_t>(place)]; }

    Reply TellPlayer() const;
    Reply TellProject(const std::string& name) const;
    std::span<const std::uint8_t> RecordOf(std::string_view project) const;
    std::string CurrentProject() const;
    bool Plays(std::string_view project, std::string_view program) const;

    ProgramStore store;
    int faceWidth;
    int faceHeight;
    StoredRecord windows;  // mode, and the areas of the windows
    StoredRecord projects; // records of what hosts told, the latest first; an empty name ends them
    ProgramDisplay* display = nullptr;
    std::array<std::optional<Running>, kProgramPlaces> running;
};

} // namespace vxsim
