// Files to and from the sign, and its folders.
#ifndef VXSIGN_CPP_FILES_HPP
#define VXSIGN_CPP_FILES_HPP

#include <vxsign/cpp/clock.hpp>
#include <vxsign/cpp/codes.hpp>
#include <vxsign/cpp/frame.hpp>
#include <vxsign/cpp/local.hpp>
#include <vxsign/filesystem.h>
#include <vxsign/read.h>
#include <vxsign/write.h>

namespace vxsign {

// What is in a folder of the sign.
struct Entry
{
    std::string name;
    bool isFolder = false;
    std::uint32_t size = 0;           // bytes
    std::optional<ClockTime> changed; // nothing when the sign has no time for it
};

namespace detail {

// A path in the encoding of the sign.
inline std::string PathOn(const Frame& frame, std::string_view text)
{
    return CheckedPath(frame.Encode(SignPath(text)));
}

// Asks for a file's first packet, as a transfer begins, for the size that its reply announces: the library keeps that
// to itself, and compares nothing with it. Gives the result word.
inline std::uint32_t AskSize(const std::string& path, std::uint32_t chunk, std::uint32_t& size)
{
    constexpr std::uint8_t kRead = 1;
    constexpr std::uint8_t kByPath = 17;
    std::vector<std::uint8_t> record(8);
    Store(record.data(), chunk, 4);
    Store(&record[4], 1, 4); // the packet
    record.insert(record.end(), path.begin(), path.end());
    record.push_back(0);
    std::vector<std::uint8_t> reply(4608);
    const std::uint32_t result = vxCustomTest(kRead, kByPath, record.data(), static_cast<std::uint8_t>(record.size()),
                                              nullptr, 0, 0, nullptr, nullptr, reply.data(), nullptr);
    const unsigned words = reply[14]; // two have the size last, one first
    if (result == VX_OK)
        size = words == 0 ? 0 : words == 2 ? Load32(&reply[20]) : Load16(&reply[16]);
    return result;
}

// The size of what goes over for a local file: a wrapped message is unwrapped beside it.
inline std::uint32_t SentSize(const std::string& local)
{
    char head[2] = {};
    std::ifstream(local, std::ios::binary).read(head, sizeof head);
    const std::string unwrapped = local + ".tmp";
    const bool isWrapped = head[0] == 'N' && head[1] == 'G' && fs::exists(unwrapped);
    return vxOSGetFileSize(isWrapped ? unwrapped.c_str() : local.c_str());
}

// A path that ends as a folder takes the file under its own name.
inline void Put(const Frame& frame, const fs::path& local, std::string_view target)
{
    std::string path = SignPath(target);
    const std::string file = LocalFile(local);
    if (EndsWith(path, "\\") || EndsWith(path, ":"))
        path += (EndsWith(path, ":") ? "\\" : "") + local.filename().string();
    Check(vxWriteSpecFileEx(PathOn(frame, path).c_str(), file.c_str()));
}

// Into a file of another name first, so that a failure leaves a former one as it was.
inline void Get(const Frame& frame, std::string_view from, const fs::path& local)
{
    const std::string path = PathOn(frame, from);
    const std::string part = LocalPath(local) + ".part";
    const auto ask = [&](std::uint32_t& size) { return IsDone(AskSize(path, frame.ChunkSize(), size)); };
    std::uint32_t before = 0;
    const bool isAnnounced = ask(before);
    std::error_code error;
    try {
        Check(vxReadSpecPathFileEx(path.c_str(), part.c_str()));
        const std::uint32_t got = vxOSGetFileSize(part.c_str());
        std::uint32_t after = before;
        // A file that grows meanwhile, as a log does, is whole with any length between two announcements.
        if (isAnnounced && got != before && (!ask(after) || got < before || got > after))
            throw Failure(VX_FAILED_OPERATION, "the sign announces " + std::to_string(after) + " bytes, but " +
                                                   std::to_string(got) + " came");
        fs::rename(part, local, error);
        if (error)
            throw Failure(VX_OPEN_FILE, "cannot write '" + local.string() + "': " + error.message());
    } catch (...) {
        fs::remove(part, error);
        throw;
    }
}

inline std::optional<ClockTime> FolderTimeAt(const std::uint8_t* date, const std::uint8_t* time)
{
    return FolderTime(Load16(date), Load16(time));
}

constexpr std::uint8_t kFolderMark = 0x10;
constexpr std::size_t kShortEntry = 32;

// The folder itself and the one above it are in a listing of some signs.
inline void AddEntry(std::vector<Entry>& entries, Entry entry)
{
    if (!entry.name.empty() && entry.name != "." && entry.name != "..")
        entries.push_back(std::move(entry));
}

// The name (260 bytes), size (32 bits), date and time (16 bits each) and the attributes.
inline std::uint32_t TakeLongEntry(std::uint8_t* entry, void* user) noexcept
{
    AddEntry(*static_cast<std::vector<Entry>*>(user),
             {Field(reinterpret_cast<const char*>(entry), 260), (entry[268] & kFolderMark) != 0, Load32(entry + 260),
              FolderTimeAt(entry + 264, entry + 266)});
    return VX_OK;
}

inline std::string Unpadded(const std::uint8_t* field, std::size_t size)
{
    std::string text = Field(reinterpret_cast<const char*>(field), size);
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

// An entry as FAT has it: name and extension, padded with blanks, attributes, time, date, size.
inline void TakeShortEntry(const std::uint8_t* entry, std::vector<Entry>& entries)
{
    constexpr std::uint8_t kDeleted = 0xE5;
    constexpr std::uint8_t kStandsForE5 = 0x05;
    constexpr std::uint8_t kVolumeLabel = 0x08;
    const std::string extension = Unpadded(entry + 8, 3);
    std::string name = Unpadded(entry, 8) + (extension.empty() ? "" : "." + extension);
    if (entry[0] == kDeleted || (entry[11] & kVolumeLabel) != 0)
        return;
    if (entry[0] == kStandsForE5)
        name[0] = static_cast<char>(kDeleted);
    AddEntry(entries, {name, (entry[11] & kFolderMark) != 0, Load32(entry + 28), FolderTimeAt(entry + 24, entry + 22)});
}

// Page after page, until the sign has no more or has told as many as there are.
inline std::vector<Entry> ListPages(const std::string& path)
{
    constexpr std::uint16_t kPage = 20;
    std::vector<Entry> entries;
    std::uint32_t total = 0;
    for (std::uint32_t start = 0, before = 1;
         start != before && start <= UINT16_MAX && (start == 0 || start < total);) {
        std::array<std::uint8_t, kPage * kShortEntry> page{};
        Check(vxGetDirFileEx(path.c_str(), static_cast<std::uint16_t>(start), kPage, &total, page.data(), kPage));
        before = start;
        for (std::size_t at = 0; at < page.size() && page[at] != 0; at += kShortEntry, ++start)
            TakeShortEntry(&page[at], entries);
    }
    return entries;
}

// A sign that makes no long listing has short names; one that cannot list at all says why once more.
inline std::vector<Entry> ListFolder(const Frame& frame, std::string_view folder)
{
    const std::string path = PathOn(frame, folder);
    std::vector<Entry> entries;
    if (!IsDone(vxLstLongFolderCB(path.c_str(), TakeLongEntry, &entries)))
        entries = ListPages(path);
    for (Entry& entry : entries)
        entry.name = frame.Decode(entry.name);
    return entries;
}

// Within one folder the file is renamed, otherwise moved. With a slash at its end the target is a folder.
inline void Move(const Frame& frame, std::string_view from, std::string_view to)
{
    constexpr std::size_t kLongestBoth = 254;
    const std::string old = SignPath(from);
    std::string target = SignPath(to);
    const bool isIntoFolder = EndsWith(target, "\\");
    if (isIntoFolder && !EndsWith(target, ":\\"))
        target.pop_back();
    const auto move = !isIntoFolder && IsSameFolder(old, target) ? vxRename : vxMove;
    const std::string oldBytes = frame.Encode(old);
    const std::string newBytes = frame.Encode(target);
    if (oldBytes.size() + newBytes.size() > kLongestBoth)
        Refuse("both paths together have " + std::to_string(kLongestBoth) + " bytes at most");
    Check(move(oldBytes.c_str(), newBytes.c_str()));
}

} // namespace detail
} // namespace vxsign

#endif
