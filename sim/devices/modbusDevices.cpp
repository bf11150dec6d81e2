#include "sim/devices/modbusDevices.h"

#include "sim/files/storedRecord.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <limits>
#include <optional>
#include <sstream>
#include <string_view>

namespace vxsim {
namespace {

constexpr std::uint8_t kExceptionBit = 0x80;
constexpr std::size_t kAddressAt = 1;
constexpr std::size_t kNumberAt = 3; // the value, or how many registers
constexpr std::size_t kShortRequest = 5;
constexpr std::size_t kValuesAt = 6; // of several registers, behind the count of their bytes
constexpr std::uint16_t kMostRead = 125;
constexpr std::uint16_t kWholeDevice = 0xFF00; // ahead of the registers that belong to no section
constexpr std::uint16_t kSectionSize = 100;
constexpr std::uint16_t kLastSection = 9;
constexpr std::uint16_t kClassRegister = 22; // holds the number of the class, from 1
constexpr std::uint8_t kAddressesApart = 10; // of the two devices of a class
constexpr std::size_t kLargestFile = 1 << 20;

struct DeviceClass
{
    const char* name;
    bool sections;
    std::uint16_t registers;
    std::vector<std::uint16_t> readOnly;
};

const std::array<DeviceClass, 8>& Classes()
{
    static const std::array<DeviceClass, 8> kClasses{{
        {"LC", false, 64, {8, 9, 10, 17, 22, 55, 56, 57, 58, 59, 60, 61, 62}},
        {"TLS", true, 27, {11, 12, 13, 15, 22}},
        {"ALCS", true, 29, {11, 12, 13, 15, 19, 20, 22}},
        {"MLCS", true, 30, {11, 13, 14, 15, 22}},
        {"VSLS", true, 31, {11, 12, 14, 15, 22}},
        {"TOR", true, 25, {14, 15, 22}},
        {"VMS", true, 101, {11, 13, 14, 15, 18, 19, 22, 25, 30, 31, 32, 34, 35}},
        {"PVMS", false, 68, {8, 22, 63, 64, 65, 66}},
    }};
    return kClasses;
}

// The class of a device, from 0; nothing for an address that is none.
std::optional<std::size_t> ClassOf(std::uint8_t device)
{
    const unsigned number = device % kAddressesApart;
    if (device >= 2 * kAddressesApart || number < 1 || number > Classes().size())
        return std::nullopt;
    return number - 1;
}

struct Place
{
    std::uint16_t section;
    std::uint16_t number;
};

// Register 100 of a section travels as register 0 of the next one, and is that.
std::optional<Place> PlaceOf(const DeviceClass& of, unsigned address)
{
    if (address > std::numeric_limits<std::uint16_t>::max())
        return std::nullopt;
    const bool whole = address >= kWholeDevice;
    const Place place{static_cast<std::uint16_t>(whole ? 255 : address / kSectionSize),
                      static_cast<std::uint16_t>(whole ? address - kWholeDevice : address % kSectionSize)};
    if (place.number >= of.registers || (!whole && (!of.sections || place.section > kLastSection)))
        return std::nullopt;
    return place;
}

std::string Describe(std::uint8_t device, const DeviceClass& of, Place place)
{
    std::ostringstream text;
    text << of.name << ' ' << int{device};
    if (place.section != 255)
        text << '/' << place.section;
    text << " r" << place.number;
    return text.str();
}

// Why a request is refused, as Modbus numbers it.
enum Refusal : std::uint8_t
{
    kFunction = 1,
    kAddress,
    kCount,
    kFailure
};
constexpr std::array<const char*, 4> kReasons{"unknown function", "no such register, or it cannot be written",
                                              "its counts make no sense", "it cannot be kept"};

std::vector<std::uint8_t> Refuse(std::span<const std::uint8_t> request, Refusal why)
{
    return {static_cast<std::uint8_t>(request[0] | kExceptionBit), why};
}

} // namespace

ModbusDevices::ModbusDevices(std::filesystem::path keptFile, bool exceptions)
    : file(std::move(keptFile)), answersRefusals(exceptions)
{
    Load();
}

bool ModbusDevices::Has(std::uint8_t device)
{
    return ClassOf(device).has_value();
}

std::vector<std::uint8_t> ModbusDevices::Answer(std::uint8_t device, std::span<const std::uint8_t> request)
{
    if (!Has(device) || request.empty())
        return {};
    auto answer = Execute(device, request);
    if ((answer[0] & kExceptionBit) == 0)
        return answer;
    TellRefusal(device, request, answer[1]);
    return answersRefusals ? answer : std::vector<std::uint8_t>();
}

std::vector<std::uint8_t> ModbusDevices::Execute(std::uint8_t device, std::span<const std::uint8_t> request)
{
    const std::uint8_t function = request[0];
    if (function != kReadRegisters && function != kWriteRegister && function != kWriteRegisters)
        return Refuse(request, kFunction);
    // Behind several registers' number stand the number of their bytes, and those.
    const bool isWhole = function == kWriteRegisters
                             ? request.size() > kValuesAt && request.size() - kValuesAt == request[kValuesAt - 1] &&
                                   request[kValuesAt - 1] == HighFirst(request, kNumberAt) * 2
                             : request.size() == kShortRequest;
    if (!isWhole)
        return Refuse(request, kCount);
    return function == kReadRegisters ? Read(device, request) : Write(device, request);
}

std::vector<std::uint8_t> ModbusDevices::Read(std::uint8_t device, std::span<const std::uint8_t> request) const
{
    const unsigned first = HighFirst(request, kAddressAt);
    const unsigned count = HighFirst(request, kNumberAt);
    if (count == 0 || count > kMostRead)
        return Refuse(request, kCount);
    std::vector<std::uint8_t> answer{kReadRegisters, static_cast<std::uint8_t>(count * 2)};
    for (unsigned address = first; address < first + count; ++address) {
        if (!PlaceOf(Classes().at(*ClassOf(device)), address))
            return Refuse(request, kAddress);
        const std::uint16_t value = Value(device, static_cast<std::uint16_t>(address));
        answer.push_back(static_cast<std::uint8_t>(value >> 8));
        answer.push_back(static_cast<std::uint8_t>(value));
    }
    return answer;
}

// Writes all registers of the request or none.
std::vector<std::uint8_t> ModbusDevices::Write(std::uint8_t device, std::span<const std::uint8_t> request)
{
    const DeviceClass& of = Classes().at(*ClassOf(device));
    const auto numbers = request.subspan(request[0] == kWriteRegisters ? kValuesAt : kNumberAt);
    auto written = values;
    std::vector<std::string> changes;
    for (unsigned at = 0; at < numbers.size(); at += 2) {
        const unsigned address = HighFirst(request, kAddressAt) + at / 2;
        const auto place = PlaceOf(of, address);
        if (!place || std::ranges::count(of.readOnly, place->number) != 0)
            return Refuse(request, kAddress);
        const std::uint16_t value = HighFirst(numbers, at);
        written[{device, static_cast<std::uint16_t>(address)}] = value;
        changes.push_back(Describe(device, of, *place) + "=" + std::to_string(value));
    }
    values.swap(written);
    if (!Keep()) {
        values.swap(written);
        return Refuse(request, kFailure);
    }
    lastChange = changes.back();
    for (const std::string& change : changes) {
        if (tell)
            tell("modbus: " + change);
    }
    return {request.begin(), request.begin() + kShortRequest};
}

void ModbusDevices::TellRefusal(std::uint8_t device, std::span<const std::uint8_t> request, std::uint8_t why) const
{
    if (!tell)
        return;
    std::ostringstream text;
    text << "modbus: refused, " << Classes().at(*ClassOf(device)).name << ' ' << int{device} << ", function "
         << int{request[0]};
    if (request.size() >= kNumberAt)
        text << ", address " << HighFirst(request, kAddressAt);
    tell(text.str() + ": " + kReasons.at(why - 1));
}

std::uint16_t ModbusDevices::Value(std::uint8_t device, std::uint16_t address) const
{
    const auto written = values.find({device, address});
    if (written != values.end())
        return written->second;
    const std::size_t number = *ClassOf(device);
    const auto place = PlaceOf(Classes().at(number), address);
    return place && place->number == kClassRegister ? static_cast<std::uint16_t>(number + 1) : std::uint16_t{0};
}

// Passes over lines that make no sense: the file may have been edited.
void ModbusDevices::Load()
{
    const std::vector<std::uint8_t> bytes = ReadFileStart(file, kLargestFile);
    std::istringstream lines(std::string(bytes.begin(), bytes.end()));
    for (std::string line; std::getline(lines, line);) {
        std::istringstream fields(line);
        unsigned device = 0;
        unsigned address = 0;
        unsigned value = 0;
        constexpr unsigned kMost = std::numeric_limits<std::uint16_t>::max();
        if (!(fields >> device >> address >> value) || device > 255 || address > kMost || value > kMost)
            continue;
        const auto number = ClassOf(static_cast<std::uint8_t>(device));
        if (number && PlaceOf(Classes().at(*number), static_cast<std::uint16_t>(address)))
            values[{static_cast<std::uint8_t>(device), static_cast<std::uint16_t>(address)}] =
                static_cast<std::uint16_t>(value);
    }
}

bool ModbusDevices::Keep() const
{
    std::ostringstream text;
    for (const auto& [where, value] : values)
        text << int{where.first} << ' ' << where.second << ' ' << value << '\n';
    const std::string content = text.str();
    return ReplaceFile(file, std::vector<std::uint8_t>(content.begin(), content.end()));
}

} // namespace vxsim
