#include "vxctl/command.h"
#include "vxctl/numbers.h"

#include <vxsign/local.h>

#include <algorithm>
#include <memory>
#include <sstream>
#include <vector>

namespace vxctl {

namespace {

constexpr const char* kGroup = "This PC";

void Ports(Context& context)
{
    // One byte more than the library may fill: a list that fills its room has no end of its own.
    std::vector<char> list(16384 + 1);
    Check(vxEnumSerial(list.data(), static_cast<std::uint32_t>(list.size() - 1)));
    Report::Json ports = Report::Json::array();
    std::istringstream names(list.data());
    for (std::string name; std::getline(names, name, '|');)
        ports.push_back(name);
    if (ports.empty())
        context.report.Line("no serial ports");
    for (const auto& port : ports)
        context.report.Line(port.get<std::string>());
    context.report.Put("ports", std::move(ports));
}

void Explain(Context& context, std::uint32_t code)
{
    const std::string meaning = vxErrorDesc(code);
    const std::string advice(AdviceFor(code));
    context.report.Line(std::to_string(code) + " (" + FormatWord(code) + "): " + meaning);
    if (!advice.empty())
        context.report.Line("  " + advice);
    context.report.Put("code", code);
    context.report.Put("meaning", meaning);
    context.report.Put("try", advice);
}

} // namespace

void AddLocalCommands(CLI::App& app, Context& context)
{
    AddCommand(app, {kGroup, "ports", "List the serial ports of this PC",
                     "Names that serial: takes, such as serial:ttyUSB0@115200.\n\nExample:\n  vxctl ports"})
        ->callback([&context] { Ports(context); });

    CLI::App* const error = AddCommand(
        app, {kGroup, "error", "Explain a result word", "Examples:\n  vxctl error 20736\n  vxctl error 0x9030"});
    const auto code = std::make_shared<std::uint32_t>(0);
    AddNumber(*error, "CODE", *code, 0, UINT32_MAX, "the result word, decimal or with 0x")->required();
    error->callback([&context, code] { Explain(context, *code); });
}

} // namespace vxctl
