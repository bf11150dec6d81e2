// Commands for folders and files, besides what moves their content.
#pragma once

#include "sim/command/commandFamily.h"
#include "sim/command/signEvents.h"
#include "sim/files/directory.h"
#include "sim/files/drives.h"
#include "sim/files/transferCommands.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vxsim {

// Major 7: what a host does with the drives besides moving contents.
class FileCommands : public CommandFamily
{
public:
    // `makeSystemFiles` puts onto drive C what every sign has there.
    FileCommands(const Drives& drives, TransferCommands& transfers, const SignObservers& observers,
                 std::function<void()> makeSystemFiles);

    std::span<const CommandRow> Commands() const override;
    Reply Execute(const Call& call) override;

private:
    Reply Format(const Call& call) const;
    Reply CreateFolder(const Call& call) const;
    Reply Rename(const Call& call) const;
    Reply Move(const Call& call) const;
    Reply Delete(const Call& call) const;
    Reply DeleteKind(const Call& call, char folder) const;
    Reply List(const Call& call) const;
    Reply ListPart(const Call& call) const;
    Reply ListLong(const Call& call) const;
    Reply DriveInfo(const Call& call) const;
    Reply Exists(const Call& call) const;
    Reply ClearPlayFiles(const Call& call) const;

    std::optional<std::vector<DirectoryEntry>> EntriesOf(std::string_view path) const;
    Reply Listing(std::string_view path, std::size_t start, std::size_t count) const;
    std::pair<std::string, std::string> SplitPaths(std::string_view paths) const;
    bool IsEntry(std::string_view path) const;
    std::size_t DeleteFilesIn(char drive, char folder) const;

    const Drives& drives;
    TransferCommands& transfers;
    const SignObservers& observers;
    std::function<void()> makeSystemFiles;
};

} // namespace vxsim
