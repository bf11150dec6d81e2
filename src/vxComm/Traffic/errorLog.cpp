// "ERRMSG.ERR": the error log of the traffic signal controller.
#include "util/bcd.h"
#include "util/file.h"
#include "util/littleEndian.h"
#include "util/localCall.h"
#include "util/text.h"
#include "util/timeText.h"
#include "vxComm/Traffic/errorText.h"

#include <vxsign/read.h>
#include <vxsign/result.h>
#include <vxsign/traffic.h>

#include <array>
#include <cstddef>

using namespace vxsign;

static_assert(sizeof(TrafficLogEntry) == 380 && offsetof(TrafficLogEntry, time) == 4);
static_assert(offsetof(TrafficLogEntry, signName) == 24 && offsetof(TrafficLogEntry, text) == 124);

namespace {

constexpr char kSignPath[] = "E:\\ERR_REC\\ERRMSG.ERR";
constexpr std::uint64_t kCountOffset = 32;
constexpr std::size_t kRecordSize = 32;
using Record = std::array<std::uint8_t, kRecordSize>;

platform::LocalTime TimeOf(const Record& record)
{
    const auto year = static_cast<std::uint16_t>(FromBcd(record[1]) * 100 + FromBcd(record[0]));
    return {year, FromBcd(record[2]), FromBcd(record[3]), FromBcd(record[4]), FromBcd(record[5]), FromBcd(record[6]),
            0};
}

TrafficLogEntry EntryOf(const Record& record, const char* signName)
{
    TrafficLogEntry entry{};
    const TrafficError error = DescribeTrafficError(Load16(&record[8]));
    entry.level = error.level;
    PutTime(entry.time, TimeOf(record));
    CopyToField(entry.signName, sizeof entry.signName, FieldText(signName, sizeof entry.signName));
    // An address of 0 is the end of the text, and the count follows at once.
    vxPrintBuf(entry.text, sizeof entry.text, "%s ErrCNT=%d", error.text.c_str(), int{Load16(&record[10])});
    return entry;
}

std::uint32_t TakeRecords(const File& file, const char* signName, vxOnTrafficError callback)
{
    std::uint8_t count[4] = {};
    Seek(file, kCountOffset);
    ReadSome(file, count, sizeof count);
    std::uint32_t result = VX_OK;
    for (std::uint32_t left = Load32(count); left > 0 && result == VX_OK; --left) {
        Record record{}; // a last one that is cut short ends in zeros
        if (ReadSome(file, record.data(), record.size()) == 0)
            break;
        if (record[1] == 0) // empty; counts all the same
            continue;
        const TrafficLogEntry entry = EntryOf(record, signName);
        result = callback(&entry);
    }
    return result;
}

} // namespace

std::uint32_t vxReadTrafficErrLog(char* localPath, const char* signName, vxOnTrafficError callback)
{
    if (localPath == nullptr || signName == nullptr || callback == nullptr)
        return VX_ARGUMENTS;
    return LocalCall<std::uint32_t>(VX_CALL, [=]() -> std::uint32_t {
        const std::uint32_t result = vxReadSpecPathFileEx(kSignPath, localPath);
        if (result != VX_OK)
            return result;
        const File file = OpenFile(localPath, "rb");
        return file ? TakeRecords(file, signName, callback) : static_cast<std::uint32_t>(VX_OPEN_FILE);
    });
}
