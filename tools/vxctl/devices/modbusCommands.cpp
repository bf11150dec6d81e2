// modbus: registers of roadside devices.
#include "vxctl/cli/command.h"
#include "vxctl/cli/numbers.h"

#include <vxsign/modbus.h>

#include <algorithm>
#include <cctype>
#include <memory>
#include <vector>

namespace vxctl {

namespace {

constexpr std::uint8_t kWholeDevice = 255; // as the section

struct DeviceClass
{
    const char* name;
    bool sections;
    std::uint32_t (*get)(std::uint8_t device, std::uint8_t section, std::uint16_t number, std::uint16_t* value);
    std::uint32_t (*set)(std::uint8_t device, std::uint8_t section, std::uint16_t number, std::uint16_t value);
};

std::uint32_t GetLc(std::uint8_t device, std::uint8_t /*section*/, std::uint16_t number, std::uint16_t* value)
{
    return vxMB_LCGet(device, number, value);
}

std::uint32_t SetLc(std::uint8_t device, std::uint8_t /*section*/, std::uint16_t number, std::uint16_t value)
{
    return vxMB_LCSet(device, number, value);
}

std::uint32_t GetPvms(std::uint8_t device, std::uint8_t /*section*/, std::uint16_t number, std::uint16_t* value)
{
    return vxMB_PVMSGet(device, number, value);
}

std::uint32_t SetPvms(std::uint8_t device, std::uint8_t /*section*/, std::uint16_t number, std::uint16_t value)
{
    return vxMB_PVMSSet(device, number, value);
}

constexpr DeviceClass kClasses[] = {
    {"LC", false, GetLc, SetLc},
    {"TLS", true, vxMB_TLSGet, vxMB_TLSSet},
    {"ALCS", true, vxMB_ALCSGet, vxMB_ALCSSet},
    {"MLCS", true, vxMB_MLCSGet, vxMB_MLCSSet},
    {"VSLS", true, vxMB_VSLSGet, vxMB_VSLSSet},
    {"TOR", true, vxMB_TORGet, vxMB_TORSet},
    {"VMS", true, vxMB_VMSGet, vxMB_VMSSet},
    {"PVMS", false, GetPvms, SetPvms},
};

// What the device said when it refused, in the words of the library's log. The callback brings nothing along that could
// name a place for it.
std::string refusal;

void TakeRefusal(vxApiConfig* /*config*/, const char* /*source*/, std::uint32_t /*line*/, std::uint32_t /*level*/,
                 const char* message)
{
    refusal = message;
}

struct Request
{
    std::string className;
    std::string action;
    std::vector<std::string> numbers;
};

const DeviceClass& FindClass(std::string name)
{
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    const auto* const found = std::find_if(std::begin(kClasses), std::end(kClasses),
                                           [&name](const DeviceClass& of) { return of.name == name; });
    if (found == std::end(kClasses))
        throw UsageError("'" + name + "' is no class; there are LC, TLS, ALCS, MLCS, VSLS, TOR, VMS and PVMS");
    return *found;
}

std::uint32_t Number(const std::string& text, const char* what, std::uint32_t most)
{
    const auto number = ParseNumber(text);
    if (!number || *number > most)
        throw UsageError("the " + std::string(what) + " is a number from 0 to " + std::to_string(most) + ", not '" +
                         text + "'");
    return *number;
}

void Run(Session& session, const Request& request)
{
    const DeviceClass& of = FindClass(request.className);
    const bool set = request.action == "set";
    // Without its section a class that has them is meant as a whole.
    const std::size_t least = set ? 3 : 2;
    const std::size_t count = request.numbers.size();
    if (count != least && (count != least + 1 || !of.sections))
        throw UsageError(std::string("modbus ") + of.name + " " + request.action + " takes DEVICE " +
                         (of.sections ? "[SECTION] " : "") + "REGISTER" + (set ? " VALUE" : ""));
    auto next = request.numbers.begin();
    const auto device = static_cast<std::uint8_t>(Number(*next++, "device", 255));
    const auto section = count > least ? static_cast<std::uint8_t>(Number(*next++, "section", 255)) : kWholeDevice;
    const auto number = static_cast<std::uint16_t>(Number(*next++, "register", 65535));
    std::uint16_t value = set ? static_cast<std::uint16_t>(Number(*next, "value", 65535)) : std::uint16_t{0};

    session.Connect(nullptr, TakeRefusal);
    refusal.clear();
    const std::uint32_t result = set ? of.set(device, section, number, value) : of.get(device, section, number, &value);
    if (result == VX_ARGUMENTS)
        throw UsageError(std::string(of.name) + " has no register " + std::to_string(number) +
                         (set ? ", or it cannot be written" : ""));
    if (result != VX_OK)
        throw SignFailure(result, refusal);
    std::string name = std::string(of.name) + " " + std::to_string(device);
    if (section != kWholeDevice)
        name += "/" + std::to_string(section);
    session.report.Put("class", of.name);
    session.report.Put("device", device);
    if (section != kWholeDevice)
        session.report.Put("section", section);
    session.report.Put("register", number);
    session.report.Value(name + " r" + std::to_string(number), "value", value,
                         std::to_string(value) + " (" + FormatWord(value) + ")");
}

} // namespace

void AddModbusCommand(CLI::App& app, Session& session)
{
    CLI::App* const command = AddCommand(
        app,
        {"Field devices", "modbus", "Read or write a register of a roadside device",
         R"(CLASS is LC, TLS, ALCS, MLCS, VSLS, TOR, VMS or PVMS. Without SECTION the register is one of the whole device;
LC and PVMS have no sections. So get takes 2 numbers, or 3 with SECTION; set takes one more, the VALUE. What a register
means is the device's.

Examples:
  vxctl -s serial:/dev/ttyUSB0@9600 modbus LC get 1 5
  vxctl -s serial:/dev/ttyUSB0@9600 modbus VSLS set 5 1 3 80      device 5, section 1, register 3)"});
    const auto request = std::make_shared<Request>();
    command->add_option("CLASS", request->className, "the class of the device")->type_name("CLASS")->required();
    command->add_option("ACTION", request->action, "get or set")->required()->check(CLI::IsMember({"get", "set"}));
    command->add_option("NUMBERS", request->numbers, "2 to 4: DEVICE [SECTION] REGISTER, and the VALUE to set")
        ->type_name("NUMBER")
        ->required();
    command->callback([&session, request] { Run(session, *request); });
}

} // namespace vxctl
