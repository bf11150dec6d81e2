#include "sim/web/eventStream.h"

#include "sim/web/faceChanges.h"
#include "sim/web/jsonText.h"
#include "sim/web/trafficJson.h"

#include <utility>
#include <vector>

namespace vxsim {
namespace {

using nlohmann::json;

constexpr std::chrono::milliseconds kWait{500};
constexpr std::chrono::seconds kBeat{5};

std::string Event(std::string_view name, std::string_view data)
{
    return std::string("event: ").append(name).append("\ndata: ").append(data).append("\n\n");
}

// The rectangles have many bytes and nothing to be escaped, so that they are put together by hand.
std::string FaceEvent(const Canvas& face, const std::vector<Rectangle>& parts)
{
    std::string data = R"({"rects":[)";
    for (const Rectangle& part : parts) {
        data += data.back() == '[' ? "{" : ",{";
        data += R"("x":)" + std::to_string(part.x) + R"(,"y":)" + std::to_string(part.y) + R"(,"w":)" +
                std::to_string(part.width) + R"(,"h":)" + std::to_string(part.height) + R"(,"rgb":")";
        data += Base64(PixelsOf(face, part));
        data += "\"}";
    }
    return Event("face", data + "]}");
}

} // namespace

EventStream::EventStream(SignDesk& signDesk, const Descriptor& stopping, const std::string& sign)
    : desk(signDesk), stop(stopping), viewer(std::make_shared<Viewer>()), unsaid(Event("sign", sign))
{
    desk.Questions().Ask([this] { desk.Join(viewer); });
}

EventStream::~EventStream()
{
    try {
        desk.Questions().Ask([&signDesk = desk, left = viewer] { signDesk.Leave(left); });
    } catch (const std::exception&) { // nobody is left to be told
    }
}

bool EventStream::Tell(httplib::DataSink& sink)
{
    if (const auto sight = viewer->Wait(kWait, stop))
        unsaid += News(*sight);
    if (unsaid.empty() && Clock::now() - lastTold >= kBeat) {
        desk.Questions().Ask([] {}); // a sign that hangs has no beat
        unsaid = Event("alive", "{}");
    }
    if (!unsaid.empty())
        lastTold = Clock::now();
    const std::string text = std::exchange(unsaid, {});
    return sink.is_writable() && (text.empty() || sink.write(text.data(), text.size()));
}

std::string EventStream::News(const Sight& sight)
{
    const Canvas& now = *sight.face;
    std::string text;
    if (!face)
        text += FaceEvent(now, {{0, 0, now.Width(), now.Height()}});
    else if (const auto parts = ChangesOf(*face, now); !parts.empty())
        text += FaceEvent(now, parts);
    face = now;
    if (!moment || *moment != *sight.moment)
        text += Event("state", Dump(MomentJson(*sight.moment, now.Width(), now.Height())));
    moment = sight.moment;
    json packets = json::array();
    for (const auto& packet : sight.traffic ? *sight.traffic : PacketList()) {
        if (packet->id > lastPacket)
            packets.push_back(SummaryOf(*packet));
    }
    if (!packets.empty()) {
        lastPacket = sight.traffic->back()->id;
        text += Event("traffic", Dump({{"exchanges", std::move(packets)}}));
    }
    return text;
}

} // namespace vxsim
