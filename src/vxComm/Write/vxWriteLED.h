// The command object that writes.
#pragma once

#include "util/file.h"
#include "vxBaseCMD/vxBaseCMD.h"
#include "vxComm/shared/fileRecord.h"

namespace vxsign {

/// Files and small records to the sign: major 2.
class vxWriteLED : public CBaseCMD
{
public:
    /// Sends a local file packet by packet, each waiting for its reply. minor: 2 to 8 or 13. `name` is the file's name
    /// or path on the sign as the minor takes it; `disk` counts for minors 4 to 7.
    std::uint32_t SendFileChunks(std::uint8_t minor, const char* name, const char* local, char disk = '\0');

    /// The same for minor 13 with several packets on their way at a time; see windowSender.cpp.
    std::uint32_t SendFileWindowed(const char* path, const char* local);

    /// Minor 19: `size` bytes of data flash, the file's size if 0.
    std::uint32_t SendDataFlashFile(const char* local, std::uint32_t size);

    /// Minor 1: the memory of a board, in blocks of a size of its own.
    std::uint32_t SendAbsoluteFile(std::uint8_t addrLow, std::uint8_t addrHigh, const char* local);

private:
    struct Source;

    std::uint32_t OpenSource(const char* local, Source& source) const;
    std::uint32_t SendAll(std::uint8_t minor, FileRecord& record, std::uint32_t total, const Source& source);
    std::uint32_t SendFileChunk(std::uint32_t number, FileRecord& record, const Source& source);
    std::uint32_t AwaitInput(std::uint32_t looks, std::uint8_t* buffer, std::uint32_t capacity);
    std::uint32_t SendWindowBody(std::uint32_t total, FileRecord& record, const Source& source);

    /// Where a chunk waits for its packet: the second half of the request buffer.
    std::uint8_t* Staging() const { return requestBuffer + kStagingOffset; }
    static constexpr std::uint32_t kStagingOffset = 1536;
    static constexpr std::uint32_t kLongestChunk = 1280;
    static_assert(kStagingOffset + kLongestChunk <= kRequestSize);
};

/// A file on its way: opened, unwrapped, not empty.
struct vxWriteLED::Source
{
    File file;
    std::uint32_t size = 0;
    std::uint32_t chunkSize = 0; // taken once: the thread's record may change under a callback
};

} // namespace vxsign
