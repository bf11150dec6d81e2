#pragma once

#include "sim/state/condition.h"
#include "stageFixture.h"

#include <string>

namespace vxsim_tests {

// A sign whose clock shows 2020-05-13 10:20:30 at 0 ms, and its database.
class LogTest : public StageTest
{
protected:
    LogTest()
    {
        settings.localSecondsAtZero = 1589365230;
        Rebuild(32, 32);
    }

    Bytes AskDatabase(const std::string& sql, const Bytes& payload = {1, 0, 1, 0})
    {
        return Ask(1, 21, payload, Text(sql));
    }

    std::string RowsOf(const std::string& sql)
    {
        const Bytes reply = AskDatabase(sql);
        EXPECT_EQ(CodeOf(reply), 0U) << sql;
        const Bytes text = ExtendedOf(reply);
        return {text.begin(), text.end()};
    }

    // Tells the sign of its condition as another program would.
    void Tell(std::uint64_t nowMs, const std::string& lines)
    {
        vxsim::ConditionFile(folder.path).Write(vxsim::ParseCondition(lines));
        sign->KeepUp(nowMs);
    }

    std::string FileText(const std::string& name) const
    {
        const Bytes bytes = FileBytes(folder.path / name);
        return {bytes.begin(), bytes.end()};
    }
};

} // namespace vxsim_tests
