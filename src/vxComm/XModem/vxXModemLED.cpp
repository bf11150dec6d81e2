// The upgrade of a device by XMODEM: its steps, and what it prints of them.
#include "util/file.h"
#include "vxBaseCMD/call.h"
#include "vxComm/XModem/xmodemFrame.h"
#include "vxComm/families.h"

#include <vxsign/xmodem.h>

#include <algorithm>
#include <cstdio>

using namespace vxsign;

namespace {

using namespace vxsign::xmodem;

constexpr std::uint8_t kNothingYet = 0xF0; // as the last reply; never on the line
constexpr int kReadyRounds = 10;
constexpr int kSendRounds = 20;
constexpr int kMostNaks = 10;

class Upgrade
{
public:
    Upgrade(vxXModemLED& command, const File& source) : line(command), file(source), size(FileSize(file).value_or(0)) {}

    std::uint32_t Run()
    {
        if (!ReceiverAsks()) {
            std::fputs("rk4095 is not ready\n", stdout);
            return VX_UPGRADE_FAILED;
        }
        check = last == kAskCrc ? Check::kCrc : Check::kSum;
        last = kNothingYet;
        bool more = true;
        while (more) {
            if (last == kNak)
                more = Repeat();
            else if (last == kAck || last == kNothingYet)
                more = SendNext();
            else {
                std::fputs("Fatal Error!\r\n", stdout); // an end without success, and yet no failure
                more = false;
            }
        }
        return naks > kMostNaks ? VX_UPGRADE_FAILED : static_cast<std::uint32_t>(VX_OK);
    }

private:
    // Sends until a byte comes, which becomes the last reply. False without one: the last reply stays.
    bool Try(std::span<const std::uint8_t> request)
    {
        for (std::uint32_t tries = 0; tries < line.config->retries && !line.Aborted(); ++tries) {
            if (!request.empty())
                DropPending();
            if (line.ReceiveFrame(request.data(), static_cast<std::uint32_t>(request.size()), line.replyBuffer, 1) !=
                0) {
                last = line.replyBuffer[0];
                return true;
            }
        }
        return false;
    }

    // What has come before a block is sent is no answer to it: a second 'C' of a receiver that waited, or a late ACK.
    // Callbacks have no line that could be looked at without reading on.
    void DropPending()
    {
        if (line.useChannel != 0)
            line.RawRecv(line.replyBuffer, kReplySize, 0);
    }

    bool ReceiverAsks()
    {
        for (int round = 1; round <= kReadyRounds; ++round) {
            Try({});
            if (last == kAskCrc || (last == kNak && round < kReadyRounds))
                return true;
        }
        return false;
    }

    // The next block, or the end of the transfer.
    bool SendNext()
    {
        if (last == kNothingYet)
            std::fputs("begining to Send file \n", stdout);
        const auto data = frame.Data();
        const std::size_t count = ReadSome(file, data.data(), data.size());
        if (count == 0)
            return Finish();
        if (count < data.size()) {
            std::fputs("Start filling the last frame!\r\n", stdout);
            std::fill(data.begin() + static_cast<std::ptrdiff_t>(count), data.end(), kFilling);
        }
        frame.Seal(blockNumber + 1, check);
        int round = 0;
        bool answered = false;
        do
            answered = Try(frame.Bytes());
        while (last != kAck && ++round < kSendRounds);
        if (last != kAck) {
            std::fputs("ACK Error!\r\n", stdout);
            std::printf("%c\r\n", last);
        }
        ++blockNumber; // whatever the reply
        naks = 0;
        if (answered && last == kAck) // silence behind an ACK passes for one, but confirms nothing
            TellConfirmed();
        return true;
    }

    void TellConfirmed()
    {
        ++confirmed;
        if (size != 0)
            line.Progress(static_cast<std::uint32_t>(std::uint64_t{confirmed} * kDataSize * 100 / size));
    }

    // The refused block once more.
    bool Repeat()
    {
        if (naks > kMostNaks) {
            std::fputs("Retry too many times,Quit!\r\n", stdout);
            return false;
        }
        ++naks;
        std::printf("Retry for ACK,%d", static_cast<int>(blockNumber));
        Try(frame.Bytes());
        std::fputs(last == kAck ? "OK\r\n" : "Error!\r\n", stdout);
        if (last == kAck)
            TellConfirmed();
        return true;
    }

    bool Finish()
    {
        static constexpr std::uint8_t kEnd[] = {kEot};
        std::fputs("Complete ACK have coming,", stdout);
        Try(kEnd);
        if (last != kAck)
            std::fputs("sedn EOT:wait ACK tiem out!\r\n", stdout);
        std::fputs("Send file successful!!!\r\n", stdout); // in either case
        return false;
    }

    vxXModemLED& line;
    const File& file;
    std::uint64_t size;
    Check check = Check::kCrc;
    Frame frame;
    std::uint8_t last = kNothingYet; // reply
    std::uint32_t blockNumber = 0;   // of the block last sent
    std::uint32_t confirmed = 0;     // blocks
    int naks = 0;                    // to that block, while it is repeated
};

} // namespace

std::uint32_t vxXModem_Upgrade(const char* path)
{
    return Call<vxXModemLED>(Required(path), [path](vxXModemLED& line) -> std::uint32_t {
        const File file = OpenFile(path, "rb");
        return file ? Upgrade(line, file).Run() : static_cast<std::uint32_t>(VX_OPEN_FILE);
    });
}
