#include "sim/web/fleetSite.h"

#include "sim/web/faceChanges.h"
#include "sim/web/jsonText.h"
#include "sim/web/refusal.h"
#include "sim/web/routes.h"
#include "sim/web/siteRules.h"
#include "sim/web/thumbnail.h"

#include <chrono>
#include <functional>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace vxsim {
namespace {

using nlohmann::json;

constexpr std::string_view kPrefix = "/sign/";
constexpr const char* kNameHeader = "X-Sign"; // none that a browser could send gets through
constexpr std::size_t kMostFaces = 64;        // in one answer
constexpr std::chrono::hours kIdleStep{24 * 365};

// "/sign/NAME/api/line" is "/api/line" of that sign.
void FindSign(httplib::Request& request)
{
    if (!request.path.starts_with(kPrefix))
        return;
    const std::size_t end = request.path.find('/', kPrefix.size());
    if (end == std::string::npos || end == kPrefix.size())
        return;
    request.headers.emplace(kNameHeader, request.path.substr(kPrefix.size(), end - kPrefix.size()));
    request.path.erase(0, end);
}

std::string NameIn(const httplib::Request& request)
{
    return request.get_header_value(kNameHeader);
}

// What a page has not got yet; it knows a face by a number that is another one for another face.
json FaceJson(const std::optional<Canvas>& face, const json& known)
{
    if (!face)
        return {{"asleep", true}};
    const Canvas small = ThumbnailOf(*face);
    const std::vector<unsigned char> rgb = PixelsOf(small, {0, 0, small.Width(), small.Height()});
    const auto version = static_cast<std::uint32_t>(
        std::hash<std::string_view>()({reinterpret_cast<const char*>(rgb.data()), rgb.size()}));
    if (known == version)
        return {{"version", version}};
    return {{"version", version}, {"width", small.Width()}, {"height", small.Height()}, {"rgb", Base64(rgb)}};
}

} // namespace

FleetSite::FleetSite(const WebSettings& settings, WebFleet& signs)
    : fleet(signs), http(settings.host, settings.port), address(AddressOf(settings, http))
{
    for (const WebFleet::Place& sign : fleet.Signs())
        indexes.emplace(sign.name, indexes.size());
    fleet.Turns().Watch(questions.Waiting(), [this] { questions.Answer(); });
    http.PrepareBy(FindSign);
    AddRules(http, settings);
    AddPages(http, [this](const httplib::Request& request) {
        const std::string name = NameIn(request);
        if (name.empty())
            return "/fleet.html";
        IndexOf(name);
        return "/index.html";
    });
    AddSign(http, [this](const httplib::Request& request) -> SignDesk& { return DeskOf(NameIn(request)); });
    AddList();
    AddFaces();
    http.Start();
}

FleetSite::~FleetSite()
{
    questions.Close();
    http.Stop();
}

std::size_t FleetSite::IndexOf(const std::string& name) const
{
    const auto found = indexes.find(name);
    if (found == indexes.end())
        throw Refusal(404, "there is no such sign");
    return found->second;
}

SignDesk& FleetSite::DeskOf(const std::string& name)
{
    const std::size_t index = IndexOf(name);
    return *questions.Ask([&] {
        std::unique_ptr<SignDesk>& desk = desks[index];
        if (!desk) {
            desk = std::make_unique<SignDesk>(fleet.Open(index), fleet.IdentityOf(index), questions, kIdleStep);
            fleet.TellTo(index, *desk);
        }
        return desk.get();
    });
}

void FleetSite::AddList()
{
    http.Get(R"(/sign/[\w.-]+)", [this](const httplib::Request& request, httplib::Response& response) {
        IndexOf(request.path.substr(kPrefix.size()));
        response.set_redirect(request.path + "/");
    });
    http.Get("/api/signs", [this](const httplib::Request&, httplib::Response& response) {
        json signs = json::array();
        for (const WebFleet::Place& sign : fleet.Signs())
            signs.push_back({{"name", sign.name}, {"at", sign.at}});
        response.set_content(Dump({{"signs", std::move(signs)}}), "application/json");
    });
}

// One sign after the other, so that hosts have their turns between them.
void FleetSite::AddFaces()
{
    http.Post("/api/faces", [this](const httplib::Request& request, httplib::Response& response) {
        const json wanted = ParseObject(request.body);
        if (wanted.size() > kMostFaces)
            throw Refusal(400, "more than " + std::to_string(kMostFaces) + " faces");
        json faces = json::object();
        for (const auto& [name, known] : wanted.items()) {
            const auto face = questions.Ask([this, index = IndexOf(name)] {
                const Canvas* const drawn = fleet.Face(index, NowMs());
                return drawn != nullptr ? std::optional(*drawn) : std::nullopt;
            });
            faces[name] = FaceJson(face, known);
        }
        response.set_content(Dump({{"faces", std::move(faces)}}), "application/json");
    });
}

std::unique_ptr<FleetPage> MakeFleetSite(const WebSettings& settings, WebFleet& fleet)
{
    return std::make_unique<FleetSite>(settings, fleet);
}

} // namespace vxsim
