// Play control that ends in a file: screenshot, radar log, default screen settings.
#include "platform/stop.h"
#include "thread/tempFile.h"
#include "util/file.h"
#include "vxBaseCMD/call.h"
#include "vxComm/families.h"

#include <vxsign/play.h>
#include <vxsign/read.h>
#include <vxsign/write.h>

#include <string>

using namespace vxsign;

namespace {

constexpr char kScreenshot[] = "E:\\screenshot.jpeg"; // where the sign puts it
constexpr int kScreenshotTries = 10;
constexpr std::uint32_t kScreenshotMs = 200;

constexpr std::uint16_t kRadarPage = 5; // records that one request asks for
constexpr std::size_t kRadarPageSize = std::size_t{kRadarPage} * 16;
constexpr std::uint32_t kRadarRequests = 10000;

constexpr char kScreenFile[] = "c:\\config\\RB27_233.cfg";
constexpr char kScreenSection[] = "DefaultSet";
constexpr const char* kScreenKeys[] = {"ShowDefultBmpTime", "BlackScreenTime"};

std::uint32_t ReadRadarLog(vxPlayCtrlLED& sign, const File& file)
{
    for (std::uint32_t number = 0; number < kRadarRequests; ++number) {
        const auto offset = static_cast<std::uint16_t>(number * kRadarPage);
        const std::uint32_t result = SendOn(sign, {6, 23}, Payload(Fields<4>(kRadarPage, offset)));
        if (result != VX_OK)
            return result;
        const auto page = sign.Reply().Extended();
        if (!WriteAll(file, page.data(), page.size()))
            return VX_CALL;
        sign.Progress((number + 1) / 100);
        if (page.size() < kRadarPageSize)
            break;
    }
    return VX_OK;
}

} // namespace

std::uint32_t vxReadCurScreenshot(const char* localFile)
{
    return Call<vxPlayCtrlLED>(Required(localFile), [=](vxPlayCtrlLED& sign) -> std::uint32_t {
        const File file = OpenFile(localFile, "wb"); // only so that a file that cannot be made is noticed first
        if (!file)
            return VX_OPEN_FILE;
        std::uint32_t result = SendOn(sign, {6, 25}, Payload(Fields<4>()));
        if (result != VX_OK)
            return result;
        // The sign takes its time over the picture.
        for (int tries = 0; tries < kScreenshotTries; ++tries) {
            platform::Rest(kScreenshotMs);
            result = vxReadSpecPathFileEx(kScreenshot, localFile);
            if (result == VX_OK)
                break;
        }
        return result;
    });
}

std::uint32_t vxReadCurScreentshot(const char* localFile)
{
    return vxReadCurScreenshot(localFile);
}

std::uint32_t vxReadTJRadarLog2File(const char* localFile)
{
    return Call<vxPlayCtrlLED>(Required(localFile), [=](vxPlayCtrlLED& sign) -> std::uint32_t {
        File file = OpenFile(localFile, "wb");
        if (!file)
            return VX_OPEN_FILE;
        const std::uint32_t result = ReadRadarLog(sign, file);
        return CloseFile(file) || result != VX_OK ? result : static_cast<std::uint32_t>(VX_CALL);
    });
}

std::uint32_t vxReadDefaultScreenSet(std::uint16_t* out)
{
    return Call<vxPlayCtrlLED>(Required(out), [=](vxPlayCtrlLED&) {
        const TempFile temp("cfg");
        vxReadSpecPathFile(kScreenFile, temp.Path()); // a sign without the file has zeros
        std::uint32_t result = VX_OK;
        for (std::size_t i = 0; i < std::size(kScreenKeys); ++i) {
            std::uint32_t value = 0;
            result = vxGetINIWithInt(kScreenSection, kScreenKeys[i], 0, temp.Path(), &value);
            out[i] = static_cast<std::uint16_t>(value);
        }
        return result;
    });
}

std::uint32_t vxWriteDefaultScreenSet(const std::uint16_t* in)
{
    return Call<vxPlayCtrlLED>(Required(in), [=](vxPlayCtrlLED&) -> std::uint32_t {
        const TempFile temp("cfg");
        File file = OpenFile(temp.Path(), "wb");
        if (!file)
            return VX_NO_RECORD;
        // The sign's lines end in CR LF; those that are added take it over.
        const std::string head = "[" + std::string(kScreenSection) + "]\r\n";
        if (!WriteAll(file, head.data(), head.size()) || !CloseFile(file))
            return VX_CALL;
        for (std::size_t i = 0; i < std::size(kScreenKeys); ++i)
            vxSetINIWithString(kScreenSection, kScreenKeys[i], std::to_string(in[i]).c_str(), temp.Path());
        return vxWriteSpecFile(kScreenFile, temp.Path());
    });
}
