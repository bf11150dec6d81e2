// Commands for test patterns and the connection.
#pragma once

#include "sim/command/commandFamily.h"

#include <cstdint>
#include <span>
#include <variant>
#include <vector>

namespace vxsim {

// What the tests put on the face.
struct PatternTest
{
    std::uint8_t pattern = 0; // 2 to 15, but not 9, which stops
};
struct ColourTest
{
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
};
struct AreaTest // pixels of the face
{
    std::uint16_t left = 0;
    std::uint16_t top = 0;
    std::uint16_t width = 0;
    std::uint16_t height = 0;
    ColourTest colour; // black stands for white
};
struct LocationTest // numbered modules, `columns` of them in a row
{
    std::uint16_t left = 0;
    std::uint16_t top = 0;
    std::uint16_t width = 0; // of a module
    std::uint16_t height = 0;
    std::uint16_t columns = 0;
    std::vector<std::uint16_t> numbers;
};
using FaceTest = std::variant<std::monostate, PatternTest, ColourTest, AreaTest, LocationTest>;

// Major 3: tests of the face, which last until they are stopped, and of the connection.
class TestCommands : public CommandFamily
{
public:
    // The size of the face, which the connect test tells.
    TestCommands(int width, int height) : faceWidth(width), faceHeight(height) {}

    std::span<const CommandRow> Commands() const override;
    void Restart(std::uint64_t, bool) override { running = {}; }

    const FaceTest& Running() const { return running; }
    std::uint64_t StartedMs() const { return startedMs; }

    // What hosts left: the state record of the crayon test and the debug settings.
    std::span<const std::uint8_t> CrayonState() const { return crayonState; }
    std::uint32_t DebugSettings() const { return debugSettings; }

private:
    Reply Start(FaceTest test, std::uint64_t nowMs);
    Reply Stop(const Call& call);
    Reply ShowPattern(const Call& call);
    Reply ShowColour(const Call& call);
    Reply ShowArea(const Call& call);
    Reply ShowLocation(const Call& call);
    Reply ConnectTest(const Call& call);
    Reply KeepCrayonState(const Call& call);
    Reply KeepDebugSettings(const Call& call);

    int faceWidth;
    int faceHeight;
    FaceTest running;
    std::uint64_t startedMs = 0;
    std::uint32_t connectTests = 0;
    std::vector<std::uint8_t> crayonState;
    std::uint32_t debugSettings = 0;
};

} // namespace vxsim
