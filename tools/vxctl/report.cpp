#include "vxctl/report.h"

#include "vxctl/jsonText.h"
#include "vxctl/numbers.h"
#include "vxctl/terminal.h"

#include <vxsign/result.h>

#include <algorithm>

namespace vxctl {

namespace {

struct Advice
{
    std::uint32_t code;
    std::string_view text;
};

constexpr std::string_view kSpace = "free some room on that drive with rm, or write to another drive";
constexpr std::string_view kUnsupported = "this sign does not know the command; its firmware may be older or newer";

constexpr std::string_view kTileLine = "check the cable and the power of the tile, and try once more";

constexpr Advice kAdvice[] = {
    {VX_ARGUMENTS, "look at the arguments: a text, path or payload may be too long"},
    {VX_ABORTED, "run the command again; a transfer starts at its beginning"},
    {VX_COMMUNICATION, "check address, port, power and cable; give a slow line more time with --timeout and --retries"},
    {VX_OPEN_FILE, "check that the file on this PC, or the folder it goes to, is there and may be used"},
    {VX_EMPTY_FILE, "the sign takes no empty file"},
    {VX_FILE_NOT_EXISTS, "check drive, folder and name of the file on the sign"},
    {VX_FAILED_OPERATION, "try once more; the sign may have been busy"},
    {VX_INCONSISTENT_SYNC, "is that the port of a sign? Look at its reply with raw"},
    {3074, "wait until the other tasks of the tiles are done"},
    {VX_TASK_PROCESSING, "the tile is still at it: wait, then look at it with tile status"},
    {3076, kTileLine},
    {3077, kTileLine},
    {3078, "look at the tile with tile status; its calibration may be locked"},
    {3080, "name one tile"},
    {3089, "check the number of the tile, and its port"},
    {3091, "check --module and --kind: the file is not in the order of this tile"},
    {8449, "send the file in parts, or smaller"},
    {8450, kSpace},
    {8451, kSpace},
    {8452, kSpace},
    {8453, kSpace},
    {8454, kSpace},
    {8455, kSpace},
    {14049, "this sign may have fewer pages: see zone list"},
    {14050, "divide the page first, with zone divide"},
    {14052, "this sign may have fewer zones on a page: see zone list"},
    {14053, "divide the page into more zones, with zone divide"},
    {14849, kUnsupported},
    {20993, "set a time that exists; clock --set takes YYYY-MM-DD HH:MM:SS"},
    {29185, "check the letter of the drive; try once more"},
    {29441, "check drive and path; a file may have that name"},
    {29697, "check that the file is there and the new name is not"},
    {29698, "the new name belongs into the same folder"},
    {29953, "check that the file and the new folder are there, and the new name is not"},
    {30209, "check drive, folder and name of the file on the sign"},
    {31489, "check drive, folder and name of the file on the sign"},
    {32001, "this sign may not have that drive: try df alone"},
    {32257, "check drive, folder and name of the file on the sign"},
    {33541, "start the ticker first"},
    {33542, "wait until what runs has left the face"},
    {33543, "send less text"},
    {36866, "noise on the line: check cable and speed"},
    {36867, "check --destination"},
    {36868, kUnsupported},
    {36869, kUnsupported},
    {36870, "try a smaller --chunk"},
    {36880, "check drive, folder and name of the file on the sign"},
    {36881, "this sign cannot do that: look at its kind, its firmware and the arguments"},
    {36882, "check that the drive is there and has room"},
    {36883, "look at the sizes that you give, or try a smaller --chunk"},
    {36885, "check drive, folder and name of the file on the sign"},
    {36912, "the sign wants a login first: see login"},
    {36913, "check the password; case counts"},
    {36914, "check the name of the user"},
    {36915, "check the old password"},
    {36917, "somebody else is using the sign: wait, and try once more"},
    {36918, "log in as a user who may do this"},
    {65535, "wait until the other tasks of the tiles are done"},
};

// How far the values of a list stand from its left edge.
constexpr std::size_t kNameWidth = 20;

} // namespace

std::string_view AdviceFor(std::uint32_t code)
{
    const auto* const found =
        std::find_if(std::begin(kAdvice), std::end(kAdvice), [code](const Advice& row) { return row.code == code; });
    return found == std::end(kAdvice) ? std::string_view() : found->text;
}

void Report::Line(const Shown& line) const
{
    if (!json)
        PrintLine(Stream::kOut, line);
}

void Report::Lines(std::string_view lines) const
{
    if (!json)
        PrintLines(Stream::kOut, lines);
}

void Report::Value(const std::string& name, const std::string& key, Json value, const Shown& text)
{
    const std::size_t gap = name.size() < kNameWidth ? kNameWidth - name.size() : 1;
    const std::string front = name + std::string(gap, ' ');
    if (!text.IsEmpty())
        Line(front + text);
    else
        Line(front + (value.is_string() ? value.get<std::string>() : value.dump()));
    Put(key, std::move(value));
}

bool Report::Finish(std::uint32_t result, std::string_view reason) const
{
    const std::string_view advice = reason.empty() ? AdviceFor(result) : reason;
    if (json) {
        Json object = {{"result", result}, {"text", vxErrorDesc(result)}};
        if (!advice.empty())
            object[reason.empty() ? "advice" : "reason"] = advice;
        object.update(values);
        PrintLine(Stream::kOut, JsonText(object));
    }
    const bool isTaken = Flush();
    if (!isTaken)
        PrintLine(Stream::kError, "vxctl: standard output takes no more");
    if (json || result == VX_OK)
        return isTaken;
    PrintLine(Stream::kError,
              "vxctl: error " + std::to_string(result) + " (" + FormatWord(result) + "): " + vxErrorDesc(result));
    if (!advice.empty())
        PrintLine(Stream::kError, "  " + std::string(advice));
    return isTaken;
}

} // namespace vxctl
