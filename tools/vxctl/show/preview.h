// Messages and pictures as the virtual sign shows them.
#pragma once

#include "vxctl/cli/report.h"
#include "vxctl/show/messageText.h"
#include "vxctl/show/pictures.h"
#include "vxctl/show/wantedFace.h"

#include "sim/content/show.h"
#include "sim/face/canvas.h"
#include "sim/face/font.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace vxctl {

// What a face of that size shows, one content behind the other.
class Preview
{
public:
    Preview(FaceSize faceSize, const std::string& encoding) : size(faceSize) { font.SetEncoding(encoding); }

    // A message, or a picture that has those modes and that stay time. Throws UsageError for what cannot be shown.
    void AddFile(FileBytes file, vxsim::Timing timing = {});

    std::size_t Pages() const;

    // Each page as it is when it has come.
    std::vector<vxsim::Canvas> Faces();

    // Draws the pages in text, those that look the same once; or that page, counted from 1.
    void Print(const Report& report, std::size_t page = 0);

    // A page as vxsim writes its face; all of them, coming, staying and leaving. Both throw SignFailure.
    void WritePng(const std::filesystem::path& path, std::size_t page);
    void WriteGif(const std::filesystem::path& path);

private:
    FaceSize size;
    vxsim::Font font;
    std::vector<vxsim::Show> shows;
};

// The message as a file.
std::vector<std::uint8_t> FileOf(const Message& message);

// What becomes of the text of a message that does not fit the face; "" where it fits, or is no text.
std::string WhyNotFitting(FileBytes message, const FaceSize& face, const std::string& encoding);

// Says what of the text of a message does not fit, and reports how it lies on the face; nothing for a message without
// text. Throws UsageError for one that does not although --must-fit is given.
void ReportFit(Session& session, const Args& args, FileBytes message, const FaceSize& face);

// Reports the face that this is about.
void ReportFace(Report& report, const WantedFace& face);

} // namespace vxctl
