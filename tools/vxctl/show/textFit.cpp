// Tells how a text lies on a face, by the layout of the face itself.
#include "vxctl/show/preview.h"

#include "vxctl/cli/failure.h"

#include "sim/content/nmg.h"
#include "sim/face/text.h"

#include <algorithm>
#include <optional>

namespace vxctl {

namespace {

constexpr std::size_t kMostPagesTold = 8;

// Nothing for what is no message with a text.
std::optional<vxsim::Layout> LayOutText(FileBytes message, const FaceSize& face, const std::string& encoding)
{
    const auto parsed = vxsim::ParseNmg(message);
    if (!parsed || parsed->picture)
        return std::nullopt;
    static thread_local vxsim::Font font; // dear to open, and many signs may want the same letters
    font.SetEncoding(encoding);
    vxsim::Layout layout = vxsim::LayOut(parsed->runs, face.width, face.height, font);
    layout.isCut = layout.isCut || message.size() > vxsim::kMostMessageBytes;
    return layout;
}

std::string WhyNotFitting(const vxsim::Layout& layout)
{
    std::string why;
    const auto add = [&why](const std::string& reason) { why += (why.empty() ? "" : ", and ") + reason; };
    if (layout.pages.size() > layout.pagesMeant)
        add("it becomes " + std::to_string(layout.pages.size()) + " pages" +
            (layout.pagesMeant > 1 ? " in place of " + std::to_string(layout.pagesMeant) : ""));
    if (layout.brokenWord)
        add("a word is wider than the face and is broken");
    if (layout.isCut)
        add("not all of it is seen");
    return why;
}

void TellPages(const Report& report, const std::vector<std::string>& texts)
{
    for (std::size_t i = 0; i < std::min(texts.size(), kMostPagesTold); ++i) {
        std::string line = texts[i];
        for (std::size_t at = line.find('\n'); at != std::string::npos; at = line.find('\n', at))
            line.replace(at, 1, " / ");
        report.Line("  page " + std::to_string(i + 1) + ": " + line);
    }
    if (texts.size() > kMostPagesTold)
        report.Line("  and " + std::to_string(texts.size() - kMostPagesTold) + " pages more");
}

} // namespace

std::string WhyNotFitting(FileBytes message, const FaceSize& face, const std::string& encoding)
{
    const auto layout = LayOutText(message, face, encoding);
    return layout ? WhyNotFitting(*layout) : "";
}

void ReportFit(Session& session, const Args& args, FileBytes message, const FaceSize& face)
{
    Report& report = session.report;
    const auto layout = LayOutText(message, face, EncodingFor(session, args));
    if (!layout)
        return;
    const std::string why = WhyNotFitting(*layout);
    report.Put("fits", why.empty());
    report.Put("pages", layout->pages.size());
    report.Put("pagesMeant", layout->pagesMeant);
    report.Put("pageTexts", layout->texts);
    report.Put("wordBroken", layout->brokenWord);
    report.Put("cut", layout->isCut);
    if (why.empty())
        return;
    const std::string complaint = "the text does not fit a face of " + SizeText(face) + ": " + why;
    if (args.Has("--must-fit"))
        throw UsageError(complaint);
    report.Line(complaint);
    TellPages(report, layout->texts);
}

} // namespace vxctl
