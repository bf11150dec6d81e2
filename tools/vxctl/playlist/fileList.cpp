// Changes FILELSTI.LST on the sign.
#include "vxctl/playlist/fileList.h"

#include "vxctl/cli/bytes.h"
#include "vxctl/cli/failure.h"
#include "vxctl/cli/localFiles.h"

#include <vxsign/read.h>
#include <vxsign/result.h>
#include <vxsign/write.h>

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <functional>
#include <vector>

namespace vxctl {

namespace {

constexpr char kPath[] = "D:\\FILELSTI.LST";
constexpr std::size_t kSize = 4104;
constexpr std::size_t kCountAt = 2;
constexpr std::size_t kEntriesAt = 8;
constexpr std::size_t kEntrySize = 4; // the name's code, then that of the contents, 16 bits each

std::uint16_t CodeOf(const std::string& name)
{
    return static_cast<std::uint16_t>(vxChkSum(name.data(), 0, static_cast<std::uint32_t>(name.size()), 1));
}

// Without the entries of the names; the bytes around them stay as the sign gave them.
void Drop(std::vector<std::uint8_t>& list, const std::function<bool(std::uint16_t)>& isDropped)
{
    list.resize(kSize);
    constexpr std::size_t kMost = (kSize - kEntriesAt) / kEntrySize;
    const std::size_t count = std::min<std::size_t>(Load16(list, kCountAt), kMost);
    std::size_t kept = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const auto entry = list.begin() + static_cast<std::ptrdiff_t>(kEntriesAt + i * kEntrySize);
        if (!isDropped(Load16(list, kEntriesAt + i * kEntrySize)))
            std::copy_n(entry, kEntrySize,
                        list.begin() + static_cast<std::ptrdiff_t>(kEntriesAt + kept++ * kEntrySize));
    }
    std::fill(list.begin() + static_cast<std::ptrdiff_t>(kEntriesAt + kept * kEntrySize), list.end(), std::uint8_t{0});
    Store(std::span(list).subspan(kCountAt, 2), static_cast<std::uint32_t>(kept));
}

std::uint32_t Change(const std::function<bool(std::uint16_t)>& isDropped)
{
    const TemporaryFolder folder;
    const std::string local = folder.Path() + "list";
    const std::uint32_t result = vxReadSpecPathFileEx(kPath, local.c_str());
    if (IsLineDown(result))
        return result;
    if (result != VX_OK)
        return VX_OK;
    std::vector<std::uint8_t> list = ReadWhole(local);
    Drop(list, isDropped);
    std::ofstream file(local, std::ios::binary);
    file.write(reinterpret_cast<const char*>(list.data()), static_cast<std::streamsize>(list.size()));
    file.close();
    return file ? vxWriteSpecFileEx(kPath, local.c_str()) : static_cast<std::uint32_t>(VX_OPEN_FILE);
}

} // namespace

std::uint32_t ForgetFiles(std::span<const std::string> names)
{
    std::vector<std::uint16_t> codes;
    std::ranges::transform(names, std::back_inserter(codes), CodeOf);
    return Change([&](std::uint16_t code) { return std::ranges::find(codes, code) != codes.end(); });
}

std::uint32_t ForgetAllFiles()
{
    return Change([](std::uint16_t) { return true; });
}

} // namespace vxctl
