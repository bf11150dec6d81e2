// Play lists: made of local files and sent with them, and fetched.
#ifndef VXSIGN_CPP_PLAYLIST_HPP
#define VXSIGN_CPP_PLAYLIST_HPP

#include <vxsign/cpp/content.hpp>
#include <vxsign/cpp/files.hpp>
#include <vxsign/playlist.h>

namespace vxsign::detail {

// The thread's play list, bound to a file of a folder. What it holds goes with it.
class List
{
public:
    explicit List(const fs::path& folder)
    {
        std::string directory = LocalPath(folder);
        char name[] = "playlist.xml";
        Check(vxPLInit(directory.data(), name));
    }
    ~List() { vxPLDelItem(Root().data(), 0, UINT16_MAX); }
    List(const List&) = delete;
    List& operator=(const List&) = delete;

    // Adds a file of the folder at the end. Gives its path on the sign.
    static std::string Add(const fs::path& file, const fs::path& source, std::uint16_t staySeconds, char drive)
    {
        std::unique_ptr<VXPLAYLIST_FILE_INFO, void (*)(void*)> info(
            static_cast<VXPLAYLIST_FILE_INFO*>(std::calloc(1, sizeof(VXPLAYLIST_FILE_INFO))), std::free);
        if (!info)
            throw Failure(VX_CALL_2);
        const Place place(file.string(), drive);
        file.filename().string().copy(info->fileName, sizeof info->fileName - 1);
        source.string().copy(info->pcFileName, sizeof info->pcFileName - 1);
        info->playTimes = 1;
        info->Drive = 'D';
        info->Type = static_cast<char>(place.folder);
        info->PicStaySec = staySeconds;
        Check(vxPLAddFile(Root().data(), UINT16_MAX, info.get()));
        VXPLAYLIST_FILE_INFO found{};
        Check(vxPLGetFile((Root() + info->fileName).data(), &found));
        if (found.fileName[0] == '\0')
            throw Failure(VX_FAILED_OPERATION, "'" + file.filename().string() + "' does not go into a play list");
        static_cast<void>(info.release()); // the list has it
        return place.path;
    }

    // The records of all files at a level and below it: the root, groups, sub-groups.
    static std::vector<VXPLAYLIST_FILE_INFO> Files(const std::string& level = Root(), int levelsBelow = 2)
    {
        std::vector<VXPLAYLIST_ITEM> items(UINT16_MAX);
        std::uint16_t count = UINT16_MAX; // it stays so if there is no such level
        std::string path = level;
        Check(vxPLGetItems(path.data(), &count, items.data()));
        items.resize(count == UINT16_MAX ? 0 : count);
        std::vector<VXPLAYLIST_FILE_INFO> files;
        for (const VXPLAYLIST_ITEM& item : items) {
            const std::string name = Field(item.name);
            VXPLAYLIST_FILE_INFO info{};
            if (item.kind == VX_ENTRY_GROUP) {
                const auto below =
                    levelsBelow > 0 ? Files(level + name + '/', levelsBelow - 1) : std::vector<VXPLAYLIST_FILE_INFO>();
                files.insert(files.end(), below.begin(), below.end());
            } else if (vxPLGetFile((level + name).data(), &info) == VX_OK && Field(info.fileName) == name) {
                files.push_back(info);
            }
        }
        return files;
    }

private:
    static std::string Root() { return "/"; }
};

// Copies the files beside each other, where the list has them.
inline std::vector<fs::path> CopyInto(const fs::path& folder, View<fs::path> files)
{
    constexpr std::size_t kMost = 255;
    if (files.size() == 0 || files.size() > kMost)
        Refuse("a play list has 1 to " + std::to_string(kMost) + " files");
    std::vector<fs::path> copies;
    for (const fs::path& file : files) {
        LocalFile(file);
        const fs::path copy = folder / file.filename();
        if (std::find(copies.begin(), copies.end(), copy) != copies.end())
            Refuse("two files are named '" + file.filename().string() + "'");
        std::error_code error;
        if (!fs::copy_file(file, copy, error))
            throw Failure(VX_OPEN_FILE, "cannot copy '" + file.string() + "': " + error.message());
        copies.push_back(copy);
    }
    return copies;
}

// The library passes over a file that does not arrive, and the sign's list of files names it all the same. Without
// that list the next sending sends all.
inline void CheckArrival(const Frame& frame, const std::vector<fs::path>& files, const std::vector<std::string>& paths)
{
    for (std::size_t i = 0; i < files.size(); ++i) {
        std::uint32_t size = 0;
        if (frame.failed.empty() && IsDone(AskSize(paths[i], frame.ChunkSize(), size)) &&
            size == SentSize(files[i].string()))
            continue;
        IsDone(vxDelete("D:\\FILELSTI.LST"));
        throw Failure(VX_FAILED_OPERATION, "'" + files[i].filename().string() +
                                               "' or a file beside it is not whole on the sign" +
                                               (frame.failed.empty() ? "" : ": " + frame.failed));
    }
}

inline void SendList(const Frame& frame, View<fs::path> files, std::uint16_t staySeconds,
                     std::optional<std::uint8_t> index)
{
    const TempFolder folder;
    const std::vector<fs::path> copies = CopyInto(folder.Path(), files);
    Check(vxInitProperty());
    const List list(folder.Path());
    std::vector<std::string> paths;
    for (std::size_t i = 0; i < copies.size(); ++i)
        paths.push_back(List::Add(copies[i], files.begin()[i], staySeconds, DriveOfSign()));
    Check(index ? vxPLSpeSendToLED(*index, 1) : vxPLSendToLED(1));
    CheckArrival(frame, copies, paths);
}

// The library passes over a file that does not come. A part of it goes: it would not be fetched again.
inline std::vector<std::string> FetchList(const Frame& frame, const fs::path& folder)
{
    constexpr std::size_t kLongestFetched = 31;
    std::error_code error;
    fs::create_directories(LocalPath(folder), error);
    const List list(folder);
    Check(vxPLReadFromLED(1));
    std::vector<std::string> names;
    for (const VXPLAYLIST_FILE_INFO& info : List::Files()) {
        const std::string name = Field(info.fileName);
        if (name.empty() || name.find_first_of("/\\:") != std::string::npos)
            continue; // leads elsewhere, and is not fetched
        const std::string path =
            (std::string{info.Drive, ':', '\\', info.Type, '\\'} + name).substr(0, kLongestFetched);
        const fs::path local = folder / name;
        std::uint32_t size = 0;
        Check(AskSize(path, frame.ChunkSize(), size));
        if (vxOSGetFileSize(local.string().c_str()) != size) {
            fs::remove(local, error);
            throw Failure(VX_FAILED_OPERATION, "'" + name + "' did not come whole to this PC");
        }
        names.push_back(name);
    }
    Check(vxPLSave());
    return names;
}

} // namespace vxsign::detail

#endif
