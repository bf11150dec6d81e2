// explain: what a capture holds.
#include "vxctl/cli/signUrl.h"
#include "vxctl/cli/tables.h"
#include "vxctl/record/captureTalk.h"
#include "vxctl/record/saidText.h"

#include <set>

namespace vxctl {

namespace {

constexpr std::uint16_t kModbusPort = 9521;

std::set<std::uint16_t> PortsOf(const Args& args)
{
    std::set<std::uint16_t> ports{kDefaultPort, kModbusPort};
    for (const std::string& port : args.List("--port"))
        ports.insert(static_cast<std::uint16_t>(ParseNumber(port).value_or(0)));
    return ports;
}

struct Sums
{
    std::size_t requests = 0;
    std::size_t unanswered = 0;
    std::size_t refused = 0;
    std::size_t damaged = 0; // noise, cut packets and bad checksums
};

Sums SumsOf(const CaptureTalk& talk)
{
    Sums sums;
    for (const Said& said : talk.All()) {
        const bool isPacket = said.what == Said::What::kPacket;
        sums.requests += isPacket && !said.isReply ? 1 : 0;
        sums.unanswered += said.isUnanswered ? 1 : 0;
        sums.refused += isPacket && CodeOf(said) != VX_OK ? 1 : 0;
        sums.damaged += said.what == Said::What::kNoise || said.what == Said::What::kCut ||
                                (isPacket && !SignPacket(said.bytes).IsGood())
                            ? 1
                            : 0;
    }
    return sums;
}

void Tell(Report& report, const CaptureTalk& talk)
{
    std::set<std::string> signs;
    for (const Said& said : talk.All())
        signs.insert(SignOf(said));
    if (signs.size() == 1)
        report.Line("sign " + *signs.begin());
    Report::Json packets = Report::Json::array();
    for (const Said& said : talk.All()) {
        report.Line(LineOf(said, signs.size() > 1));
        if (report.IsJson())
            packets.push_back(ObjectOf(said));
    }
    const Sums sums = SumsOf(talk);
    report.Line(std::to_string(sums.requests) + " requests, " + std::to_string(sums.unanswered) + " without answer, " +
                std::to_string(sums.refused) + " refused, " + std::to_string(sums.damaged) + " damaged; " +
                std::to_string(talk.Others()) + " frames of other traffic");
    report.Put("packets", std::move(packets));
    report.Put("requests", sums.requests);
    report.Put("unanswered", sums.unanswered);
    report.Put("refused", sums.refused);
    report.Put("damaged", sums.damaged);
    report.Put("others", talk.Others());
}

std::uint32_t ExplainCapture(Session& session, const Args& args)
{
    const std::string& file = args.Text("FILE");
    CaptureTalk talk(PortsOf(args));
    const std::string fault = ReadCapture(file, talk);
    if (fault.empty() || !talk.All().empty())
        Tell(session.report, talk);
    if (!fault.empty())
        throw SignFailure(VX_FILE_FORMAT, file + ": " + fault);
    return VX_OK;
}

const Command kCommands[] = {
    {
        .name = "explain",
        .help = "Show what a capture holds, each packet in a line",
        .details =
            "Captures are made by --record, with any command, or by Wireshark, tcpdump and the like: pcapng or pcap, "
            "of "
            "Ethernet, Linux's \"any\", loopback or bare IPv4. Told are time, way, command, packet id, what is asked "
            "for, the answer and how long it took; also noise, bad checksums, and requests that nobody answered. Of a "
            "file that is cut or damaged all is told up to there.\n\n"
            "--record leaves out passwords and Wi-Fi keys: each of their bytes is '*', unless --with-secrets is there "
            "too. Several recordings may go into one file, one behind the other.",
        .examples = R"(vxctl --record line.pcapng show "HELLO 42"
vxctl explain line.pcapng
vxctl explain theirs.pcap --port 5000
vxctl --json explain line.pcapng | jq '.packets[] | select(.code > 0)')",
        .arguments = {ReadFile("FILE", "the capture"),
                      Number("--port", 1, 65535, "another port of signs than 9520 and than those that --record names")
                          .In("PORT")
                          .Repeated()},
        .line = Line::kNone,
        .run = ExplainCapture,
    },
};

} // namespace

const CommandTable kRecordCommands{"Protocol", kCommands};

} // namespace vxctl
