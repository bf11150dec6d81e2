#include "sim/main/companions.h"

namespace vxsim {

void CompanionOptions::AddTo(CLI::App& app)
{
    const auto port = [&app](const char* name, std::uint16_t& number, const char* help) {
        return app.add_option(name, number, help)->expected(0, 1)->capture_default_str()->check(CLI::Range(0U, 65535U));
    };
    CLI::Option* const loader = app.add_flag(
        "--bootloader", bootLoader, "the serial line is that of a boot loader, which takes firmware by XMODEM");
    app.add_flag("--sums", sumsOnly, "the boot loader knows checksums only, no CRC")->needs(loader);
    CLI::Option* const needed =
        port("--modbus", rtuPort, "Modbus devices, on the serial line and on this UDP and TCP port");
    modbus = needed;
    modbusTcp =
        port("--modbus-tcp", tcpPort, "the same devices by Modbus TCP, on this UDP and TCP port")->needs(needed);
    app.add_flag("--modbus-exceptions", exceptions,
                 "what the devices refuse is answered by an exception, not by silence")
        ->needs(needed);
    app.add_flag("--devices", showRegisters, "the last register that was written, along the lower edge of the face")
        ->needs(needed);
}

Companions::Companions(const CompanionOptions& options, const std::filesystem::path& kept, const std::string& host,
                       std::size_t index, const std::function<void(const std::string&)>& tell)
    : showRegisters(options.showRegisters)
{
    if (options.bootLoader) {
        bootLoader.emplace(kept / "firmware.bin", options.sumsOnly);
        beside.bootLoader = &*bootLoader;
        if (tell)
            bootLoader->Observe(tell);
    }
    if (!options.HasModbus())
        return;
    devices.emplace(kept / "modbus.txt", options.exceptions);
    beside.devices = &*devices;
    rtuPort.emplace(ListenSettings{host, Following(options.rtuPort, index), false});
    beside.modbusRtuPort = &*rtuPort;
    if (options.HasModbusTcp()) {
        tcpPort.emplace(ListenSettings{host, Following(options.tcpPort, index), false});
        beside.modbusTcpPort = &*tcpPort;
    }
    if (tell)
        devices->Observe(tell);
}

void Companions::ShowOn(Stage& stage)
{
    if (bootLoader)
        stage.CaptionWith([this] { return Caption{bootLoader->Caption(), true}; });
    else if (devices && showRegisters)
        stage.CaptionWith([this] { return Caption{devices->LastChange(), false}; });
}

std::vector<std::string> Companions::Places() const
{
    std::vector<std::string> places;
    if (rtuPort)
        places.push_back("modbus " + rtuPort->Place());
    if (tcpPort)
        places.push_back("modbus-tcp " + tcpPort->Place());
    return places;
}

} // namespace vxsim
