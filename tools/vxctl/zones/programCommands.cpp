#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/progressBar.h"
#include "vxctl/cli/textTable.h"
#include "vxctl/files/signPaths.h"
#include "vxctl/zones/playerCommands.h"
#include "vxctl/zones/programProperty.h"

#include <vxsign/filesystem.h>
#include <vxsign/write.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <set>

namespace vxctl {

namespace {

constexpr std::size_t kMostFiles = 64;
constexpr std::uint32_t kLongestStay = 65535;

// "D:/T/X.NMG", a file that is on the sign already.
bool IsOnSign(const std::string& file)
{
    return file.size() > 2 && file[1] == ':';
}

std::string SignOrReadable(const std::string& file)
{
    return IsOnSign(file) ? std::string() : ReadableFile()(file);
}

// Names on the sign compare without regard to case.
bool IsSameName(const std::string& left, const std::string& right)
{
    const auto upper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; };
    return std::ranges::equal(left, right, {}, upper, upper);
}

struct Program
{
    std::string project;
    std::string name;
    std::vector<std::string> files;
    std::uint32_t staySec = 0;
};

std::string PathOnSign(const Program& program, const std::string& file)
{
    if (!IsOnSign(file))
        return ProjectFolder(program.project) + "\\" + std::filesystem::path(file).filename().string();
    std::string path = file;
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

// The files of this PC first, so that the program names nothing that is not there.
void Put(Session& session, const Program& program)
{
    const std::string listPath = ProgramPath(program.project, program.name);
    const TemporaryFolder folder;
    const std::string local = folder.Path() + "program";
    std::ofstream list(local, std::ios::binary);
    std::set<std::string> sent;
    for (const std::string& file : program.files) {
        const std::string path = PathOnSign(program, file);
        if (path.find('|') != std::string::npos)
            throw UsageError("a program takes no name with |");
        if (!IsOnSign(file) && !sent.insert(path).second)
            throw UsageError("two files have the name " + path);
        list << path << '|' << program.staySec << '\n';
    }
    list.close();
    if (!list)
        throw SignFailure(VX_OPEN_FILE);
    const ProgressBar bar("put", session.report.IsJson());
    session.Connect(ProgressBar::OnProgress);
    for (const std::string& file : program.files) {
        if (!IsOnSign(file))
            Check(vxWriteSpecFileEx(PathOnSign(program, file).c_str(), file.c_str()));
    }
    Check(vxWriteSpecFileEx(listPath.c_str(), local.c_str()));
    session.report.Put("path", listPath);
    session.report.Put("files", program.files.size());
}

void AddPut(CLI::App& player, Session& session)
{
    CLI::App* const command = AddCommand(
        player,
        {kProgramGroup, "put", "Make a program of files",
         R"(A file of this PC is sent into the folder of the project, C:/PLAYER/PROJECT; the programs of a project share it. A
file that is on the sign already has its path, such as D:/T/HELLO.NMG. A program of that name is replaced.

Example:
  vxctl player put SHOP MORNING --stay 10 hello.nmg logo.bmp D:/T/OFFER.NMG)"});
    const auto program = std::make_shared<Program>();
    command->add_option("PROJECT", program->project, "the project")->required();
    command->add_option("PROGRAM", program->name, "the program")->required();
    command->add_option("FILE", program->files, "up to 64 files, in their order")->required()->check(SignOrReadable);
    AddNumber(*command, "--stay", program->staySec, 0, kLongestStay, "seconds of a picture, 0 for the sign's own")
        ->default_str("0");
    command->callback([&session, program] {
        if (program->files.size() > kMostFiles)
            throw UsageError("a program takes " + std::to_string(kMostFiles) + " files at most");
        Put(session, *program);
    });
}

std::string YesNo(bool value)
{
    return value ? "yes" : "no";
}

// All projects, or the programs of one.
void List(Session& session, const std::string& project)
{
    session.Connect();
    const ProgramProperty all = ReadProperty(project);
    TextTable table({{project.empty() ? "project" : "program"},
                     {project.empty() ? "programs" : "files", true},
                     {"bytes", true},
                     {"complete"},
                     {"plays"},
                     {"changed"}});
    for (const std::string& name : all.names) {
        const ProgramProperty one = project.empty() ? ReadProperty(name) : ReadProperty(project, name);
        table.Add({name, std::to_string(one.count), std::to_string(one.bytes), YesNo(one.isComplete), YesNo(one.plays),
                   one.changed});
    }
    table.Show(session.report, project.empty() ? "projects" : "programs");
}

void AddList(CLI::App& player, Session& session)
{
    CLI::App* const command = AddCommand(player, {kProgramGroup, "list", "List the projects, or the programs of one",
                                                  "Examples:\n  vxctl player list\n  vxctl player list SHOP"});
    const auto project = std::make_shared<std::string>();
    command->add_option("PROJECT", *project, "the project");
    command->callback([&session, project] { List(session, *project); });
}

void Info(Session& session, const Program& program)
{
    session.Connect();
    Report& report = session.report;
    const bool isProject = program.name.empty();
    const ProgramProperty property = ReadProperty(program.project, program.name);
    report.Value(isProject ? "programs" : "files", "count", property.count);
    report.Value("bytes", "bytes", property.bytes);
    report.Value("complete", "complete", property.isComplete, YesNo(property.isComplete));
    report.Value("plays", "plays", property.plays, YesNo(property.plays));
    report.Value("changed", "changed", property.changed);
    report.Value("announced", "announced", property.programs, std::to_string(property.programs) + " programs");
    report.Value("version", "version", property.version);
    if (isProject)
        return report.Put("programs", property.names);
    TextTable table({{"file"}, {"stay", true}});
    for (const std::string& line : property.names) {
        const auto [file, stay] = SplitFile(line);
        table.Add({file, std::to_string(stay)});
    }
    table.Show(report, "files");
}

void AddInfo(CLI::App& player, Session& session)
{
    CLI::App* const command =
        AddCommand(player, {kProgramGroup, "info", "Tell of a project or a program",
                            "Examples:\n  vxctl player info SHOP\n  vxctl player info SHOP MORNING"});
    const auto program = std::make_shared<Program>();
    command->add_option("PROJECT", program->project, "the project")->required();
    command->add_option("PROGRAM", program->name, "its program");
    command->callback([&session, program] { Info(session, *program); });
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

void Delete(Session& session, const Program& wanted)
{
    ProjectFolder(wanted.project); // looks at the name
    session.Connect();
    std::vector<std::string> programs = ReadProperty(wanted.project).names;
    std::size_t files = 0;
    std::vector<std::string> goners = programs;
    if (!wanted.name.empty())
        std::erase_if(goners, [&wanted](const std::string& name) { return !IsSameName(name, wanted.name); });
    if (goners.empty())
        throw SignFailure(VX_FILE_NOT_EXISTS);
    for (const std::string& name : goners) {
        const auto own = FilesOfItsOwn(wanted.project, name, programs);
        Check(vxDelete(ProgramPath(wanted.project, name).c_str()));
        std::erase(programs, name);
        for (const std::string& file : own)
            files += vxDelete(file.c_str()) == VX_OK ? 1 : 0; // one may have been missing all along
    }
    session.report.Value("programs", "programs", goners.size(), std::to_string(goners.size()) + " deleted");
    session.report.Value("files", "files", files, std::to_string(files) + " deleted");
}

void AddDelete(CLI::App& player, Session& session)
{
    CLI::App* const command =
        AddCommand(player, {kProgramGroup, "delete", "Delete a program, or a project",
                            R"(With the files in the folder of the project that no other program of it needs.

Examples:
  vxctl player delete SHOP MORNING
  vxctl player delete SHOP)"});
    const auto program = std::make_shared<Program>();
    command->add_option("PROJECT", program->project, "the project")->required();
    command->add_option("PROGRAM", program->name, "its program; without it all of them");
    command->callback([&session, program] { Delete(session, *program); });
}

} // namespace

void AddProgramCommands(CLI::App& player, Session& session)
{
    AddPut(player, session);
    AddList(player, session);
    AddInfo(player, session);
    AddDelete(player, session);
}

} // namespace vxctl
