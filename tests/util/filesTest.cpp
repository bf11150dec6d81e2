// Files, paths and lines of text, and files that get new contents as a whole.
#include "playlist/recordFile.h"
#include "support/fullDisk.h"
#include "support/tempFolder.h"
#include "util/file.h"
#include "util/replaceFile.h"

#include <vxsign/local.h>
#include <vxsign/result.h>

#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <tuple>
#include <unistd.h>

namespace vxsign::test {
namespace {

namespace fs = std::filesystem;
using Files = FolderTest;

TEST_F(Files, SizesAndOpening)
{
    const std::string path = folder.Write("a", "12345");
    const File file = OpenFile(path.c_str(), "rb");
    ASSERT_TRUE(file);
    EXPECT_EQ(FileSize(file), 5u);
    char bytes[8] = {};
    EXPECT_EQ(ReadSome(file, bytes, sizeof bytes), 5u) << "the size leaves the stream at its beginning";
#if !defined(_WIN32)
    EXPECT_NE(::fcntl(::fileno(file.get()), F_GETFD) & FD_CLOEXEC, 0);
#endif

    EXPECT_FALSE(OpenFile(folder.Path().c_str(), "rb")) << "a folder";
    EXPECT_FALSE(OpenFile(path.c_str(), ""));
    EXPECT_FALSE(OpenFile(nullptr, "rb"));
    EXPECT_EQ(vxOSGetFileSize(path.c_str()), 5u);
    EXPECT_EQ(vxOSGetFileSize(folder.Path("absent").c_str()), 0u);
    EXPECT_EQ(vxOSGetFileSize(folder.Path().c_str()), 0u);
    EXPECT_EQ(vxOSGetFileSize(nullptr), 0u);

    fs::resize_file(path, 0xFFFFFFFF);
    EXPECT_EQ(vxOSGetFileSize(path.c_str()), 0xFFFFFFFFu);
    fs::resize_file(path, 0x100000000);
    EXPECT_EQ(vxOSGetFileSize(path.c_str()), 0u);

    // A full device shows when the file is closed.
    File full = OpenFile("/dev/full", "wb");
    ASSERT_TRUE(full);
    EXPECT_TRUE(WriteAll(full, "x", 1));
    EXPECT_FALSE(CloseFile(full));
    EXPECT_FALSE(full);
    EXPECT_FALSE(CloseFile(full));
}

// Where positions of 31 or 32 bits end. The files have holes, and take no room.
TEST_F(Files, PositionsAndSizesHave64Bits)
{
    for (const std::uint64_t at : {std::uint64_t{0x7FFFFFFE}, std::uint64_t{0xFFFFFFFE}, std::uint64_t{5} << 30}) {
        SCOPED_TRACE(at);
        const std::string path = folder.Write("large", "");
        fs::resize_file(path, at);
        std::ofstream(path, std::ios::binary | std::ios::app) << "ab\n\rcd\n";
        File file = OpenFile(path.c_str(), "rb");
        EXPECT_EQ(FileSize(file), at + 7);
        EXPECT_EQ(SignFileSize(file).has_value(), at < 0xFFFF0000);
        ASSERT_TRUE(Seek(file, at));
        std::uint8_t line[8];
        EXPECT_EQ(vxReadFileLine(file.get(), line, sizeof line), 3u);
        EXPECT_EQ(Position(file), at + 4);
        playlist::RecordFile records(std::move(file));
        records.Read(at + 4, line, sizeof line);
        EXPECT_EQ(std::memcmp(line, "cd\n\0\0\0\0", sizeof line), 0);
    }
}

TEST_F(Files, Shortcuts)
{
    const std::string a = folder.Write("a", "first");
    const std::string b = folder.Write("b", "second");
    EXPECT_EQ(vxOSCopyFile(a.c_str(), b.c_str(), 1), 0u);
    EXPECT_EQ(folder.Read("b"), "second");
    EXPECT_NE(vxOSCopyFile(a.c_str(), b.c_str(), 0), 0u);
    EXPECT_EQ(folder.Read("b"), "first");
    EXPECT_NE(vxOSCopyFile(a.c_str(), folder.Path("c").c_str(), 1), 0u);
    EXPECT_EQ(vxOSCopyFile(folder.Path("absent").c_str(), b.c_str(), 0), 0u);

    const std::string made = folder.Path("made");
    EXPECT_NE(vxOSCreateDir(made.c_str()), 0u);
    EXPECT_EQ(vxOSCreateDir(made.c_str()), 0u) << "there already";
    EXPECT_EQ(vxFSDelete(made.c_str()), 0u) << "a folder";
    EXPECT_NE(vxFSDelete(a.c_str()), 0u);
    EXPECT_EQ(vxFSDelete(a.c_str()), 0u);
    EXPECT_FALSE(folder.Has("a"));

    EXPECT_EQ(vxFSDelete(nullptr), 0u);
    EXPECT_EQ(vxOSCreateDir(nullptr), 0u);
    EXPECT_EQ(vxOSCopyFile(nullptr, b.c_str(), 0), 0u);
    EXPECT_EQ(vxOSCopyFile(b.c_str(), nullptr, 0), 0u);
    EXPECT_EQ(vxFOpen(nullptr, "r"), nullptr);
    EXPECT_EQ(vxFOpen(b.c_str(), nullptr), nullptr);
    FILE* const stream = vxFOpen(b.c_str(), "a");
    ASSERT_NE(stream, nullptr);
    std::fputs("+", stream);
    std::fclose(stream);
    EXPECT_EQ(folder.Read("b"), "first+");
}

TEST(SplitPath, Parts)
{
    const std::tuple<const char*, const char*, const char*, const char*, const char*> rows[] = {
        {"C:\\T\\QMSG.Nmg", "C:", "\\T\\", "QMSG", ".Nmg"},
        {"/var/tmp.d/file", "", "/var/tmp.d/", "file", ""},
        {"D:a/b\\c.tar.gz", "D:", "a/b\\", "c.tar", ".gz"},
        {"/only/folder/", "", "/only/folder/", "", ""},
        {".hidden", "", "", "", ".hidden"},
        {"C:", "C:", "", "", ""},
        {"", "", "", "", ""},
    };
    for (const auto& [path, driveOf, folderOf, nameOf, extensionOf] : rows) {
        char drive[3];
        char folder[32];
        char name[16];
        char extension[8];
        EXPECT_EQ(vxStr_splitpath(path, drive, sizeof drive, folder, sizeof folder, name, sizeof name, extension,
                                  sizeof extension),
                  0);
        EXPECT_STREQ(drive, driveOf);
        EXPECT_STREQ(folder, folderOf);
        EXPECT_STREQ(name, nameOf);
        EXPECT_STREQ(extension, extensionOf);
    }
}

TEST(SplitPath, FailuresClearTheBuffers)
{
    char name[5] = "old";
    char extension[5] = "old";
    const auto split = [&](const char* path, std::uint8_t nameSize) {
        std::strcpy(extension, "old");
        return vxStr_splitpath(path, nullptr, 0, nullptr, 0, name, nameSize, extension, sizeof extension);
    };
    EXPECT_EQ(split("/a/QMSG.Nmg", 5), 0);
    EXPECT_STREQ(name, "QMSG");
    EXPECT_EQ(split("/a/QMSG.Nmg", 4), 34);
    EXPECT_STREQ(name, "");
    EXPECT_STREQ(extension, "");
    EXPECT_EQ(split(nullptr, 5), 22);
    EXPECT_STREQ(extension, "");
    EXPECT_EQ(split("/a/QMSG.Nmg", 0), 22) << "a buffer without size";
    EXPECT_STREQ(extension, "");
    EXPECT_EQ(vxStr_splitpath("a", nullptr, 1, nullptr, 0, nullptr, 0, nullptr, 0), 22) << "a size without buffer";
    EXPECT_EQ(vxStr_splitpath("a.b", nullptr, 0, nullptr, 0, nullptr, 0, nullptr, 0), 0);

    // Printing cuts and terminates.
    char out[6] = "xxxxx";
    EXPECT_EQ(vxPrintBuf(out, 5, "%s-%d", "abc", 42), 0u);
    EXPECT_STREQ(out, "abc-");
    EXPECT_EQ(vxPrintBuf(out, 0, "%d", 1), 0u);
    EXPECT_STREQ(out, "abc-");
    EXPECT_EQ(vxPrintBuf(nullptr, 5, "%d", 1), 0u);
}

TEST_F(Files, ReadingALinePassesOverOneByteBehindTheLineFeed)
{
    const File file = OpenFile(folder.Write("lines", "ab\n\rcd\nXtail").c_str(), "rb");
    std::uint8_t buffer[10];
    const auto read = [&](std::uint32_t size) {
        std::memset(buffer, 'x', sizeof buffer);
        const std::uint32_t length = vxReadFileLine(file.get(), buffer, size);
        return std::pair(length, std::string(reinterpret_cast<const char*>(buffer), sizeof buffer));
    };
    using namespace std::string_literals;
    EXPECT_EQ(read(8), std::pair(3u, "ab\n\0\0\0\0\0xx"s)) << "what is left of the size is cleared";
    EXPECT_EQ(read(2), std::pair(2u, "cdxxxxxxxx"s)) << "no line feed within the size";
    EXPECT_EQ(read(2), std::pair(1u, "\n\0xxxxxxxx"s));
    EXPECT_EQ(read(10), std::pair(4u, "tailxxxxxx"s));
    EXPECT_EQ(read(10).first, 0u);

    EXPECT_EQ(vxReadFileLine(nullptr, buffer, 4), 0u);
    EXPECT_EQ(vxReadFileLine(file.get(), nullptr, 4), 0u);
    EXPECT_EQ(vxReadFileLine(file.get(), buffer, 0), 0u);
}

#if !defined(_WIN32) // whose files have other owners, and no modes

// For whom modes count, as they do not for root.
class AsNobody
{
public:
    AsNobody() { EXPECT_EQ(::seteuid(::geteuid() == 0 ? kNobody : ::geteuid()), 0); }
    ~AsNobody() { EXPECT_EQ(::seteuid(::getuid()), 0); }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;

private:
    static constexpr uid_t kNobody = 65534;
};

TEST(ReplaceFile, ANewFileTakesThePlaceOfTheOld)
{
    const TempFolder folder;
    fs::create_directory(folder.Path("real"));
    const std::string real = folder.Write("real/file", "old");
    const std::string link = folder.Path("link");
    fs::permissions(real, fs::perms(0640));
    fs::create_symlink("real/file", link);
    const File reader = OpenFile(real.c_str(), "rb");
    EXPECT_TRUE(ReplaceFile(link, "new contents"));
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(folder.Read("real/file"), "new contents");
    EXPECT_EQ(fs::status(real).permissions(), fs::perms(0640));
    char bytes[8] = {};
    EXPECT_EQ(ReadSome(reader, bytes, sizeof bytes), 3u) << "who had it open reads on in the old one";

    EXPECT_TRUE(ReplaceFile(folder.Path("made"), "x"));
    const std::string tooMuch(17, 'x');
    bool written = false;
    {
        const FullDisk full;
        written = ReplaceFile(link, tooMuch) || ReplaceFile(folder.Path("half"), tooMuch);
    }
    EXPECT_FALSE(written);
    EXPECT_EQ(folder.Read("real/file"), "new contents");
    EXPECT_FALSE(ReplaceFile(folder.Path("no/such"), "x"));
    EXPECT_FALSE(ReplaceFile(folder.Path(), "x")) << "a folder";
    EXPECT_EQ(folder.Names(), "link made real") << "nothing half written is left";
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path("real")), {}), 1);
}

TEST(ReplaceFile, WhatNoOtherFileCanReplaceIsWrittenInPlace)
{
    const TempFolder folder;
    const std::string longest(255, 'n'); // beside it there is no name left
    EXPECT_TRUE(ReplaceFile(folder.Write(longest, "old contents"), "new"));
    EXPECT_EQ(folder.Read(longest), "new");

    fs::create_symlink("target", folder.Path("link"));
    EXPECT_TRUE(ReplaceFile(folder.Path("link"), "new"));
    EXPECT_TRUE(fs::is_symlink(folder.Path("link")));
    EXPECT_EQ(folder.Read("target"), "new");

    const std::string pipe = folder.Path("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const int reader = ::open(pipe.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    EXPECT_TRUE(ReplaceFile(pipe, "new"));
    EXPECT_TRUE(fs::is_fifo(pipe));
    char bytes[8] = {};
    EXPECT_EQ(::read(reader, bytes, sizeof bytes), 3);
    ::close(reader);
}

TEST(ReplaceFile, OwnersAndModesCount)
{
    using Row = std::tuple<const char*, int, int, bool>;
    for (const auto& [name, folderMode, fileMode, isWritten] :
         {Row{"in a folder that takes no file", 0555, 0666, true}, Row{"of another owner", 0777, 0666, true},
          Row{"write-protected", 0777, 0444, false}}) {
        SCOPED_TRACE(name);
        const TempFolder folder;
        const std::string file = folder.Write("file", "old contents");
        fs::permissions(file, fs::perms(fileMode));
        fs::permissions(folder.Path(), fs::perms(folderMode));
        bool written = false;
        {
            const AsNobody other;
            written = ReplaceFile(file, "new");
        }
        EXPECT_EQ(written, isWritten);
        EXPECT_EQ(folder.Read("file"), isWritten ? "new" : "old contents");
        struct stat status = {};
        ASSERT_EQ(::stat(file.c_str(), &status), 0);
        EXPECT_EQ(status.st_uid, ::getuid());
        EXPECT_EQ(status.st_mode & 07777, static_cast<mode_t>(fileMode));
        EXPECT_EQ(folder.Names(), "file");
        fs::permissions(folder.Path(), fs::perms::owner_all);
    }
}

#endif

} // namespace
} // namespace vxsign::test
