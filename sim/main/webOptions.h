// The options of the page.
#pragma once

#include "sim/web/onlooker.h"

#include <CLI/CLI.hpp>

namespace vxsim {

class WebOptions
{
public:
    void AddTo(CLI::App& app);

    bool IsWanted() const { return web->count() != 0; }

    // Throws std::invalid_argument for a page that everybody could use.
    const WebSettings& Settings() const;

private:
    WebSettings settings;
    const CLI::Option* web = nullptr;
};

} // namespace vxsim
