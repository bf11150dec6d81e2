#include "vxctl/cli/answer.h"
#include "vxctl/cli/command.h"
#include "vxctl/cli/numbers.h"
#include "vxctl/cli/textTable.h"

#include <vxsign/extra.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <vector>

namespace vxctl {

namespace {

constexpr const char* kGroup = "Boards";
constexpr std::uint32_t kLastBoard = 255;
constexpr std::size_t kCollectSize = 8;
constexpr std::size_t kOutputs = 16;
constexpr std::size_t kCollected = 38;
constexpr std::size_t kInputRecord = 68;
constexpr std::size_t kWifiSize = 44;

// The Wi-Fi block as vxsim has it: mode and channel, then name and key of up to 20 characters.
constexpr std::size_t kWifiName = 4;
constexpr std::size_t kWifiKey = 24;
constexpr std::size_t kLongestName = 20;
constexpr std::array kWifiModes = {"off", "ap", "station"};

using WifiBlock = std::array<std::uint8_t, kWifiSize>;

CLI::Option* AddBoard(CLI::App& command, std::uint32_t& board)
{
    return AddNumber(command, "BOARD", board, 0, kLastBoard, "number of the board")->required();
}

void ShowBlock(Report& report, const std::uint8_t* bytes, std::size_t size)
{
    report.Put("bytes", FormatHex(bytes, size, ""));
    for (std::size_t at = 0; at < size; at += 16)
        report.Line(FormatWord(static_cast<std::uint32_t>(at), 2) + "  " +
                    FormatHex(bytes + at, std::min<std::size_t>(16, size - at)));
}

void ShowCollected(Session& session, std::uint32_t board)
{
    std::array<std::uint8_t, kCollected> block{};
    session.Connect();
    Check(vxExtraCollectRead(block.data(), static_cast<std::uint8_t>(board)));
    const auto field = [&](std::size_t at) { return static_cast<std::int16_t>(block.at(at) | block.at(at + 1) << 8); };
    Report& report = session.report;
    const auto degrees = [&](const char* name, const char* key, std::size_t at) {
        const int tenths = field(at);
        const std::string text = std::string(tenths < 0 ? "-" : "") + std::to_string(std::abs(tenths) / 10) + "." +
                                 std::to_string(std::abs(tenths) % 10) + " C";
        report.Value(name, key, tenths / 10.0, text);
    };
    degrees("outside", "outside", 0);
    degrees("inside", "inside", 2);
    degrees("hottest tile", "hottestTile", 4);
    report.Value("humidity", "humidity", field(6), std::to_string(field(6)) + " %");
    report.Value("light", "light", field(8), std::to_string(field(8)) + " of 8");
    ShowBlock(report, block.data(), block.size());
}

void ShowInputs(Session& session, std::uint32_t board)
{
    std::array<std::uint8_t, kInputRecord> block{};
    session.Connect();
    Check(vxExtraIORead(block.data(), static_cast<std::uint8_t>(board)));
    TextTable table({{"number", true}, {"input", true}, {"output", true}});
    for (std::size_t i = 0; i < kOutputs; ++i)
        table.Add({std::to_string(i), std::to_string(+block.at(i)), std::to_string(+block.at(kOutputs + i))});
    table.Show(session.report, "lines");
    ShowBlock(session.report, block.data(), block.size());
}

struct Wanted
{
    std::uint32_t board = 0;
    std::vector<std::string> changes; // of outputs
    std::string outputs;
    std::string collect;
};

// "3=on" into the block.
void ChangeOutput(const std::string& text, std::uint8_t* outputs)
{
    const std::size_t equals = text.find('=');
    const auto number = ParseNumber(text.substr(0, equals));
    const std::string state = equals == std::string::npos ? "" : text.substr(equals + 1);
    if (!number || *number >= kOutputs || (state != "on" && state != "off"))
        throw UsageError("'" + text + "' is no output such as 3=on, the outputs being 0 to 15");
    outputs[*number] = state == "on" ? 1 : 0;
}

void Set(Session& session, const Wanted& wanted)
{
    const auto board = static_cast<std::uint8_t>(wanted.board);
    if (!wanted.collect.empty()) {
        const auto block = HexArgument(wanted.collect, "--collect", kCollectSize, kCollectSize);
        session.Connect();
        return Check(vxExtraCollectCtrl(block.data(), board));
    }
    if (!wanted.outputs.empty()) {
        const auto block = HexArgument(wanted.outputs, "--outputs", kOutputs, kOutputs);
        session.Connect();
        return Check(vxExtraIOCtrl(block.data(), board));
    }
    std::array<std::uint8_t, kInputRecord> block{};
    for (const std::string& change : wanted.changes)
        ChangeOutput(change, block.data()); // refused before anything is sent
    session.Connect();
    Check(vxExtraIORead(block.data(), board));
    for (const std::string& change : wanted.changes)
        ChangeOutput(change, block.data() + kOutputs);
    Check(vxExtraIOCtrl(block.data() + kOutputs, board));
}

void AddSet(CLI::App& extra, Session& session)
{
    CLI::App* const command = AddCommand(
        extra,
        {kGroup, "set", "Set outputs of a board, or its collection",
         R"(OUTPUT=on and OUTPUT=off read the outputs first and change those named, as vxsim lays them out: 16 bytes from byte 16
of what io reads. --outputs and --collect send bytes as they are.

Examples:
  vxctl extra set 3 0=on 5=off
  vxctl extra set 3 --outputs "01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00"
  vxctl extra set 3 --collect "01 00 00 00 00 00 00 00")"});
    const auto wanted = std::make_shared<Wanted>();
    AddBoard(*command, wanted->board);
    CLI::Option* const changes = command->add_option("OUTPUT=STATE", wanted->changes, "on or off");
    CLI::Option* const outputs = command->add_option("--outputs", wanted->outputs, "16 bytes");
    CLI::Option* const collect = command->add_option("--collect", wanted->collect, "8 bytes");
    outputs->type_name("HEX")->excludes(changes);
    collect->type_name("HEX")->excludes(changes)->excludes(outputs);
    command->callback([&session, wanted] {
        if (wanted->changes.empty() && wanted->outputs.empty() && wanted->collect.empty())
            throw UsageError("extra set takes outputs such as 3=on, or --outputs, or --collect");
        Set(session, *wanted);
    });
}

WifiBlock ReadWifi(const Session& session)
{
    session.Connect();
    WifiBlock block{};
    Check(vxExtraWifiGetInfo(block.data()));
    return block;
}

std::string TextAt(const WifiBlock& block, std::size_t at)
{
    const auto* const begin = block.begin() + at;
    return {begin, std::find(begin, begin + kLongestName, 0)};
}

void ShowWifi(Session& session)
{
    const WifiBlock block = ReadWifi(session);
    Report& report = session.report;
    report.Value("mode", "mode", block[0] < kWifiModes.size() ? kWifiModes.at(block[0]) : std::to_string(+block[0]));
    report.Value("channel", "channel", block[1]);
    const std::string name = TextAt(block, kWifiName);
    report.Value("name", "name", name, name.empty() ? "none" : name);
    report.Value("key", "hasKey", !TextAt(block, kWifiKey).empty(), TextAt(block, kWifiKey).empty() ? "none" : "set");
}

struct WifiSettings
{
    std::string mode;
    std::uint32_t channel = 0;
    std::string name;
    std::string key;
    std::string raw;
};

void PutText(WifiBlock& block, std::size_t at, const std::string& text, const char* option)
{
    if (text.size() > kLongestName)
        throw UsageError(std::string(option) + " takes 20 characters at most");
    std::fill_n(block.begin() + at, kLongestName, std::uint8_t{0});
    std::copy(text.begin(), text.end(), block.begin() + at);
}

void AddWifiSet(CLI::App& wifi, Session& session)
{
    CLI::App* const command = AddCommand(
        wifi,
        {kGroup, "set", "Change the settings of the module",
         R"(Reads the settings and changes those named, as vxsim lays them out; --raw sends a block as it is. A module with a key
wants to be unlocked first.

Examples:
  vxctl extra wifi set --mode ap --name ROADSIDE --key "a new key"
  vxctl extra wifi set --key "")"});
    const auto wanted = std::make_shared<WifiSettings>();
    CLI::Option* const mode = command->add_option("--mode", wanted->mode, "off, ap or station");
    mode->check(CLI::IsMember({"off", "ap", "station"}));
    CLI::Option* const channel = AddNumber(*command, "--channel", wanted->channel, 0, 255, "the radio channel");
    CLI::Option* const name = command->add_option("--name", wanted->name, "name of the network");
    CLI::Option* const key = command->add_option("--key", wanted->key, "key of the module; \"\" for none");
    CLI::Option* const raw = command->add_option("--raw", wanted->raw, "44 bytes")->type_name("HEX");
    for (CLI::Option* const field : {mode, channel, name, key})
        raw->excludes(field);
    command->callback([=, &session] {
        WifiBlock block{};
        if (raw->count() != 0) {
            const auto bytes = HexArgument(wanted->raw, "--raw", kWifiSize, kWifiSize);
            session.Connect();
            return Check(vxExtraWifiSetInfo(bytes.data()));
        }
        if (mode->count() + channel->count() + name->count() + key->count() == 0)
            throw UsageError("extra wifi set takes what is to change: --mode, --channel, --name, --key, or --raw");
        PutText(block, kWifiName, wanted->name, "--name"); // refused before anything is sent
        PutText(block, kWifiKey, wanted->key, "--key");
        block = ReadWifi(session);
        if (mode->count() != 0)
            block[0] = static_cast<std::uint8_t>(std::find(kWifiModes.begin(), kWifiModes.end(), wanted->mode) -
                                                 kWifiModes.begin());
        if (channel->count() != 0)
            block[1] = static_cast<std::uint8_t>(wanted->channel);
        if (name->count() != 0)
            PutText(block, kWifiName, wanted->name, "--name");
        if (key->count() != 0)
            PutText(block, kWifiKey, wanted->key, "--key");
        Check(vxExtraWifiSetInfo(block.data()));
    });
}

void AddWifiUnlock(CLI::App& wifi, Session& session)
{
    CLI::App* const command = AddCommand(
        wifi,
        {kGroup, "unlock", "Unlock the module with its key",
         R"(Asks for the key when there is none. What the answer means is the module's; vxsim says 1 when it is open.

Example:
  vxctl extra wifi unlock <key.txt)"});
    const auto key = std::make_shared<std::string>();
    CLI::Option* const given = command->add_option("KEY", *key, "up to 255 bytes");
    command->callback([&session, key, given] {
        if (given->count() == 0)
            *key = Ask("key: ", Echo::kOff);
        if (key->size() > UINT8_MAX)
            throw UsageError("a key has 255 bytes at most");
        session.Connect();
        std::uint32_t answer = 0;
        const std::vector<std::uint8_t> bytes(key->begin(), key->end());
        static constexpr std::uint8_t kNothing = 0;
        Check(vxExtraWifiUnlock(bytes.empty() ? &kNothing : bytes.data(), static_cast<std::uint8_t>(bytes.size()),
                                &answer));
        session.report.Value("answer", "answer", answer);
    });
}

void AddWifi(CLI::App& extra, Session& session)
{
    CLI::App* const wifi = AddCommand(extra, {kGroup, "wifi", "Show, change, unlock or reset the Wi-Fi module",
                                              R"(The block is read as vxsim lays it out.

Examples:
  vxctl extra wifi show
  vxctl extra wifi set --name ROADSIDE)"});
    wifi->require_subcommand(1);
    AddCommand(*wifi, {kGroup, "show", "Tell the settings", ""})->callback([&session] { ShowWifi(session); });
    AddWifiSet(*wifi, session);
    AddWifiUnlock(*wifi, session);
    AddCommand(*wifi, {kGroup, "reset", "Start the module again", ""})->callback([&session] {
        session.Connect();
        Check(vxExtraWifiReset());
    });
}

void AddRead(CLI::App& extra, Session& session, const CommandText& text, void (*show)(Session&, std::uint32_t))
{
    CLI::App* const command = AddCommand(extra, text);
    const auto board = std::make_shared<std::uint32_t>(0);
    AddBoard(*command, *board);
    command->callback([&session, board, show] { show(session, *board); });
}

} // namespace

void AddExtraCommands(CLI::App& app, Session& session)
{
    CLI::App* const extra =
        AddCommand(app, {kGroup, "extra", "Read and set the extra boards behind the control board",
                         R"(The blocks of the boards are shown as vxsim lays them out, and byte by byte.

Examples:
  vxctl extra read 0
  vxctl extra io 0
  vxctl extra set 0 3=on
  vxctl extra wifi show)"});
    extra->require_subcommand(1);
    AddRead(*extra, session, {kGroup, "read", "Tell what a board has collected", ""}, ShowCollected);
    AddRead(*extra, session, {kGroup, "io", "Tell the inputs and outputs of a board", ""}, ShowInputs);
    AddSet(*extra, session);
    AddWifi(*extra, session);
}

} // namespace vxctl
