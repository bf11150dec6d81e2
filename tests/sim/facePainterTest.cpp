// The face in a terminal that changes its width.
#include "support/signFixture.h"

#include "sim/stage/facePainter.h"

#include <sstream>

namespace vxsign::test {
namespace {

TEST_F(StageTest, TheTerminalsCursorIsHiddenWhileTheFaceIsDrawnOverItself)
{
    std::ostringstream terminal;
    int columns = 80;
    const auto drawn = [&](vxsim::FacePainter& painter) {
        terminal.str("");
        painter.Paint(0);
        return terminal.str();
    };
    {
        vxsim::FacePainter painter(*stage, &terminal, [&] { return columns; }, {});
        EXPECT_EQ(drawn(painter).substr(0, 6), "\x1b[?25l");
        EXPECT_EQ(drawn(painter), "") << "nothing has changed";
        columns = 10;
        EXPECT_EQ(drawn(painter).substr(0, 7), "\x1b[8A\x1b[J") << "drawn anew in quarter blocks";
        columns = 4;
        EXPECT_EQ(drawn(painter), "\x1b[8A\x1b[JThis\n");
        terminal.str("");
    }
    EXPECT_EQ(terminal.str(), "\x1b[?25h");
    columns = 0;
    vxsim::FacePainter intoAFile(*stage, &terminal, [&] { return columns; }, {});
    EXPECT_EQ(drawn(intoAFile).find("\x1b[?"), std::string::npos);
}

} // namespace
} // namespace vxsign::test
