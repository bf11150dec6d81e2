// Runs a command on many signs, and tells of it.
#include "vxctl/many/manySigns.h"

#include "vxctl/cli/interrupt.h"
#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/terminal.h"
#include "vxctl/many/account.h"
#include "vxctl/many/pool.h"
#include "vxctl/many/targets.h"

#include <cstdlib>
#include <filesystem>
#include <set>
#include <system_error>

namespace vxctl {

namespace fs = std::filesystem;

namespace {

constexpr auto kGlance = std::chrono::milliseconds(100); // at progress and Ctrl-C

// The name of a sign as that of a folder; a URL has characters that are none of one.
std::string FolderName(const std::string& name)
{
    std::string folder;
    for (const char c : name)
        folder += c == ':' || c == '/' || c == '\\' ? '_' : c;
    return folder;
}

// A file of this PC for one of the signs: out/A.NMG becomes out/NAME/A.NMG, and a folder out/ is out/NAME/. What is a
// device or a pipe is the same for all.
std::string FileFor(const std::string& file, const std::string& name)
{
    std::error_code error;
    const fs::path path(file);
    const fs::file_status status = fs::status(path, error);
    if (fs::exists(status) && !fs::is_regular_file(status) && !fs::is_directory(status))
        return file;
    const bool isFolder = fs::is_directory(status) || !path.has_filename();
    const fs::path folder = (isFolder ? path : path.parent_path()) / FolderName(name);
    fs::create_directories(folder, error); // a command that cannot write there says so
    return (isFolder ? folder / "" : folder / path.filename()).string();
}

bool WritesFiles(const Order& order)
{
    const auto& arguments = order.What().arguments;
    return std::ranges::any_of(arguments, [&](const Argument& argument) {
        return argument.type == &kWriteFile && order.With().Has(argument.name);
    });
}

// Of two signs that would have the same folder one would be lost.
void CheckFolders(const std::vector<Target>& signs)
{
    std::set<std::string> folders;
    for (const Target& sign : signs) {
        if (!folders.insert(FolderName(sign.name)).second)
            throw UsageError("two signs would have the folder " + FolderName(sign.name) +
                             ": give them names in the book");
    }
}

Outcome RunWithFolder(const Target& sign, Order order)
{
    const auto forSign = [&](const std::string& file) { return FileFor(file, sign.name); };
    order.ChangeLocalFiles(forSign);
    Outcome outcome = RunOn(sign.options, order);
    std::error_code error;
    for (const std::string& file : order.With().LocalFiles())
        fs::remove(fs::path(file).parent_path(), error); // where nothing came into it
    return outcome;
}

// All that cannot be, before anything is sent.
void CheckAhead(const Order& order, const std::vector<Target>& signs)
{
    if (order.What().signs == Signs::kOne)
        throw UsageError("takes one sign, and -s names " + std::to_string(signs.size()));
    for (const Target& sign : signs)
        ParseSignUrl(sign.options.url);
    if (WritesFiles(order))
        CheckFolders(signs);
    const std::string& failed = order.With().Text("--retry-failed");
    if (const std::string fault = FolderFault(fs::path(failed).parent_path()); !failed.empty() && !fault.empty())
        throw UsageError(fault);
}

} // namespace

int RunMany(const Order& order, const std::vector<Target>& signs)
{
    CheckAhead(order, signs);
    AbortOnInterrupt();
    const bool writesFiles = WritesFiles(order);
    const auto run = [order, signs, writesFiles](std::size_t which) {
        return writesFiles ? RunWithFolder(signs[which], order) : RunOn(signs[which].options, order);
    };
    Account account(order, signs);
    Pool pool(signs.size(), order.With().Number<std::size_t>("--jobs"), run,
              order.With().Has("--fail-fast") ? Pool::AtFailure::kBeginNoMore : Pool::AtFailure::kGoOn);
    do
        account.Take(pool.Take(kGlance));
    while (!pool.IsOver());
    const int status = account.Close(pool.Begun());
    if (pool.IsBusy()) {
        Flush();
        std::_Exit(status);
    }
    return status;
}

} // namespace vxctl
