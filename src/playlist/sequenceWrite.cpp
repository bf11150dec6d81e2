// Writes the sequence file in both of its forms.
#include "playlist/sequenceWrite.h"

#include "playlist/localPath.h"
#include "playlist/paths.h"
#include "playlist/sequenceFile.h"
#include "util/file.h"
#include "util/text.h"

#include <vxsign/local.h>
#include <vxsign/result.h>

#include <algorithm>
#include <numeric>

namespace vxsign::playlist {
namespace {

using Info = VXPLAYLIST_FILE_INFO;

constexpr std::size_t kSignPathSize = 64;

// A file that is written piece by piece; what fails on the way shows at its end.
class Output
{
public:
    explicit Output(const std::string& path) : file(OpenFile(path.c_str(), "wb")) {}

    template <class Bytes>
    void Write(const Bytes& bytes)
    {
        good = good && file && WriteAll(file, bytes.data(), bytes.size());
        length += bytes.size();
    }

    std::uint32_t Finish(std::uint8_t form, std::size_t count, std::size_t size)
    {
        const auto header =
            sequence::MakeHeader(form, static_cast<std::uint16_t>(count), static_cast<std::uint16_t>(size));
        good = good && file && Seek(file, 0) && WriteAll(file, header.data(), header.size());
        return CloseFile(file) && good ? VX_OK : VX_NO_RECORD;
    }

    std::size_t length = 0; // of all that was written

private:
    File file;
    bool good = true;
};

sequence::Entry MakeEntry(const vxPlaylistState& list, const Info& info, char drive, std::uint8_t weekMask)
{
    // Without the local file, folder and name stay zero.
    char signPath[kSignPathSize] = {};
    char shortName[sequence::kShortNameSize] = {};
    std::uint8_t folder = 0;
    vxMakeSignPath(LocalPath(list.playlistDir, FileName(info)).c_str(), signPath, sizeof signPath,
                   static_cast<std::uint8_t>(drive), &folder, shortName);
    const sequence::Schedule first = sequence::StoreSchedule(info.SCH[0]);
    std::array<std::uint8_t, 16> beginAndEnd{};
    std::copy(first.begin() + 2, first.end(), beginAndEnd.begin());
    return sequence::MakeEntry(drive, folder, FieldText(shortName, sizeof shortName), weekMask, beginAndEnd);
}

void WriteFile(Output& output, const vxPlaylistState& list, const Info& info, char drive)
{
    std::string path{drive, ':', '\\', info.Type, '\\'};
    path += FileName(info);
    char signPath[kSignPathSize] = {};
    if (vxMakeSignPath(LocalPath(list.playlistDir, FileName(info)).c_str(), signPath, sizeof signPath,
                       static_cast<std::uint8_t>(drive), nullptr, nullptr) == VX_OK)
        path = signPath;
    output.Write(
        sequence::MakeFileRecord(path, info.schCount, info.playTimes, 0,
                                 {static_cast<std::uint8_t>(info.PicStaySec),
                                  static_cast<std::uint8_t>(info.PicStaySec >> 8), info.PicInMode, info.PicOutMode}));
    for (std::size_t i = 0; i < info.schCount; ++i)
        output.Write(sequence::StoreSchedule(info.SCH[i]));
}

std::size_t SizeOf(const Info& info)
{
    return sequence::kFileRecordSize + sequence::kScheduleSize * info.schCount;
}

std::size_t SizeOfFiles(const Child& child)
{
    return std::accumulate(child.children.begin(), child.children.end(), std::size_t{0},
                           [](std::size_t sum, const FilePointer& file) { return sum + SizeOf(*file); });
}

// A child that is a file, and not a group, stands for its first file alone.
std::size_t SizeOf(const Child& child)
{
    if (child.itemType != kFile)
        return sequence::GroupRecordSize(child.groupName) + SizeOfFiles(child);
    return child.children.empty() ? 0 : SizeOf(*child.children.front());
}

void WriteChild(Output& output, const vxPlaylistState& list, const Child& child, char drive)
{
    if (child.itemType == kFile) {
        if (!child.children.empty())
            WriteFile(output, list, *child.children.front(), drive);
        return;
    }
    // The default child of a group goes out as a group of the first level, which no reader takes for a child.
    output.Write(sequence::MakeGroupRecord(
        child.groupName, {SizeOfFiles(child), child.children.size(), child.playType,
                          child.itemType == kSubGroup ? std::uint8_t{1} : std::uint8_t{0}, child.parentIndex}));
    for (const FilePointer& file : child.children)
        WriteFile(output, list, *file, drive);
}

} // namespace

std::uint32_t WriteFlatForm(const vxPlaylistState& list, const std::string& path, char drive)
{
    Output output(path);
    output.Write(sequence::Header{});
    std::size_t count = 0;
    const auto write = [&](const Info& info, std::uint8_t weekMask) {
        output.Write(MakeEntry(list, info, drive, weekMask));
        ++count;
    };
    for (const auto& item : list.items) {
        if (item->itemType != kFile) {
            for (const auto& child : item->children)
                for (const FilePointer& file : child->children)
                    write(*file, file->SCH[0].bweek_rep); // inside groups whether or not it is in use
        } else if (!item->children.empty() && !item->children.front()->children.empty()) {
            const Info& info = *item->children.front()->children.front();
            write(info, info.schCount != 0 ? info.SCH[0].bweek_rep : sequence::kNoSchedule);
        }
    }
    return output.Finish(sequence::kFlatForm, count, output.length);
}

std::uint32_t WriteTreeForm(const vxPlaylistState& list, const std::string& path, char drive)
{
    Output output(path);
    output.Write(sequence::Header{});
    for (const auto& item : list.items) {
        if (item->itemType != kFile) {
            const std::size_t length =
                std::accumulate(item->children.begin(), item->children.end(), std::size_t{0},
                                [](std::size_t sum, const auto& child) { return sum + SizeOf(*child); });
            output.Write(sequence::MakeGroupRecord(
                item->groupName, {length, item->children.size(), item->playType, 0, item->parentIndex}));
        }
        for (const auto& child : item->children)
            if (item->itemType != kFile)
                WriteChild(output, list, *child, drive);
            else if (!child->children.empty())
                WriteFile(output, list, *child->children.front(), drive);
    }
    return output.Finish(sequence::kTreeForm, list.items.size(), output.length - sequence::kHeaderSize);
}

} // namespace vxsign::playlist
