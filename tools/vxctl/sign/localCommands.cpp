// ports, error: what this PC knows without a sign.
#include "vxctl/cli/numbers.h"
#include "vxctl/cli/tables.h"

#include <vxsign/local.h>

#include <sstream>
#include <vector>

namespace vxctl {

namespace {

std::uint32_t ListPorts(Session& session, const Args& /*args*/)
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
    return VX_OK;
}

std::uint32_t ExplainError(Session& session, const Args& args)
{
    const std::uint32_t code = args.Number("CODE");
    const std::string meaning = vxErrorDesc(code);
    const std::string advice(AdviceFor(code));
    session.report.Line(std::to_string(code) + " (" + FormatWord(code) + "): " + meaning);
    if (!advice.empty())
        session.report.Line("  " + advice);
    session.report.Put("code", code);
    session.report.Put("meaning", meaning);
    session.report.Put("try", advice);
    return VX_OK;
}

const Command kCommands[] = {
    {
        .name = "ports",
        .help = "List the serial ports of this PC",
        .details = "Names that serial: takes, such as serial:ttyUSB0@115200.",
        .examples = "vxctl ports",
        .line = Line::kNone,
        .run = ListPorts,
    },
    {
        .name = "error",
        .help = "Explain a result word, and what to try",
        .examples = R"(vxctl error 20736
vxctl error 0x9030)",
        .arguments = {Number("CODE", 0, UINT32_MAX, "the result word, decimal or with 0x")},
        .line = Line::kNone,
        .run = ExplainError,
    },
};

} // namespace

const CommandTable kLocalCommands{"This PC", kCommands};

} // namespace vxctl
