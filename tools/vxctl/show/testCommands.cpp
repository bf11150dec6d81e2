#include "vxctl/cli/command.h"
#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/progressBar.h"
#include "vxctl/show/showCodes.h"

#include <vxsign/test.h>
#include <vxsign/ticker.h>

#include <limits>
#include <memory>
#include <vector>

namespace vxctl {

namespace {

constexpr const char* kGroup = "Tests and tickers";
constexpr std::uint32_t kLastCode = std::numeric_limits<std::uint8_t>::max();

void AddColourTest(CLI::App& test, Session& session)
{
    CLI::App* const command = AddCommand(test, {kGroup, "colour", "The whole face in one colour",
                                                "Examples:\n  vxctl test colour red\n  vxctl test colour \"#102030\""});
    const auto colour = std::make_shared<std::string>();
    command->add_option("COLOUR", *colour, "a name or #RRGGBB")->type_name("COLOUR")->required();
    command->callback([&session, colour] {
        const std::uint32_t code = ParseColour(*colour);
        if (code <= kLastCode)
            throw UsageError("'" + *colour + "' is a code of the sign: a test takes a name or #RRGGBB");
        session.Connect();
        Check(vxColorTest(static_cast<std::uint8_t>(code >> 8U), static_cast<std::uint8_t>(code >> 16U),
                          static_cast<std::uint8_t>(code >> 24U)));
    });
}

void AddPatternTest(CLI::App& test, Session& session)
{
    CLI::App* const command = AddCommand(test, {kGroup, "pattern", "A test pattern of the sign",
                                                R"(What a pattern looks like is the sign's own; 9 ends the test.

Example:
  vxctl test pattern 8)"});
    const auto pattern = std::make_shared<std::uint32_t>(0);
    AddNumber(*command, "N", *pattern, 2, 15, "the pattern")->required();
    command->callback([&session, pattern] {
        session.Connect();
        Check(vxPatternTest(static_cast<std::uint8_t>(*pattern)));
    });
}

void AddTest(CLI::App& app, Session& session)
{
    CLI::App* const test = AddCommand(app, {kGroup, "test", "Show a test on the face until it is stopped",
                                            R"(Examples:
  vxctl test colour "#FF8000"
  vxctl test pattern 8
  vxctl test stop)"});
    test->require_subcommand(1);
    AddColourTest(*test, session);
    AddPatternTest(*test, session);
    AddCommand(*test, {kGroup, "stop", "End the test, whichever it is", "Example:\n  vxctl test stop"})
        ->callback([&session] {
            session.Connect();
            Check(vxStopTest());
        });
}

struct Ticker
{
    std::string file;
    std::uint32_t speed = 0;
    std::string font = "1";
    std::string colour = "1";
    bool stop = false;
};

void Run(Session& session, const Ticker& ticker)
{
    const std::uint32_t font = ParseFont(ticker.font);
    const std::uint32_t colour = ParseColour(ticker.colour);
    if (colour > kLastCode)
        throw UsageError("'" + ticker.colour + "' is no code of the sign: a ticker takes a character, or 48 to 255");
    const std::vector<std::uint8_t> bytes = ReadWhole(ticker.file);
    const ProgressBar bar("ticker", session.report.IsJson());
    session.Connect(ProgressBar::OnProgress);
    Check(vxTickerStart(static_cast<std::uint8_t>(ticker.speed), static_cast<std::uint8_t>(font),
                        static_cast<std::uint8_t>(colour)));
    Check(vxUploadBuffer(bytes.data(), static_cast<std::uint32_t>(bytes.size())));
    session.report.Put("bytes", bytes.size());
}

void AddTicker(CLI::App& app, Session& session)
{
    CLI::App* const command = AddCommand(
        app, {kGroup, "ticker", "Run the contents of a file over the face",
              R"(The file goes over as it is; vxsim takes UTF-8 text of up to 16384 bytes. --stop ends the ticker.

Examples:
  vxctl ticker news.txt
  vxctl ticker --speed 12 --colour 2 news.txt
  vxctl ticker --stop)"});
    const auto ticker = std::make_shared<Ticker>();
    CLI::Option* const file = command->add_option("FILE", ticker->file, "what is to run")->check(ReadableFile());
    AddNumber(*command, "--speed", ticker->speed, 0, 255, "steps of the sign, 0 for its own choice")->default_str("0");
    command->add_option("--font", ticker->font, "a character or its code, 48 to 169")
        ->type_name("FONT")
        ->capture_default_str();
    command->add_option("--colour,--color", ticker->colour, "a code of the sign: a character, or 48 to 255")
        ->type_name("COLOUR")
        ->capture_default_str();
    command->add_flag("--stop", ticker->stop, "end the ticker")->excludes(file);
    command->callback([&session, ticker] {
        if (!ticker->stop && ticker->file.empty())
            throw UsageError("ticker takes a file, or --stop");
        if (!ticker->stop)
            return Run(session, *ticker);
        session.Connect();
        Check(vxTickerStop());
    });
}

} // namespace

void AddTestCommands(CLI::App& app, Session& session)
{
    AddTest(app, session);
    AddTicker(app, session);
}

} // namespace vxctl
