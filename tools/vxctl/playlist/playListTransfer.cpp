#include "vxctl/cli/command.h"
#include "vxctl/cli/progressBar.h"
#include "vxctl/playlist/playList.h"
#include "vxctl/playlist/playListCommands.h"

#include <memory>

namespace vxctl {

namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t kSignsOwnList = 256; // beyond the numbers of the others

void AddSave(CLI::App& app, const Session& session)
{
    CLI::App* const command = AddCommand(app, {"Edit", "save", "Save the list under another name beside it",
                                               "Example:\n  vxctl playlist save summer.xml"});
    const auto name = std::make_shared<std::string>();
    command->add_option("NAME", *name, "the new file, in the folder of the list")->type_name("NAME")->required();
    command->callback([&session, name] {
        if (name->find_first_of("/\\") != std::string::npos)
            throw UsageError("a copy stays in the folder of the list, beside its files");
        std::string source = PlayList::Open(session.options.playList).File().string();
        const fs::path target = fs::path(source).parent_path() / *name;
        std::error_code error;
        if (fs::exists(target, error))
            throw UsageError(target.string() + " is there already");
        PlayList copy = PlayList::OpenOrMake(target);
        Check(vxLoadSYSFromXML(source.data()));
        copy.Save();
    });
}

void AddImport(CLI::App& app, const Session& session)
{
    CLI::App* const command = AddCommand(
        app,
        {"Edit", "import", "Take over a play list of another program, or a sign's own file",
         R"(The list is made if it is not there, and replaced if it is. The files that the other list names are copied
beside it. --sequence reads a sign's sequence file, such as SEQUENT.SYS, whose files are to be there already.

Examples:
  vxctl playlist import old.pls
  vxctl playlist import --sequence SEQUENT.SYS)"});
    const auto source = std::make_shared<std::string>();
    const auto sequence = std::make_shared<bool>(false);
    command->add_option("FILE", *source, "the other list")->type_name("FILE")->required()->check(ReadableFile());
    command->add_flag("--sequence", *sequence, "it is a sequence file of a sign");
    command->callback([&session, source, sequence] {
        PlayList list = PlayList::OpenOrMake(session.options.playList);
        Check(vxPLDelItem(std::string("/").data(), 0, UINT16_MAX));
        Check((*sequence ? vxLoadSYSFromLED : vxLoadPLSFromPC)(source->c_str()));
        if (list.Level("/")->empty())
            throw UsageError(*source + " is no play list, or an empty one");
        list.Save();
    });
}

void AddSend(CLI::App& app, Session& session)
{
    CLI::App* const command =
        AddCommand(app, {"Transfer", "send", "Send the list and the files that the sign does not have yet",
                         R"(The list plays at once, or goes to a numbered place with --index.

Examples:
  vxctl playlist send
  vxctl -s udp://192.168.1.50 playlist send --index 3)"});
    const auto index = std::make_shared<std::uint32_t>(kSignsOwnList);
    const auto listAlone = std::make_shared<bool>(false);
    AddNumber(*command, "--index", *index, 0, 255, "the number of the list on the sign");
    command->add_flag("--list-only", *listAlone, "without the files");
    command->callback([&session, index, listAlone] {
        const PlayList list = PlayList::Open(session.options.playList);
        const ProgressBar bar("send " + session.options.playList, session.report.IsJson());
        session.Connect(ProgressBar::OnProgress);
        const std::int8_t withFiles = *listAlone ? 0 : 1;
        Check(*index == kSignsOwnList ? vxPLSendToLED(withFiles)
                                      : vxPLSpeSendToLED(static_cast<std::uint8_t>(*index), withFiles));
    });
}

void AddFetch(CLI::App& app, Session& session)
{
    CLI::App* const command = AddCommand(
        app, {"Transfer", "fetch", "Fetch the list that the sign plays, and its files",
              R"(The list is made if it is not there, and replaced if it is. Files that are the same already stay.

Example:
  vxctl playlist -l fetched/list.xml fetch)"});
    const auto listAlone = std::make_shared<bool>(false);
    command->add_flag("--list-only", *listAlone, "without the files");
    command->callback([&session, listAlone] {
        PlayList list = PlayList::OpenOrMake(session.options.playList);
        const ProgressBar bar("fetch " + session.options.playList, session.report.IsJson());
        session.Connect(ProgressBar::OnProgress);
        Check(vxPLReadFromLED(*listAlone ? 0 : 1));
        list.Save();
        session.report.Value("entries", "entries", list.Level("/")->size());
    });
}

} // namespace

void AddPlayListTransfer(CLI::App& app, Session& session)
{
    AddSave(app, session);
    AddImport(app, session);
    AddSend(app, session);
    AddFetch(app, session);
}

} // namespace vxctl
