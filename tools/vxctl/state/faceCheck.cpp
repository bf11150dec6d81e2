// Looks for what darkens or covers a face, and for the command that ends it.
#include "vxctl/state/faceCheck.h"

#include "vxctl/cli/failure.h"
#include "vxctl/state/faceState.h"

#include <vxsign/video.h>

#include <array>

namespace vxctl {

namespace {

constexpr std::string_view kFace = "face";

void Tell(Findings& findings, Tone tone, const std::string& text, std::string_view end)
{
    findings.AddWithEnd(std::string(kFace), tone, text, end);
}

bool IsSilentInput()
{
    std::array<std::uint16_t, 4> signal{}; // channel, width, height, frames
    return IsDone(vxVPUGetSignalStatus(signal.data(), &signal[1], &signal[2], &signal[3])) && signal[1] == 0;
}

// False when there is nothing.
bool TellCovers(const FaceState& face, Findings& findings)
{
    bool any = false;
    for (const Cover& cover : AllCovers()) {
        if (!IsThere(cover, face).value_or(false))
            continue;
        any = true;
        const bool isSilent = cover.name == "video-input" && IsSilentInput();
        Tell(findings, cover.isDark || isSilent ? Tone::kWrong : Tone::kDoubtful,
             std::string(cover.text) + (isSilent ? ", which has no signal" : ""), cover.command);
    }
    return any;
}

// A sign without a video processor refuses the question.
bool IsShutByProcessor()
{
    std::array<std::uint8_t, 4> levels{}; // red, green, blue, and what holds for all
    const bool isKnown = IsDone(vxVPUGetBright(levels.data(), &levels[1], &levels[2], &levels[3]));
    const bool anyColour = levels[0] != 0 || levels[1] != 0 || levels[2] != 0;
    return isKnown && (!anyColour || levels[3] == 0);
}

bool TellLight(const FaceState& face, Findings& findings)
{
    if (IsShutByProcessor()) {
        Tell(findings, Tone::kWrong, "the brightness of the video processor was set to 0",
             "vxctl video vpu bright 255 255 255 255");
        return true;
    }
    if (face.light == 0U || (face.light == 1U && face.isLightFixed)) {
        Tell(findings, face.light == 0U ? Tone::kWrong : Tone::kDoubtful,
             "the brightness was set to " + std::to_string(*face.light) + " of 8", "vxctl bright 8");
        return true;
    }
    return false;
}

} // namespace

void ExamineFace(Findings& findings)
{
    const FaceState face = ReadFace();
    const bool isCovered = TellCovers(face, findings);
    const bool isDim = TellLight(face, findings);
    const std::string playing = PlayingFile();
    if (face.Shows("signals")) {
        if (!isCovered && !isDim)
            findings.Add(std::string(kFace), "shows the signals of the controller");
    } else if (playing.empty()) {
        Tell(findings, Tone::kWrong, "there is nothing to play: no list, none of its files, or none at this hour",
             "vxctl playlist send");
    } else if (!isCovered && !isDim) {
        findings.Add(std::string(kFace), "shows " + playing);
    }
}

} // namespace vxctl
