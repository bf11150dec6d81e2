// The command object that reads.
#pragma once

#include "util/file.h"
#include "vxBaseCMD/vxBaseCMD.h"
#include "vxComm/shared/fileRecord.h"

namespace vxsign {

/// Files and small records from the sign: major 1.
class vxReadLED : public CBaseCMD
{
public:
    /// Fetches a file packet by packet into a local file, which is made first and keeps what arrived. minor: 2 to 9, 17
    /// or 31. `name` is the file's name or path on the sign as the minor takes it (minor 9 takes none); `disk` counts
    /// for minors 4 to 7.
    std::uint32_t ReceiveFileChunks(std::uint8_t minor, const char* name, const char* local, char disk = '\0');

    /// Minors 28 and 29: `size` bytes of data flash, all of it if 0.
    std::uint32_t ReceiveDataFlash(const char* local, std::uint32_t size);

private:
    std::uint32_t AskForChunk(std::uint8_t minor, std::uint32_t number, FileRecord& record);
    std::uint32_t KeepChunk(const File& file) const;
    std::uint32_t ReceiveAll(std::uint8_t minor, std::uint32_t first, std::uint32_t total, FileRecord& record,
                             File& file);
};

} // namespace vxsign
