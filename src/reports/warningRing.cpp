// "STATUS.SYS": the sign's ring of warnings.
#include "util/file.h"
#include "util/littleEndian.h"
#include "util/localCall.h"
#include "util/text.h"

#include <vxsign/filesystem.h>
#include <vxsign/local.h>
#include <vxsign/read.h>
#include <vxsign/result.h>
#include <vxsign/status.h>

#include <array>
#include <cstddef>
#include <cstdio>

using namespace vxsign;

static_assert(sizeof(vxWaringLogRow) == 380 && offsetof(vxWaringLogRow, Time) == 4);
static_assert(offsetof(vxWaringLogRow, SignName) == 24 && offsetof(vxWaringLogRow, Text) == 124);

namespace {

constexpr char kSignPath[] = "E:\\STATUS.SYS";
constexpr std::size_t kHeaderSize = 32;
constexpr std::size_t kPositionOffset = 8;
constexpr std::size_t kRecordSize = 8;
using Record = std::array<std::uint8_t, kRecordSize>;

enum Type : std::uint8_t
{
    kInside = 1,
    kOutside = 2,
    kTile = 3,
    kPixel = 4,
    kTime = 5
};

constexpr const char* kTileParts[] = {"Temperature", "PowerI", "PowerII", "FAN", "PHY",
                                      "CABLE",       "GAMMR",  "CPU",     "FPGA"};
constexpr const char* kPixelParts[] = {"Red Pixel",  "Green Pixel",  "Blue Pixel",
                                       "Red Signal", "Green Signal", "Blue Signal"};

// A code's name; codes count from 1. Null for one that has none.
template <std::size_t Count>
const char* NameOf(const char* const (&names)[Count], std::uint8_t code)
{
    return code >= 1 && code <= Count ? names[code - 1] : nullptr;
}

// Level and text of a warning; false for a record that is none.
bool Describe(const Record& record, vxWaringLogRow& row)
{
    const auto print = [&](std::uint32_t level, const char* format, auto... values) {
        row.Level = level;
        std::snprintf(row.Text, sizeof row.Text, format, values...);
        return true;
    };
    switch (record[0]) {
    case kInside:
        return print(VX_LEVEL_TEMPERATURE, "Inside Tempturature Waring,Current=%d,Proect=%d", record[1], record[2]);
    case kOutside:
        return print(VX_LEVEL_TEMPERATURE, "Outside Tempturature Waring,Current=%d,Proect=%d", record[1], record[2]);
    case kTile:
        if (const char* const part = NameOf(kTileParts, record[1]); part != nullptr)
            return print(VX_LEVEL_PIXEL_OR_TILE, "Tile %s Waring, Address=%d", part, Load16(&record[2]));
        return false;
    case kPixel: // the code is the low byte of X too
        if (const char* const part = NameOf(kPixelParts, record[1]); part != nullptr)
            return print(VX_LEVEL_PIXEL_OR_TILE, "(%d,%d) %s Bad", Load16(&record[1]), Load16(&record[3]), part);
        return false;
    default:
        return false;
    }
}

// Walks over the records of the file, from the ring position on and once over its end.
class Ring
{
public:
    Ring(const File& stream, std::uint16_t start) : file(stream), position(start) { Seek(position); }

    bool AtPosition() const { return index == position; }
    void Step() { ++index; }

    enum class Read
    {
        kGot,
        kWrapped, // at the end: index and file stand at the beginning
        kEnded    // at the end for the second time
    };
    Read Next(Record& record)
    {
        if (ReadSome(file, record.data(), record.size()) == record.size())
            return Read::kGot;
        Seek(0);
        return ++wraps < 2 ? Read::kWrapped : Read::kEnded;
    }

private:
    void Seek(std::uint32_t to)
    {
        index = to;
        vxsign::Seek(file, kHeaderSize + kRecordSize * to);
    }

    const File& file;
    const std::uint32_t position;
    std::uint32_t index = 0;
    int wraps = 0;
};

// Finds the first time stamp. The index is not stepped beyond it. False when there is none.
bool FindTime(Ring& ring, Record& record)
{
    while (true) {
        const Ring::Read read = ring.Next(record);
        if (read == Ring::Read::kEnded)
            return false;
        if (read == Ring::Read::kGot) {
            if (record[0] == kTime)
                return true;
            ring.Step();
        }
        if (ring.AtPosition())
            return false;
    }
}

void PutTime(const Record& record, vxWaringLogRow& row)
{
    vxTM_DecodeDosTime(Load32(&record[1]), row.Time, sizeof row.Time);
}

std::uint32_t TakeRows(Ring& ring, const char* signName, vxOnWaringLog callback)
{
    Record record;
    if (!FindTime(ring, record))
        return VX_OK;
    vxWaringLogRow row{};
    CopyToField(row.SignName, sizeof row.SignName, FieldText(signName, sizeof row.SignName));
    PutTime(record, row);
    // The index is one behind the records read, until the end of the file puts it right: without that end in between,
    // the record at the ring position is the last. By rule a ring whose first record is the time stamp has no rows.
    std::uint32_t result = VX_OK;
    while (!ring.AtPosition()) {
        const Ring::Read read = ring.Next(record);
        if (read == Ring::Read::kEnded)
            break;
        if (read == Ring::Read::kWrapped)
            continue;
        vxWaringLogRow filled = row;
        if (record[0] == kTime)
            PutTime(record, row);
        else if (Describe(record, filled))
            result = callback(&filled);
        ring.Step();
    }
    return result;
}

} // namespace

std::uint32_t vxReadSignWaringLog(const char* localPath, const std::uint8_t* signName, vxOnWaringLog callback)
{
    if (localPath == nullptr || signName == nullptr || callback == nullptr)
        return VX_ARGUMENTS;
    return LocalCall<std::uint32_t>(VX_CALL, [=]() -> std::uint32_t {
        const std::uint32_t result = vxReadSpecPathFile(kSignPath, localPath);
        if (result != VX_OK)
            return result == VX_FILE_NOT_EXISTS ? static_cast<std::uint32_t>(VX_OK) : result;
        vxDelete(kSignPath);
        const File file = OpenFile(localPath, "rb");
        if (!file)
            return VX_OPEN_FILE;
        std::array<std::uint8_t, kHeaderSize> header{};
        if (ReadSome(file, header.data(), header.size()) < header.size() || header[0] != 'S' || header[1] != 'T')
            return VX_FILE_FORMAT;
        Ring ring(file, Load16(&header[kPositionOffset]));
        return TakeRows(ring, reinterpret_cast<const char*>(signName), callback);
    });
}
