// extra wifi: the Wi-Fi module among the extra boards.
#include "vxctl/cli/answer.h"
#include "vxctl/cli/tables.h"

#include <vxsign/extra.h>

#include <algorithm>
#include <array>
#include <vector>

namespace vxctl {

namespace {

// The usual block: mode and channel, then name and key of up to 20 characters.
constexpr std::size_t kWifiSize = 44;
constexpr std::size_t kWifiName = 4;
constexpr std::size_t kWifiKey = 24;
constexpr std::size_t kLongestName = 20;
constexpr std::string_view kWifiModes[] = {"off", "ap", "station"};

using WifiBlock = std::array<std::uint8_t, kWifiSize>;

WifiBlock ReadWifi()
{
    WifiBlock block{};
    Check(vxExtraWifiGetInfo(block.data()));
    return block;
}

std::string TextAt(const WifiBlock& block, std::size_t at)
{
    const auto* const begin = block.begin() + at;
    return {begin, std::find(begin, begin + kLongestName, 0)};
}

std::uint32_t ShowWifi(Session& session, const Args& /*args*/)
{
    const WifiBlock block = ReadWifi();
    Report& report = session.report;
    report.Code("mode", "mode", kWifiModes, block[0]);
    report.Value("channel", "channel", block[1]);
    const std::string name = TextAt(block, kWifiName);
    report.ValueOrNull("name", "name", name, "none");
    report.Value("key", "hasKey", !TextAt(block, kWifiKey).empty(), TextAt(block, kWifiKey).empty() ? "none" : "set");
    return VX_OK;
}

void PutText(WifiBlock& block, std::size_t at, const std::string& text, const char* option)
{
    if (text.size() > kLongestName)
        throw UsageError(std::string(option) + " takes 20 characters at most");
    std::fill_n(block.begin() + at, kLongestName, std::uint8_t{0});
    std::copy(text.begin(), text.end(), block.begin() + at);
}

// What is given goes into the block.
void ChangeWifi(WifiBlock& block, const Args& args)
{
    if (args.Has("--mode"))
        block[0] = static_cast<std::uint8_t>(args.Choice("--mode"));
    if (args.Has("--channel"))
        block[1] = args.Number<std::uint8_t>("--channel");
    if (args.Has("--name"))
        PutText(block, kWifiName, args.Text("--name"), "--name");
    if (args.Has("--key"))
        PutText(block, kWifiKey, args.Text("--key"), "--key");
}

std::uint32_t SetWifi(Session& /*session*/, const Args& args)
{
    if (args.Has("--raw"))
        return vxExtraWifiSetInfo(args.Bytes("--raw").data());
    if (!args.Has("--mode") && !args.Has("--channel") && !args.Has("--name") && !args.Has("--key"))
        throw UsageError("takes what is to change: --mode, --channel, --name, --key, or --raw");
    WifiBlock block{};
    ChangeWifi(block, args); // refused before anything is sent
    block = ReadWifi();
    ChangeWifi(block, args);
    return vxExtraWifiSetInfo(block.data());
}

std::uint32_t UnlockWifi(Session& session, const Args& args)
{
    const std::string key = args.Has("KEY") ? args.Text("KEY") : Ask("key: ", Echo::kOff);
    if (key.size() > UINT8_MAX)
        throw UsageError("a key has 255 bytes at most");
    std::uint32_t answer = 0;
    const std::vector<std::uint8_t> bytes(key.begin(), key.end());
    static constexpr std::uint8_t kNothing = 0;
    Check(
        vxExtraWifiUnlock(bytes.empty() ? &kNothing : bytes.data(), static_cast<std::uint8_t>(bytes.size()), &answer));
    session.report.Value("answer", "answer", answer);
    return VX_OK;
}

const Command kCommands[] = {
    {
        .name = "extra wifi",
        .help = "Show, change, unlock or reset the Wi-Fi module",
        .details = "The block is read in the usual layout.",
        .examples = R"(vxctl extra wifi show
vxctl extra wifi set --name ROADSIDE)",
    },
    {
        .name = "extra wifi show",
        .help = "Show the settings",
        .signs = Signs::kMany,
        .run = ShowWifi,
    },
    {
        .name = "extra wifi set",
        .help = "Change the settings of the module",
        .details =
            R"(Reads the settings and changes those named, in the usual layout; --raw sends a block as it is. A module with a key
wants to be unlocked first.)",
        .examples = R"(vxctl extra wifi set --mode ap --name ROADSIDE --key "a new key"
vxctl extra wifi set --key "")",
        .arguments = {Choice("--mode", "off|ap|station", "access point, station, or neither"),
                      Number("--channel", 0, 255, "the radio channel"), Text("--name", "name of the network"),
                      Text("--key", "key of the module; \"\" for none"),
                      Hex("--raw", kWifiSize, kWifiSize, "44 bytes").Excludes("--mode --channel --name --key")},
        .signs = Signs::kMany,
        .run = SetWifi,
    },
    {
        .name = "extra wifi unlock",
        .help = "Unlock the module with its key",
        .details =
            "Asks for the key when there is none. What the answer means is the module's; 1 is often that it is open.",
        .examples = "vxctl extra wifi unlock <key.txt",
        .arguments = {Text("KEY", "up to 255 bytes").Optional()},
        .run = UnlockWifi,
    },
    {
        .name = "extra wifi reset",
        .help = "Start the module again",
        .signs = Signs::kMany,
        .run = [](Session&, const Args&) { return vxExtraWifiReset(); },
    },
};

} // namespace

const CommandTable kWifiCommands{"Boards", kCommands};

} // namespace vxctl
