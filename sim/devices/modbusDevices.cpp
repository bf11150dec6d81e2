#include "sim/devices/modbusDevices.h"

#include "sim/sign/storedRecord.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <fstream>
#include <limits>
#include <optional>
#include <sstream>
#include <string_view>

namespace vxsim {
namespace {

enum : std::uint8_t
{
    kReadRegisters = 3,
    kWriteRegister = 6
};

constexpr std::size_t kRequestSize = 8;
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
std::optional<Place> PlaceOf(const DeviceClass& of, std::uint16_t address)
{
    const bool whole = address >= kWholeDevice;
    const Place place{static_cast<std::uint16_t>(whole ? 255 : address / kSectionSize),
                      static_cast<std::uint16_t>(whole ? address - kWholeDevice : address % kSectionSize)};
    if (place.number >= of.registers || (!whole && (!of.sections || place.section > kLastSection)))
        return std::nullopt;
    return place;
}

std::uint16_t ModbusCrc(std::span<const std::uint8_t> bytes)
{
    std::uint32_t crc = 0xFFFF;
    for (const std::uint8_t byte : bytes) {
        crc ^= byte;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) != 0 ? crc >> 1 ^ 0xA001 : crc >> 1;
    }
    return static_cast<std::uint16_t>(crc);
}

std::uint16_t HighFirst(std::span<const std::uint8_t> bytes, std::size_t at)
{
    return static_cast<std::uint16_t>(bytes[at] << 8 | bytes[at + 1]);
}

bool IsRequest(std::span<const std::uint8_t> bytes)
{
    if (!ClassOf(bytes[0]) || (bytes[1] != kReadRegisters && bytes[1] != kWriteRegister))
        return false;
    return ModbusCrc(bytes.first(kRequestSize - 2)) == (bytes[7] << 8 | bytes[6]);
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

} // namespace

ModbusDevices::ModbusDevices(std::filesystem::path keptFile) : file(std::move(keptFile))
{
    Load();
}

std::vector<std::vector<std::uint8_t>> ModbusDevices::Answer(std::vector<std::uint8_t>& bytes)
{
    std::vector<std::vector<std::uint8_t>> answers;
    std::size_t at = 0;
    while (bytes.size() - at >= kRequestSize) {
        const auto rest = std::span<const std::uint8_t>(bytes).subspan(at, kRequestSize);
        if (!IsRequest(rest)) {
            ++at;
            continue;
        }
        if (auto answer = AnswerOne(rest); !answer.empty())
            answers.push_back(std::move(answer));
        at += kRequestSize;
    }
    bytes.erase(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(at));
    return answers;
}

// Empty for silence.
std::vector<std::uint8_t> ModbusDevices::AnswerOne(std::span<const std::uint8_t> request)
{
    constexpr std::uint16_t kOne = 1;
    const std::uint8_t device = request[0];
    const DeviceClass& of = Classes().at(*ClassOf(device));
    const std::uint16_t address = HighFirst(request, 2);
    const std::uint16_t last = HighFirst(request, 4);
    const auto place = PlaceOf(of, address);
    const bool writing = request[1] == kWriteRegister;
    const bool refused = !place || (writing ? std::ranges::count(of.readOnly, place->number) != 0 : last != kOne);
    if (refused) {
        if (tell)
            tell(std::string(writing ? "modbus: write refused, " : "modbus: read refused, ") + of.name + " " +
                 std::to_string(device) + " address " + std::to_string(address));
        return {};
    }
    if (writing) {
        const auto former = values;
        values[{device, address}] = last;
        if (!Keep()) {
            values = former;
            return {};
        }
        lastChange = Describe(device, of, *place) + "=" + std::to_string(last);
        if (tell)
            tell("modbus: " + lastChange);
        return {request.begin(), request.end()};
    }
    const std::uint16_t value = Value(device, address);
    std::vector<std::uint8_t> answer{device, kReadRegisters, 2, static_cast<std::uint8_t>(value >> 8),
                                     static_cast<std::uint8_t>(value)};
    const std::uint16_t crc = ModbusCrc(answer);
    answer.push_back(static_cast<std::uint8_t>(crc));
    answer.push_back(static_cast<std::uint8_t>(crc >> 8));
    return answer;
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
