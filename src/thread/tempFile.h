// Temporary files that go with their owner.
#pragma once

#include "platform/files.h"

#include <vxsign/local.h>

#include <array>
#include <cstdint>

namespace vxsign {

/// The name of a temporary file, taken at once. The file goes with the object, unless it is to stay.
class TempFile
{
public:
    explicit TempFile(const char* extension) { vxGetPCTempFilename(path.data(), kLongestPath, extension); }
    ~TempFile()
    {
        if (!stays)
            platform::RemoveFile(path.data());
    }
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;

    const char* Path() const { return path.data(); }
    void Stay(bool stay) { stays = stay; }

private:
    static constexpr std::uint32_t kLongestPath = 512;
    std::array<char, kLongestPath> path{};
    bool stays = false;
};

} // namespace vxsign
