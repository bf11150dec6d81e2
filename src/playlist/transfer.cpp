// The thread's list to the sign and back. Files travel only when their codes in the sign's file list differ.
#include "playlist/fileList.h"
#include "playlist/localPath.h"
#include "playlist/paths.h"
#include "playlist/sequenceRead.h"
#include "playlist/sequenceWrite.h"
#include "thread/threadRecords.h"
#include "util/localCall.h"

#include <vxsign/local.h>
#include <vxsign/properties.h>
#include <vxsign/read.h>
#include <vxsign/result.h>
#include <vxsign/write.h>

#include <atomic>
#include <string>

namespace {

using namespace vxsign;
using namespace vxsign::playlist;

constexpr std::uint16_t kProgressTotal = 128;
constexpr std::uint16_t kWritingSequence = 126;
constexpr std::uint16_t kSendingSequence = 127;

constexpr char kSequencePath[] = "C:\\SEQUENT.SYS";
constexpr char kFileListPath[] = "D:\\FILELSTI.LST";
constexpr std::size_t kSignPathSize = 64;
constexpr std::size_t kFetchPathSize = 32; // of what a fetch asks for, with its terminator

// What a transfer works on.
struct Transfer
{
    vxPlaylistState& list;
    vxApiConfig& config;

    std::string Local(std::string_view name) const { return LocalPath(list.playlistDir, name); }
    bool Aborted() const { return std::atomic_ref(config.abortFlag).load(std::memory_order_relaxed) != 0; }
    void Step() const { ++config.progressPos; }
};

template <class Body>
std::uint32_t RunTransfer(Body&& body)
{
    return LocalCall<std::uint32_t>(VX_CALL, [&]() -> std::uint32_t {
        vxPlaylistState* const list = ThreadPlaylist();
        vxApiConfig* const config = ThreadConfig();
        if (list == nullptr || config == nullptr)
            return VX_CALL;
        config->progressTotal = kProgressTotal;
        config->progressPos = 1;
        return body(Transfer{*list, *config});
    });
}

// All files of the list in order. They are held, since what a callback does to the list must not take them away.
std::vector<FilePointer> AllFiles(const vxPlaylistState& list)
{
    std::vector<FilePointer> files;
    for (const auto& item : list.items)
        for (const auto& child : item->children)
            files.insert(files.end(), child->children.begin(), child->children.end());
    return files;
}

bool SignHas(int property)
{
    std::uint8_t value[4] = {};
    vxGetProperty(value, sizeof value, property);
    return value[0] != 0;
}

// The sign's file list. One that cannot be fetched is empty, so that every file counts as changed.
FileList FetchFileList(const Transfer& transfer)
{
    const std::string local = transfer.Local("FILELSTI.LST");
    vxReadSpecPathFileEx(kFileListPath, local.c_str());
    return FileList::Load(local);
}

// A file that does not arrive is entered as well: it is not sent again before it changes.
void SendFiles(const Transfer& transfer, char drive)
{
    FileList codes = FetchFileList(transfer);
    transfer.Step();
    bool changed = false;
    for (const FilePointer& file : AllFiles(transfer.list)) {
        if (transfer.Aborted())
            break;
        const std::string name(FileName(*file));
        const std::string local = transfer.Local(name);
        const FileListCode code = CodeOfLocalFile(local, name);
        if (codes.Find(name) == code)
            continue; // unchanged, or known to neither side
        transfer.Step();
        char path[kSignPathSize] = {};
        vxMakeSignPath(local.c_str(), path, sizeof path, static_cast<std::uint8_t>(drive), nullptr, nullptr);
        transfer.Step();
        vxWriteSpecFileEx(path, local.c_str());
        codes.Store(code);
        changed = true;
    }
    if (!changed)
        return;
    transfer.Step();
    const std::string local = transfer.Local("FILELSTI.LST");
    codes.Save(local);
    vxWriteSpecFileEx(kFileListPath, local.c_str());
}

std::uint32_t Send(const Transfer& transfer, const char* target, bool withFiles)
{
    vxInitProperty(); // a sign that cannot be read gets drive D and the flat form
    const char drive = SignHas(VX_PROPERTY_HAS_DRIVE_F) ? 'F' : 'D';
    if (withFiles)
        SendFiles(transfer, drive);

    transfer.config.progressTotal = kProgressTotal;
    transfer.config.progressPos = kWritingSequence;
    const std::string local = transfer.Local("SEQ_PC.SYS");
    const auto write = SignHas(VX_PROPERTY_SEQUENCE_FORM) ? WriteTreeForm : WriteFlatForm;
    write(transfer.list, local, drive); // what fails here shows in the upload
    transfer.config.progressPos = kSendingSequence;
    return vxWriteSpecFileEx(target, local.c_str());
}

void FetchFiles(const Transfer& transfer)
{
    const FileList codes = FetchFileList(transfer);
    for (const FilePointer& file : AllFiles(transfer.list)) {
        if (transfer.Aborted())
            break;
        const std::string name(FileName(*file));
        const std::string local = transfer.Local(name);
        const FileListCode code = CodeOfLocalFile(local, name);
        if (code != 0 && code == codes.Find(name))
            continue;
        std::string path{file->Drive, ':', '\\', file->Type, '\\'};
        path += name;
        path.resize(std::min(path.size(), kFetchPathSize - 1));
        transfer.Step();
        if (!local.empty()) // a name that leaves the directory is not fetched
            vxReadSpecPathFileEx(path.c_str(), local.c_str());
    }
}

} // namespace

std::uint32_t vxPLSendToLED(std::int8_t withFiles)
{
    return RunTransfer([=](const Transfer& transfer) { return Send(transfer, kSequencePath, withFiles != 0); });
}

std::uint32_t vxPLSpeSendToLED(std::uint8_t index, std::int8_t withFiles)
{
    return RunTransfer([=](const Transfer& transfer) {
        const std::string target = "c:\\playlist\\sequent" + std::to_string(index) + ".sys";
        return Send(transfer, target.c_str(), withFiles != 0);
    });
}

std::uint32_t vxPLReadFromLED(std::int8_t withFiles)
{
    return RunTransfer([=](const Transfer& transfer) {
        const std::string local = transfer.Local("SEQUENT.SYS");
        const std::uint32_t result = vxReadSpecPathFileEx(kSequencePath, local.c_str());
        if (result != VX_OK)
            return result;
        LoadSequence(transfer.list, local.c_str());
        transfer.Step();
        if (withFiles != 0)
            FetchFiles(transfer);
        return result;
    });
}
