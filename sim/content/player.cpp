#include "sim/content/player.h"

#include "sim/content/contentFile.h"

#include <algorithm>
#include <utility>

namespace vxsim {

namespace {

// A larger list is passed over unread.
constexpr std::uintmax_t kMostSequenceBytes = std::uintmax_t{32} * 1024 * 1024;

// Files tried at one look at the clock, so that a long list of broken files doesn't hold up the sign.
constexpr int kMostTries = 16;

// How long the sign waits before it goes again through a list without one good file.
constexpr std::uint64_t kRetryMs = 1000;

// Offsets in the display style.
constexpr std::size_t kStyleEntryMode = 11;
constexpr std::size_t kStyleExitMode = 12;
constexpr std::size_t kStyleShortStay = 14;
constexpr std::size_t kStyleLongStay = 16;
constexpr std::uint8_t kUseLongStay = 255;

// A mode of the list that leaves the choice to the sign.
bool IsUnset(std::uint8_t mode)
{
    return mode == 0 || mode == 255;
}

} // namespace

Player::Player(int faceWidth, int faceHeight, PathResolver resolver, std::filesystem::path sequence,
               MomentClock signClock, std::shared_ptr<Font> sharedFont)
    : width(std::clamp(faceWidth, 1, Canvas::kMostPixelsPerSide)),
      height(std::clamp(faceHeight, 1, Canvas::kMostPixelsPerSide)), resolve(std::move(resolver)),
      sequenceFile(std::move(sequence)), clock(std::move(signClock)),
      font(sharedFont ? std::move(sharedFont) : std::make_shared<Font>())
{
}

void Player::SetDefaults(std::span<const std::uint8_t, 52> displayStyle)
{
    defaults.entryMode = displayStyle[kStyleEntryMode];
    defaults.exitMode = displayStyle[kStyleExitMode];
    std::uint64_t seconds = displayStyle[kStyleShortStay];
    if (seconds == kUseLongStay) {
        seconds = 0;
        for (std::size_t i = 4; i-- > 0;)
            seconds = seconds << 8 | displayStyle[kStyleLongStay + i];
    }
    // A style that says nothing of the stay time leaves the sign's own.
    defaults.stayMs = seconds != 0 ? seconds * 1000 : Timing{}.stayMs;
}

void Player::Restart(std::uint64_t nowMs)
{
    Play(ParseSequence(ReadWholeFile(sequenceFile, kMostSequenceBytes)).value_or(Sequence{}), nowMs);
}

void Player::Play(Sequence sequence, std::uint64_t nowMs)
{
    Clear();
    order = PlayOrder(std::move(sequence));
    next = order.Size(); // the second round, so that there is one to go back to
    misses = 0;
    resting = false;
    pausedAtMs.reset();
    lagMs = 0;
    startMs = nowMs;
    Advance(nowMs);
}

void Player::Stop()
{
    Clear();
    order = {};
}

void Player::Pause(std::uint64_t nowMs)
{
    pausedAtMs = PlayMs(nowMs);
}

void Player::Continue(std::uint64_t nowMs)
{
    if (!pausedAtMs)
        return;
    lagMs = nowMs - std::min(nowMs, *pausedAtMs);
    pausedAtMs.reset();
}

void Player::PlayNext(std::uint64_t nowMs)
{
    Continue(nowMs);
    if (order.Size() == 0)
        return;
    Clear();
    startMs = PlayMs(nowMs);
    Advance(startMs);
}

// Goes back past what cannot be shown.
void Player::PlayPrevious(std::uint64_t nowMs)
{
    Continue(nowMs);
    const std::uint64_t now = PlayMs(nowMs);
    const std::uint64_t count = order.Size();
    // So far back there is no earlier round: this one is taken for a later one.
    const std::uint64_t from = next <= count ? next + count : next;
    int tries = 0;
    for (std::uint64_t back = 2; back < count + 2 && tries < kMostTries; ++back) {
        const FileEntry& file = order.At(from - back);
        if (!IsDue(file, now))
            continue;
        ++tries;
        if (auto loaded = Load(file)) {
            Begin(std::move(*loaded), file, now);
            next = from - back + 1;
            return;
        }
    }
}

void Player::ReplayFile(std::uint64_t nowMs)
{
    Continue(nowMs);
    if (show)
        startMs = PlayMs(nowMs);
}

bool Player::PlayOnce(const std::string& signPath, std::uint64_t nowMs)
{
    FileEntry file;
    file.path = signPath;
    auto loaded = Load(file);
    if (!loaded)
        return false;
    Continue(nowMs);
    Begin(std::move(*loaded), file, PlayMs(nowMs));
    return true;
}

void Player::Move(std::int64_t ms, std::uint64_t nowMs)
{
    const std::uint64_t now = PlayMs(nowMs);
    if (!show)
        return;
    const auto elapsed = static_cast<std::int64_t>(now - std::min(now, startMs)) + ms;
    startMs = now - static_cast<std::uint64_t>(std::clamp(elapsed, std::int64_t{0}, static_cast<std::int64_t>(now)));
    Advance(now);
}

void Player::MoveToNextPage(std::uint64_t nowMs)
{
    const std::uint64_t now = PlayMs(nowMs);
    if (!show)
        return;
    const std::uint64_t inPlay = (now - std::min(now, startMs)) % show->DurationMs();
    Move(static_cast<std::int64_t>(show->NextPageMs(inPlay) - inPlay), nowMs);
}

void Player::Draw(std::uint64_t nowMs, Canvas& face)
{
    const std::uint64_t now = PlayMs(nowMs);
    Advance(now);
    if (show)
        show->Draw((now - std::min(now, startMs)) % show->DurationMs(), *font, face);
    else
        face.Clear();
}

std::optional<std::uint64_t> Player::NextMs() const
{
    if (pausedAtMs || (!show && order.Size() == 0))
        return std::nullopt;
    return (show ? EndMs() : startMs) + lagMs;
}

const FileEntry* Player::ListedFile()
{
    if (!show || order.Size() == 0 || next == 0)
        return nullptr;
    const FileEntry& file = order.At(next - 1);
    return file == current ? &file : nullptr;
}

std::string Player::NextFile(std::uint64_t nowMs)
{
    const std::uint64_t now = PlayMs(nowMs);
    for (std::size_t i = 0; i < order.Size(); ++i) {
        const FileEntry& entry = order.At(next + i);
        const auto file = entry.path.empty() || !IsDue(entry, now) ? std::nullopt : resolve(entry.path);
        std::error_code error;
        if (file && std::filesystem::is_regular_file(*file, error))
            return entry.path;
    }
    return {};
}

bool Player::IsDue(const FileEntry& file, std::uint64_t playMs) const
{
    return !clock || file.schedules.empty() || MayPlay(file.schedules, clock(playMs + lagMs));
}

// When the turn of what plays is over.
std::uint64_t Player::EndMs() const
{
    return startMs + show->DurationMs() * std::max<std::uint64_t>(current.playTimes, 1);
}

// Brings the player to the file whose turn it is. Turns follow each other without a gap, however seldom it is called;
// only after so long an absence that many turns were missed does the last one of them start now.
void Player::Advance(std::uint64_t playMs)
{
    for (int tries = 1; tries <= kMostTries; ++tries) {
        if (show ? playMs < EndMs() && IsDue(current, playMs) : playMs < startMs)
            return;
        if (order.Size() == 0)
            return Stop(); // a file outside the list is over
        const std::uint64_t endMs = std::min(show ? EndMs() : startMs, playMs);
        const std::uint64_t turnMs = resting || tries == kMostTries ? playMs : endMs;
        resting = false;
        StartNext(turnMs);
        if (!show && misses >= order.Size()) {
            misses = 0;
            resting = true;
            // What wasn't due when its turn came may be now.
            startMs = turnMs < playMs ? playMs : playMs + kRetryMs;
        }
    }
}

// Gives the next file that is due its turn. If it can't be shown, nothing plays, and the file after it can have the
// turn.
void Player::StartNext(std::uint64_t turnMs)
{
    Clear();
    startMs = turnMs;
    while (misses < order.Size()) {
        const FileEntry& file = order.At(next++);
        ++misses;
        if (!IsDue(file, turnMs))
            continue;
        if (auto loaded = Load(file)) {
            Begin(std::move(*loaded), file, turnMs);
            misses = 0;
        }
        return;
    }
}

void Player::Begin(Show loaded, const FileEntry& file, std::uint64_t turnMs)
{
    show = std::move(loaded);
    current = file;
    ++turns;
    startMs = turnMs;
    resting = false;
}

void Player::Clear()
{
    show.reset();
    current = {};
}

std::optional<Show> Player::Load(const FileEntry& file)
{
    const std::optional<std::filesystem::path> path = file.path.empty() ? std::nullopt : resolve(file.path);
    if (!path)
        return std::nullopt;
    const std::vector<std::uint8_t> bytes = ReadWholeFile(*path, kMostContentBytes);
    Timing timing = defaults;
    if (!IsUnset(file.pictureEntryMode))
        timing.entryMode = file.pictureEntryMode;
    if (!IsUnset(file.pictureExitMode))
        timing.exitMode = file.pictureExitMode;
    if (file.pictureStaySeconds != 0)
        timing.stayMs = std::uint64_t{file.pictureStaySeconds} * 1000;
    return Show::Load(bytes, timing, width, height, *font);
}

} // namespace vxsim
