// A named file in either direction, and the picture of what the sign shows.
#include "playlist/packages.h"
#include "reports/currentMessage.h"
#include "util/file.h"
#include "util/littleEndian.h"
#include "util/localCall.h"
#include "util/text.h"

#include <vxsign/control.h>
#include <vxsign/local.h>
#include <vxsign/mover.h>
#include <vxsign/play.h>
#include <vxsign/read.h>
#include <vxsign/result.h>
#include <vxsign/write.h>

#include <cstring>
#include <limits>
#include <string>

namespace {

using namespace vxsign;

// "TRAFFICLIGHT.SYS": a header, then the beacon.
constexpr std::size_t kLightHeaderSize = 12;
constexpr std::size_t kBeaconSize = 8;
constexpr std::uint32_t kLightPercent = 90;

// The name of a local file without its folder, in upper case. A name longer than any that counts is empty.
std::string NameOf(const char* local)
{
    constexpr std::uint8_t kSize = std::numeric_limits<std::uint8_t>::max();
    char name[kSize];
    char extension[kSize];
    vxStr_splitpath(local, nullptr, 0, nullptr, 0, name, kSize, extension, kSize);
    std::string whole = std::string(name) + extension;
    for (char& c : whole)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    return whole;
}

std::uint32_t ReadTrafficLight(vxApiConfig& config, const char* local)
{
    File file = OpenFile(local, "wb");
    if (!file)
        return VX_OPEN_FILE;
    std::uint8_t header[kLightHeaderSize] = {};
    bool written = WriteAll(file, header, sizeof header);
    std::uint8_t beacon[kBeaconSize] = {};
    const std::uint32_t result = vxGetBeacon(beacon);
    const bool there = result == VX_OK;
    if (there)
        written = written && WriteAll(file, beacon, sizeof beacon);

    header[0] = 'L';
    header[1] = 'T';
    Store16(header + 2, there ? 1 : 0);
    Store32(header + 4, static_cast<std::uint32_t>(sizeof header + (there ? sizeof beacon : 0)));
    written = written && Seek(file, 0) && WriteAll(file, header, sizeof header);
    written = CloseFile(file) && written;
    if (config.onProgress != nullptr)
        config.onProgress(&config, 0, kLightPercent);
    return !there || written ? result : static_cast<std::uint32_t>(VX_CALL);
}

std::uint32_t WriteTrafficLight(const char* local)
{
    const File file = OpenFile(local, "rb");
    if (!file)
        return VX_OPEN_FILE;
    std::uint8_t record[kLightHeaderSize + kBeaconSize] = {};
    ReadSome(file, record, sizeof record);
    if (record[0] != 'L' || record[1] != 'T')
        return VX_FILE_FORMAT;
    std::uint64_t beacon = 0;
    std::memcpy(&beacon, record + kLightHeaderSize, sizeof beacon);
    return vxSetBeacon(&beacon);
}

std::uint32_t Move(vxApiConfig& config, const char* local, const char* path, bool read)
{
    const std::string name = NameOf(local);
    if (name == "MONITOR.GIF")
        return vxCurrentMsg2Gif(path, local);
    const bool flatPackage = name == "PLAYFILE.PLS";
    if (flatPackage || name == "PLAYFILE.PLM") {
        if (read) // packages go one way only
            return VX_OK;
        return playlist::SendPackage(config, local,
                                     flatPackage ? playlist::PackageForm::kFlat : playlist::PackageForm::kTree);
    }
    if (name == "TRAFFICLIGHT.SYS")
        return read ? ReadTrafficLight(config, local) : WriteTrafficLight(local);
    if (name == "CONFIG.SYS")
        return read ? vxReadSysFile(name.c_str(), local) : vxWriteSystemFile(name.c_str(), local);
    return read ? vxReadSpecPathFile(path, local) : vxWriteSpecFile(path, local);
}

} // namespace

std::uint32_t vxRWFile(const char* local, const char* path, std::uint32_t mode)
{
    return LocalCall<std::uint32_t>(VX_COMMUNICATION, [=]() -> std::uint32_t {
        vxApiConfig* const config = ThreadConfig();
        if (config == nullptr || local == nullptr || (mode != VX_MOVE_READ && mode != VX_MOVE_WRITE))
            return VX_NOT_INITIALISED;
        return Move(*config, local, path, mode == VX_MOVE_READ);
    });
}

std::uint32_t vxCurrentMsg2Gif(const char* tempFolder, const char* gifPath)
{
    if (tempFolder == nullptr || gifPath == nullptr)
        return VX_ARGUMENTS;
    return LocalCall<std::uint32_t>(VX_COMMUNICATION, [=] {
        char playing[kPlayingPathSize] = {};
        const std::uint32_t result = vxGetPlayingFileName(playing, sizeof playing);
        if (result != VX_OK && result != VX_NOTHING_PLAYS)
            return result;
        vxApiConfig* const config = ThreadConfig();
        if (config == nullptr || config->onMessageToGif == nullptr)
            return result;

        const std::string_view playingPath = FieldText(playing, sizeof playing);
        const std::string_view name = result == VX_OK ? MessageName(playingPath) : kBlankMessage;
        const std::string message = std::string(tempFolder) + '\\' + std::string(name);
        ConvertMessage(*config, message.c_str(), gifPath);
        return result;
    });
}
