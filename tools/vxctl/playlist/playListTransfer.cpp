// playlist: saving and importing a list, sending and fetching it.
#include "vxctl/cli/progressBar.h"
#include "vxctl/cli/tables.h"
#include "vxctl/playlist/playList.h"

namespace vxctl {

namespace {

namespace fs = std::filesystem;

std::uint32_t Save(Session& /*session*/, const Args& args)
{
    const std::string& name = args.Text("NAME");
    if (name.find_first_of("/\\") != std::string::npos)
        throw UsageError("a copy stays in the folder of the list, beside its files");
    std::string source = PlayList::Open(args.Text("--list")).File().string();
    const fs::path target = fs::path(source).parent_path() / name;
    std::error_code error;
    if (fs::exists(target, error))
        throw UsageError(target.string() + " is there already");
    PlayList copy = PlayList::OpenOrMake(target);
    Check(vxLoadSYSFromXML(source.data()));
    copy.Save();
    return VX_OK;
}

std::uint32_t Import(Session& /*session*/, const Args& args)
{
    const std::string& source = args.Text("FILE");
    PlayList list = PlayList::OpenOrMake(args.Text("--list"));
    Check(vxPLDelItem(std::string("/").data(), 0, UINT16_MAX));
    Check((args.Has("--sequence") ? vxLoadSYSFromLED : vxLoadPLSFromPC)(source.c_str()));
    if (list.Level("/")->empty())
        throw UsageError(source + " is no play list, or an empty one");
    list.Save();
    return VX_OK;
}

std::uint32_t Send(Session& session, const Args& args)
{
    const PlayList list = PlayList::Open(args.Text("--list"));
    const ProgressBar bar("send " + args.Text("--list"), session.report.IsJson());
    const std::int8_t withFiles = args.Has("--list-only") ? 0 : 1;
    return args.Has("--index") ? vxPLSpeSendToLED(args.Number<std::uint8_t>("--index"), withFiles)
                               : vxPLSendToLED(withFiles);
}

std::uint32_t Fetch(Session& session, const Args& args)
{
    PlayList list = PlayList::OpenOrMake(args.Text("--list"));
    const ProgressBar bar("fetch " + args.Text("--list"), session.report.IsJson());
    Check(vxPLReadFromLED(args.Has("--list-only") ? 0 : 1));
    list.Save();
    session.report.Value("entries", "entries", list.Level("/")->size());
    return VX_OK;
}

constexpr Argument kListOnly = Flag("--list-only", "without the files");

const Command kCommands[] = {
    {
        .name = "playlist save",
        .help = "Save the list under another name beside it",
        .examples = "vxctl playlist save summer.xml",
        .arguments = {Text("NAME", "the new file, in the folder of the list")},
        .line = Line::kNone,
        .run = Save,
    },
    {
        .name = "playlist import",
        .help = "Take over a play list of another program, or a sign's own file",
        .details =
            R"(The list is made if it is not there, and replaced if it is. The files that the other list names are copied
beside it. --sequence reads a sign's sequence file, such as SEQUENT.SYS, whose files are to be there already.)",
        .examples = R"(vxctl playlist import old.pls
vxctl playlist import --sequence SEQUENT.SYS)",
        .arguments = {ReadFile("FILE", "the other list"), Flag("--sequence", "it is a sequence file of a sign")},
        .line = Line::kNone,
        .run = Import,
    },
    {
        .name = "playlist send",
        .help = "Send the list and the files that the sign does not have yet",
        .details = "The list plays at once, or goes to a numbered place with --index.",
        .examples = R"(vxctl playlist send
vxctl -s udp://192.168.1.50 playlist send --index 3)",
        .arguments = {Number("--index", 0, 255, "the number of the list on the sign").In("N"), kListOnly},
        .signs = Signs::kMany,
        .run = Send,
    },
    {
        .name = "playlist fetch",
        .help = "Fetch the list that the sign plays, and its files",
        .details = "The list is made if it is not there, and replaced if it is. Files that are the same already stay.",
        .examples = "vxctl playlist -l fetched/list.xml fetch",
        .arguments = {kListOnly},
        .run = Fetch,
    },
};

} // namespace

const CommandTable kPlayListTransferCommands{"Play lists", kCommands};

} // namespace vxctl
