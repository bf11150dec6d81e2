// Files that go out, packet by packet.
#pragma once

#include "sim/files/fileRecord.h"
#include "sim/platform/descriptor.h"
#include "sim/protocol/codes.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

namespace vxsim {

// Gives files out in pieces. A file that is being read stays open from its first packet on.
class FileSender
{
public:
    using Locate = std::function<std::optional<std::filesystem::path>()>;

    struct Piece
    {
        Code code = Code::kOk;
        std::uint32_t fileSize = 0;
        std::vector<std::uint8_t> data;
    };

    Piece Give(const FileRecord& request, const Locate& locate);

    // A file was replaced or deleted: packets that still come are served from what is there now.
    void Forget() { open.clear(); }

private:
    struct OpenFile
    {
        KeptRecord record;
        Descriptor file;
        std::uint32_t size = 0;
    };

    OpenFile* Find(const FileRecord& request);
    Code Open(const FileRecord& request, const Locate& locate);

    std::vector<OpenFile> open; // the latest last
};

} // namespace vxsim
