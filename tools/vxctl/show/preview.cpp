// Draws previews.
#include "vxctl/show/preview.h"

#include "vxctl/cli/failure.h"
#include "vxctl/cli/localFiles.h"
#include "vxctl/playlist/gif.h"
#include "vxctl/show/drawnFace.h"

#include "sim/face/png.h"

#include <algorithm>
#include <utility>

namespace vxctl {

namespace {

constexpr std::uint64_t kFrameMs = 100;       // of what comes and leaves
constexpr std::uint64_t kLongestMs = 600'000; // that a frame of a GIF has

// The pages of a kind, by their numbers: "1, 3".
using Kind = std::pair<const vxsim::Canvas*, std::string>;

std::vector<Kind> KindsOf(const std::vector<vxsim::Canvas>& faces)
{
    std::vector<Kind> kinds;
    for (std::size_t i = 0; i < faces.size(); ++i) {
        const std::string number = std::to_string(i + 1);
        const auto same = std::ranges::find_if(kinds, [&](const Kind& kind) { return *kind.first == faces[i]; });
        if (same == kinds.end())
            kinds.emplace_back(&faces[i], number);
        else
            same->second += ", " + number;
    }
    return kinds;
}

void PrintFace(const Report& report, const std::string& title, const vxsim::Canvas& face)
{
    report.Line(title);
    for (const Shown& line : DrawnFace(face))
        report.Line(line);
}

} // namespace

void Preview::AddFile(FileBytes file, vxsim::Timing timing)
{
    auto show = vxsim::Show::Load(file, timing, size.width, size.height, font);
    if (!show)
        throw UsageError("nothing that a sign can show");
    shows.push_back(std::move(*show));
}

std::size_t Preview::Pages() const
{
    std::size_t pages = 0;
    for (const vxsim::Show& show : shows)
        pages += show.Pages();
    return pages;
}

std::vector<vxsim::Canvas> Preview::Faces()
{
    std::vector<vxsim::Canvas> faces;
    for (const vxsim::Show& show : shows) {
        for (std::uint64_t page = 0; page < show.Pages(); ++page)
            show.Draw(show.WholeMs(page), font, faces.emplace_back(size.width, size.height));
    }
    return faces;
}

void Preview::Print(const Report& report, std::size_t page)
{
    if (report.IsJson())
        return;
    const std::vector<vxsim::Canvas> faces = Faces();
    const auto title = [&faces](const std::string& numbers) {
        return std::string("page ").append(numbers).append(" of ").append(std::to_string(faces.size()));
    };
    if (page > 0)
        return PrintFace(report, title(std::to_string(page)), faces[page - 1]);
    for (const auto& [face, numbers] : KindsOf(faces))
        PrintFace(report, title(numbers), *face);
}

void Preview::WritePng(const std::filesystem::path& path, std::size_t page)
{
    const LocalTarget target(path.string(), "preview.png");
    if (!vxsim::WritePngFace(Faces()[page - 1], target.Temporary()))
        throw SignFailure(VX_OPEN_FILE);
    target.Keep();
}

void Preview::WriteGif(const std::filesystem::path& path)
{
    const LocalTarget target(path.string(), "preview.gif");
    Gif gif(target.Temporary().string(), size.width, size.height);
    const auto add = [&](const vxsim::Show& show, std::uint64_t fromMs, std::uint64_t untilMs) {
        vxsim::Canvas face(size.width, size.height);
        show.Draw(fromMs, font, face);
        gif.Add(face, static_cast<std::uint32_t>(std::min(untilMs - fromMs, kLongestMs)));
    };
    const auto addSteps = [&](const vxsim::Show& show, std::uint64_t fromMs, std::uint64_t untilMs) {
        for (std::uint64_t ms = fromMs; ms < untilMs; ms += kFrameMs)
            add(show, ms, std::min(ms + kFrameMs, untilMs));
    };
    for (const vxsim::Show& show : shows) {
        for (std::uint64_t page = 0; page < show.Pages(); ++page) {
            addSteps(show, page == 0 ? 0 : show.NextPageMs(show.WholeMs(page - 1)), show.WholeMs(page));
            add(show, show.WholeMs(page), show.LeaveMs(page));
            addSteps(show, show.LeaveMs(page), show.NextPageMs(show.WholeMs(page)));
        }
    }
    gif.Close();
    target.Keep();
}

std::vector<std::uint8_t> FileOf(const Message& message)
{
    const TemporaryFolder folder;
    const std::string local = folder.Path() + "message.nmg";
    WriteMessage(message, local);
    return ReadWhole(local);
}

void ReportFace(Report& report, const WantedFace& face)
{
    report.Put("width", face.size.width);
    report.Put("height", face.size.height);
    report.Put("sizeFrom", face.from);
}

} // namespace vxctl
