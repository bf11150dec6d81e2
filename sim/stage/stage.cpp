#include "sim/stage/stage.h"

#include "sim/face/jpeg.h"
#include "sim/stage/faults.h"
#include "sim/stage/signalHeads.h"
#include "sim/stage/testPictures.h"
#include "sim/stage/tickerPicture.h"
#include "sim/stage/tilePictures.h"
#include "sim/stage/videoPictures.h"
#include "sim/state/signClock.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>
#include <utility>
#include <variant>

namespace vxsim {
namespace {

constexpr std::int64_t kLeapMs = 5000; // of forward and back
constexpr std::uint64_t kUnseenRetryMs = 5000;
// What stands for so many eighths of the full light. Pictures hold their values for the eye, which takes a quarter of
// the light for half of it, so these are the roots of the eighths.
constexpr std::array<std::uint8_t, 9> kValues{0, 99, 136, 163, 186, 206, 224, 240, 255};

Moment MomentOf(const SignClock& clock, std::uint64_t nowMs)
{
    const ClockTime time = clock.At(nowMs);
    const auto year = static_cast<unsigned>(time.year);
    const auto bcd = [](unsigned high, unsigned low) { return ToBcd(high % 100) << 8 | ToBcd(low); };
    return {static_cast<std::uint32_t>(bcd(year / 100, year % 100)) << 16 |
                static_cast<std::uint32_t>(bcd(time.month, time.day)),
            static_cast<std::uint16_t>(bcd(time.hour, time.minute)), clock.WeekdayAt(nowMs)};
}

} // namespace

Stage::Stage(VirtualSign& shownSign, std::shared_ptr<Font> sharedFont)
    : sign(shownSign), font(std::move(sharedFont)),
      player(
          sign.Settings().width, sign.Settings().height, [this](std::string_view path) { return sign.Resolve(path); },
          sign.SequenceFile(), [this](std::uint64_t nowMs) { return MomentOf(sign.Time().Clock(), nowMs); }, font),
      zones(sign.Zones(), *font, [this](std::string_view path) { return sign.Resolve(path); }),
      programs([this](std::string_view path) { return sign.Resolve(path); }, font)
{
    player.SetDefaults(sign.Records().DisplayStyle());
    SignEvents events;
    events.sequenceWritten = [this] {
        numberedList.clear();
        restartAtMs = restartAtMs.value_or(0);
    };
    events.fileWritten = [this](const std::filesystem::path& file) {
        if (file == numberedList)
            restartAtMs = restartAtMs.value_or(0);
    };
    events.displayStyleSet = [this](std::span<const std::uint8_t, kDisplayStyleSize> style) {
        player.SetDefaults(style);
    };
    events.restarting = [this](std::uint64_t untilMs) {
        player.Stop();
        numberedList.clear();
        restartAtMs = untilMs;
    };
    sign.Observe(std::move(events));
    sign.Attach(static_cast<Playback&>(*this));
    sign.Attach(programs);
    sign.MeasureTickerWith([this](std::string_view text, const TickerStyle& style) {
        return ticker.Width(text, style, sign.Settings().height);
    });
}

Canvas& Stage::Made() const
{
    return made ? *made : made.emplace(sign.Settings().width, sign.Settings().height);
}

const Canvas& Stage::Draw(std::uint64_t nowMs)
{
    KeepUp(nowMs);
    Canvas& face = Made();
    const bool isDark = sign.Light().IsDark(nowMs); // the sign plays on in the dark
    const TileWall& tiles = sign.Tiles(nowMs);
    if (isDark)
        face.Clear();
    else if (!programs.DrawFace(ProgramPlace::kEmergency, nowMs, face))
        DrawContent(nowMs, face);
    if (caption)
        DrawCaption(caption(), *font, face);
    Tint(sign.Video().Levels(), face);
    if (!isDark)
        DrawTiles(tiles, nowMs, *font, face);
    CalibrateFace(tiles, face);
    const std::uint8_t light = kValues.at(sign.Light().LevelAt(nowMs));
    Tint({light, light, light}, face);
    DrawFaults(sign.Faults(), sign.Light().IsOn(), face);
    return face;
}

// A test, a ticker or the signals of a controller; else a program, zones or the list, and over them the inputs of the
// video processors and the windows of programs.
void Stage::DrawContent(std::uint64_t nowMs, Canvas& face)
{
    const TestCommands& tests = sign.Tests();
    if (!std::holds_alternative<std::monostate>(tests.Running()))
        return DrawTest(tests.Running(), nowMs - std::min(nowMs, tests.StartedMs()), *font, face);
    if (sign.Ticker().IsRunning(nowMs))
        return ticker.Draw(sign.Ticker(), nowMs, face);
    if (sign.Traffic())
        return DrawSignalHeads(sign.Traffic()->SignalsAt(nowMs), *font, face);
    const WindowMode windows = sign.Programs().Windows();
    if (windows == WindowMode::kAlone && programs.HasWindows())
        face.Clear();
    else if (!programs.DrawFace(ProgramPlace::kFace, nowMs, face) && !zones.Draw(nowMs, face))
        player.Draw(nowMs, face);
    DrawVideo(sign.Video(), nowMs, *font, face);
    if (windows != WindowMode::kHidden)
        programs.DrawWindows(nowMs, face);
}

void Stage::KeepUp(std::uint64_t nowMs)
{
    if (restartAtMs && nowMs >= *restartAtMs) {
        // The file may have come under a name of another case than the one before.
        player.SetSequenceFile(numberedList.empty() ? sign.SequenceFile() : numberedList);
        player.Restart(*restartAtMs != 0 ? *restartAtMs : nowMs);
        restartAtMs.reset();
    }
    player.KeepUp(nowMs);
    programs.KeepUp(nowMs);
    NoteTurn(nowMs);
}

std::optional<std::uint64_t> Stage::NextMs(std::uint64_t nowMs) const
{
    auto next = player.NextMs();
    if (next && !player.IsShowing())
        next = std::max(*next, nowMs + kUnseenRetryMs);
    for (const auto& other : {programs.NextMs(), restartAtMs}) {
        if (other)
            next = std::min(next.value_or(*other), *other);
    }
    return next;
}

// A turn goes into the log of plays when it is over.
void Stage::NoteTurn(std::uint64_t nowMs)
{
    if (player.Turns() == turn && player.CurrentFile() == turnFile)
        return;
    if (!turnFile.empty())
        sign.NotePlay(turnFile, turnMs, nowMs);
    turn = player.Turns();
    turnFile = player.CurrentFile();
    turnMs = nowMs;
}

void Stage::Steer(PlayStep step, std::uint64_t nowMs)
{
    KeepUp(nowMs);
    switch (step) {
    case PlayStep::kReplayList:
        return player.Restart(nowMs);
    case PlayStep::kReplayFile:
        return player.ReplayFile(nowMs);
    case PlayStep::kPause:
        return player.Pause(nowMs);
    case PlayStep::kContinue:
        return player.Continue(nowMs);
    case PlayStep::kNext:
        return player.PlayNext(nowMs);
    case PlayStep::kPrevious:
        return player.PlayPrevious(nowMs);
    case PlayStep::kForward:
        return player.Move(kLeapMs, nowMs);
    case PlayStep::kBack:
        return player.Move(-kLeapMs, nowMs);
    case PlayStep::kNextPage:
        return player.MoveToNextPage(nowMs);
    }
}

void Stage::PlayList(const std::filesystem::path& sequence, std::uint64_t nowMs)
{
    KeepUp(nowMs);
    numberedList = sequence == sign.SequenceFile() ? std::filesystem::path() : sequence;
    player.SetSequenceFile(sequence);
    player.Restart(nowMs);
}

bool Stage::PlayOnce(const std::string& signPath, std::uint64_t nowMs)
{
    KeepUp(nowMs);
    return player.PlayOnce(signPath, nowMs);
}

std::string Stage::CurrentFile(std::uint64_t nowMs)
{
    KeepUp(nowMs);
    return player.CurrentFile();
}

std::string Stage::NextFile(std::uint64_t nowMs)
{
    KeepUp(nowMs);
    return player.NextFile(nowMs);
}

std::vector<std::uint8_t> Stage::Screenshot(std::uint64_t nowMs)
{
    return JpegFace(Draw(nowMs));
}

} // namespace vxsim
