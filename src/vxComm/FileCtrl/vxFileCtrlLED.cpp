// The exports of major 7.
#include "vxBaseCMD/call.h"
#include "vxComm/families.h"
#include "vxComm/shared/dirEntry.h"

#include <vxsign/filesystem.h>
#include <vxsign/read.h>

#include <cstdio>

using namespace vxsign;

namespace {

// The longest path that a request carries, its terminator included.
constexpr std::size_t kLongestSignPath = 256;

constexpr char kLongListing[] = "E:\\dlist.dlt"; // where the sign puts it

// A path that is announced at its full length, although no more than kLongestSignPath bytes of it go out.
OfLength AnnouncedPath(const char* path)
{
    return {TerminatedText(path, kLongestSignPath), TextLength(path) + 1};
}

// Two paths in one text.
std::uint32_t SendPaths(std::uint8_t minor, const char* from, const char* to)
{
    char both[kLongestSignPath] = {};
    if (Required(from, to))
        std::snprintf(both, sizeof both, "%s %s", from, to);
    return Call<vxFileCtrlLED>(Required(from, to), [&](vxFileCtrlLED& sign) {
        return SendOn(sign, {7, minor}, Payload(TerminatedText(both, sizeof both)));
    });
}

std::uint32_t DeleteContents(std::uint8_t minor, std::uint8_t selector)
{
    return Send<vxFileCtrlLED>({7, minor}, Payload(Fields<4>(selector)));
}

} // namespace

std::uint32_t vxFormatDrive(char drive)
{
    // The system drive is formatted only with this word behind its letter.
    return Send<vxFileCtrlLED>({7, 2}, Payload(Fields<4>(drive, Name<3>{drive == 'C' ? "SYS" : ""})));
}

std::uint32_t vxCreateDir(const char* path)
{
    return Send<vxFileCtrlLED>({7, 3}, Payload(AnnouncedPath(path)));
}

std::uint32_t vxRename(const char* from, const char* to)
{
    return SendPaths(4, from, to);
}

std::uint32_t vxMove(const char* from, const char* to)
{
    return SendPaths(5, from, to);
}

std::uint32_t vxDelete(const char* path)
{
    return Send<vxFileCtrlLED>({7, 6}, Payload(TerminatedText(path, kLongestSignPath)));
}

std::uint32_t vxPLDeleteByIndex(std::uint8_t index)
{
    char path[32];
    std::snprintf(path, sizeof path, "c:\\playlist\\sequent%d.sys", index);
    return vxDelete(path);
}

std::uint32_t vxDelTextFiles(std::uint8_t selector)
{
    return DeleteContents(7, selector);
}

std::uint32_t vxDelStringFiles(std::uint8_t selector)
{
    return DeleteContents(8, selector);
}

std::uint32_t vxDelPictureFiles(std::uint8_t selector)
{
    return DeleteContents(9, selector);
}

std::uint32_t vxDelArrpicFiles(std::uint8_t selector)
{
    return DeleteContents(10, selector);
}

std::uint32_t vxGetDirFile(const char* path, std::uint32_t* total, std::uint8_t* entries, std::uint32_t maxEntries)
{
    return Send<vxFileCtrlLED>({7, 11}, Payload(TerminatedText(path, kLongestSignPath)),
                               Reply(OutCount<0>(total), OutRecords<kDirEntrySize>(entries, maxEntries)));
}

std::uint32_t vxGetDirFileEx(const char* path, std::uint16_t start, std::uint16_t count, std::uint32_t* total,
                             std::uint8_t* entries, std::uint32_t maxEntries)
{
    constexpr std::size_t kPage = sizeof count + sizeof start;
    constexpr std::size_t kPathSize = kLongestSignPath - kPage;
    const Fields<kLongestSignPath> request(count, start, Name<kPathSize>{path});
    return Send<vxFileCtrlLED>({7, 12}, Payload(OfLength(request, kPage + std::min(TextLength(path) + 1, kPathSize))),
                               Reply(OutCount<0>(total), OutRecords<kDirEntrySize>(entries, maxEntries)));
}

std::uint32_t vxGetDriveInfo(std::uint8_t drive, std::uint32_t* first, std::uint32_t* second, void* extra)
{
    return Send<vxFileCtrlLED>(
        {7, 13}, Payload(Fields<4>(drive, ':')),
        Reply(Optional(Out<0>(first)), Optional(Out<4>(second)), Optional(OutBytes<8>(extra, 12))));
}

std::uint32_t vxIsFileExist(const char* path)
{
    return Send<vxFileCtrlLED>({7, 14}, Payload(AnnouncedPath(path)));
}

std::uint32_t vxClearAllPlayFiles(std::uint8_t mode, std::uint16_t* out)
{
    constexpr std::uint8_t kCounted = 1; // the one mode that the sign answers with a number
    const Fields<4> request(mode);
    return mode == kCounted ? Send<vxFileCtrlLED>({7, 15}, Payload(request), Reply(Out<0>(out)))
                            : Send<vxFileCtrlLED>({7, 15}, Payload(request));
}

std::uint32_t vxGetDirLongFileEx(const char* path, const char* localFile)
{
    return Call<vxFileCtrlLED>(Required(path, localFile), [=](vxFileCtrlLED& sign) {
        const auto deleteListing = [&sign] {
            SendOn(sign, {7, 6}, Payload(TerminatedText(kLongListing, kLongestSignPath)));
        };
        deleteListing(); // of an earlier call
        std::uint32_t result = SendOn(sign, {7, 16}, Payload(TerminatedText(path, kLongestSignPath)));
        if (result == VX_OK)
            result = vxReadSpecPathFile(kLongListing, localFile);
        if (result == VX_OK)
            deleteListing();
        return result;
    });
}
