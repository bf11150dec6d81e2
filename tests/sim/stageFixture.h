#pragma once

#include "signFixture.h"
#include "sim/stage/stage.h"

#include <memory>
#include <string>
#include <vector>

namespace vxsim_tests {

// A sign of 16x16 with its face, and files of one colour for it to show.
class StageTest : public SignTest
{
protected:
    StageTest() { Rebuild(16, 16); }

    void Rebuild(int width, int height)
    {
        settings.width = width;
        settings.height = height;
        stage.reset();
        Restart("CDEF");
        stage = std::make_unique<vxsim::Stage>(*sign);
    }

    Bytes AskAt(std::uint64_t nowMs, unsigned major, unsigned minor, const Bytes& payload = {},
                const Bytes& extended = {})
    {
        arrival.nowMs = nowMs;
        return Ask(major, minor, payload, extended);
    }

    // A BMP of one pixel, which is shown in the middle.
    static Bytes Dot(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
    {
        return Bytes{'B', 'M', 58, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0, 40, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 24, 0} +
               Bytes(24, 0) + Bytes{blue, green, red, 0};
    }

    void PutFile(const std::string& path, const Bytes& bytes)
    {
        ASSERT_EQ(CodeOf(Ask(2, 8,
                             Little(static_cast<std::uint32_t>(bytes.size()), 4) + Bytes{0, 4, 1, 0, 1, 0} +
                                 Text(path) + Bytes{0},
                             bytes)),
                  0U);
    }

    // Red, green and blue, three seconds each.
    void PlayThree()
    {
        PutFile("D:\\T\\RED.BMP", Dot(255, 0, 0));
        PutFile("D:\\T\\GREEN.BMP", Dot(0, 255, 0));
        PutFile("D:\\T\\BLUE.BMP", Dot(0, 0, 255));
        PutFile("C:\\SEQUENT.SYS", List({"RED.BMP", "GREEN.BMP", "BLUE.BMP"}));
    }

    static Bytes List(const std::vector<std::string>& names)
    {
        Bytes list{'S', 'Q', 4, 0, static_cast<std::uint8_t>(names.size()), 0, 0, 0};
        for (const std::string& name : names) {
            Bytes field = Text(name);
            field.resize(12);
            list = list + Bytes{'D', 'T', 15, 255} + Bytes(20, 0) + field;
        }
        return list;
    }

    vxsim::Rgb At(std::uint64_t nowMs, int x = 7, int y = 7) { return stage->Draw(nowMs).At(x, y); }

    std::unique_ptr<vxsim::Stage> stage;
};

inline constexpr vxsim::Rgb kRed{255, 0, 0};
inline constexpr vxsim::Rgb kGreen{0, 255, 0};
inline constexpr vxsim::Rgb kBlue{0, 0, 255};
inline constexpr vxsim::Rgb kWhite{255, 255, 255};
inline constexpr vxsim::Rgb kDark{};

} // namespace vxsim_tests
