// The options and commands of the program that put faults into a sign.
#pragma once

#include <CLI/CLI.hpp>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace vxsim {

// What should change in the condition of a sign, as options tell it.
class ConditionOptions
{
public:
    // The options with which a sign starts.
    void AddTo(CLI::App& app);

    // The commands that tell a running sign.
    void AddCommandsTo(CLI::App& app);

    // Throws std::invalid_argument for what makes no sense on a face of that size.
    void Check(int width, int height) const;

    // Brings the changes into the file that tells the sign in `signFolder`. Throws as Check does, and
    // std::runtime_error if the file cannot be written.
    void Apply(const std::filesystem::path& signFolder) const;

    // As Apply, for a sign that is there. Throws std::invalid_argument if the folder is none of a sign.
    void ApplyToTarget() const;

private:
    void Add(CLI::App& app, const char* option, const char* what, const char* help);

    std::string folder;
    std::vector<std::pair<std::string, std::string>> changes; // in the order of the options
};

} // namespace vxsim
