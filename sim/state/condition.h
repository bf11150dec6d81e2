// What is wrong with the sign, and the file that says so.
#pragma once

#include "sim/state/taskState.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <tuple>

namespace vxsim {

enum class Lamp : std::uint8_t
{
    kRed,
    kGreen,
    kBlue
};

enum class LampFault : std::uint8_t
{
    kDark,  // never lit
    kStuck, // always fully lit
    kSignal // dark, since its signal does not arrive
};

struct LampPlace
{
    int y = 0;
    int x = 0;
    Lamp lamp = Lamp::kRed;

    bool operator==(const LampPlace&) const = default;
    bool operator<(const LampPlace& other) const
    {
        return std::tie(y, x, lamp) < std::tie(other.y, other.x, other.lamp);
    }
};

// What is wrong with the sign.
struct Condition
{
    std::map<LampPlace, LampFault> badLamps;
    std::set<int> hotTiles;              // by address, from 1
    std::map<int, TaskState> tileErrors; // what a tile answers whatever is asked of it
    std::set<int> lockedTiles;           // which take no calibration
    bool doorOpen = false;

    bool operator==(const Condition&) const = default;
};

// Changes one thing:
//   bad X,Y,COLOUR[,FAULT]   red, green, blue or all; dark (if not said), stuck or signal
//   good X,Y or good all     all lamps of the pixel work again, or all lamps of the sign
//   hot TILE, cool TILE, cool all
//   tile-error TILE,ERROR    one of kTaskErrors; tile-good TILE, tile-good all
//   lock TILE, unlock TILE, unlock all
//   door open, door closed
// Throws std::invalid_argument, which names the value, for anything else.
void Change(Condition& condition, std::string_view what, std::string_view value);

// Throws what Change would throw, and the same for a pixel or a tile that a face of that size does not have.
void CheckChange(std::string_view what, std::string_view value, int width, int height);

// The same, one change on each line, as it stands in a file. What makes no sense is passed over.
Condition ParseCondition(std::string_view text);
std::string ConditionText(const Condition& condition);

std::string_view LampName(Lamp lamp); // "Red"

// As they stand in a change.
std::string_view LampWord(Lamp lamp); // "red"
std::string_view FaultWord(LampFault fault);
std::string_view TaskErrorWord(TaskState state); // of an error in kTaskErrors

// The file that tells a running sign of its condition.
class ConditionFile
{
public:
    explicit ConditionFile(const std::filesystem::path& signFolder);

    // What the file says, if it is another file than at the last call; a missing one says that all is well.
    std::optional<Condition> Changed();

    Condition Read() const;

    // Throws std::invalid_argument if it is too much for the file, std::runtime_error if it cannot be written.
    void Write(const Condition& condition) const;

private:
    std::filesystem::path path;
    std::string lastStamp = "never";
};

} // namespace vxsim
