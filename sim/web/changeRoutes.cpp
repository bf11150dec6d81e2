// What a page changes: faults of the sign and of its lines, and the buttons of the box.
#include "sim/state/condition.h"
#include "sim/web/jsonText.h"
#include "sim/web/refusal.h"
#include "sim/web/routes.h"

#include <array>
#include <cstdint>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace vxsim {
namespace {

using nlohmann::json;

constexpr int kBadRequest = 400;
constexpr std::int64_t kLongestDelayMs = 60000;
constexpr std::int64_t kMostSecondsAhead = 1000000000; // some thirty years

void Say(httplib::Response& response, const json& what)
{
    response.set_content(Dump(what), "application/json");
}

// Brings changes into the file that tells the sign. One page at a time, so that none loses those of another.
void ApplyChanges(const SignSettings& settings, const json& changes, std::mutex& mutex)
{
    if (!changes.is_array())
        throw Refusal(kBadRequest, "'changes' is no list");
    std::vector<std::pair<std::string, std::string>> wanted;
    for (const json& change : changes) {
        wanted.emplace_back(TextOf(change, "what"), TextOf(change, "value"));
        CheckChange(wanted.back().first, wanted.back().second, settings.width, settings.height);
    }
    const std::scoped_lock lock(mutex);
    const ConditionFile file(settings.folder);
    Condition condition = file.Read();
    for (const auto& [what, value] : wanted)
        Change(condition, what, value);
    file.Write(condition);
}

void SetLine(LineSettings& line, const std::string& name, const json& body)
{
    const std::pair<const char*, double*> parts[] = {{"drop", &line.faults.drop},
                                                     {"truncate", &line.faults.truncate},
                                                     {"wrongId", &line.faults.wrongId},
                                                     {"badSum", &line.faults.badSum}};
    for (const auto& [known, value] : parts) {
        if (name == known) {
            *value = PartOf(body, name);
            return;
        }
    }
    if (name == "noise")
        line.faults.noise = static_cast<std::size_t>(WholeOf(body, name, 0, kMostNoise));
    else if (name == "delay")
        line.delay = std::chrono::milliseconds(WholeOf(body, name, 0, kLongestDelayMs));
    else if (name == "unplugged")
        line.unplugged = FlagOf(body, name);
    else
        throw Refusal(kBadRequest, "'" + name + "' is nothing of a line");
}

void PressButton(VirtualSign& sign, const std::string& name, const json& body)
{
    if (name == "power")
        sign.Switch(FlagOf(body, name));
    else if (name == "light")
        sign.SetLevel(static_cast<std::uint8_t>(WholeOf(body, name, 0, 8)));
    else if (name == "clock")
        sign.SetClockAhead(WholeOf(body, name, -kMostSecondsAhead, kMostSecondsAhead));
    else if (name == "reset" && FlagOf(body, name))
        sign.Restart(NowMs());
    else if (name != "reset")
        throw Refusal(kBadRequest, "'" + name + "' is no button of the box");
}

// Runs on the sign's thread, and the pages hear of it at once.
template <typename Doing>
void LetSign(SignDesk& desk, Doing doing)
{
    desk.Questions().Ask([&] {
        doing(desk.Sign());
        desk.Refresh();
    });
}

} // namespace

void AddChanges(HttpServer& server, const DeskOf& deskOf)
{
    const auto mutex = std::make_shared<std::mutex>();
    server.Post("/api/condition", [deskOf, mutex](const httplib::Request& request, httplib::Response& response) {
        const json body = ParseObject(request.body);
        try {
            SignDesk& desk = deskOf(request);
            ApplyChanges(desk.Sign().sign.Settings(), body.value("changes", json()), *mutex);
            LetSign(desk, [](const WebSign&) {});
        } catch (const std::invalid_argument& error) {
            throw Refusal(kBadRequest, error.what());
        }
        Say(response, json::object());
    });
    server.Post("/api/line", [deskOf](const httplib::Request& request, httplib::Response& response) {
        const json body = ParseObject(request.body);
        LetSign(deskOf(request), [&](const WebSign& web) {
            LineSettings line = web.server.Line();
            for (const auto& member : body.items())
                SetLine(line, member.key(), body);
            web.server.Use(line);
        });
        Say(response, json::object());
    });
    server.Post("/api/box", [deskOf](const httplib::Request& request, httplib::Response& response) {
        const json body = ParseObject(request.body);
        if (body.size() != 1)
            throw Refusal(kBadRequest, "one button at a time");
        LetSign(deskOf(request), [&](const WebSign& web) { PressButton(web.sign, body.begin().key(), body); });
        Say(response, json::object());
    });
}

} // namespace vxsim
