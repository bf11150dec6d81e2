#include "vxctl/cli/command.h"
#include "vxctl/cli/numbers.h"

#include <vxsign/local.h>

#include <algorithm>
#include <memory>
#include <sstream>
#include <vector>

namespace vxctl {

namespace {

constexpr const char* kGroup = "This PC";

void Ports(Session& session)
{
    // One byte more than the library may fill: a list that fills its room has no end of its own.
    std::vector<char> list(16384 + 1);
    Check(vxEnumSerial(list.data(), static_cast<std::uint32_t>(list.size() - 1)));
    Report::Json ports = Report::Json::array();
    std::istringstream names(list.data());
    for (std::string name; std::getline(names, name, '|');)
        ports.push_back(name);
    if (ports.empty())
        session.report.Line("no serial ports");
    for (const auto& port : ports)
        session.report.Line(port.get<std::string>());
    session.report.Put("ports", std::move(ports));
}

void Explain(Session& session, std::uint32_t code)
{
    const std::string meaning = vxErrorDesc(code);
    const std::string advice(AdviceFor(code));
    session.report.Line(std::to_string(code) + " (" + FormatWord(code) + "): " + meaning);
    if (!advice.empty())
        session.report.Line("  " + advice);
    session.report.Put("code", code);
    session.report.Put("meaning", meaning);
    session.report.Put("try", advice);
}

} // namespace

void AddLocalCommands(CLI::App& app, Session& session)
{
    AddCommand(app, {kGroup, "ports", "List the serial ports of this PC",
                     "Names that serial: takes, such as serial:ttyUSB0@115200.\n\nExample:\n  vxctl ports"})
        ->callback([&session] { Ports(session); });

    CLI::App* const error = AddCommand(
        app, {kGroup, "error", "Explain a result word", "Examples:\n  vxctl error 20736\n  vxctl error 0x9030"});
    const auto code = std::make_shared<std::uint32_t>(0);
    AddNumber(*error, "CODE", *code, 0, UINT32_MAX, "the result word, decimal or with 0x")->required();
    error->callback([&session, code] { Explain(session, *code); });
}

} // namespace vxctl
