// Play lists that PC programs wrote: sequence files with the places that their files come from.
#include "playlist/localPath.h"
#include "playlist/paths.h"
#include "playlist/sequenceFile.h"
#include "playlist/sequenceRead.h"
#include "util/littleEndian.h"
#include "util/localCall.h"
#include "util/text.h"

#include <vxsign/local.h>
#include <vxsign/result.h>

#include <algorithm>

namespace {

using namespace vxsign;
using namespace vxsign::playlist;

constexpr std::uint16_t kOldTreeForm = 5;
constexpr std::size_t kFlatHeaderSize = sequence::kHeaderSize + 8; // the rest is not interpreted
constexpr std::uint8_t kFlatPicture = 1;

// Brings a file into the play list directory. That it is not there, or that its name leaves the directory, does not
// count: the list keeps its record.
void TakeSource(const vxPlaylistState& list, VXPLAYLIST_FILE_INFO& info, const std::string& source)
{
    CopyToText(info.pcFileName, sizeof info.pcFileName, source);
    const std::string local = LocalPath(list.playlistDir, FileName(info));
    if (!local.empty())
        vxOSCopyFile(source.c_str(), local.c_str(), 0);
}

// The lines of the text from a position on, which ends at its first NUL or with the file.
std::vector<std::string> ReadLines(RecordFile& file, std::uint64_t position)
{
    constexpr std::string_view kLineEnd = "\r\n";
    constexpr std::uint64_t kLongestText = 64 << 20; // more than all of its files can need
    const std::uint64_t left = position < file.Size() ? file.Size() - position : 0;
    std::string text(static_cast<std::size_t>(std::min(left, kLongestText)), '\0');
    file.Read(position, text.data(), text.size());
    text.resize(text.find('\0') != text.npos ? text.find('\0') : text.size());

    std::vector<std::string> lines;
    std::size_t begin = 0;
    while (begin < text.size()) {
        const std::size_t end = std::min(text.find(kLineEnd, begin), text.size());
        lines.push_back(text.substr(begin, end - begin));
        begin = end + kLineEnd.size();
    }
    return lines;
}

void LoadFlat(vxPlaylistState& list, RecordFile& file, std::uint16_t count)
{
    list.items.clear();
    ReadFlatForm(file, kFlatHeaderSize, count, kFlatPicture, list.items);
    const auto lines = ReadLines(file, kFlatHeaderSize + sequence::kEntrySize * count);
    if (lines.size() != list.items.size())
        return; // nobody could tell whose they are
    for (std::size_t i = 0; i < lines.size(); ++i)
        TakeSource(list, *list.items[i]->children.front()->children.front(), lines[i]);
}

void LoadTree(vxPlaylistState& list, RecordFile& file, std::uint16_t count)
{
    const TreeRules rules{
        .subGroupRest = 84,
        .mostSchedules = 6,
        .everyDay = 127,
        .subGroupsKeepPlayType = true,
        .fixedFileRecords = true,
        .filesAlwaysHaveSchedule = true,
        .takeSource = [&](VXPLAYLIST_FILE_INFO& info, const std::string& source) { TakeSource(list, info, source); }};
    list.items.clear();
    ReadTreeForm(file, count, rules, list.items);
}

void Load(vxPlaylistState& list, const char* path)
{
    vxOSCreateDir(list.playlistDir.c_str());
    File opened = OpenFile(path, "rb");
    if (!opened)
        return;
    RecordFile file(std::move(opened));
    sequence::Header header{};
    file.Read(0, header.data(), header.size());
    const std::uint16_t count = Load16(header.data() + 4);
    switch (Load16(header.data() + 2)) {
    case sequence::kFlatForm:
        LoadFlat(list, file, count);
        break;
    case kOldTreeForm:
    case sequence::kTreeForm:
        LoadTree(list, file, count);
        break;
    default:
        break;
    }
}

} // namespace

std::uint32_t vxLoadPLSFromPC(const char* path)
{
    vxPlaylistState* const list = ThreadPlaylist();
    if (path == nullptr || list == nullptr)
        return VX_NO_RECORD;
    return LocalCall<std::uint32_t>(kOutOfMemory, [&]() -> std::uint32_t {
        Load(*list, path);
        return VX_OK;
    });
}
