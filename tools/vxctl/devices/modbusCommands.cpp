// modbus: registers of roadside devices.
#include "vxctl/cli/numbers.h"
#include "vxctl/cli/tables.h"

#include <vxsign/modbus.h>

#include <algorithm>
#include <cctype>
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
thread_local std::string refusal;

void TakeRefusal(vxApiConfig* /*config*/, const char* /*source*/, std::uint32_t /*line*/, std::uint32_t /*level*/,
                 const char* message)
{
    refusal = message;
}

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

std::string ReadClass(const Argument& /*argument*/, const std::string& text)
{
    return FindClass(text).name;
}

constexpr ArgumentType kClass{"CLASS", ReadClass};

// A register, as the numbers of the command line name it.
struct Register
{
    std::uint8_t device;
    std::uint8_t section;
    std::uint16_t number;
    std::uint16_t value; // to be set
};

std::uint8_t Byte(const std::string& text, const char* what)
{
    const std::uint32_t number = ParseNumber(text).value_or(0);
    if (number > 255)
        throw UsageError("the " + std::string(what) + " is a number from 0 to 255, not '" + text + "'");
    return static_cast<std::uint8_t>(number);
}

std::uint16_t Word(const std::string& text)
{
    return static_cast<std::uint16_t>(ParseNumber(text).value_or(0));
}

// Without its section a class that has them is meant as a whole.
Register RegisterOf(const DeviceClass& of, const std::vector<std::string>& numbers, bool set)
{
    const std::size_t least = set ? 3 : 2;
    const std::size_t count = numbers.size();
    if (count != least && (count != least + 1 || !of.sections))
        throw UsageError(std::string(of.name) + (set ? " set" : " get") + " takes DEVICE " +
                         (of.sections ? "[SECTION] " : "") + "REGISTER" + (set ? " VALUE" : ""));
    const std::size_t at = count > least ? 2 : 1;
    return {Byte(numbers[0], "device"), count > least ? Byte(numbers[1], "section") : kWholeDevice, Word(numbers[at]),
            set ? Word(numbers.back()) : std::uint16_t{0}};
}

void ShowRegister(Report& report, const DeviceClass& of, const Register& found)
{
    const bool hasSection = found.section != kWholeDevice;
    std::string name = std::string(of.name) + " " + std::to_string(found.device);
    report.Put("class", of.name);
    report.Put("device", found.device);
    if (hasSection) {
        name += "/" + std::to_string(found.section);
        report.Put("section", found.section);
    }
    report.Put("register", found.number);
    report.Value(name + " r" + std::to_string(found.number), "value", found.value,
                 std::to_string(found.value) + " (" + FormatWord(found.value) + ")");
}

std::uint32_t Modbus(Session& session, const Args& args)
{
    const DeviceClass& of = FindClass(args.Text("CLASS"));
    const bool set = args.Text("ACTION") == "set";
    Register at = RegisterOf(of, args.List("NUMBERS"), set);
    session.Connect(nullptr, TakeRefusal);
    refusal.clear();
    const std::uint32_t result =
        set ? of.set(at.device, at.section, at.number, at.value) : of.get(at.device, at.section, at.number, &at.value);
    if (result == VX_ARGUMENTS)
        throw UsageError(std::string(of.name) + " has no register " + std::to_string(at.number) +
                         (set ? ", or it cannot be written" : ""));
    if (result != VX_OK)
        throw SignFailure(result, refusal);
    ShowRegister(session.report, of, at);
    return VX_OK;
}

const Command kCommands[] = {
    {
        .name = "modbus",
        .help = "Read or write a register of a roadside device",
        .details =
            R"(CLASS is LC, TLS, ALCS, MLCS, VSLS, TOR, VMS or PVMS. Without SECTION the register is one of the whole device;
LC and PVMS have no sections. So get takes 2 numbers, or 3 with SECTION; set takes one more, the VALUE. What a register
means is the device's.)",
        .examples = R"(vxctl -s serial:/dev/ttyUSB0@9600 modbus LC get 1 5
vxctl -s serial:/dev/ttyUSB0@9600 modbus VSLS set 5 1 3 80      device 5, section 1, register 3)",
        .arguments =
            {Of(kClass, "CLASS", "the class of the device"), Choice("ACTION", "get|set", "read it, or write it"),
             Number("NUMBERS", 0, 65535, "2 to 4: DEVICE [SECTION] REGISTER, and the VALUE to set").Repeated()},
        .line = Line::kOwn,
        .signs = Signs::kMany,
        .run = Modbus,
    },
};

} // namespace

const CommandTable kModbusCommands{"Field devices", kCommands};

} // namespace vxctl
