// What the thread knows of its sign, and the communication settings inside the sign's "CONFIG.SYS".
#include "thread/tempFile.h"
#include "thread/threadRecords.h"
#include "util/file.h"
#include "util/littleEndian.h"
#include "util/localCall.h"
#include "util/text.h"

#include <vxsign/properties.h>
#include <vxsign/read.h>
#include <vxsign/result.h>
#include <vxsign/write.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>

static_assert(sizeof(vxCommunicationSet) == 84);
static_assert(offsetof(vxCommunicationSet, address) == 0);
static_assert(offsetof(vxCommunicationSet, port) == 32);
static_assert(offsetof(vxCommunicationSet, firstSetting) == 34);
static_assert(offsetof(vxCommunicationSet, secondSetting) == 35);
static_assert(offsetof(vxCommunicationSet, secondAddress) == 36);
static_assert(offsetof(vxCommunicationSet, thirdAddress) == 68);

namespace {

using namespace vxsign;

// Places in "CONFIG.SYS".
namespace place {
constexpr std::size_t kDriveF = 16;
constexpr std::size_t kFirstSetting = 32;
constexpr std::size_t kSecondSetting = 33;
constexpr std::size_t kAddress = 36;
constexpr std::size_t kSecondAddress = 136;
constexpr std::size_t kThirdAddress = 140;
constexpr std::size_t kForms = 152;
constexpr std::size_t kPort = 186;
} // namespace place

constexpr std::uint32_t kTreeFormBit = 27;
constexpr std::size_t kContentSource = 2; // in the display style
constexpr char kConfigFile[] = "CONFIG.SYS";

std::uint32_t LoadConfig(vxApiState& state)
{
    const TempFile temp("sys");
    const std::uint32_t result = vxReadSysFile(kConfigFile, temp.Path());
    if (result != VX_OK)
        return result;
    const File file = OpenFile(temp.Path(), "rb");
    if (!file)
        return VX_OPEN_FILE;
    std::memset(state.configCopy, 0, sizeof state.configCopy);
    ReadSome(file, state.configCopy, sizeof state.configCopy);
    return VX_OK;
}

// An address stands with its first octet in the top byte of a little-endian word.
void FormatAddress(const std::uint8_t* word, char* text, std::size_t size)
{
    std::snprintf(text, size, "%d.%d.%d.%d", word[3], word[2], word[1], word[0]);
}

// Takes what "%d.%d.%d.%d" does: blanks ahead of a number, zeros at its beginning, and anything behind the last one.
std::optional<std::uint32_t> ParseAddress(const std::string& text)
{
    std::uint32_t address = 0;
    const char* at = text.c_str();
    for (int octet = 0; octet < 4; ++octet) {
        if (octet != 0 && *at++ != '.')
            return std::nullopt;
        char* next = nullptr;
        const long value = std::strtol(at, &next, 10);
        if (next == at || value < 0 || value > 255)
            return std::nullopt;
        address = address << 8 | static_cast<std::uint32_t>(value);
        at = next;
    }
    return address;
}

// Takes an address over into "CONFIG.SYS"; an empty text leaves the sign's own. False for a text that is no address.
bool TakeAddress(std::string_view text, std::uint8_t* word)
{
    const auto address = ParseAddress(std::string(text));
    if (address)
        Store32(word, *address);
    return address || text.empty();
}

std::uint32_t WriteConfig(const vxApiState& state)
{
    const TempFile temp("sys");
    File file = OpenFile(temp.Path(), "wb");
    if (!file)
        return VX_OPEN_FILE;
    if (!WriteAll(file, state.configCopy, sizeof state.configCopy) || !CloseFile(file))
        return VX_CALL;
    return vxWriteSystemFile(kConfigFile, temp.Path());
}

} // namespace

std::uint32_t vxInitProperty()
{
    return LocalCall<std::uint32_t>(VX_CALL, []() -> std::uint32_t {
        vxApiState* const state = ThreadState();
        if (state == nullptr)
            return VX_NO_RECORD;
        if (state->loaded == 0) {
            std::uint32_t result = vxReadDefDisplayStyle(state->displayStyle);
            if (result == VX_OK)
                result = LoadConfig(*state);
            if (result != VX_OK)
                return result;
            state->loaded = 1;
        }
        // The style is read in any case, so that a call that loads reads it twice.
        return vxReadDefDisplayStyle(state->displayStyle);
    });
}

std::uint32_t vxGetProperty(std::uint8_t* out, std::uint32_t outLength, int propertyKind)
{
    const vxApiState* const state = ThreadState();
    if (state == nullptr || state->loaded == 0 || out == nullptr || outLength == 0)
        return VX_NOT_INITIALISED;

    std::uint8_t value[4] = {};
    std::size_t width = 0;
    switch (propertyKind) {
    case VX_PROPERTY_HAS_DRIVE_F:
        width = 4;
        Store32(value, Load16(state->configCopy + place::kDriveF) != 0 ? 1 : 0);
        break;
    case VX_PROPERTY_CONTENT_SOURCE:
        width = 1;
        value[0] = state->displayStyle[kContentSource];
        break;
    case VX_PROPERTY_DISPLAY_STYLE: {
        // The style and, for a caller that asks for more, the configuration behind it; beyond that zeros.
        constexpr std::size_t kThere = vxApiState::kStyleSize + vxApiState::kConfigSize;
        const auto* const record = reinterpret_cast<const std::uint8_t*>(state) + offsetof(vxApiState, displayStyle);
        const std::size_t here = std::min<std::size_t>(outLength, kThere);
        std::memcpy(out, record, here);
        std::memset(out + here, 0, outLength - here);
        return VX_OK;
    }
    case VX_PROPERTY_SEQUENCE_FORM:
        width = 1;
        value[0] = Load32(state->configCopy + place::kForms) >> kTreeFormBit & 1;
        break;
    default:
        break;
    }
    std::memcpy(out, value, std::min<std::size_t>(width, outLength));
    return VX_OK;
}

std::uint32_t vxReadCommunicationSet(vxCommunicationSet* out)
{
    const std::uint32_t result = vxInitProperty();
    vxApiState* const state = ThreadState();
    if (result != VX_OK || state == nullptr)
        return result;
    const std::uint8_t* const config = state->configCopy;
    if (out != nullptr) {
        FormatAddress(config + place::kAddress, out->address, sizeof out->address);
        FormatAddress(config + place::kSecondAddress, out->secondAddress, sizeof out->secondAddress);
        FormatAddress(config + place::kThirdAddress, out->thirdAddress, sizeof out->thirdAddress);
        out->port = Load16(config + place::kPort);
        out->firstSetting = config[place::kFirstSetting];
        out->secondSetting = config[place::kSecondSetting];
    }
    state->loaded = 0; // the next vxInitProperty reads the sign afresh
    return VX_OK;
}

std::uint32_t vxWriteCommunicationSet(const vxCommunicationSet* in)
{
    if (in == nullptr)
        return VX_ARGUMENTS;
    return LocalCall<std::uint32_t>(VX_CALL, [&]() -> std::uint32_t {
        // A sign that cannot be read gives 0, and nothing is written.
        if (vxInitProperty() != VX_OK)
            return VX_OK;
        vxApiState* const state = ThreadState();
        vxApiState changed = *state;
        std::uint8_t* const config = changed.configCopy;
        if (!TakeAddress(FieldText(in->address, sizeof in->address), config + place::kAddress) ||
            !TakeAddress(FieldText(in->secondAddress, sizeof in->secondAddress), config + place::kSecondAddress) ||
            !TakeAddress(FieldText(in->thirdAddress, sizeof in->thirdAddress), config + place::kThirdAddress))
            return VX_ARGUMENTS;
        Store16(config + place::kPort, in->port);
        config[place::kFirstSetting] = in->firstSetting;
        config[place::kSecondSetting] = in->secondSetting;
        *state = changed;
        return WriteConfig(*state);
    });
}
