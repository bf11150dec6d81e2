// Field devices: registers of Modbus, and firmware by XMODEM.
#ifndef VXSIGN_CPP_DEVICES_HPP
#define VXSIGN_CPP_DEVICES_HPP

#include <vxsign/cpp/frame.hpp>
#include <vxsign/cpp/local.hpp>
#include <vxsign/modbus.h>
#include <vxsign/xmodem.h>

namespace vxsign::detail {

// A register of a field device.
struct Register
{
    std::uint8_t device;
    std::uint16_t number;
    std::uint8_t section;
};

struct DeviceClass
{
    std::string_view name;
    std::uint32_t (*get)(const Register& at, std::uint16_t* value);
    std::uint32_t (*set)(const Register& at, std::uint16_t value);
};

template <auto get, auto set>
constexpr DeviceClass WithSections(std::string_view name)
{
    return {name, [](const Register& at, std::uint16_t* value) { return get(at.device, at.section, at.number, value); },
            [](const Register& at, std::uint16_t value) { return set(at.device, at.section, at.number, value); }};
}

template <auto get, auto set>
constexpr DeviceClass Whole(std::string_view name)
{
    return {name, [](const Register& at, std::uint16_t* value) { return get(at.device, at.number, value); },
            [](const Register& at, std::uint16_t value) { return set(at.device, at.number, value); }};
}

inline const DeviceClass& FindClass(std::string_view name)
{
    static const DeviceClass kClasses[] = {
        Whole<vxMB_LCGet, vxMB_LCSet>("LC"),
        WithSections<vxMB_TLSGet, vxMB_TLSSet>("TLS"),
        WithSections<vxMB_ALCSGet, vxMB_ALCSSet>("ALCS"),
        WithSections<vxMB_MLCSGet, vxMB_MLCSSet>("MLCS"),
        WithSections<vxMB_VSLSGet, vxMB_VSLSSet>("VSLS"),
        WithSections<vxMB_TORGet, vxMB_TORSet>("TOR"),
        WithSections<vxMB_VMSGet, vxMB_VMSSet>("VMS"),
        Whole<vxMB_PVMSGet, vxMB_PVMSSet>("PVMS"),
    };
    for (const DeviceClass& of : kClasses)
        if (of.name == Upper(name))
            return of;
    Refuse("'" + std::string(name) + "' is no class of devices: LC, TLS, ALCS, MLCS, VSLS, TOR, VMS or PVMS");
}

// Reads the register, or writes it where there is a value.
inline std::uint16_t UseRegister(const Frame& frame, std::string_view name, const Register& at,
                                 std::optional<std::uint16_t> value)
{
    const DeviceClass& of = FindClass(name);
    std::uint16_t found = value.value_or(0);
    const std::uint32_t result = value ? of.set(at, found) : of.get(at, &found);
    if (result == VX_ARGUMENTS)
        Refuse(std::string(of.name) + " has no register " + std::to_string(at.number) +
               (value ? ", or it cannot be written" : ""));
    if (result != VX_OK && !frame.refused.empty())
        throw Failure(result, "the device refused: " + frame.refused);
    Check(result);
    return found;
}

// Some ends without success give 0: then not all blocks were confirmed.
inline void Upgrade(const Frame& frame, const fs::path& firmware)
{
    constexpr unsigned kWhole = 100;
    const std::uint32_t result = vxXModem_Upgrade(LocalFile(firmware).c_str());
    if (frame.IsCancelled())
        throw Failure(VX_ABORTED);
    if (result == VX_UPGRADE_FAILED)
        throw Failure(VX_FAILED_OPERATION, frame.percent == 0 ? "the receiver does not ask for blocks, or refuses them"
                                                              : "the receiver refuses a block");
    Check(result);
    if (frame.percent < kWhole)
        throw Failure(VX_FAILED_OPERATION,
                      "the receiver confirmed no more than " + std::to_string(frame.percent) + " % of the firmware");
}

} // namespace vxsign::detail

#endif
