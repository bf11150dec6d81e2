// playlist preview: what the list shows, without a sign.
#include "vxctl/cli/clockTime.h"
#include "vxctl/cli/command.h"
#include "vxctl/cli/encoding.h"
#include "vxctl/cli/faceSize.h"
#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/numbers.h"
#include "vxctl/cli/tables.h"
#include "vxctl/playlist/gif.h"
#include "vxctl/playlist/playList.h"
#include "vxctl/show/preview.h"

#include "sim/content/player.h"
#include "sim/content/show.h"
#include "sim/face/png.h"

#include <algorithm>
#include <memory>

namespace vxctl {

namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kFrameMs = 100;

struct Wanted
{
    std::string picture;
    FaceSize size;
    std::string encoding;
    std::uint32_t seconds;
    std::optional<ClockTime> moment;

    std::shared_ptr<vxsim::Font> Font() const
    {
        auto font = std::make_shared<vxsim::Font>();
        font->SetEncoding(encoding);
        return font;
    }
};

vxsim::Moment ToMoment(const ClockTime& time)
{
    const std::uint32_t year = std::uint32_t{ToBcd(time.year / 100U)} << 8 | ToBcd(time.year % 100U);
    return {year << 16 | std::uint32_t{ToBcd(time.month)} << 8 | ToBcd(time.day),
            static_cast<std::uint16_t>(ToBcd(time.hour) << 8 | ToBcd(time.minute)), Weekday(time)};
}

vxsim::FileEntry ToEntry(const VXPLAYLIST_FILE_INFO& info)
{
    vxsim::FileEntry entry{info.fileName, info.playTimes, info.PicStaySec, info.PicInMode, info.PicOutMode, {}};
    for (std::size_t i = 0; i < info.schCount; ++i) {
        const SCH& at = info.SCH[i];
        entry.schedules.push_back(
            {at.bweek_rep,
             {at.b_year, at.b_month, at.b_day, at.b_hour, at.b_minute, at.b_date_valid == 1, at.b_time_valid == 1},
             {at.e_year, at.e_month, at.e_day, at.e_hour, at.e_minute, at.e_date_valid == 1, at.e_time_valid == 1}});
    }
    return entry;
}

// What is wrong with the files of the list; the rest of them stays in `files`.
Report::Json Examine(const PlayList& list, const Wanted& wanted, std::vector<vxsim::FileEntry>& files,
                     const Report& report)
{
    Report::Json warnings = Report::Json::array();
    const auto font = wanted.Font();
    const auto warn = [&](const std::string& name, const std::string& what) {
        warnings.push_back({{"file", name}, {"warning", what}});
        report.Line(name + ": " + what);
    };
    std::erase_if(files, [&](const vxsim::FileEntry& file) {
        const fs::path path = list.Folder() / file.path;
        std::error_code error;
        if (!fs::is_regular_file(path, error)) {
            warn(file.path, "missing");
            return true;
        }
        const auto bytes = ReadWhole(path.string());
        if (!vxsim::Show::Load(bytes, {}, wanted.size.width, wanted.size.height, *font)) {
            warn(file.path, "nothing that can be shown");
            return true;
        }
        if (const std::string why = WhyNotFitting(bytes, wanted.size, wanted.encoding); !why.empty())
            warn(file.path, "the text does not fit: " + why);
        return false;
    });
    return warnings;
}

vxsim::Player MakePlayer(const PlayList& list, const Wanted& wanted)
{
    vxsim::MomentClock clock;
    if (wanted.moment)
        clock = [moment = ToMoment(*wanted.moment)](std::uint64_t) { return moment; };
    return {wanted.size.width,
            wanted.size.height,
            [folder = list.Folder()](std::string_view name) { return std::optional(folder / name); },
            {},
            clock,
            wanted.Font()};
}

vxsim::Sequence ToSequence(const std::vector<vxsim::FileEntry>& files)
{
    vxsim::Sequence sequence{6, {}};
    for (const vxsim::FileEntry& file : files)
        sequence.items.push_back({file});
    return sequence;
}

void WriteAnimation(const PlayList& list, const Wanted& wanted, const std::vector<vxsim::FileEntry>& files)
{
    const LocalTarget target(wanted.picture, "preview.gif");
    vxsim::Player player = MakePlayer(list, wanted);
    player.Play(ToSequence(files), 0);
    Gif gif(target.Temporary().string(), wanted.size.width, wanted.size.height);
    vxsim::Canvas shown(wanted.size.width, wanted.size.height);
    player.Draw(0, shown);
    std::uint64_t since = 0;
    const std::uint64_t endMs = std::uint64_t{wanted.seconds} * 1000;
    for (std::uint64_t ms = kFrameMs; ms <= endMs; ms += kFrameMs) {
        vxsim::Canvas face(wanted.size.width, wanted.size.height);
        player.Draw(ms, face);
        if (face == shown && ms != endMs)
            continue;
        gif.Add(shown, static_cast<std::uint32_t>(ms - since));
        shown = face;
        since = ms;
    }
    gif.Close();
    target.Keep();
}

// Each file as its first page is when it has come, in columns.
void WriteSheet(const PlayList& list, const Wanted& wanted, const std::vector<vxsim::FileEntry>& files,
                const Report& report)
{
    constexpr int kGap = 4;
    constexpr int kMostRows = 12;
    const int stepX = wanted.size.width + kGap;
    const int stepY = wanted.size.height + kGap;
    const int count = static_cast<int>(files.size());
    const int rows = std::clamp(count, 1, std::min(kMostRows, vxsim::Canvas::kMostPixelsPerSide / stepY));
    const int columns = std::min((count + rows - 1) / rows, vxsim::Canvas::kMostPixelsPerSide / stepX);
    vxsim::Canvas sheet(std::max(1, columns) * stepX - kGap, rows * stepY - kGap);
    constexpr vxsim::Rgb kFrame{48, 48, 48};
    for (int y = 0; y < sheet.Height(); ++y)
        for (int x = 0; x < sheet.Width(); ++x)
            if (x % stepX == wanted.size.width + 1 || y % stepY == wanted.size.height + 1)
                sheet.Set(x, y, kFrame);
    const auto font = wanted.Font();
    for (int i = 0; i < std::min(count, rows * columns); ++i) {
        const vxsim::FileEntry& file = files[static_cast<std::size_t>(i)];
        const auto show = vxsim::Show::Load(ReadWhole((list.Folder() / file.path).string()), {}, wanted.size.width,
                                            wanted.size.height, *font);
        vxsim::Canvas face(wanted.size.width, wanted.size.height);
        if (show)
            show->Draw(show->WholeMs(0), *font, face);
        const int column = i / rows;
        const int row = i % rows;
        for (int y = 0; y < wanted.size.height; ++y)
            for (int x = 0; x < wanted.size.width; ++x)
                sheet.Set(column * stepX + x, row * stepY + y, face.At(x, y));
        report.Line("column " + std::to_string(column + 1) + ", row " + std::to_string(row + 1) + ": " + file.path);
    }
    const LocalTarget target(wanted.picture, "preview.png");
    if (!vxsim::WritePngFace(sheet, target.Temporary()))
        throw SignFailure(VX_OPEN_FILE);
    target.Keep();
}

Wanted WantedBy(const Session& session, const Args& args)
{
    Wanted wanted{args.Text("FILE"),
                  ParseFaceSize(args.Text("--size")),
                  EncodingFor(session, args),
                  args.Number("--seconds"),
                  {}};
    if (args.Has("--at"))
        wanted.moment = ReadTime(args.Text("--at"));
    const std::string extension = fs::path(wanted.picture).extension().string();
    if (extension != ".gif" && extension != ".png")
        throw UsageError("a preview is a .gif or a .png file");
    return wanted;
}

std::uint32_t DrawList(Session& session, const Args& args)
{
    const Wanted wanted = WantedBy(session, args);
    const PlayList list = PlayList::Open(args.Text("--list"));
    std::vector<vxsim::FileEntry> files;
    std::ranges::transform(list.Files(), std::back_inserter(files), ToEntry);
    session.report.Put("warnings", Examine(list, wanted, files, session.report));
    session.report.Put("files", files.size());
    session.report.Put("picture", wanted.picture);
    if (wanted.picture.ends_with(".gif"))
        WriteAnimation(list, wanted, files);
    else
        WriteSheet(list, wanted, files, session.report);
    return VX_OK;
}

const Command kCommands[] = {
    {
        .name = "playlist preview",
        .help = "Draw what the list shows, without a sign",
        .details =
            R"(As a .gif its first seconds, as a .png every file once, in columns. Groups play in the order of the list. Warns of
files that are missing or cannot be shown, and of text that does not fit its pages.)",
        .examples = R"(vxctl playlist preview shop.gif
vxctl playlist preview --size 192x64 shop.png
vxctl playlist preview --at "2026-12-24 18:00" --seconds 60 christmas.gif)",
        .arguments = {WriteFile("FILE", "the picture, .gif or .png"),
                      Of(kFaceSize, "--size", "pixels of the face").Default("128x32"), kEncoding,
                      Number("--seconds", 1, 600, "length of a .gif").In("SECONDS").Default("20"),
                      Of(kTimeOrNow, "--at", "as of that time, by the schedules; otherwise every file plays (.gif)")},
        .line = Line::kNone,
        .run = DrawList,
    },
};

} // namespace

const CommandTable kPlayListPreviewCommands{"Play lists", kCommands};

} // namespace vxctl
