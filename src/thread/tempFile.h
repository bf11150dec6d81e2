// Temporary files that go with their owner.
#pragma once

#include <vxsign/local.h>

#include <array>
#include <cstdint>
#include <cstdio>

namespace vxsign {

/// The name of a temporary file, taken at once. The file goes with the object, unless it is to stay.
class TempFile
{
public:
    explicit TempFile(const char* extension) { vxGetPCTempFilename(path.data(), kLongestPath, extension); }
    ~TempFile()
    {
        if (!stays)
            std::remove(path.data());
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
