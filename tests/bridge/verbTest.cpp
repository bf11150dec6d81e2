// What messages become: words of vxctl.
#include "vxbridge/sign/verbs.h"
#include "vxctl/cli/failure.h"
#include "vxctl/cli/outcome.h"
#include "vxctl/cli/tables.h"

#include <gtest/gtest.h>

#include <string>

namespace vxbridge::test {
namespace {

std::string Words(const char* verb, const std::string& payload)
{
    std::string line;
    for (const std::string& word : WordsOf(*FindVerb(verb), payload, SharedFolder()))
        line += (line.empty() ? "" : " ") + word;
    return line;
}

TEST(Verbs, BecomeWordsThatNoneCanTakeForOptions)
{
    struct Row
    {
        const char* verb;
        const char* payload;
        const char* words;
    };
    for (const Row& row : {Row{"blank", "", "blank --"},
                           {"show", R"({"text": "--json"})", "show -- --json"},
                           {"show", R"({"text": "A", "colour": "-x", "mustFit": true, "verify": false, "stay": 5})",
                            "show --colour=-x --stay=5 --must-fit -- A"},
                           {"bright", R"({"level": 7})", "bright -- 7"},
                           {"clock", R"({"set": "now"})", "clock --set=now --"},
                           {"raw", R"({"major": 4, "minor": 1, "payload": "01 02"})", "raw --payload=01 02 -- 4 1"}})
        EXPECT_EQ(row.words, Words(row.verb, row.payload));
    EXPECT_EQ(nullptr, FindVerb("reset"));
}

TEST(Verbs, AreCommandsForManySigns)
{
    for (const Verb& verb : AllVerbs()) {
        const vxctl::Command* const command = vxctl::FindCommand(verb.name);
        ASSERT_NE(nullptr, command) << verb.name;
        EXPECT_NE(vxctl::Line::kNone, command->line) << verb.name;
        EXPECT_NE(std::string::npos, VerbTable().find("| `" + std::string(verb.name) + "` | ")) << verb.name;
    }
}

TEST(Verbs, RefuseFilesWithoutAFolder)
{
    EXPECT_THROW(Words("put", R"({"url": "a.txt", "path": "D:/A.TXT"})"), vxctl::UsageError);
    EXPECT_THROW(SharedFolder("/nowhere/at/all"), vxctl::UsageError);
}

} // namespace
} // namespace vxbridge::test
