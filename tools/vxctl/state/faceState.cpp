// Asks a sign about its face.
#include "vxctl/state/faceState.h"

#include "vxctl/cli/failure.h"
#include "vxctl/cli/numbers.h"
#include "vxctl/zones/programProperty.h"

#include <vxsign/control.h>
#include <vxsign/play.h>
#include <vxsign/player.h>
#include <vxsign/read.h>
#include <vxsign/test.h>
#include <vxsign/ticker.h>
#include <vxsign/video.h>
#include <vxsign/zones.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <sstream>

namespace vxctl {

namespace {

constexpr std::size_t kNameRoom = 256;
constexpr std::size_t kTextRoom = 1024;
constexpr std::size_t kVpuInfoSize = 24;
constexpr std::size_t kVpuChannelAt = 9;
constexpr std::uint64_t kDarkFace = 16; // of the state word

bool IsPowerOff()
{
    std::uint8_t ordered = 0;
    std::uint8_t present = 0;
    return IsDone(vxGetPowerState(&ordered, &present)) && present == 0;
}

bool IsBlank()
{
    std::uint64_t state = 0;
    return IsDone(vxReadCurrentState(&state, nullptr, 0)) && (state & kDarkFace) != 0 && !IsPowerOff();
}

bool IsTickerRunning()
{
    std::uint16_t status = 0;
    const std::uint32_t result = vxGetBufferStatus(&status);
    return result == VX_BUFFER_FULL || IsDone(result);
}

// Whether a program plays at such a place.
bool HasProgram(bool (*isPlace)(const std::string&))
{
    try {
        return std::ranges::any_of(ReadPlaying().programs, isPlace, &PlayingProgram::place);
    } catch (const SignFailure& failure) {
        return IsDone(failure.code);
    }
}

bool HasEmergency()
{
    return HasProgram([](const std::string& place) { return place == "emergency"; });
}

bool HasFaceProgram()
{
    return HasProgram([](const std::string& place) { return place == "face"; });
}

bool HasWindowProgram()
{
    return HasProgram([](const std::string& place) { return ParseNumber(place).has_value(); });
}

bool IsInputShown()
{
    std::array<std::uint8_t, kVpuInfoSize> info{};
    return IsDone(vxVPUGetInfo(info.data())) && info[kVpuChannelAt] != 0;
}

bool AreZonesOn()
{
    std::uint8_t enabled = 0;
    std::uint8_t count = 0;
    return IsDone(vxGetMulitZoneSetting(&enabled, &count)) && enabled != 0;
}

std::uint32_t StopPrograms()
{
    return vxCoreStopPlay(reinterpret_cast<const std::uint8_t*>(""));
}

constexpr Cover kCovers[] = {
    {"off", "the power was switched off", "vxctl power on", true, IsPowerOff, [] { return vxPowerOnOff(1); }},
    {"blank", "the face was blanked", "vxctl unblank", true, IsBlank, vxEndBlackScreen},
    {"restart", "the controller was started a moment ago", "", true, nullptr, nullptr},
    {"emergency", "an emergency program was started", "vxctl player emergency --stop", false, HasEmergency,
     vxCoreStopEmergencyProgram},
    {"test", "a test was started", "vxctl test stop", false, nullptr, vxStopTest},
    {"ticker", "a ticker was started", "vxctl ticker --stop", false, IsTickerRunning, vxTickerStop},
    {"windows", "programs were started in windows", "vxctl player stop", false, HasWindowProgram, StopPrograms},
    {"video-window", "a video window was set", "vxctl video mpu window 0 --hide", false, nullptr,
     [] { return vxMPUSetWin(0, 0, 0, 0, 0, 0, nullptr); }},
    {"video-input", "a video input was put on the whole face", "vxctl video vpu channel 0", false, IsInputShown,
     [] { return vxVPUSelChannel(0); }},
    {"program", "a program was started", "vxctl player stop", false, HasFaceProgram, StopPrograms},
    {"zones", "zones were switched on", "vxctl zone off", false, AreZonesOn, [] { return vxSetEnableMulitZone(0); }},
};

// A line of the sign's information on itself, such as "face 128x32". Of other lines nothing is known.
void TakeLine(const std::string& line, FaceState& face)
{
    std::istringstream words(line);
    std::string key;
    std::string word;
    words >> key >> word;
    if (key == "colours")
        face.colours = ParseNumber(word);
    if (key == "light") {
        face.light = ParseNumber(word);
        face.isLightFixed = words >> word && word == "fixed";
    }
    if (key == "shows") {
        std::vector<std::string> names{word};
        while (words >> word)
            names.push_back(word);
        face.shows = std::move(names);
    }
}

std::string AskName(std::uint32_t (*ask)(char*, std::uint32_t))
{
    std::array<char, kNameRoom> name{};
    const std::uint32_t result = ask(name.data(), static_cast<std::uint32_t>(name.size()));
    if (result == VX_NOTHING_PLAYS)
        return {};
    Check(result);
    return {name.data(), ::strnlen(name.data(), name.size())};
}

} // namespace

FaceState ReadFace()
{
    FaceState face;
    face.size = ReadFaceSize();
    std::array<std::uint8_t, kTextRoom> text{};
    std::uint32_t length = 0;
    if (IsDone(vxReadSystemInfo(text.data(), static_cast<std::uint32_t>(text.size()), &length))) {
        std::istringstream lines(std::string(text.begin(), text.begin() + std::min<std::size_t>(length, kTextRoom)));
        for (std::string line; std::getline(lines, line);)
            TakeLine(line, face);
    }
    return face;
}

void ShowFace(Report& report, const FaceState& face)
{
    const std::string unknown = "the sign does not tell";
    const auto numberOf = [](const std::optional<std::uint32_t>& number) {
        return number ? Report::Json(*number) : Report::Json();
    };
    const bool hasSize = face.size.width != 0 && face.size.height != 0;
    report.Value("face", "face",
                 hasSize ? Report::Json{{"width", face.size.width}, {"height", face.size.height}} : Report::Json(),
                 hasSize ? std::to_string(face.size.width) + "x" + std::to_string(face.size.height) + " pixels"
                         : unknown);
    report.Value("colours", "colours", numberOf(face.colours), face.colours ? std::to_string(*face.colours) : unknown);
    report.Value("light", "lightEighths", numberOf(face.light),
                 face.light ? std::to_string(*face.light) + " of 8" + (face.isLightFixed ? ", set" : ", by the hour")
                            : unknown);
    report.Put("lightFixed", face.light ? Report::Json(face.isLightFixed) : Report::Json());
}

std::span<const Cover> AllCovers()
{
    return kCovers;
}

std::optional<bool> IsThere(const Cover& cover, const FaceState& face)
{
    if (face.shows)
        return face.Shows(cover.name);
    if (cover.ask == nullptr)
        return std::nullopt;
    return cover.ask();
}

std::string PlayingFile()
{
    return AskName(vxGetPlayingFileName);
}

std::string NextFile()
{
    return AskName(vxGetNextPlayFileName);
}

} // namespace vxctl
