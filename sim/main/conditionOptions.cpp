#include "sim/main/conditionOptions.h"

#include "sim/state/condition.h"

#include <stdexcept>
#include <system_error>

namespace vxsim {
namespace {

constexpr const char* kTileErrorHelp =
    "a tile that fails: TILE,ERROR (queue, bus, retry, normal, task, broadcast, control, address, twi, pixel, full)";
constexpr const char* kBadPixelHelp =
    "a pixel with a bad lamp: X,Y,red (green, blue, all), then ,stuck or ,signal if not dark";

} // namespace

void ConditionOptions::Add(CLI::App& app, const char* option, const char* what, const char* help)
{
    app.add_option_function<std::vector<std::string>>(
           option,
           [this, what](const std::vector<std::string>& values) {
               for (const std::string& value : values)
                   changes.emplace_back(what, value);
           },
           help)
        ->expected(1)
        ->take_all();
}

void ConditionOptions::AddTo(CLI::App& app)
{
    Add(app, "--bad", "bad", kBadPixelHelp);
    Add(app, "--hot", "hot", "a tile that is too hot; tiles of 16x16 pixels count from 1, row by row");
    Add(app, "--tile-error", "tile-error", kTileErrorHelp);
    Add(app, "--tile-lock", "lock", "a tile that takes no calibration");
    Add(app, "--door", "door", "the door of the sign: open or closed");
}

void ConditionOptions::AddCommandsTo(CLI::App& app)
{
    CLI::App& pixel = *app.add_subcommand("pixel", "breaks and mends pixels of a running sign");
    Add(pixel, "--good", "good", "a pixel that works again: X,Y or all");
    Add(pixel, "--bad", "bad", kBadPixelHelp);
    CLI::App& tile = *app.add_subcommand("tile", "heats, breaks and locks tiles of a running sign");
    Add(tile, "--cool", "cool", "a tile that is no longer hot: its number or all");
    Add(tile, "--hot", "hot", "a tile that is too hot");
    Add(tile, "--good", "tile-good", "a tile that does as it is told again: its number or all");
    Add(tile, "--error", "tile-error", kTileErrorHelp);
    Add(tile, "--unlock", "unlock", "a tile that takes calibrations again: its number or all");
    Add(tile, "--lock", "lock", "a tile that takes no calibration");
    CLI::App& door = *app.add_subcommand("door", "opens and closes the door of a running sign");
    door.add_option_function<std::string>(
            "state", [this](const std::string& state) { changes.emplace_back("door", state); }, "open or closed")
        ->required();
    for (CLI::App* command : {&pixel, &tile, &door})
        command->add_option("--dir", folder, "folder of the sign, which it tells when it starts")->required();
}

void ConditionOptions::Check(int width, int height) const
{
    for (const auto& [what, value] : changes)
        CheckChange(what, value, width, height);
}

void ConditionOptions::Apply(const std::filesystem::path& signFolder) const
{
    if (changes.empty())
        return;
    const ConditionFile file(signFolder);
    Condition condition = file.Read();
    for (const auto& [what, value] : changes)
        Change(condition, what, value);
    file.Write(condition);
}

void ConditionOptions::ApplyToTarget() const
{
    std::error_code error;
    if (!std::filesystem::is_directory(std::filesystem::path(folder) / "sign", error))
        throw std::invalid_argument("'" + folder + "' is no folder of a sign");
    if (changes.empty())
        throw std::invalid_argument("nothing to change; see --help");
    Apply(folder);
}

} // namespace vxsim
