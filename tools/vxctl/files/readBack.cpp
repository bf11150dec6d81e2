// Compares files on the sign with those on this PC.
#include "vxctl/files/readBack.h"

#include "vxctl/cli/failure.h"
#include "vxctl/cli/localFiles.h"
#include "vxctl/files/announcedSize.h"

#include <vxsign/local.h>
#include <vxsign/properties.h>
#include <vxsign/read.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>
#include <system_error>
#include <vector>

namespace vxctl {

namespace {

namespace fs = std::filesystem;

// A wrapped message goes over as the file that the library has unwrapped beside it.
std::string SentForm(const std::string& local)
{
    std::string head(2, '\0');
    std::ifstream(local, std::ios::binary).read(head.data(), 2);
    const std::string unwrapped = local + ".tmp";
    std::error_code error;
    return head == "NG" && fs::is_regular_file(unwrapped, error) ? unwrapped : local;
}

// The text of what the sign refuses; a line that is down is another matter.
std::string Refusal(std::uint32_t result)
{
    return IsDone(result) ? "" : vxErrorDesc(result);
}

std::string WrongContents(const SignCopy& copy, const std::string& local)
{
    const TemporaryFolder folder;
    const std::string back = folder.Path() + "back";
    std::string refusal = Refusal(copy.isSystem ? vxReadSysFile(copy.path.c_str(), back.c_str())
                                                : vxReadSpecPathFileEx(copy.path.c_str(), back.c_str()));
    if (!refusal.empty())
        return refusal;
    return ReadWhole(back) == ReadWhole(local) ? "" : "has other contents";
}

} // namespace

char DriveOfSign()
{
    std::uint8_t hasDriveF = 0;
    vxGetProperty(&hasDriveF, sizeof hasDriveF, VX_PROPERTY_HAS_DRIVE_F);
    return hasDriveF != 0 ? 'F' : 'D';
}

std::string Difference(const Session& session, const SignCopy& copy, const std::string& local, Depth depth)
{
    const std::string sent = SentForm(local);
    std::uint32_t size = 0;
    std::string refusal = Refusal(AskSize(copy.path, copy.isSystem, session.options.chunk, size));
    if (!refusal.empty())
        return refusal;
    const std::uint32_t wanted = vxOSGetFileSize(sent.c_str());
    if (size != wanted)
        return "has " + std::to_string(size) + " bytes of " + std::to_string(wanted);
    return depth == Depth::kContents ? WrongContents(copy, sent) : "";
}

void Verify(Session& session, const SignCopy& copy, const std::string& local)
{
    const std::string wrong = Difference(session, copy, local, Depth::kContents);
    if (!wrong.empty())
        throw SignFailure(VX_FAILED_OPERATION, copy.path + " on the sign: " + wrong);
    session.report.Put("verified", true);
    session.report.Line("verified: " + copy.path + " is the same on the sign");
}

} // namespace vxctl
