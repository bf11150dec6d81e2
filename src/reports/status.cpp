// The status of the sign, gathered from several commands.
#include "reports/currentMessage.h"
#include "util/littleEndian.h"
#include "util/localCall.h"
#include "util/text.h"

#include <vxsign/control.h>
#include <vxsign/play.h>
#include <vxsign/read.h>
#include <vxsign/result.h>
#include <vxsign/status.h>

#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <string>

using namespace vxsign;

static_assert(sizeof(vxStatusRecord) == 96 && offsetof(vxStatusRecord, Value3) == 3);
static_assert(offsetof(vxStatusRecord, Longitude) == 64 && offsetof(vxStatusRecord, LongitudeDegrees) == 68);
static_assert(offsetof(vxStatusRecord, LatitudeDegrees) == 74 && offsetof(vxStatusRecord, reserved80) == 80);
static_assert(offsetof(vxStatusRecord, Mode) == 84);

namespace {

using Beacon = std::array<std::uint8_t, 8>;

constexpr std::uint8_t kFlaggedStatistics = 9;

// A position has this added to each of its degrees; what is not above the limit is none.
constexpr float kPositionOffset = 2000.0F;
constexpr float kPositionLimit = 1000.0F;

// A field of the record, or where it is 0 a byte of the state word.
std::uint8_t Either(std::uint8_t field, std::uint64_t state, unsigned stateByte)
{
    return field != 0 ? field : static_cast<std::uint8_t>(state >> (8 * stateByte));
}

std::uint8_t Percent(std::uint8_t field, std::uint64_t state)
{
    return static_cast<std::uint8_t>(Either(field, state, 6) % 101);
}

std::uint16_t Whole(float value)
{
    constexpr std::uint16_t kMost = std::numeric_limits<std::uint16_t>::max();
    if (!(value > 0.0F))
        return 0;
    return value < float{kMost} ? static_cast<std::uint16_t>(value) : kMost;
}

struct Angle
{
    std::uint16_t degrees;
    std::uint16_t minutes;
    std::uint16_t seconds;
};

Angle ToAngle(float value)
{
    const float magnitude = std::fabs(value);
    const float fraction = magnitude - std::floor(magnitude);
    // The minutes are not taken off, and a degree has 360 of these seconds: the callers count on it.
    return {Whole(magnitude), Whole(fraction * 60.0F), Whole(fraction * 360.0F)};
}

void PutPosition(vxStatusRecord& status, std::uint32_t longitudeBits, std::uint32_t latitudeBits)
{
    auto longitude = std::bit_cast<float>(longitudeBits);
    auto latitude = std::bit_cast<float>(latitudeBits);
    if (!(longitude > kPositionLimit) || !(latitude > kPositionLimit))
        return;
    longitude -= kPositionOffset;
    latitude -= kPositionOffset;
    status.Longitude = longitude < 0 ? 'W' : 'E';
    status.Latitude = latitude < 0 ? 'S' : 'N';
    const Angle east = ToAngle(longitude);
    status.LongitudeDegrees = east.degrees;
    status.LongitudeMinutes = east.minutes;
    status.LongitudeSeconds = east.seconds;
    const Angle north = ToAngle(latitude);
    status.LatitudeDegrees = north.degrees;
    status.LatitudeMinutes = north.minutes;
    status.LatitudeSeconds = north.seconds;
}

// The sign's own beacon with what belongs to it, in the order of a plain beacon.
std::uint32_t ReadSignBeacon(Beacon& beacon)
{
    Beacon own{};
    const std::uint32_t result = vxGetSignBeacon(own.data());
    if (result == VX_UNKNOWN_MINOR || result == VX_COMMAND_NOT_SUPPORTED) // it has no beacon of its own
        return vxGetBeacon(beacon.data());
    own = {}; // asked for twice
    vxGetSignBeacon(own.data());
    Beacon equipment{};
    vxGetExternalEquipment(equipment.data());
    std::uint8_t power[2] = {};
    const std::uint32_t powerResult = vxGetPowerState(&power[0], &power[1]);
    constexpr std::uint8_t kUnset = 255;
    beacon[0] = own[1] == kUnset ? 0 : own[1];
    beacon[1] = equipment[1];
    beacon[2] = equipment[2];
    beacon[3] = power[0] == 0 ? 1 : 0;
    beacon[4] = own[0];
    beacon[5] = own[2];
    beacon[6] = own[3];
    return powerResult;
}

// Asks for the message that the sign shows, has it converted if there is a converter, and returns its path.
std::string ShownMessage(vxApiConfig& config, const std::string& tempFolder)
{
    char playing[kPlayingPathSize] = {};
    const std::uint32_t result = vxGetPlayingFileName(playing, sizeof playing);
    std::string message = tempFolder + std::string(MessageName(FieldText(playing, sizeof playing)));
    if (config.onMessageToGif == nullptr)
        return message;
    if (result == VX_NOTHING_PLAYS)
        message = tempFolder + '\\' + std::string(kBlankMessage);
    if (result == VX_OK || result == VX_NOTHING_PLAYS)
        ConvertMessage(config, message.c_str(), (tempFolder + "monitor.gif").c_str());
    return message;
}

} // namespace

std::uint32_t vxReadStatusInfo(const char* tempFolder, std::uint32_t user, std::uint64_t, vxOnStatusInfo callback,
                               std::uint32_t longitudeBits, std::uint32_t latitudeBits, char useSignBeacon)
{
    if (tempFolder == nullptr || callback == nullptr)
        return VX_ARGUMENTS;
    return LocalCall<std::uint32_t>(VX_COMMUNICATION, [=]() -> std::uint32_t {
        vxApiConfig* const config = ThreadConfig();
        if (config == nullptr)
            return VX_NOT_INITIALISED;
        std::uint64_t state = 0;
        vxStatusRecord status{};
        std::uint32_t result = vxReadCurrentState(&state, reinterpret_cast<std::uint8_t*>(&status), sizeof status);
        if (result != VX_OK)
            return result;
        status.Value0 = Either(status.Value0, state, 1);
        status.Value1 = Either(status.Value1, state, 2);
        status.Value2 = Either(status.Value2, state, 4);
        status.Value3 = Percent(status.Value3, state);
        status.Mode = static_cast<std::uint8_t>(state);
        PutPosition(status, longitudeBits, latitudeBits);
        std::uint8_t flag = 0;
        vxReadStats(kFlaggedStatistics, &flag, sizeof flag);
        if (flag != 0)
            status.Mode = VX_MODE_BY_STATISTICS;

        Beacon beacon{};
        result = useSignBeacon != 0 ? ReadSignBeacon(beacon) : vxGetBeacon(beacon.data());
        const std::string message = ShownMessage(*config, tempFolder);
        callback(user, &status, beacon.data(), message.c_str());
        return result;
    });
}

std::uint32_t vxUpdate3Info(std::uint8_t* record)
{
    constexpr std::size_t kOffset = 565;
    if (record == nullptr)
        return VX_ARGUMENTS;
    std::uint64_t state = 0;
    std::uint8_t reply[sizeof(vxStatusRecord)] = {};
    const std::uint32_t result = vxReadCurrentState(&state, reply, sizeof reply);
    if (result != VX_OK)
        return result;
    Beacon beacon{};
    vxGetBeacon(beacon.data());
    char playing[kPlayingPathSize];
    vxGetPlayingFileName(playing, sizeof playing); // the sign is asked, although nothing of it is needed
    record[kOffset] = Either(reply[0], state, 1);
    record[kOffset + 1] = Either(reply[1], state, 2);
    record[kOffset + 2] = Percent(reply[3], state);
    record[kOffset + 3] = beacon[3];
    return VX_OK;
}
