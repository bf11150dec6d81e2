// The rows of the commands: what they say of themselves holds, and what comes from them is right.
#include "vxctl/cli/commandLine.h"
#include "vxctl/cli/complaint.h"
#include "vxctl/cli/completion.h"
#include "vxctl/cli/runner.h"
#include "vxctl/cli/tables.h"

#include <gtest/gtest.h>

namespace vxctl::test {
namespace {

using Words = std::vector<std::string>;

struct PrintedRow
{
    Words words;
    const char* printed;
};

// The words of an example up to a pipe, a redirection or the remark behind it.
Words WordsOf(std::string_view example)
{
    Words words;
    bool isQuoted = false;
    bool isBetween = true;
    for (std::size_t i = 0; i < example.size(); ++i) {
        const char c = example[i];
        const bool ends = c == '|' || c == '>' || c == '<' || example.substr(i).starts_with("   ");
        if (ends && !isQuoted)
            break;
        isQuoted = isQuoted != (c == '"');
        if (c == ' ' && !isQuoted)
            isBetween = true;
        else if (isBetween)
            words.emplace_back();
        if (c != ' ' || isQuoted)
            isBetween = false;
        if (c != '"' && !isBetween)
            words.back() += c;
    }
    return words;
}

TEST(CommandRows, ReadWellInHelp)
{
    for (const CommandTable* const table : AllTables()) {
        for (const Command& command : table->commands) {
            SCOPED_TRACE(command.name);
            EXPECT_FALSE(command.help.empty() || command.help.ends_with('.'));
            EXPECT_FALSE(command.help.starts_with("Tell"));
            for (const Argument& argument : command.arguments) {
                SCOPED_TRACE(argument.name);
                EXPECT_FALSE(argument.help.empty());
                if (!argument.standard.empty()) {
                    EXPECT_NO_THROW(ReadArgument(argument, {std::string(argument.standard)}));
                }
            }
        }
    }
}

// Only the files of the examples are missing here.
TEST(CommandRows, HaveExamplesThatParse)
{
    std::size_t count = 0;
    CommandLine line;
    for (const CommandTable* const table : AllTables()) {
        for (const Command& command : table->commands) {
            for (const std::string_view example : Split(command.examples, '\n')) {
                if (!example.starts_with("vxctl "))
                    continue;
                SCOPED_TRACE(example);
                ++count;
                const Words words = WordsOf(example.substr(6));
                try {
                    line.ArgsOf(line.Parse(words));
                } catch (const UsageError& error) {
                    EXPECT_TRUE(std::string_view(error.what()).ends_with("cannot be read")) << error.what();
                } catch (const CLI::ParseError& error) {
                    ADD_FAILURE() << error.what();
                }
            }
        }
    }
    EXPECT_GT(count, 150U);
}

TEST(CommandRows, ComplainByTheNameOfTheArgument)
{
    const PrintedRow rows[] = {
        {{"bright", "300"}, "LEVEL: '300' is no number from 0 to 255"},
        {{"ping", "-n", "0"}, "-n,--count: '0' is no number from 1 to 1000000"},
        {{"show", "--font", "big", "x"}, "--font: 'big' is no font: a character, or a number from 48 to 169"},
        {{"power", "up"}, "ACTION: 'up' is none of on|off|status"},
        {{"beacon", "0"}, "BYTES: '0' is not 1 to 8 bytes in hexadecimal, such as \"01 ff\""},
        {{"rm", ""}, "PATH: a path on the sign has 1 to 240 characters"},
        {{"picture", "/none"}, "FILE: '/none' cannot be read"},
        {{"video", "vpu", "bright", "1", "2"}, "LEVELS: takes 4, not 2"},
        {{"player", "windows", "over", "0,0,1x1", "0,0,1x1", "0,0,1x1", "0,0,1x1", "0,0,1x1"}, "AREA: takes 4 at most"},
        {{"help", "zone", "txet"}, "unknown command txet (did you mean text?)"},
        {{"show", ""}, "the text is empty; --allow-empty shows a dark face"},
    };
    for (const auto& row : rows) {
        Session session;
        try {
            Execute(session, row.words);
            ADD_FAILURE() << row.printed;
        } catch (const UsageError& error) {
            EXPECT_STREQ(error.what(), row.printed);
        }
    }
}

TEST(CommandRows, SayWhatMayHaveBeenMeant)
{
    const PrintedRow rows[] = {
        {{}, "a command is missing"},
        {{"shwo", "x", "--stay", "5"}, "unknown command shwo (did you mean show?)"},
        {{"sl"}, "unknown command sl (did you mean ls?)"},
        {{"playl"}, "unknown command playl (did you mean play or playlist?)"},
        {{"divide"}, "unknown command divide (did you mean zone divide?)"},
        {{"zone", "txt", "1"}, "unknown command txt (did you mean text?)"},
        {{"frobnicate"}, "unknown command frobnicate"},
        {{"power", "--on"}, "unknown option --on"},
        {{"test"}, "a command is missing: colour, pattern, stop"},
        {{"show", "--fnot", "3"}, "unknown option --fnot (did you mean --font?)"},
        {{"show", "x", "--fnot=3", "--none", "y"}, "unknown options --fnot (did you mean --font?), --none"},
        {{"--timout", "50", "blank"}, "unknown option --timout (did you mean --timeout?)"},
        {{"playlist", "add", "--lst", "x"}, "unknown option --lst (did you mean --list?)"},
        {{"show", "x", "-5 C"}, "unknown option -5 C (what begins with a dash and is no option stands behind \"--\")"},
        {{"show", "a", "b", "c"}, "'b' 'c' are too much"},
        {{"show"}, "TEXT is required"},
        {{"show", "x", "--font"}, "--font: its value is missing"},
        {{"show", "x", "--font", "1", "--font", "2"}, "--font is there more than once"},
        {{"-s"}, "--sign: its value is missing"},
    };
    for (const auto& row : rows) {
        CommandLine line;
        try {
            line.Parse(row.words);
            ADD_FAILURE() << row.printed;
        } catch (const CLI::ParseError& error) {
            EXPECT_EQ(Complaint(line, error), row.printed);
        }
    }
}

TEST(Completion, OffersWhatMayFollow)
{
    const PrintedRow rows[] = {
        {{"pla"},
         "play Play the next or previous file, pause, continue, replay, or play a file at once\n"
         "playing Show which file plays, and which one is next\n"
         "playlist Edit, send and fetch play lists\n"
         "player Make and play programs of the player core\n"},
        {{"-s", "udp://127.0.0.1:9520", "--json", "zone", "o"},
         "on Show the pages of zones\noff Go back to the play list\n"},
        {{"help", "video", "mpu", "ph"}, "phase Set the phase of an input\n"},
        {{"playlist", "mv", "/a", "d"}, "down towards the start, or the end\n"},
        {{"playlist", "add", "--st"}, "--stay seconds that a picture stays\n"},
        {{"playlist", "ls", "--li"}, "--list the list\n"},
        {{"show", "--drive", ""},
         "E E, or auto: F where the sign has it, else D\n"
         "auto E, or auto: F where the sign has it, else D\n"},
        {{"put", "a"}, ":file\n"},
        {{"put", "a", "D"}, ""},
        {{"files", "a", "b", ""}, ":file\n"},
        {{"show", "x", "--stay", ""}, ""},
        {{"nothing", ""}, ""},
        {{}, ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Complete(row.words), row.printed);
}

} // namespace
} // namespace vxctl::test
