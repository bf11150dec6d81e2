// player: making programs, looking at them, deleting them.
#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/tables.h"
#include "vxctl/cli/textTable.h"
#include "vxctl/files/sending.h"
#include "vxctl/files/signPaths.h"
#include "vxctl/zones/programProperty.h"

#include <vxsign/filesystem.h>
#include <vxsign/write.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

namespace vxctl {

namespace {

// "D:/T/X.NMG", a file that is on the sign already.
bool IsOnSign(const std::string& file)
{
    return file.size() > 2 && file[1] == ':';
}

std::string ReadProgramFile(const Argument& argument, const std::string& file)
{
    return IsOnSign(file) ? ReadSignPath(argument, file) : ReadLocalFile(argument, file);
}

constexpr ArgumentType kProgramFile{"FILE", ReadProgramFile, true};

// Names on the sign compare without regard to case.
bool IsSameName(const std::string& left, const std::string& right)
{
    const auto upper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; };
    return std::ranges::equal(left, right, {}, upper, upper);
}

std::string PathOnSign(const std::string& project, const std::string& file)
{
    if (IsOnSign(file))
        return file;
    return ProjectFolder(project) + "\\" + std::filesystem::path(file).filename().string();
}

// The lines of a program.
std::string ListOf(const std::string& project, const std::vector<std::string>& files, const std::string& stay)
{
    std::string list;
    std::set<std::string> sent;
    for (const std::string& file : files) {
        const std::string path = PathOnSign(project, file);
        if (path.find('|') != std::string::npos)
            throw UsageError("a program takes no name with |");
        if (!IsOnSign(file) && !sent.insert(path).second)
            throw UsageError("two files have the name " + path);
        list.append(path).append("|").append(stay).append("\n");
    }
    return list;
}

// The files of this PC first, so that the program names nothing that is not there.
std::uint32_t Put(Session& session, const Args& args)
{
    const std::string& project = args.Text("PROJECT");
    const std::vector<std::string>& files = args.List("FILE");
    const std::string listPath = ProgramPath(project, args.Text("PROGRAM"));
    const TemporaryFolder folder;
    const std::string local = folder.Path() + "program";
    std::ofstream list(local, std::ios::binary);
    list << ListOf(project, files, std::to_string(args.Number("--stay")));
    list.close();
    if (!list)
        return VX_OPEN_FILE;
    for (const std::string& file : files) {
        if (!IsOnSign(file))
            Check(SendFile(session, PathOnSign(project, file), file, vxWriteSpecFileEx));
    }
    Check(SendFile(session, listPath, local, vxWriteSpecFileEx));
    session.report.Put("path", listPath);
    session.report.Put("files", files.size());
    return VX_OK;
}

std::string YesNo(bool value)
{
    return value ? "yes" : "no";
}

// All projects, or the programs of one.
std::uint32_t List(Session& session, const Args& args)
{
    const std::string& project = args.Text("PROJECT");
    const ProgramProperty all = ReadProperty(project);
    TextTable table({{project.empty() ? "project" : "program"},
                     {project.empty() ? "programs" : "files", kNumbers},
                     {"bytes", kNumbers},
                     {"complete", kTruths},
                     {"plays", kTruths},
                     {"changed", kTimes}});
    for (const std::string& name : all.names) {
        const ProgramProperty one = project.empty() ? ReadProperty(name) : ReadProperty(project, name);
        table.Add({name, std::to_string(one.count), std::to_string(one.bytes), YesNo(one.isComplete), YesNo(one.plays),
                   one.changed});
    }
    table.Show(session.report, project.empty() ? "projects" : "programs");
    return VX_OK;
}

void ShowFiles(Report& report, const ProgramProperty& program)
{
    TextTable table({{"file"}, {"staySeconds", kNumbers}});
    for (const std::string& line : program.names) {
        const auto [file, stay] = SplitFile(line);
        table.Add({file, std::to_string(stay)});
    }
    table.Show(report, "files");
}

std::uint32_t Info(Session& session, const Args& args)
{
    Report& report = session.report;
    const bool isProject = args.Text("PROGRAM").empty();
    const ProgramProperty property = ReadProperty(args.Text("PROJECT"), args.Text("PROGRAM"));
    report.Value(isProject ? "programs" : "files", "count", property.count);
    report.Value("bytes", "bytes", property.bytes);
    report.Value("complete", "complete", property.isComplete, YesNo(property.isComplete));
    report.Value("plays", "plays", property.plays, YesNo(property.plays));
    report.Time("changed", "changed", ParseClockTime(property.changed), property.changed);
    report.Value("announced", "announced", property.programs, std::to_string(property.programs) + " programs");
    report.Value("version", "version", property.version);
    if (isProject)
        report.Put("programs", property.names);
    else
        ShowFiles(report, property);
    return VX_OK;
}

// The files that only this program has in the folder of its project. None if a list did not come whole: a file of
// another program could go.
std::vector<std::string> FilesOfItsOwn(const std::string& project, const std::string& name,
                                       const std::vector<std::string>& programs)
{
    const auto filesOf = [&project](const std::string& program, std::set<std::string>& files) {
        const ProgramProperty property = ReadProperty(project, program);
        for (const std::string& line : property.names)
            files.insert(SplitFile(line).first);
        return property.names.size() == property.count;
    };
    std::set<std::string> own;
    std::set<std::string> others;
    if (!filesOf(name, own))
        return {};
    for (const std::string& program : programs) {
        if (program != name && !filesOf(program, others))
            return {};
    }
    const std::string folder = ProjectFolder(project);
    std::vector<std::string> files;
    std::copy_if(own.begin(), own.end(), std::back_inserter(files), [&](const std::string& file) {
        return !others.contains(file) && file.size() > folder.size() && IsSameFolder(file, folder + "\\X");
    });
    return files;
}

std::uint32_t Delete(Session& session, const Args& args)
{
    const std::string& project = args.Text("PROJECT");
    const std::string& program = args.Text("PROGRAM");
    ProjectFolder(project); // looks at the name
    std::vector<std::string> programs = ReadProperty(project).names;
    std::size_t files = 0;
    std::vector<std::string> goners = programs;
    if (!program.empty())
        std::erase_if(goners, [&program](const std::string& name) { return !IsSameName(name, program); });
    if (goners.empty())
        return VX_FILE_NOT_EXISTS;
    for (const std::string& name : goners) {
        const auto own = FilesOfItsOwn(project, name, programs);
        Check(vxDelete(ProgramPath(project, name).c_str()));
        std::erase(programs, name);
        for (const std::string& file : own)
            files += vxDelete(file.c_str()) == VX_OK ? 1 : 0; // one may have been missing all along
    }
    session.report.Value("programs", "programs", goners.size(), std::to_string(goners.size()) + " deleted");
    session.report.Value("files", "files", files, std::to_string(files) + " deleted");
    return VX_OK;
}

constexpr Argument kProject = Text("PROJECT", "the project");

const Command kCommands[] = {
    {
        .name = "player",
        .help = "Make and play programs of the player core",
        .details = "A program is a list of files, in a project; both have names.",
        .examples = R"(vxctl player put SHOP MORNING hello.nmg logo.bmp
vxctl player play SHOP MORNING
vxctl player playing)",
    },
    {
        .name = "player put",
        .help = "Make a program of files",
        .details =
            R"(A file of this PC is sent into the folder of the project, C:/PLAYER/PROJECT; the programs of a project share it. A
file that is on the sign already has its path, such as D:/T/HELLO.NMG. A program of that name is replaced.)",
        .examples = "vxctl player put SHOP MORNING --stay 10 hello.nmg logo.bmp D:/T/OFFER.NMG",
        .arguments =
            {kProject, Text("PROGRAM", "the program"),
             Of(kProgramFile, "FILE", "up to 64 files, in their order").Repeated(1, 64),
             Number("--stay", 0, 65535, "seconds of a picture, 0 for the sign's own").In("SECONDS").Default("0")},
        .signs = Signs::kMany,
        .run = Put,
    },
    {
        .name = "player list",
        .help = "List the projects, or the programs of one",
        .examples = R"(vxctl player list
vxctl player list SHOP)",
        .arguments = {kProject.Optional()},
        .signs = Signs::kMany,
        .run = List,
    },
    {
        .name = "player info",
        .help = "Show of a project or program its files, size, whether it is complete and plays",
        .examples = R"(vxctl player info SHOP
vxctl player info SHOP MORNING)",
        .arguments = {kProject, Text("PROGRAM", "its program").Optional()},
        .signs = Signs::kMany,
        .run = Info,
    },
    {
        .name = "player delete",
        .help = "Delete a program, or a project",
        .details = "With the files in the folder of the project that no other program of it needs.",
        .examples = R"(vxctl player delete SHOP MORNING
vxctl player delete SHOP)",
        .arguments = {kProject, Text("PROGRAM", "its program; without it all of them").Optional()},
        .signs = Signs::kMany,
        .run = Delete,
    },
};

} // namespace

const CommandTable kProgramCommands{"Zones and programs", kCommands};

} // namespace vxctl
