#include "vxctl/cli/command.h"
#include "vxctl/cli/numbers.h"
#include "vxctl/cli/progressBar.h"

#include <vxsign/video.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <memory>
#include <sstream>
#include <string_view>
#include <thread>

namespace vxctl {

namespace {

constexpr const char* kGroup = "Boards";
constexpr std::uint32_t kByte = 255;
constexpr std::uint32_t kWord = 65535;
constexpr std::uint8_t kDone = 100;
constexpr std::chrono::milliseconds kStep{100};

using Values = std::array<std::uint32_t, 4>;

std::uint8_t Byte(std::uint32_t value)
{
    return static_cast<std::uint8_t>(value);
}

std::uint16_t Word(std::uint32_t value)
{
    return static_cast<std::uint16_t>(value);
}

// A command that sends its numbers and asks for nothing. A name in brackets may be left out and is then 0.
struct Setter
{
    const char* name;
    const char* description;
    const char* values;
    std::uint32_t least;
    std::uint32_t most;
    std::uint32_t (*send)(const Values& v);
};

constexpr Setter kMpu[] = {
    {"channel", "Select a channel", "CHANNEL [SECOND]", 0, kByte,
     [](const Values& v) { return vxMPUSelChannel(Byte(v[0]), Byte(v[1])); }},
    {"channel-ex", "Select a channel, the newer command", "CHANNEL [SECOND]", 0, kByte,
     [](const Values& v) { return vxMPUSelChannelEx(Byte(v[0]), Byte(v[1])); }},
    {"arg", "Set an argument of the picture", "FIRST SECOND", 0, kByte,
     [](const Values& v) { return vxMPUSetVideoArg(Byte(v[0]), Byte(v[1])); }},
    {"outputs", "Set the HDMI and DP outputs", "FIRST SECOND", 0, kByte,
     [](const Values& v) { return vxMPUSetHDMI_DP_Out(Byte(v[0]), Byte(v[1])); }},
    {"phase", "Set the phase of an input", "FIRST SECOND", 0, kByte,
     [](const Values& v) { return vxMPUSetINBPhase(Byte(v[0]), Byte(v[1])); }},
};

constexpr Setter kVpu[] = {
    {"channel", "Select a channel", "CHANNEL", 0, kByte, [](const Values& v) { return vxVPUSelChannel(Byte(v[0])); }},
    {"mode", "Set the mode", "MODE [SECOND]", 0, kByte,
     [](const Values& v) { return vxVPUSetMode(Byte(v[0]), Byte(v[1])); }},
    {"ratio", "Set the ratio of the picture", "RATIO", 0, kByte,
     [](const Values& v) { return vxVPUSetVideoRatio(Byte(v[0])); }},
    {"dvi", "Set the DVI window", "FIRST SECOND", 0, kWord,
     [](const Values& v) { return vxVPUSetDVIWin(Word(v[0]), Word(v[1])); }},
    {"window", "Set the video window", "FIRST SECOND", 0, kWord,
     [](const Values& v) { return vxVPUSetVideoWin(Word(v[0]), Word(v[1])); }},
    {"arg", "Set an argument of the picture", "FIRST SECOND", 0, kWord,
     [](const Values& v) { return vxVPUSetVideoArg(Word(v[0]), Word(v[1])); }},
    {"type", "Set the type of the VPU", "TYPE", 0, kByte, [](const Values& v) { return vxVPUType(Byte(v[0])); }},
    {"start-line", "Set the first line of the slaves", "LINE", 0, kWord,
     [](const Values& v) { return vxVPUSlaverStartLine(Word(v[0])); }},
    {"temperature", "Set the colour temperature", "FIRST SECOND THIRD FOURTH", 0, kByte,
     [](const Values& v) { return vxVPUSetColorTemp(Byte(v[0]), Byte(v[1]), Byte(v[2]), Byte(v[3])); }},
    {"gamma", "Set the gamma", "GAMMA", 0, kByte, [](const Values& v) { return vxVPUSetGamma(Byte(v[0])); }},
    {"ldus", "Set the number of LDUs", "COUNT", 0, kByte, [](const Values& v) { return vxVPUSetLDUNums(Byte(v[0])); }},
    {"ldu", "Set the place of an LDU", "FIRST SECOND THIRD", 0, kByte,
     [](const Values& v) { return vxVPUSetLDUPos(Word(v[0]), Word(v[1]), Word(v[2])); }},
    // The VPU takes mode 0 for a question.
    {"pixel-mode", "Set the mode of the pixels", "MODE", 1, kByte,
     [](const Values& v) { return vxVPUSetPixcelMode(Byte(v[0])); }},
};

void Add(CLI::App& processor, Session& session, const Setter& setter)
{
    CLI::App* const command = AddCommand(processor, {kGroup, setter.name, setter.description, ""});
    const auto values = std::make_shared<Values>();
    std::istringstream names(setter.values);
    std::string name;
    for (std::size_t i = 0; i < values->size() && names >> name; ++i) {
        const bool needed = name.front() != '[';
        name.erase(std::remove_if(name.begin(), name.end(), [](char c) { return c == '[' || c == ']'; }), name.end());
        AddNumber(*command, name, (*values)[i], setter.least, setter.most, "")->required(needed);
    }
    command->callback([&session, values, &setter] {
        session.Connect();
        Check(setter.send(*values));
    });
}

void AddEdid(CLI::App& mpu, Session& session)
{
    CLI::App* const command =
        AddCommand(mpu, {kGroup, "edid", "Set the EDID of an input",
                         "Example:\n  vxctl video mpu edid 1 \"00 FF FF FF FF FF FF 00 59 18 01 00 00 00 00\""});
    const auto input = std::make_shared<std::uint32_t>(0);
    const auto text = std::make_shared<std::string>();
    AddNumber(*command, "INPUT", *input, 0, kByte, "the input")->required();
    command->add_option("BYTES", *text, "15 bytes")->type_name("HEX")->required();
    command->callback([&session, input, text] {
        const auto edid = HexArgument(*text, "BYTES", 15, 15);
        session.Connect();
        Check(vxMPUSetEDID(Byte(*input), edid.data()));
    });
}

struct Window
{
    std::uint32_t number = 0;
    Values place{};
    std::uint32_t last = 1;
    std::uint32_t seconds = 60;
    bool wait = true;
};

// Asks until the MPU is at 100.
std::uint8_t AwaitTask(Session& session, std::uint32_t task, std::uint32_t seconds)
{
    const ProgressBar bar("window", session.report.IsJson());
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    std::uint8_t progress = 0;
    for (;;) {
        Check(vxMPUProgressByTaskID(task, &progress));
        ProgressBar::OnProgress(nullptr, 0, std::min(progress, kDone));
        if (progress >= kDone || std::chrono::steady_clock::now() >= end)
            return progress;
        std::this_thread::sleep_for(kStep);
    }
}

void SetWindow(Session& session, const Window& window)
{
    session.Connect();
    std::uint32_t task = 0;
    const auto& [left, top, width, height] = window.place;
    Check(vxMPUSetWin(Word(window.number), Word(left), Word(top), Word(width), Word(height), Byte(window.last), &task));
    session.report.Value("task", "task", task);
    if (!window.wait)
        return;
    const std::uint8_t progress = AwaitTask(session, task, window.seconds);
    session.report.Value("progress", "progress", progress, std::to_string(progress) + " %");
    if (progress < kDone)
        throw SignFailure(VX_TIME_LIMIT);
}

void AddWindow(CLI::App& mpu, Session& session)
{
    CLI::App* const command = AddCommand(
        mpu,
        {kGroup, "window", "Set a window, and wait until it is there",
         R"(The MPU takes a while; the wait ends when it tells 100. progress asks for the task of a window by its number.

Examples:
  vxctl video mpu window 0 16 4 64 24
  vxctl video mpu window 0 0 0 0 0 --last 0
  vxctl video mpu window 0 16 4 64 24 --no-wait)"});
    const auto window = std::make_shared<Window>();
    AddNumber(*command, "NUMBER", window->number, 0, kByte, "the window")->required();
    static constexpr std::array kNames = {"LEFT", "TOP", "WIDTH", "HEIGHT"};
    for (std::size_t i = 0; i < kNames.size(); ++i)
        AddNumber(*command, kNames.at(i), window->place.at(i), 0, kWord, "pixels")->required();
    AddNumber(*command, "--last", window->last, 0, kByte, "the last argument; vxsim hides the window for 0")
        ->default_str("1");
    AddNumber(*command, "--seconds", window->seconds, 1, 3600, "how long to wait")->default_str("60");
    command->add_flag("!--no-wait", window->wait, "end when the task has started");
    command->callback([&session, window] { SetWindow(session, *window); });
}

void AddProgress(CLI::App& mpu, Session& session)
{
    CLI::App* const command = AddCommand(mpu, {kGroup, "progress", "Tell the progress of a task", ""});
    const auto task = std::make_shared<std::uint32_t>(0);
    AddNumber(*command, "TASK", *task, 0, UINT32_MAX, "what window has told")->required();
    command->callback([&session, task] {
        session.Connect();
        std::uint8_t progress = 0;
        Check(vxMPUProgressByTaskID(*task, &progress));
        session.report.Value("progress", "progress", progress, std::to_string(progress) + " %");
    });
}

void AddBright(CLI::App& vpu, Session& session)
{
    CLI::App* const command = AddCommand(
        vpu,
        {kGroup, "bright", "Tell or set the brightness",
         R"(Four numbers, whose meaning is the VPU's; vxsim takes them for red, green, blue and all three, 255 being full.

Examples:
  vxctl video vpu bright
  vxctl video vpu bright 255 200 160 255)"});
    const auto levels = std::make_shared<std::vector<std::uint32_t>>();
    command->add_option("LEVELS", *levels, "four numbers")->expected(4)->check(CLI::Range(0U, kByte));
    command->callback([&session, levels] {
        session.Connect();
        if (!levels->empty()) {
            const auto& to = *levels;
            return Check(vxVPUSetBright(Byte(to[0]), Byte(to[1]), Byte(to[2]), Byte(to[3])));
        }
        std::array<std::uint8_t, 4> found{};
        Check(vxVPUGetBright(&found[0], &found[1], &found[2], &found[3]));
        std::string text;
        for (const unsigned level : found)
            text.append(text.empty() ? "" : " ").append(std::to_string(level));
        session.report.Value("brightness", "brightness", found, text);
    });
}

void ShowSignal(Session& session)
{
    session.Connect();
    std::array<std::uint16_t, 4> status{};
    Check(vxVPUGetSignalStatus(&status[0], &status[1], &status[2], &status[3]));
    std::ostringstream text;
    text << status[0] << ' ' << status[1] << ' ' << status[2] << ' ' << status[3];
    session.report.Value("signal", "signal", status, text.str());
}

void ShowInfo(Session& session)
{
    session.Connect();
    std::array<std::uint8_t, 24> info{};
    Check(vxVPUGetInfo(info.data()));
    session.report.Value("information", "info", FormatHex(info.data(), info.size(), ""),
                         FormatHex(info.data(), info.size()));
}

} // namespace

void AddVideoCommands(CLI::App& app, Session& session)
{
    CLI::App* const video =
        AddCommand(app, {kGroup, "video", "Steer the video processors in front of a sign",
                         R"(What a number means is the processor's; docs/vxsim-devices.md has the choices of vxsim.

Examples:
  vxctl video vpu channel 2
  vxctl video vpu signal
  vxctl video mpu window 0 16 4 64 24)"});
    video->require_subcommand(1);
    CLI::App* const mpu = AddCommand(*video, {kGroup, "mpu", "The MPU", ""});
    mpu->require_subcommand(1);
    for (const Setter& setter : kMpu)
        Add(*mpu, session, setter);
    AddEdid(*mpu, session);
    AddWindow(*mpu, session);
    AddProgress(*mpu, session);
    CLI::App* const vpu = AddCommand(*video, {kGroup, "vpu", "The VPU", ""});
    vpu->require_subcommand(1);
    for (const Setter& setter : kVpu)
        Add(*vpu, session, setter);
    AddBright(*vpu, session);
    AddCommand(*vpu, {kGroup, "signal", "Tell the state of the inputs, four numbers",
                      "With vxsim: channel, width, height and frames a second of its signal."})
        ->callback([&session] { ShowSignal(session); });
    AddCommand(*vpu, {kGroup, "info", "Tell what the VPU says of itself, 24 bytes", ""})->callback([&session] {
        ShowInfo(session);
    });
}

} // namespace vxctl
