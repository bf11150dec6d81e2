// One holding register over a pty, beside libmodbus over a pty with the same device behind it. Every call of the
// library opens and closes the line; libmodbus is measured so too, and with a line that it keeps open.
#include <vxsign/vxsign.h>

#include <benchmark/benchmark.h>
#include <modbus.h>
#include <pty.h>
#include <string>
#include <thread>
#include <unistd.h>

namespace vxsign::bench {
namespace {

constexpr int kDevice = 7;
constexpr int kAddress = 0xFF05; // what register 5 of a device without sections goes over as
constexpr std::uint16_t kValue = 0x1234;

/// A device on a pty: answers every 8 bytes with the same register.
class Device
{
public:
    Device()
    {
        if (::openpty(&master, &slave, path, nullptr, nullptr) == 0)
            thread = std::thread([this] { Serve(); });
    }
    ~Device()
    {
        // The line at its end: the other end has no writer or reader any more.
        ::close(slave);
        if (thread.joinable())
            thread.join();
        ::close(master);
    }
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;
    const char* Path() const { return path; }

private:
    void Serve() const
    {
        constexpr std::uint8_t kAnswer[] = {kDevice, 3, 2, 0x12, 0x34, 0x3D, 0x33};
        std::uint8_t request[8];
        std::size_t got = 0;
        for (;;) {
            const ssize_t count = ::read(master, request + got, sizeof request - got);
            if (count <= 0)
                return;
            got = (got + static_cast<std::size_t>(count)) % sizeof request;
            if (got == 0 && ::write(master, kAnswer, sizeof kAnswer) < 0)
                return;
        }
    }

    int master = -1;
    int slave = -1;
    char path[128] = {};
    std::thread thread;
};

void ModbusGet(benchmark::State& state)
{
    const Device device;
    vxApiConfig config{};
    config.kind = VX_CHANNEL_SERIAL;
    config.baudRate = 115200;
    std::string(device.Path()).copy(config.serialName, sizeof config.serialName - 1);
    vxInitAPI(&config);
    for (auto round : state) {
        std::uint16_t value = 0;
        if (vxMB_LCGet(kDevice, 5, &value) != VX_OK || value != kValue)
            state.SkipWithError("no answer");
    }
}
BENCHMARK(ModbusGet)->UseRealTime()->Repetitions(5)->ReportAggregatesOnly();

void LibmodbusGet(benchmark::State& state)
{
    const Device device;
    const bool kept = state.range(0) != 0;
    modbus_t* const line = modbus_new_rtu(device.Path(), 115200, 'N', 8, 1);
    if (line == nullptr || modbus_set_slave(line, kDevice) != 0 || (kept && modbus_connect(line) != 0))
        state.SkipWithError("no line");
    for (auto round : state) {
        std::uint16_t value = 0;
        if (!kept && modbus_connect(line) != 0)
            state.SkipWithError("no line");
        if (modbus_read_registers(line, kAddress, 1, &value) != 1 || value != kValue)
            state.SkipWithError("no answer");
        if (!kept)
            modbus_close(line);
    }
    if (kept)
        modbus_close(line);
    modbus_free(line);
}
BENCHMARK(LibmodbusGet)->ArgName("kept")->Arg(0)->Arg(1)->UseRealTime()->Repetitions(5)->ReportAggregatesOnly();

} // namespace
} // namespace vxsign::bench
