// Quick show of a list of ready files, and of the tube display.
#include "content/quickShow.h"
#include "playlist/sequenceFile.h"
#include "thread/tempFile.h"
#include "util/file.h"
#include "util/littleEndian.h"
#include "util/localCall.h"
#include "util/text.h"
#include "vxBaseCMD/fields.h"

#include <vxsign/local.h>
#include <vxsign/quickshow.h>
#include <vxsign/result.h>
#include <vxsign/test.h>
#include <vxsign/write.h>

#include <algorithm>
#include <span>

namespace {

using namespace vxsign;
using namespace vxsign::quickShow;

constexpr std::uint32_t kMostFiles = 128;
constexpr std::uint32_t kTries = 6;
constexpr std::size_t kTargetSize = 64; // of a path on the sign

// What of the work is done: 0 all of it; any other number than these leaves both out.
enum What : std::uint8_t
{
    kBoth = 0,
    kFilesAlone = 1,
    kSequenceAlone = 2
};

using Files = std::span<const char* const>;

Files FirstFiles(const char** files, std::uint32_t count)
{
    return {files, std::min(count, kMostFiles)};
}

// Where a local file goes on the sign. A file that cannot be read has no place: its texts stay empty.
struct Place
{
    char path[kTargetSize] = {};
    char shortName[sequence::kShortNameSize] = {};
    std::uint8_t folder = 0;

    Place(const char* file, char drive)
    {
        vxMakeSignPath(file, path, sizeof path, static_cast<std::uint8_t>(drive), &folder, shortName);
    }
};

// Mode and stay time of a list stand in the sign's default style, for all of its files.
void WriteListStyle(Target& target, int mode, std::uint32_t staySec)
{
    auto& bytes = target.style;
    const auto wantedMode = static_cast<std::uint8_t>(mode);
    const std::uint32_t stay =
        bytes[style::kShortStay] != style::kLongStay ? bytes[style::kShortStay] : Load32(bytes.data() + style::kStay);
    if (bytes[style::kEntryMode] == wantedMode && bytes[style::kExitMode] == wantedMode && stay == staySec &&
        bytes[style::kContentSource] == target.contentSource)
        return;
    bytes[style::kEntryMode] = wantedMode;
    bytes[style::kExitMode] = wantedMode;
    bytes[style::kShortStay] = style::kLongStay;
    Store32(bytes.data() + style::kStay, staySec);
    bytes[style::kContentSource] = target.contentSource;
    vxWriteDefDisplayStyle(bytes.data()); // what the sign answers does not count
}

std::uint32_t ShowList(Files files, int mode, std::uint32_t staySec, const Connection& connection, std::uint32_t toE,
                       std::uint8_t what)
{
    if (files.data() == nullptr || files.empty() || !connection.Complete())
        return VX_ARGUMENTS;
    return LocalCall<std::uint32_t>(VX_CALL, [&]() -> std::uint32_t {
        const TempFile temp("sys");
        std::optional<Target> target;
        std::uint32_t result = Reach(connection, toE, target);
        if (result != VX_OK || !target)
            return result;
        WriteListStyle(*target, mode, staySec);

        File file = OpenFile(temp.Path(), "wb");
        if (!file)
            return VX_OPEN_FILE;
        const auto header = sequence::MakeHeader(sequence::kFlatForm, static_cast<std::uint16_t>(files.size()), 0);
        bool written = WriteAll(file, header.data(), header.size());
        for (const char* const local : files) {
            const Place place(local, target->drive);
            if (what == kBoth || what == kFilesAlone)
                result = vxWriteSpecFile(place.path, local);
            if (result != VX_OK)
                return result; // files already sent stay on the sign
            const auto entry =
                sequence::MakeEntry(target->drive, place.folder, FieldText(place.shortName, sizeof place.shortName));
            written &= WriteAll(file, entry.data(), entry.size());
        }
        if (!CloseFile(file) || !written)
            return VX_CALL;
        return what == kBoth || what == kSequenceAlone ? vxWriteSystemFile("SEQUENT.SYS", temp.Path()) : result;
    });
}

std::uint32_t ShowTree(Files files, const std::uint8_t* types, const Connection& connection, std::uint32_t toE,
                       std::uint8_t what)
{
    if (files.data() == nullptr || files.empty() || types == nullptr || !connection.Complete())
        return VX_ARGUMENTS;
    return LocalCall<std::uint32_t>(VX_CALL, [&]() -> std::uint32_t {
        const TempFile temp("sys");
        std::optional<Target> target;
        std::uint32_t result = Reach(connection, toE, target);
        if (result != VX_OK || !target)
            return result;
        File file = OpenFile(temp.Path(), "wb");
        if (!file)
            return VX_NO_RECORD;
        constexpr std::size_t kPlayable = sequence::kFileRecordSize + sequence::kScheduleSize;
        const auto header = sequence::MakeHeader(sequence::kTreeForm, static_cast<std::uint16_t>(files.size()),
                                                 static_cast<std::uint16_t>(kPlayable * files.size()));
        bool written = WriteAll(file, header.data(), header.size());
        for (std::size_t i = 0; i < files.size(); ++i) {
            const Place place(files[i], target->drive);
            // A file that fails does not stop the list; the last transfer's result is what counts.
            result = vxWriteSpecFile(place.path, files[i]);
            const auto record = sequence::MakeFileRecord(place.path, 1, 1, 1, {types[i], 0, 255, 255});
            written &= WriteAll(file, record.data(), record.size()) &&
                       WriteAll(file, sequence::kAlways.data(), sequence::kAlways.size());
        }
        if (!CloseFile(file) || !written)
            return VX_CALL;
        return what == kBoth || what == kSequenceAlone ? vxWriteSystemFile("SEQUENT.SYS", temp.Path()) : result;
    });
}

std::uint32_t ControlTube(std::uint8_t cmd, const std::uint8_t* data, std::uint32_t size, const Connection& connection)
{
    if (Bytes(data, size).refused || !connection.Complete())
        return VX_ARGUMENTS;
    return LocalCall<std::uint32_t>(VX_CALL, [&] {
        const std::uint32_t result = connection.Install();
        return result != VX_OK ? result : vxTubeSet(cmd, data, size);
    });
}

} // namespace

std::uint32_t vxShowFiles(const char** files, std::uint32_t count, int mode, std::uint32_t staySec, const char* host,
                          std::uint32_t port, std::uint32_t toE)
{
    return ShowList(FirstFiles(files, count), mode, staySec, {.host = host, .port = port, .retries = kTries}, toE,
                    kBoth);
}

std::uint32_t vxShowFilesEx(const char** files, std::uint32_t count, int mode, std::uint32_t staySec, const char* host,
                            std::uint32_t port, std::uint32_t toE, std::uint32_t kind, const char* serialName,
                            std::uint32_t baudRate, std::uint16_t destinationAddress)
{
    return vxShowFilesSpe(files, count, mode, staySec, host, port, toE, kind, serialName, baudRate, destinationAddress,
                          kBoth);
}

std::uint32_t vxShowFilesSpe(const char** files, std::uint32_t count, int mode, std::uint32_t staySec, const char* host,
                             std::uint32_t port, std::uint32_t toE, std::uint32_t kind, const char* serialName,
                             std::uint32_t baudRate, std::uint16_t destinationAddress, std::uint8_t what)
{
    return ShowList(FirstFiles(files, count), mode, staySec,
                    {host, port, kind, serialName, baudRate, destinationAddress, kTries}, toE, what);
}

std::uint32_t vxShowFilesII(const char** files, std::uint32_t count, const std::uint8_t* types, std::uint32_t,
                            const char* host, std::uint32_t port, std::uint32_t toE, std::uint32_t kind,
                            const char* serialName, std::uint32_t baudRate, std::uint16_t destinationAddress,
                            std::uint8_t what)
{
    return ShowTree(FirstFiles(files, count), types,
                    {host, port, kind, serialName, baudRate, destinationAddress, kTries}, toE, what);
}

std::uint32_t vxTubeCtrl(std::uint8_t cmd, const std::uint8_t* data, std::uint32_t size, const char* host,
                         std::uint32_t port)
{
    return ControlTube(cmd, data, size, {host, port});
}

std::uint32_t vxTubeCtrlEx(std::uint8_t cmd, const std::uint8_t* data, std::uint32_t size, const char* host,
                           std::uint32_t port, std::uint32_t kind, const char* serialName, std::uint32_t baudRate,
                           std::uint16_t destinationAddress)
{
    return ControlTube(cmd, data, size, {host, port, kind, serialName, baudRate, destinationAddress});
}
