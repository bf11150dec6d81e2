// The traffic, as a page asks for it.
#include "sim/web/jsonText.h"
#include "sim/web/pcap.h"
#include "sim/web/queryText.h"
#include "sim/web/refusal.h"
#include "sim/web/routes.h"
#include "sim/web/trafficJson.h"

#include <cstdint>
#include <memory>
#include <utility>

namespace vxsim {
namespace {

using nlohmann::json;

constexpr std::uint64_t kUsual = 200;
constexpr std::uint64_t kMost = 1000;

// The latest packets before `id`, oldest first.
PacketList Packets(SignDesk& desk, std::uint64_t id, std::size_t most)
{
    return desk.Questions().Ask([&] { return desk.Traffic().Before(id, most); });
}

void GiveList(SignDesk& desk, const httplib::Request& request, httplib::Response& response)
{
    const std::uint64_t before = NumberIn(request, "before", UINT64_MAX, UINT64_MAX);
    const std::uint64_t limit = NumberIn(request, "limit", kUsual, kMost);
    json packets = json::array();
    const PacketList list = Packets(desk, before, limit);
    for (auto packet = list.rbegin(); packet != list.rend(); ++packet)
        packets.push_back(SummaryOf(**packet));
    response.set_content(Dump({{"exchanges", std::move(packets)}}), "application/json");
}

void GiveDetails(SignDesk& desk, const httplib::Request& request, httplib::Response& response)
{
    const std::uint64_t id = ToNumber(request.matches[1].str(), "id", UINT64_MAX);
    const auto packet = desk.Questions().Ask([&] { return desk.Traffic().Find(id); });
    if (!packet)
        throw Refusal(404, "this exchange is no longer kept");
    response.set_content(Dump(DetailsOf(*packet)), "application/json");
}

// Written packet by packet, so that it costs no memory beside them.
void GivePcap(SignDesk& desk, httplib::Response& response)
{
    const auto list = std::make_shared<PacketList>(Packets(desk, UINT64_MAX, TrafficRing::kMost));
    const SignSettings& settings = desk.Sign().sign.Settings();
    const CapturedSign sign{settings.address, settings.port};
    response.set_header("Content-Disposition", "attachment; filename=\"vxsim.pcap\"");
    response.set_content_provider(
        "application/vnd.tcpdump.pcap",
        [list, sign, next = std::size_t{0}](std::size_t offset, httplib::DataSink& sink) mutable {
            const std::string part = offset == 0 ? PcapHeader() : PcapRecords(*(*list)[next++], sign);
            const bool isWritten = sink.write(part.data(), part.size());
            if (next == list->size())
                sink.done();
            return isWritten;
        });
}

} // namespace

void AddTraffic(HttpServer& server, const DeskOf& deskOf)
{
    server.Get("/api/traffic",
               [deskOf](const auto& request, auto& response) { GiveList(deskOf(request), request, response); });
    server.Get(R"(/api/traffic/(\d{1,19}))",
               [deskOf](const auto& request, auto& response) { GiveDetails(deskOf(request), request, response); });
    server.Get(R"(/api/traffic\.pcap)",
               [deskOf](const auto& request, auto& response) { GivePcap(deskOf(request), response); });
}

} // namespace vxsim
