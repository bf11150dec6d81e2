// Writes blocks of pcapng.
#include "vxctl/record/captureWriter.h"

#include "vxctl/cli/bytes.h"
#include "vxctl/cli/failure.h"
#include "vxctl/record/captureFile.h"

#include <vxsign/api.h>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace vxctl {

namespace {

constexpr std::uint16_t kComment = 1;

std::string Number(std::uint64_t number, std::size_t size)
{
    std::string bytes;
    for (std::size_t i = 0; i < size; ++i)
        bytes += static_cast<char>(number >> (8 * i));
    return bytes;
}

std::string Padded(std::string bytes)
{
    bytes.resize((bytes.size() + 3) / 4 * 4);
    return bytes;
}

std::string Option(std::uint16_t code, std::string_view value)
{
    return Number(code, 2) + Number(value.size(), 2) + Padded(std::string(value));
}

std::string Block(BlockType type, const std::string& body)
{
    const std::string size = Number(body.size() + 12, 4);
    return Number(static_cast<std::uint32_t>(type), 4) + size + body + size;
}

// Of a file that was there: nothing, or a capture without a fault.
void CheckFormer(const std::string& file, std::uintmax_t size)
{
    if (size == 0)
        return;
    try {
        CaptureFile capture(file);
        if (!capture.IsNextGeneration())
            throw CaptureFault("it has the older form pcap");
        while (capture.Next()) {
        }
    } catch (const CaptureFault& fault) {
        throw UsageError("'" + file + "' is there and takes no recording: " + fault.what());
    }
}

[[noreturn]] void Refuse(const std::string& file, int error)
{
    throw UsageError("'" + file + "' cannot be written: " + std::generic_category().message(error));
}

} // namespace

Recording::Recording(const std::string& file, bool secretsStay) : name(file), keepsSecrets(secretsStay)
{
    constexpr mode_t kOwner = 0600; // what goes to a sign is not everybody's business
    descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_NONBLOCK | O_CLOEXEC, kOwner);
    if (descriptor < 0)
        Refuse(file, errno);
    try {
        struct stat status = {};
        if (::fstat(descriptor, &status) != 0)
            Refuse(file, errno);
        if (!S_ISREG(status.st_mode))
            throw UsageError("'" + file + "' is no ordinary file, and takes no recording");
        if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0)
            throw UsageError("'" + file + "' is being written by another recording");
        CheckFormer(file, static_cast<std::uintmax_t>(status.st_size));
        BeginSection();
        if (error != 0)
            Refuse(file, error);
    } catch (...) {
        ::close(descriptor);
        throw;
    }
    current = this;
}

Recording::~Recording()
{
    current = nullptr;
    ::close(descriptor);
}

void Recording::BeginSection()
{
    constexpr std::uint16_t kApplication = 4;
    Write(Block(BlockType::kSection, Number(kByteOrder, 4) + Number(1, 2) + Number(0, 2) + Number(UINT64_MAX, 8) +
                                         Option(kApplication, std::string("vxctl ") + vxAPIVersion()) + Option(0, "")));
}

std::uint32_t Recording::AddLine(std::string_view lineName, std::string_view comment)
{
    constexpr std::uint16_t kName = 2;
    const std::lock_guard lock(mutex);
    Write(Block(BlockType::kInterface, Number(static_cast<std::uint16_t>(LinkType::kRaw), 2) + Number(0, 2) +
                                           Number(0, 4) + Option(kComment, comment) + Option(kName, lineName) +
                                           Option(0, "")));
    return lines++;
}

void Recording::Add(std::uint32_t line, Way way, Time time, std::span<const std::uint8_t> packet)
{
    constexpr std::uint16_t kFlags = 2;
    const auto since = std::chrono::duration_cast<std::chrono::microseconds>(time.time_since_epoch()).count();
    const auto stamp = static_cast<std::uint64_t>(since);
    const std::string block = Block(
        BlockType::kEnhanced, Number(line, 4) + Number(stamp >> 32U, 4) + Number(stamp, 4) + Number(packet.size(), 4) +
                                  Number(packet.size(), 4) + Padded({packet.begin(), packet.end()}) +
                                  Option(kFlags, Number(way == Way::kIn ? 1 : 2, 4)) + Option(0, ""));
    const std::lock_guard lock(mutex);
    Write(block);
}

// A block that does not go in whole is taken back, and none comes behind it.
void Recording::Write(const std::string& block)
{
    if (error != 0)
        return;
    const off_t former = ::lseek(descriptor, 0, SEEK_END);
    const ssize_t written = ::write(descriptor, block.data(), block.size());
    if (written == static_cast<ssize_t>(block.size()))
        return;
    error = written < 0 ? errno : ENOSPC;
    if (former >= 0 && ::ftruncate(descriptor, former) != 0)
        error = errno;
}

std::string Recording::Fault() const
{
    const std::lock_guard lock(mutex);
    return error == 0 ? "" : "the recording " + name + " is not whole: " + std::generic_category().message(error);
}

} // namespace vxctl
