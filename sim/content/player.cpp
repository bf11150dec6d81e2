#include "sim/content/player.h"

#include <algorithm>
#include <fstream>
#include <utility>

namespace vxsim {

namespace {

// Larger files are passed over unread.
constexpr std::uintmax_t kMostContentBytes = std::uintmax_t{64} * 1024 * 1024;
constexpr std::uintmax_t kMostSequenceBytes = std::uintmax_t{8} * 1024 * 1024;

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

// The whole file; empty if it is missing, not a file, too large or unreadable.
std::vector<std::uint8_t> ReadFile(const std::filesystem::path& path, std::uintmax_t mostBytes)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        return {};
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (error || size > mostBytes)
        return {};
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size));
    std::ifstream file(path, std::ios::binary);
    file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
}

} // namespace

Player::Player(int faceWidth, int faceHeight, PathResolver resolver, std::filesystem::path sequence)
    : width(std::clamp(faceWidth, 1, Canvas::kMostPixelsPerSide)),
      height(std::clamp(faceHeight, 1, Canvas::kMostPixelsPerSide)), resolve(std::move(resolver)),
      sequenceFile(std::move(sequence))
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
    const std::optional<Sequence> sequence = ParseSequence(ReadFile(sequenceFile, kMostSequenceBytes));
    files = sequence ? FilesInOrder(*sequence) : std::vector<FileEntry>();
    next = 0;
    misses = 0;
    show.reset();
    currentFile.clear();
    pausedAtMs.reset();
    lagMs = 0;
    startMs = nowMs;
    Advance(nowMs);
}

void Player::Stop()
{
    files.clear();
    show.reset();
    currentFile.clear();
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
    if (files.empty())
        return;
    show.reset();
    startMs = PlayMs(nowMs);
    Advance(startMs);
}

// Goes back past what cannot be shown.
void Player::PlayPrevious(std::uint64_t nowMs)
{
    Continue(nowMs);
    const std::size_t count = files.size();
    for (std::size_t back = 2; back < count + 2 && back < kMostTries; ++back) {
        const std::size_t index = (next + 2 * count - back) % count;
        if (auto loaded = Load(files[index])) {
            Begin(std::move(*loaded), files[index].path, PlayMs(nowMs));
            next = (index + 1) % count;
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
    Begin(std::move(*loaded), signPath, PlayMs(nowMs));
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
    const std::uint64_t elapsed = now - std::min(now, startMs);
    Move(static_cast<std::int64_t>(show->NextPageMs(elapsed) - elapsed), nowMs);
}

void Player::Draw(std::uint64_t nowMs, Canvas& face)
{
    const std::uint64_t now = PlayMs(nowMs);
    Advance(now);
    if (show)
        show->Draw(now - std::min(now, startMs), font, face);
    else
        face.Clear();
}

std::string Player::NextFile() const
{
    for (std::size_t i = 0; i < files.size(); ++i) {
        const std::string& path = files[(next + i) % files.size()].path;
        const auto file = path.empty() ? std::nullopt : resolve(path);
        std::error_code error;
        if (file && std::filesystem::is_regular_file(*file, error))
            return path;
    }
    return {};
}

// Brings the player to the file whose turn it is. Turns follow each other without a gap, however seldom it is called;
// only after so long an absence that many turns were missed does the last one of them start now.
void Player::Advance(std::uint64_t playMs)
{
    for (int tries = 1; tries <= kMostTries; ++tries) {
        const std::uint64_t endMs = show ? startMs + show->DurationMs() : startMs;
        if (playMs < endMs)
            return;
        if (files.empty())
            return Stop(); // a file outside the list is over
        StartNext(tries < kMostTries ? endMs : playMs);
        if (show) {
            misses = 0;
        } else if (++misses >= files.size()) {
            misses = 0;
            startMs = playMs + kRetryMs;
        }
    }
}

// Gives the next file its turn. If it can't be shown, nothing plays, and the file after it can have the turn.
void Player::StartNext(std::uint64_t turnMs)
{
    const FileEntry& file = files[next];
    next = (next + 1) % files.size();
    show = Load(file);
    currentFile = show ? file.path : std::string();
    startMs = turnMs;
}

void Player::Begin(Show loaded, const std::string& path, std::uint64_t turnMs)
{
    show = std::move(loaded);
    currentFile = path;
    startMs = turnMs;
}

std::optional<Show> Player::Load(const FileEntry& file)
{
    const std::optional<std::filesystem::path> path = file.path.empty() ? std::nullopt : resolve(file.path);
    if (!path)
        return std::nullopt;
    const std::vector<std::uint8_t> bytes = ReadFile(*path, kMostContentBytes);
    Timing timing = defaults;
    if (!IsUnset(file.pictureEntryMode))
        timing.entryMode = file.pictureEntryMode;
    if (!IsUnset(file.pictureExitMode))
        timing.exitMode = file.pictureExitMode;
    if (file.pictureStaySeconds != 0)
        timing.stayMs = std::uint64_t{file.pictureStaySeconds} * 1000;
    return Show::Load(bytes, timing, width, height, font);
}

} // namespace vxsim
