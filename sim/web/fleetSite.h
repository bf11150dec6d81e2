// Many signs in the browser.
#pragma once

#include "sim/web/askQueue.h"
#include "sim/web/httpServer.h"
#include "sim/web/onlooker.h"
#include "sim/web/signDesk.h"

#include <cstddef>
#include <map>
#include <memory>
#include <string>

namespace vxsim {

// A page with all faces in small, and below /sign/NAME/ the page of each sign. Belongs to the signs' thread and goes
// before them.
class FleetSite : public FleetPage
{
public:
    // As MakeFleetSite.
    FleetSite(const WebSettings& settings, WebFleet& fleet);
    ~FleetSite() override;

    const std::string& Address() const override { return address; }

private:
    std::size_t IndexOf(const std::string& name) const;
    SignDesk& DeskOf(const std::string& name);
    void AddList();
    void AddFaces();

    WebFleet& fleet;
    AskQueue questions;
    std::map<std::string, std::size_t> indexes; // by name
    std::map<std::size_t, std::unique_ptr<SignDesk>>
        desks; // of the signs that a page has opened; for the signs' thread
    HttpServer http;
    std::string address;
};

} // namespace vxsim
