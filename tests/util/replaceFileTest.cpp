// Files that get new contents as a whole.
#include "util/replaceFile.h"
#include "support/fullDisk.h"
#include "support/tempFolder.h"
#include "util/file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <tuple>
#include <unistd.h>

namespace vxsign::test {
namespace {

namespace fs = std::filesystem;

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

} // namespace
} // namespace vxsign::test
