// Files that come in, packet by packet.
#pragma once

#include "sim/command/arrival.h"
#include "sim/files/fileRecord.h"
#include "sim/platform/descriptor.h"
#include "sim/protocol/codes.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace vxsim {

// One write request of a file: who sends it and when, what its record announces, and the bytes that it brings.
struct FileChunk
{
    Arrival arrival;
    FileRecord record;
    std::uint32_t fileSize = 0;
    std::uint32_t total = 0;
    std::span<const std::uint8_t> data;
    bool anyOrder = false;   // the host may have several packets in flight
    std::size_t padUnit = 1; // above 1: missing data and the rest of the last unit become 0xFF, excess data is dropped
};

// Puts files together out of their packets. A file is written under a temporary name and takes its place when its last
// packet is there, so that a broken transfer leaves the old file. Packets may come again at any time. A file has one
// sender at a time, and there are eight senders at most: whoever comes later hears that the sign is used by others,
// until the earlier one has ended or has been silent for ten seconds. A sender that begins anew ends its own transfer.
class FileReceiver
{
public:
    using Locate = std::function<std::optional<std::filesystem::path>()>;

    struct Outcome
    {
        Code code = Code::kOk;
        std::optional<std::filesystem::path> finished; // the file that this packet completed
    };

    // `folder` holds the unfinished files and lies on the same file system as the drives.
    explicit FileReceiver(std::filesystem::path folder);
    ~FileReceiver();
    FileReceiver(const FileReceiver&) = delete;
    FileReceiver& operator=(const FileReceiver&) = delete;

    // `locate` says where the file goes. It is asked once for each transfer.
    Outcome Take(const FileChunk& chunk, const Locate& locate);

private:
    struct Transfer
    {
        Arrival last; // whose it is, and when they last sent a packet
        KeptRecord record;
        std::filesystem::path target;
        std::filesystem::path temporary;
        Descriptor file;
        std::vector<std::uint8_t> gathered; // bytes that are not yet in the file, and their place in it
        std::uint64_t gatheredAt = 0;
        std::vector<bool> received; // by packet number, from 1
        std::uint32_t missing = 0;
        std::uint32_t next = 1; // the lowest number not yet received
    };

    Code MakeRoom(const Arrival& arrival, const std::filesystem::path& target);
    Code Start(const FileChunk& chunk, const Locate& locate);
    static Code Store(Transfer& transfer, const FileChunk& chunk);
    static Code Put(Transfer& transfer, std::span<const std::uint8_t> bytes, std::uint64_t at);
    static Code WriteGathered(Transfer& transfer);
    static Code Finish(Transfer& transfer, const FileChunk& chunk);
    void Abandon(std::size_t index);

    std::filesystem::path folder;
    std::vector<Transfer> running; // the latest last
    std::deque<Transfer> finished; // without files, to know late copies of packets
    unsigned serial = 0;
};

} // namespace vxsim
