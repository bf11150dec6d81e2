// What one sign and many have in common.
#pragma once

#include "sim/face/font.h"
#include "sim/main/companions.h"
#include "sim/main/options.h"
#include "sim/virtualSign.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vxsim {

// What the options say of a sign that is reached there. Its clock begins at the local time of this machine.
SignSettings SettingsOf(const Options& options, const std::filesystem::path& folder, const Endpoints& endpoints);

// The letters of its face.
std::shared_ptr<Font> FontOf(const Options& options);

// A line for each place where hosts reach it.
std::vector<std::string> PlacesOf(const Endpoints& endpoints, const Companions& companions);

// What fails, and with `verbose` each command, as lines on standard error. `name` stands ahead of them; it is empty
// where there is one sign.
void Report(VirtualSign& sign, const std::string& name, bool verbose);

// What tells there, in such lines, what a companion does; empty where it is not wanted.
std::function<void(const std::string&)> TellerOf(const std::string& name, bool isWanted);

// Tells there what went wrong.
void Complain(const std::string& name, const std::string& what);

} // namespace vxsim
