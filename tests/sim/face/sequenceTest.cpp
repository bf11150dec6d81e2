// Sequence files as the sign reads them, the order of play, and when a file may play.
#include "sim/content/sequence.h"
#include "faceSamples.h"
#include "sim/content/playOrder.h"
#include "sim/content/schedule.h"

#include <tuple>

namespace vxsim::test {
namespace {

// What a list made for one file says of it: no schedule.
const Bytes kFlatRecord = Bytes{'D', 'T', 15, 255} + Bytes(20, 0) + BytesOf("QMSG.Nmg") + Bytes(4, 0);

const Bytes kScheduled =
    Bytes{'F',  'P',  15,   0x1F, 0x08, 0x20, 0x03, 0x15, 0x06, 0x30, 1, 1, // from 2008-03-15 06:30
          0x09, 0x20, 0x12, 0x31, 0x23, 0x59, 1,    0,    0,    0,    0, 0} +
    BytesOf("ABCDEFGH.BMP");

Bytes FileRecord(std::string_view path, const Bytes& pictureFields = {0, 0, 0, 0}, const Bytes& schedules = {})
{
    const auto count = static_cast<std::uint8_t>(schedules.size() / 18);
    const auto size = static_cast<std::uint8_t>(16 + path.size() + 1 + 4);
    return Bytes{'F', 'S', 0, 0, count, 0, 2, 0, size} + Bytes(7) + BytesOf(path) + Bytes{0} + pictureFields +
           schedules;
}

Bytes GroupHead(std::uint8_t children, std::string_view name, std::uint8_t subGroup = 0, std::uint8_t playType = 3)
{
    const auto size = static_cast<std::uint8_t>(16 + name.size());
    return Bytes{'G', 'P', 0, 0, children, 0, playType, 0, size, 0, 0, 0, subGroup, 0, 0, 0} + BytesOf(name);
}

Bytes Header(std::uint8_t version, std::uint16_t count)
{
    return {'S', 'Q', version, 0, static_cast<std::uint8_t>(count), static_cast<std::uint8_t>(count >> 8), 0, 0};
}

std::string Paths(const Bytes& bytes, std::uint64_t round = 0)
{
    const Sequence sequence = ParseSequence(bytes).value();
    std::string paths;
    for (const FileEntry* file : FilesInOrder(sequence, round))
        paths += file->path + '|';
    return paths;
}

TEST(Sequence, ReadsTheFlatForm)
{
    const auto sequence = ParseSequence(Header(4, 2) + kFlatRecord + kScheduled);
    ASSERT_TRUE(sequence);
    const std::vector<const FileEntry*> files = FilesInOrder(*sequence);
    ASSERT_EQ(files.size(), 2U);
    EXPECT_EQ(files[0]->path, "D:\\T\\QMSG.Nmg");
    EXPECT_TRUE(files[0]->schedules.empty());
    EXPECT_EQ(files[1]->path, "F:\\P\\ABCDEFGH.BMP") << "a full name has no terminator";
    const Schedule schedule{
        0x1F, {0x2008, 0x03, 0x15, 0x06, 0x30, true, true}, {0x2009, 0x12, 0x31, 0x23, 0x59, true, false}};
    EXPECT_EQ(files[1]->schedules, std::vector{schedule});

    EXPECT_EQ(Paths(Header(4, 2) + Bytes{'D', 0, 15, 255} + Bytes(32, 0) + kFlatRecord), "|D:\\T\\QMSG.Nmg|")
        << "a record without name";
}

TEST(Sequence, ReadsTheTree)
{
    const Bytes schedules = Bytes{0x7F, 0, 0x08, 0x20, 1, 1, 0, 0, 1, 1, 0x08, 0x20, 1, 1, 0x23, 0x59, 1, 1} +
                            Bytes{0x02, 0, 0, 0, 0, 0, 7, 0, 0, 1, 0, 0, 0, 0, 8, 0, 0, 1};
    const Bytes file = Header(6, 3) + FileRecord("D:\\T\\A", {0x2C, 0x01, '3', 255}, schedules) + GroupHead(2, "Day1") +
                       GroupHead(2, "Day1") + FileRecord("D:\\T\\B") + FileRecord("D:\\P\\C") +
                       GroupHead(1, "Evening\0", 1) + FileRecord("E:\\T\\D") + FileRecord("F:\\T\\E");
    EXPECT_EQ(Paths(file), "D:\\T\\A|D:\\T\\B|D:\\P\\C|E:\\T\\D|F:\\T\\E|");

    const auto sequence = ParseSequence(file);
    ASSERT_EQ(sequence->items.size(), 3U);
    const FileEntry& first = sequence->items[0].file.value();
    EXPECT_EQ(first.playTimes, 2);
    EXPECT_EQ(first.pictureStaySeconds, 300);
    EXPECT_EQ(first.pictureEntryMode, '3');
    EXPECT_EQ(first.pictureExitMode, 255);
    ASSERT_EQ(first.schedules.size(), 2U);
    EXPECT_EQ(first.schedules[0].end, (ScheduleTime{0x2008, 1, 1, 0x23, 0x59, true, true}));
    EXPECT_EQ(first.schedules[1].weekMask, 2);
    EXPECT_EQ(first.schedules[1].begin.hour, 7);

    const SequenceItem& group = sequence->items[1];
    EXPECT_FALSE(group.file);
    EXPECT_EQ(group.groupName, "Day1");
    EXPECT_EQ(group.playType, 3);
    ASSERT_EQ(group.children.size(), 3U) << "the files of the default child are the group's own";
    EXPECT_EQ(group.children[1].file.value().path, "D:\\P\\C");
    EXPECT_EQ(group.children[2].groupName, "Evening");
    EXPECT_EQ(group.children[2].children.size(), 1U);
}

TEST(Sequence, ShufflesGroupsThatPlayAtRandom)
{
    // First, a random group of A B C and a sub-group D E that keeps its order, last.
    const Bytes list = Header(6, 3) + FileRecord("first") + GroupHead(2, "G", 0, 1) + GroupHead(3, "G") +
                       FileRecord("A") + FileRecord("B") + FileRecord("C") + GroupHead(2, "S", 1, 0) + FileRecord("D") +
                       FileRecord("E") + FileRecord("last");
    std::set<std::string> orders;
    for (std::uint64_t round = 0; round < 400; ++round) {
        const std::string paths = Paths(list, round);
        EXPECT_EQ(paths.size(), std::string("first|A|B|C|D|E|last|").size());
        EXPECT_EQ(paths.rfind("first|", 0), 0U);
        EXPECT_EQ(paths.rfind("|last|"), paths.size() - 6);
        EXPECT_NE(paths.find("|D|E|"), std::string::npos);
        orders.insert(paths);
    }
    EXPECT_EQ(orders.size(), 24U) << "every order of its four members, and each file once";
    EXPECT_EQ(Paths(list, 7), Paths(list, 7));

    Sequence sequence = ParseSequence(list).value();
    PlayOrder order(std::move(sequence));
    std::string turns;
    for (std::uint64_t turn = 14; turn < 21; ++turn)
        turns += order.At(turn).path + '|';
    EXPECT_EQ(turns, Paths(list, 2));
    EXPECT_EQ(order.At(0).path, "first") << "back again";
}

TEST(Sequence, HonoursLengthsAndEndsWhereItStopsMakingSense)
{
    Bytes wide = Bytes{'F', 'S', 0, 0, 0, 0, 1, 1, 0x54, 0x01, 0, 0, 0, 0, 0, 0} + BytesOf("D:\\T\\LONG.NMG");
    wide.resize(340, 0xEE);
    wide[16 + 13] = 0;
    EXPECT_EQ(Paths(Header(6, 2) + wide + FileRecord("D:\\T\\B")), "D:\\T\\LONG.NMG|D:\\T\\B|");

    const Bytes good = FileRecord("D:\\T\\A");
    EXPECT_EQ(Paths(Header(6, 65535) + good), "D:\\T\\A|");
    EXPECT_EQ(Paths(Header(4, 65535) + kFlatRecord + Bytes(35, 'x')), "D:\\T\\QMSG.Nmg|");
    EXPECT_EQ(Paths(Header(6, 3) + good + Bytes(16, 'X') + good), "D:\\T\\A|") << "unknown tag";
    EXPECT_EQ(Paths(Header(6, 2) + good + Bytes{'F', 'S', 18, 0, 1, 0, 1, 0, 20, 0, 0, 0, 0, 0, 0, 0} + Bytes(21, 0)),
              "D:\\T\\A|")
        << "schedules beyond the file";
    EXPECT_EQ(Paths(Header(6, 2) + good + Bytes{'F', 'S', 0, 0, 0, 0, 1, 0, 19, 0, 0, 0, 0, 0, 0, 0} + Bytes(9, 0)),
              "D:\\T\\A|")
        << "a record too short for its fields";
    EXPECT_EQ(
        Paths(Header(6, 2) + good + Bytes{'G', 'P', 0, 0, 255, 255, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0} + good),
        "D:\\T\\A|");

    Bytes deep = Header(6, 1);
    for (int i = 0; i < 100000; ++i)
        deep.insert(deep.end(), {'G', 'P', 0, 0, 1, 0, 0, 0, 16, 0, 0, 0, 0, 0, 0, 0});
    EXPECT_EQ(Paths(deep + good), "");

    EXPECT_FALSE(ParseSequence(Header(5, 1) + good)) << "the form of the PC";
    EXPECT_FALSE(ParseSequence(BytesOf("SQ\4")));
    EXPECT_FALSE(ParseSequence(BytesOf("XX\4\0\0\0\0\0")));
}

constexpr bool kValid = true;

// Saturday, 2008-03-15.
constexpr Moment Saturday(std::uint16_t time)
{
    return {0x20080315, time, 6};
}

TEST(Schedule, HoldsWhenDayDateAndTimeFit)
{
    const ScheduleTime any{};
    const ScheduleTime march15{0x2008, 0x03, 0x15, 0, 0, kValid, false};
    const ScheduleTime march14{0x2008, 0x03, 0x14, 0, 0, kValid, false};
    const ScheduleTime six{0, 0, 0, 0x06, 0x00, false, kValid};
    const ScheduleTime nine59{0, 0, 0, 0x09, 0x59, false, kValid};
    const ScheduleTime ten{0, 0, 0, 0x10, 0x00, false, kValid};
    const ScheduleTime defaultBegin{0x2008, 1, 1, 0, 0, kValid, kValid};
    const ScheduleTime defaultEnd{0x2008, 1, 1, 0x23, 0x59, kValid, kValid};
    const std::tuple<const char*, Moment, Schedule, bool> rows[] = {
        {"always", Saturday(0x2359), {127, defaultBegin, defaultEnd}, true},
        {"always, without weekdays", Saturday(0x0000), {255, defaultBegin, defaultEnd}, true},
        {"weekends, else always", Saturday(0x1200), {0x41, defaultBegin, defaultEnd}, true},
        {"Sunday to Friday", Saturday(0x1200), {0x3F, defaultBegin, defaultEnd}, false},
        {"Sunday is bit 0", {0x20080316, 0, 0}, {0x01, any, any}, true},
        {"Monday is bit 1", {0x20080316, 0, 0}, {0x02, any, any}, false},
        {"no day is every day", Saturday(0), {0, any, any}, true},
        {"bit 7 is no day", Saturday(0), {0x81, any, any}, false},
        {"first day", Saturday(0x0000), {127, march15, any}, true},
        {"the day after", Saturday(0x0000), {127, any, march14}, false},
        {"last day", Saturday(0x2359), {127, march14, march15}, true},
        {"the day before", {0x20080314, 0x2359, 5}, {127, march15, any}, false},
        {"years weigh most", {0x20090101, 0, 4}, {127, march15, any}, true},
        {"first minute", Saturday(0x0600), {127, six, ten}, true},
        {"the minute before", Saturday(0x0559), {127, six, ten}, false},
        {"last minute", Saturday(0x0959), {127, six, nine59}, true},
        {"the minute after", Saturday(0x1000), {127, six, nine59}, false},
        {"BCD: 9:59 is before 10:00", Saturday(0x0958), {127, nine59, ten}, false},
        {"over midnight, evening", Saturday(0x2300), {127, ten, six}, true},
        {"over midnight, morning", Saturday(0x0600), {127, ten, six}, true},
        {"over midnight, day", Saturday(0x0601), {127, ten, six}, false},
        {"open end", Saturday(0x2359), {127, six, any}, true},
        {"digits that are none", Saturday(0), {127, {0xFFFF, 255, 255, 255, 255, true, true}, any}, false},
    };
    for (const auto& [rule, moment, schedule, holds] : rows)
        EXPECT_EQ(MayPlay({&schedule, 1}, moment), holds) << rule;

    EXPECT_TRUE(MayPlay({}, Saturday(0)));
    const std::vector<Schedule> two{{127, any, march14}, {0x40, any, any}};
    EXPECT_TRUE(MayPlay(two, Saturday(0))) << "one of them is enough";
}

} // namespace
} // namespace vxsim::test
