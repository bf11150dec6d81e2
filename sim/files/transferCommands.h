// Commands that move files, packet by packet.
#pragma once

#include "sim/command/commandFamily.h"
#include "sim/command/signEvents.h"
#include "sim/files/drives.h"
#include "sim/files/fileLayouts.h"
#include "sim/files/fileReceiver.h"
#include "sim/files/fileSender.h"

#include <filesystem>
#include <optional>
#include <span>

namespace vxsim {

class TransferCommands : public CommandFamily
{
public:
    // Keeps the data flash and what is not yet complete in the folder.
    TransferCommands(const Drives& drives, const std::filesystem::path& keptFolder, const SignObservers& observers);

    std::span<const CommandRow> Commands() const override;

    // A file is there anew, or has gone.
    void Tell(const std::filesystem::path& file);

    // A file was deleted or has another name.
    void Forget() { sender.Forget(); }

private:
    // The folder is that of a bare name; empty for the drive itself.
    Reply Write(const Call& call, const FileLayout* layout, const char* folder);
    Reply Read(const Call& call, const FileLayout* layout, const char* folder);
    Reply TellFlashSize(const Call& call);
    std::optional<std::filesystem::path> Locate(const Call& call, const FileLayout& layout, const char* folder) const;

    const Drives& drives;
    std::filesystem::path flash;
    const SignObservers& observers;
    FileReceiver receiver;
    FileSender sender;
};

} // namespace vxsim
