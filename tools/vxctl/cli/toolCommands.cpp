// help, completion: what the tool says of itself.
#include "vxctl/cli/runner.h"
#include "vxctl/cli/tables.h"
#include "vxctl/completion/scripts.h"

namespace vxctl {

namespace {

std::uint32_t Help(Session& session, const Args& args)
{
    std::string name;
    for (const std::string& word : args.List("COMMAND"))
        name.append(name.empty() ? "" : " ").append(word);
    const std::string help = HelpOf(name);
    session.report.Lines(help);
    session.report.Put("help", help);
    return VX_OK;
}

std::uint32_t PrintCompletion(Session& session, const Args& args)
{
    constexpr std::string_view kScripts[] = {kBashCompletion, kZshCompletion, kFishCompletion};
    const std::string_view script = kScripts[args.Choice("SHELL")];
    session.report.Lines(script);
    session.report.Put("script", script);
    return VX_OK;
}

const Command kCommands[] = {
    {
        .name = "help",
        .help = "Print all about a command, with examples",
        .examples = R"(vxctl help
vxctl help playlist add)",
        .arguments = {Text("COMMAND", "the command, with its families ahead").Optional().Repeated()},
        .line = Line::kNone,
        .run = Help,
    },
    {
        .name = "completion",
        .help = "Print the script with which a shell completes commands",
        .details =
            "An installed vxctl has them where the shells look. Otherwise the shell reads the script at its start.",
        .examples = R"(source <(vxctl completion bash)
vxctl completion fish >~/.config/fish/completions/vxctl.fish)",
        .arguments = {Choice("SHELL", "bash|zsh|fish", "the shell")},
        .line = Line::kNone,
        .run = PrintCompletion,
    },
};

} // namespace

const CommandTable kToolCommands{"The tool", kCommands};

} // namespace vxctl
