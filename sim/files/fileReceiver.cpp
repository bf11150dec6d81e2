#include "sim/files/fileReceiver.h"

#include "sim/files/limits.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <string>
#include <system_error>
#include <unistd.h>

namespace vxsim {
namespace fs = std::filesystem;
namespace {

constexpr std::size_t kMaxRunning = 8;
constexpr std::size_t kMaxFinished = 8;
constexpr std::uint64_t kSilenceMs = 10000; // longer than any host waits before it sends a packet again
// Neighbouring chunks are gathered up to this size, so that a chunk does not cost a write of its own.
constexpr std::size_t kGather = 65536;
constexpr std::uint8_t kErased = 0xFF;

bool IsSameSender(const Arrival& one, const Arrival& other)
{
    return one.host == other.host && one.line == other.line;
}

bool WriteAt(int file, std::span<const std::uint8_t> bytes, std::uint64_t at)
{
    while (!bytes.empty()) {
        const ssize_t count = ::pwrite(file, bytes.data(), bytes.size(), static_cast<off_t>(at));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        bytes = bytes.subspan(static_cast<std::size_t>(count));
        at += static_cast<std::uint64_t>(count);
    }
    return true;
}

std::uint32_t LengthOf(const FileChunk& chunk)
{
    if (chunk.record.number < chunk.total)
        return chunk.record.chunkSize;
    return chunk.fileSize - (chunk.total - 1) * chunk.record.chunkSize;
}

Code CheckRecord(const FileChunk& chunk)
{
    if (chunk.fileSize == 0 || !IsChunkSize(chunk.record.chunkSize) ||
        chunk.total != PacketCount(chunk.fileSize, chunk.record.chunkSize))
        return Code::kBadPacketSize;
    if (chunk.record.number == 0 || chunk.record.number > chunk.total)
        return Code::kBadPacketNumber;
    const bool fits =
        chunk.padUnit > 1 ? chunk.data.size() <= chunk.record.chunkSize : chunk.data.size() == LengthOf(chunk);
    return fits ? Code::kOk : Code::kBadPacketSize;
}

} // namespace

FileReceiver::FileReceiver(fs::path workFolder) : folder(std::move(workFolder))
{
    fs::create_directories(folder);
}

FileReceiver::~FileReceiver()
{
    while (!running.empty())
        Abandon(0);
}

// Ends what stands in the way of a transfer to that file, if it may be ended.
Code FileReceiver::MakeRoom(const Arrival& arrival, const fs::path& target)
{
    const auto mayEnd = [&](const Transfer& t) {
        return IsSameSender(arrival, t.last) || arrival.nowMs - t.last.nowMs >= kSilenceMs;
    };
    const auto before = std::ranges::find(running, target, &Transfer::target);
    const auto inTheWay =
        before != running.end() || running.size() < kMaxRunning ? before : std::ranges::find_if(running, mayEnd);
    if (inTheWay != running.end() && mayEnd(*inTheWay))
        Abandon(static_cast<std::size_t>(inTheWay - running.begin()));
    else if (inTheWay != running.end() || running.size() == kMaxRunning)
        return Code::kUsedByOthers;
    return Code::kOk;
}

FileReceiver::Outcome FileReceiver::Take(const FileChunk& chunk, const Locate& locate)
{
    if (const Code code = CheckRecord(chunk); code != Code::kOk)
        return {code, {}};
    const auto continues = [&chunk](const Transfer& t) {
        return IsSameSender(chunk.arrival, t.last) && chunk.record.NamesSame(t.record);
    };
    auto transfer = std::ranges::find_if(running, continues);
    if (transfer == running.end()) {
        // A packet of a file that is complete has come once more, since the answer to it was lost.
        if (chunk.record.number > 1)
            return {std::ranges::any_of(finished, continues) ? Code::kOk : Code::kBadPacketNumber, {}};
        if (const Code code = Start(chunk, locate); code != Code::kOk)
            return {code, {}};
        transfer = running.end() - 1;
    }
    transfer->last = chunk.arrival;
    if (!chunk.anyOrder && chunk.record.number > transfer->next)
        return {Code::kBadPacketNumber, {}};
    // The host sends the last packet when it has an answer to all others.
    if (chunk.record.number == chunk.total && transfer->missing > 1)
        return {Code::kBadPacketNumber, {}};

    const auto index = static_cast<std::size_t>(transfer - running.begin());
    Code code = Store(*transfer, chunk);
    if (code == Code::kOk && transfer->missing > 0)
        return {};
    if (code == Code::kOk)
        code = Finish(*transfer, chunk);
    if (code != Code::kOk) {
        Abandon(index);
        return {code, {}};
    }
    finished.push_back(std::move(*transfer));
    running.erase(running.begin() + static_cast<std::ptrdiff_t>(index));
    if (finished.size() > kMaxFinished)
        finished.pop_front();
    return {Code::kOk, finished.back().target};
}

Code FileReceiver::Start(const FileChunk& chunk, const Locate& locate)
{
    const auto target = locate();
    std::error_code error;
    if (!target || fs::is_directory(*target, error))
        return Code::kOpenFailed;
    if (const Code code = MakeRoom(chunk.arrival, *target); code != Code::kOk)
        return code;
    std::erase_if(finished, [&](const Transfer& t) { return t.target == *target; });

    fs::create_directories(target->parent_path(), error);
    if (error)
        return Code::kOpenFailed;
    if (const auto space = fs::space(folder, error); !error && space.available < chunk.fileSize)
        return Code::kNoSpace;
    Transfer transfer;
    transfer.record = chunk.record.Keep();
    transfer.target = *target;
    transfer.temporary = folder / ("incoming-" + std::to_string(++serial) + ".tmp");
    transfer.file = Descriptor(::open(transfer.temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
    if (!transfer.file)
        return errno == ENOSPC ? Code::kNoSpace : Code::kOpenFailed;
    transfer.received.resize(std::size_t{chunk.total} + 1);
    transfer.missing = chunk.total;
    running.push_back(std::move(transfer));
    return Code::kOk;
}

Code FileReceiver::Store(Transfer& transfer, const FileChunk& chunk)
{
    const std::size_t length = LengthOf(chunk);
    std::span<const std::uint8_t> data = chunk.data;
    std::vector<std::uint8_t> padded;
    if (data.size() > length)
        data = data.first(length);
    if (data.size() < length) {
        padded.assign(data.begin(), data.end());
        padded.resize(length, kErased);
        data = padded;
    }
    const auto at = std::uint64_t{chunk.record.number - 1} * chunk.record.chunkSize;
    if (const Code code = Put(transfer, data, at); code != Code::kOk)
        return code;
    if (!transfer.received[chunk.record.number]) {
        transfer.received[chunk.record.number] = true;
        --transfer.missing;
    }
    while (transfer.next <= chunk.total && transfer.received[transfer.next])
        ++transfer.next;
    return Code::kOk;
}

Code FileReceiver::Put(Transfer& transfer, std::span<const std::uint8_t> bytes, std::uint64_t at)
{
    auto& gathered = transfer.gathered;
    if (at != transfer.gatheredAt + gathered.size() || gathered.size() + bytes.size() > kGather) {
        if (const Code code = WriteGathered(transfer); code != Code::kOk)
            return code;
        transfer.gatheredAt = at;
    }
    gathered.insert(gathered.end(), bytes.begin(), bytes.end());
    return Code::kOk;
}

Code FileReceiver::WriteGathered(Transfer& transfer)
{
    const bool written = WriteAt(transfer.file.Get(), transfer.gathered, transfer.gatheredAt);
    transfer.gathered.clear();
    if (written)
        return Code::kOk;
    return errno == ENOSPC ? Code::kNoSpace : Code::kWriteFailed;
}

Code FileReceiver::Finish(Transfer& transfer, const FileChunk& chunk)
{
    if (const std::size_t rest = chunk.fileSize % chunk.padUnit; rest != 0) {
        const std::vector<std::uint8_t> padding(chunk.padUnit - rest, kErased);
        if (const Code code = Put(transfer, padding, chunk.fileSize); code != Code::kOk)
            return code;
    }
    if (const Code code = WriteGathered(transfer); code != Code::kOk)
        return code;
    transfer.gathered = {};
    transfer.file.Close();
    transfer.received = {};
    std::error_code error;
    fs::rename(transfer.temporary, transfer.target, error);
    return error ? Code::kWriteFailed : Code::kOk;
}

void FileReceiver::Abandon(std::size_t index)
{
    std::error_code error;
    fs::remove(running[index].temporary, error);
    running.erase(running.begin() + static_cast<std::ptrdiff_t>(index));
}

} // namespace vxsim
