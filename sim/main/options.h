// What the program is told on its command line.
#pragma once

#include "sim/loginCommands.h"
#include "sim/main/companions.h"
#include "sim/main/conditionOptions.h"
#include "sim/main/webOptions.h"
#include "sim/server/endpoints.h"
#include "sim/server/server.h"

#include <CLI/CLI.hpp>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace vxsim {

class Options
{
public:
    static constexpr std::size_t kMostSigns = 5000;

    Options() = default;
    Options(const Options&) = delete;
    Options& operator=(const Options&) = delete;

    void AddTo(CLI::App& app);

    // Throws std::invalid_argument for what makes no sense together.
    void Check() const;

    // Width and height of the face. Throws std::invalid_argument, as the others do.
    std::pair<int, int> Size() const;
    Users Logins() const;
    ServerSettings Lines() const;

    bool IsMany() const { return count > 1; }
    bool IsPainted() const { return face == "ansi" || !png.empty(); }

    std::size_t count = 1;
    std::string folder;
    std::string book;
    std::string size = "128x32";
    std::string encoding = "utf-8";
    std::string drives = "CDEF";
    std::string faults;
    std::string face = "none";
    std::string png;
    std::vector<std::string> logins;
    bool verbose = false;
    bool commands = false;
    bool controller = false;
    unsigned delay = 0;
    ListenSettings listen;
    CompanionOptions companions;
    ConditionOptions condition;
    WebOptions web;

private:
    void CheckMany() const;
    void CheckPorts() const;
};

} // namespace vxsim
