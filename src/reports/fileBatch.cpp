// A batch of files for the sign.
#include "util/file.h"
#include "util/littleEndian.h"
#include "util/localCall.h"
#include "util/text.h"

#include <vxsign/log.h>
#include <vxsign/result.h>
#include <vxsign/write.h>

#include <array>
#include <string>

using namespace vxsign;

namespace {

constexpr std::size_t kHeaderSize = 116;
constexpr std::size_t kPathSize = 256;

bool IsBatch(const File& file)
{
    std::array<std::uint8_t, kHeaderSize> header{};
    ReadSome(file, header.data(), header.size());
    return header[0] == 'M' && header[1] == 'C' && Load32(&header[4]) == 1 && Load32(&header[8]) == 1;
}

} // namespace

std::uint32_t vxExecFileCMD(const char* localFile)
{
    if (localFile == nullptr)
        return VX_ARGUMENTS;
    return LocalCall<std::uint32_t>(VX_CALL, [=]() -> std::uint32_t {
        const File file = OpenFile(localFile, "rb");
        if (!file)
            return VX_OPEN_FILE;
        if (!IsBatch(file))
            return VX_FILE_FORMAT;
        std::uint32_t result = VX_OK;
        std::array<char, 2 * kPathSize> block;
        while (result == VX_OK && ReadSome(file, block.data(), block.size()) == block.size()) {
            const std::string local(FieldText(block.data(), kPathSize));
            const std::string sign(FieldText(block.data() + kPathSize, kPathSize));
            result = vxWriteSpecFile(sign.c_str(), local.c_str());
        }
        return result;
    });
}
