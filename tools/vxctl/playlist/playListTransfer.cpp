// playlist: saving and importing a list, sending and fetching it.
#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/progressBar.h"
#include "vxctl/cli/tables.h"
#include "vxctl/files/announcedSize.h"
#include "vxctl/files/readBack.h"
#include "vxctl/playlist/fileList.h"
#include "vxctl/playlist/playList.h"

#include <vxsign/filesystem.h>
#include <vxsign/local.h>

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vxctl {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLongestFetched = 31; // of a path that the library fetches

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

// The path that the library gives a file of the list on the sign.
std::string SignPathOf(const VXPLAYLIST_FILE_INFO& info, const std::string& local, char drive)
{
    std::array<char, 64> path{};
    const std::uint32_t result =
        vxMakeSignPath(local.c_str(), path.data(), path.size(), static_cast<std::uint8_t>(drive), nullptr, nullptr);
    return result == VX_OK ? path.data() : std::string{drive, ':', '\\', info.Type, '\\'} + info.fileName;
}

// What is wrong with the sign's copy of a file of the list; a file that this PC lacks may be there all the same.
std::string Missing(const Session& session, const PlayList& list, const VXPLAYLIST_FILE_INFO& info, Depth depth)
{
    const std::string local = (list.Folder() / info.fileName).string();
    const std::string path = SignPathOf(info, local, DriveOfSign());
    std::error_code error;
    if (fs::is_regular_file(local, error))
        return Difference(session, {path}, local, depth);
    return IsDone(vxIsFileExist(path.c_str())) ? "" : "neither on this PC nor on the sign";
}

// What is wrong with this PC's copy of a file that the sign's list names. A part of it goes: the library looks at the
// beginning alone, and would not fetch it again. A name that leads elsewhere is not fetched.
std::string NotFetched(const Session& session, const PlayList& list, const VXPLAYLIST_FILE_INFO& info)
{
    const std::string name = info.fileName;
    const std::string path = (std::string{info.Drive, ':', '\\', info.Type, '\\'} + name).substr(0, kLongestFetched);
    std::uint32_t size = 0;
    if (name.find_first_of("/\\") != std::string::npos)
        return "";
    if (const std::uint32_t asked = AskSize(path, false, session.options.chunk, size); !IsDone(asked))
        return vxErrorDesc(asked);
    const fs::path local = list.Folder() / name;
    const std::uint32_t got = vxOSGetFileSize(local.string().c_str());
    if (got == size)
        return "";
    std::error_code error;
    fs::remove(local, error);
    return std::to_string(got) + " bytes of " + std::to_string(size) + " came";
}

// Tells of the files of the list that are not as they should be, and gives their names.
std::vector<std::string> TellOf(Session& session, const std::vector<VXPLAYLIST_FILE_INFO>& files,
                                const std::function<std::string(const VXPLAYLIST_FILE_INFO&)>& wrong)
{
    Report::Json missing = Report::Json::array();
    std::vector<std::string> names;
    for (const VXPLAYLIST_FILE_INFO& info : files) {
        const std::string why = wrong(info);
        if (why.empty())
            continue;
        names.emplace_back(info.fileName);
        missing.push_back({{"file", names.back()}, {"why", why}});
        session.report.Line(names.back() + ": " + why);
    }
    session.report.Put("missing", std::move(missing));
    session.report.Put("files", files.size());
    return names;
}

std::string HowMany(const std::vector<std::string>& names, const std::vector<VXPLAYLIST_FILE_INFO>& files)
{
    return std::to_string(names.size()) + " of " + std::to_string(files.size()) + " files";
}

// The library sends whatever it finds where it wanted to write the sign's form of the list: that must not be an old
// one, or the half that a full disk has taken.
void CheckRoom(const PlayList& list)
{
    std::error_code error;
    fs::remove(list.Folder() / "SEQ_PC.SYS", error);
    if (const std::string fault = FolderFault(list.Folder()); !fault.empty())
        throw SignFailure(VX_OPEN_FILE, fault);
}

// The library passes over a file that does not arrive, and the sign's file list names it all the same. So the sign is
// asked for each, and what it lacks is taken out of that list, so that the next sending repairs it.
void CheckArrival(Session& session, const PlayList& list, Depth depth)
{
    const std::vector<VXPLAYLIST_FILE_INFO> files = list.Files();
    const auto names =
        TellOf(session, files, [&](const VXPLAYLIST_FILE_INFO& info) { return Missing(session, list, info, depth); });
    if (names.empty())
        return;
    const char* const next = ForgetFiles(names) == VX_OK ? "the next sending tries them again"
                                                         : "the sign's file list has them all the same: try --all";
    throw SignFailure(VX_FAILED_OPERATION, HowMany(names, files) + " are not whole on the sign; " + next);
}

std::uint32_t Send(Session& session, const Args& args)
{
    std::optional<LinkedFile> linked;
    if (session.isOneOfMany && fs::exists(args.Text("--list")))
        linked.emplace(args.Text("--list"), Linked::kFolder);
    const PlayList list = PlayList::Open(linked ? linked->Path() : args.Text("--list"));
    const std::int8_t withFiles = args.Has("--list-only") ? 0 : 1;
    CheckRoom(list);
    std::uint32_t result = VX_OK;
    {
        const ProgressBar bar("send " + args.Text("--list"), session.report.IsForPrograms());
        session.leftOver = "the sign has a part of the list: send it once more";
        session.ConnectListening();
        if (args.Has("--all"))
            Check(ForgetAllFiles());
        result = args.Has("--index") ? vxPLSpeSendToLED(args.Number<std::uint8_t>("--index"), withFiles)
                                     : vxPLSendToLED(withFiles);
    }
    if (result == VX_OK)
        session.leftOver.clear();
    // What was refused leaves a former file there, which may well have the same size.
    const bool isDoubtful = args.Has("--verify") || !Session::Failed().empty();
    if (withFiles != 0 && !IsLineDown(result))
        CheckArrival(session, list, isDoubtful ? Depth::kContents : Depth::kSize);
    return result;
}

std::uint32_t Fetch(Session& session, const Args& args)
{
    PlayList list = PlayList::OpenOrMake(args.Text("--list"));
    const ProgressBar bar("fetch " + args.Text("--list"), session.report.IsForPrograms());
    Check(vxPLReadFromLED(args.Has("--list-only") ? 0 : 1));
    list.Save();
    session.report.Value("entries", "entries", list.Level("/")->size());
    if (args.Has("--list-only"))
        return VX_OK;
    // The library passes over a file that does not arrive.
    const auto names = TellOf(session, list.Files(),
                              [&](const VXPLAYLIST_FILE_INFO& info) { return NotFetched(session, list, info); });
    if (names.empty())
        return VX_OK;
    const std::string fault = FolderFault(list.Folder());
    throw SignFailure(VX_FAILED_OPERATION, HowMany(names, list.Files()) + " did not come whole to this PC" +
                                               (fault.empty() ? "" : "; " + fault));
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
        .details =
            R"(The list plays at once, or goes to a numbered place with --index. Then the sign is asked whether it has each file with
its size: what it lacks is named, the status is 1, and the next sending tries those files again.)",
        .examples = R"(vxctl playlist send
vxctl playlist send --verify
vxctl -s udp://192.168.1.50 playlist send --index 3)",
        .arguments = {Number("--index", 0, 255, "the number of the list on the sign").In("N"), kListOnly,
                      Flag("--all", "send all files, also those that the sign has").Excludes("--list-only"),
                      Flag("--verify", "read the files back and compare them").Excludes("--list-only")},
        .signs = Signs::kMany,
        .run = Send,
    },
    {
        .name = "playlist fetch",
        .help = "Fetch the list that the sign plays, and its files",
        .details =
            R"(The list is made if it is not there, and replaced if it is. Files that are the same already stay. A file that does not come
whole is named, and goes.)",
        .examples = "vxctl playlist -l fetched/list.xml fetch",
        .arguments = {kListOnly},
        .run = Fetch,
    },
};

} // namespace

const CommandTable kPlayListTransferCommands{"Play lists", kCommands};

} // namespace vxctl
