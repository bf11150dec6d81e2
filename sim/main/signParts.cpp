#include "sim/main/signParts.h"

#include <ctime>
#include <iostream>
#include <string_view>
#include <tuple>
#include <utility>

namespace vxsim {
namespace {

std::string Ahead(const std::string& name)
{
    return name.empty() ? std::string() : name + ": ";
}

void TellCommands(VirtualSign& sign, const std::string& ahead)
{
    SignEvents events;
    events.answered = [ahead](const Exchange& exchange) {
        std::cerr << ahead << exchange.name << " (" << int{exchange.request.major} << ", "
                  << int{exchange.request.minor} << ')';
        if (exchange.code != Code::kOk)
            std::cerr << " refused, code " << static_cast<int>(exchange.code);
        if (!exchange.remark.empty())
            std::cerr << ' ' << exchange.remark;
        std::cerr << '\n';
    };
    events.heldBack = [ahead](std::string_view command) {
        std::cerr << ahead << command << " without an answer, after wrong passwords\n";
    };
    sign.Observe(std::move(events));
}

std::int64_t LocalSecondsAtZero()
{
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
    ::localtime_r(&now, &local);
    return std::int64_t{now} + local.tm_gmtoff - static_cast<std::int64_t>(NowMs() / 1000);
}

} // namespace

SignSettings SettingsOf(const Options& options, const std::filesystem::path& folder, const Endpoints& endpoints)
{
    SignSettings settings;
    settings.folder = folder;
    std::tie(settings.width, settings.height) = options.Size();
    settings.drives = options.drives;
    settings.address = endpoints.address;
    settings.port = endpoints.port;
    settings.users = options.Logins();
    settings.localSecondsAtZero = LocalSecondsAtZero();
    settings.controller = options.controller;
    return settings;
}

std::shared_ptr<Font> FontOf(const Options& options)
{
    auto font = std::make_shared<Font>();
    font->SetEncoding(options.encoding);
    return font;
}

std::vector<std::string> PlacesOf(const Endpoints& endpoints, const Companions& companions)
{
    std::vector<std::string> places{"udp " + endpoints.Place(), "tcp " + endpoints.Place()};
    if (!endpoints.serialPath.empty())
        places.push_back("serial " + endpoints.serialPath);
    for (std::string& place : companions.Places())
        places.push_back(std::move(place));
    return places;
}

std::function<void(const std::string&)> TellerOf(const std::string& name, bool isWanted)
{
    if (!isWanted)
        return {};
    return [ahead = Ahead(name)](const std::string& what) { std::cerr << ahead << what << '\n'; };
}

void Complain(const std::string& name, const std::string& what)
{
    std::cerr << "vxsim: " << Ahead(name) << what << '\n';
}

void Report(VirtualSign& sign, const std::string& name, bool verbose)
{
    SignEvents troubles;
    troubles.failed = [name](const std::string& what) { Complain(name, what); };
    sign.Observe(std::move(troubles));
    if (verbose)
        TellCommands(sign, Ahead(name));
}

} // namespace vxsim
