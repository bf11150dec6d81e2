// test, ticker: what the sign shows beside its content.
#include "vxctl/cli/encoding.h"
#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/progressBar.h"
#include "vxctl/cli/tables.h"
#include "vxctl/show/showCodes.h"

#include <vxsign/test.h>
#include <vxsign/ticker.h>

#include <limits>
#include <vector>

namespace vxctl {

namespace {

constexpr std::uint32_t kLastCode = std::numeric_limits<std::uint8_t>::max();

std::uint32_t TestColour(Session& /*session*/, const Args& args)
{
    const std::uint32_t code = ParseColour(args.Text("COLOUR"));
    if (code <= kLastCode)
        throw UsageError("'" + args.Text("COLOUR") + "' is a code of the sign: a test takes a name or #RRGGBB");
    return vxColorTest(static_cast<std::uint8_t>(code >> 8U), static_cast<std::uint8_t>(code >> 16U),
                       static_cast<std::uint8_t>(code >> 24U));
}

std::uint32_t RunTicker(Session& session, const Args& args)
{
    const std::uint32_t colour = ParseColour(args.Text("--colour"));
    if (colour > kLastCode)
        throw UsageError("'" + args.Text("--colour") +
                         "' is no code of the sign: a ticker takes a character, or 48 to 255");
    const std::vector<std::uint8_t> file = ReadWhole(args.Text("FILE"));
    const std::string text =
        Encoded({reinterpret_cast<const char*>(file.data()), file.size()}, EncodingFor(session, args));
    const ProgressBar bar("ticker", session.report.IsForPrograms());
    Check(vxTickerStart(args.Number<std::uint8_t>("--speed"), static_cast<std::uint8_t>(ParseFont(args.Text("--font"))),
                        static_cast<std::uint8_t>(colour)));
    Check(vxUploadBuffer(reinterpret_cast<const std::uint8_t*>(text.data()), static_cast<std::uint32_t>(text.size())));
    session.report.Put("bytes", text.size());
    return VX_OK;
}

std::uint32_t Ticker(Session& session, const Args& args)
{
    if (!args.Has("--stop") && !args.Has("FILE"))
        throw UsageError("takes a file, or --stop");
    return args.Has("--stop") ? vxTickerStop() : RunTicker(session, args);
}

const Command kCommands[] = {
    {
        .name = "test",
        .help = "Show a test on the face until it is stopped",
        .examples = R"(vxctl test colour "#FF8000"
vxctl test pattern 8
vxctl test stop)",
    },
    {
        .name = "test colour",
        .help = "Show the whole face in one colour",
        .examples = R"(vxctl test colour red
vxctl test colour "#102030")",
        .arguments = {Of(kColourCode, "COLOUR", "a name or #RRGGBB")},
        .signs = Signs::kMany,
        .run = TestColour,
    },
    {
        .name = "test pattern",
        .help = "Show a test pattern of the sign",
        .details = "What a pattern looks like is the sign's own; 9 ends the test.",
        .examples = "vxctl test pattern 8",
        .arguments = {Number("N", 2, 15, "the pattern")},
        .signs = Signs::kMany,
        .run = [](Session&, const Args& args) { return vxPatternTest(args.Number<std::uint8_t>("N")); },
    },
    {
        .name = "test stop",
        .help = "End the test, whichever it is",
        .examples = "vxctl test stop",
        .signs = Signs::kMany,
        .run = [](Session&, const Args&) { return vxStopTest(); },
    },
    {
        .name = "ticker",
        .help = "Run the contents of a file over the face",
        .details =
            R"(The file goes over as it is: most signs take UTF-8 text of up to 16384 bytes. With --encoding it is a text of UTF-8, and goes
over in that encoding. --stop ends the ticker.)",
        .examples = R"(vxctl ticker news.txt
vxctl ticker --speed 12 --colour 2 news.txt
vxctl ticker --stop)",
        .arguments = {ReadFile("FILE", "what is to run").Optional(),
                      Number("--speed", 0, 255, "steps of the sign, 0 for its own choice").Default("0"),
                      Of(kFontCode, "--font", "a character or its code, 48 to 169").Default("1"),
                      Of(kColourCode, "--colour,--color", "a code of the sign: a character, or 48 to 255").Default("1"),
                      kEncoding, Flag("--stop", "end the ticker").Excludes("FILE")},
        .signs = Signs::kMany,
        .run = Ticker,
    },
};

} // namespace

const CommandTable kTestCommands{"Tests and tickers", kCommands};

} // namespace vxctl
