// A sign in C++17: the tasks that people have, over the functions of vxsign.h.
//
//     vxsign::Result<vxsign::Sign> sign = vxsign::Sign::Open("udp://192.168.1.50");
//     if (!sign)
//         return Complain(sign.Error());
//     if (vxsign::Result<void> shown = sign->Show("HELLO 42", "red"); !shown)
//         return Complain(shown.Error()); // code, text, advice
//
// Nothing is thrown: each call gives a Result, a value or an Error. A call works on any thread, and on many at a time;
// it makes the calling thread's record that of its sign, and leaves it so. Texts are UTF-8 and go over in the encoding
// of Options, so do names and paths of the sign, "D:/T/NAME.NMG". What cannot be asked for, such as a character that
// the encoding lacks, a text with a NUL or a file that is not there, is an error before anything is sent.
//
// Needs the library alone: pkg-config --cflags --libs vxsign. On Windows, ws2_32 beside it.
#ifndef VXSIGN_SIGN_HPP
#define VXSIGN_SIGN_HPP

#include <vxsign/cpp/content.hpp>
#include <vxsign/cpp/devices.hpp>
#include <vxsign/cpp/files.hpp>
#include <vxsign/cpp/frame.hpp>
#include <vxsign/cpp/play.hpp>
#include <vxsign/cpp/playlist.hpp>
#include <vxsign/cpp/reports.hpp>
#include <vxsign/cpp/restore.hpp>
#include <vxsign/cpp/status.hpp>
#include <vxsign/cpp/url.hpp>
#include <vxsign/vxsign.h>

namespace vxsign {

// Copies are the same sign.
class Sign
{
public:
    using Path = std::filesystem::path;

    // "udp://HOST[:PORT]", "tcp://HOST[:PORT]" or "serial:NAME[@BAUD]". Sends nothing; a name of a host is looked up.
    static Result<Sign> Open(std::string_view url = "udp://127.0.0.1:9520", const Options& options = {})
    {
        try {
            auto link = std::make_shared<detail::Link>(options);
            detail::ParseUrl(url, link->config);
            return Sign(std::move(link));
        } catch (const detail::Failure& failure) {
            return failure.error;
        } catch (const std::exception& exception) {
            return Error{VX_CALL, exception.what(), {}};
        }
    }

    // A sign of life: three numbers of the sign's.
    Result<std::array<std::uint32_t, 3>> Ping() const
    {
        return Run([](const Frame&) -> std::array<std::uint32_t, 3> {
            std::uint16_t first = 0;
            std::uint16_t second = 0;
            std::uint32_t third = 0;
            detail::Check(vxConnectTest(&first, &second, &third));
            return {first, second, third};
        });
    }

    // Shows a text. The colour is a name (red green blue yellow amber orange magenta cyan white), "#RRGGBB" or a code
    // of the sign; font and mode are codes of the sign, "0" to "~" or numbers; stay is in seconds. "\n" breaks the
    // line.
    Result<void> Show(std::string_view text, std::string_view colour = "1", std::string_view font = "1",
                      std::string_view mode = "0", std::uint32_t stay = 5) const
    {
        return Run([=](const Frame& frame) {
            const detail::TextStyle style(colour, font, mode);
            detail::ShowText(frame.Encode(detail::WithLineBreaks(text)), style, stay);
        });
    }

    // Shows a picture file, unchanged: each sign knows BMP.
    Result<void> Picture(const Path& path, std::string_view mode = "0", std::uint32_t stay = 5) const
    {
        return Run([&](const Frame&) { detail::ShowPicture(path, detail::ParseMode(mode), stay); });
    }

    // Shows up to 128 local files one after the other.
    Result<void> Files(View<Path> paths, std::string_view mode = "0", std::uint32_t stay = 5) const
    {
        return Run([&](const Frame&) { detail::ShowFiles(paths, detail::ParseMode(mode), stay); });
    }

    // A file to the sign: under its own name when path ends as a folder. And one from it; a failure leaves local as it
    // was.
    Result<void> Put(const Path& local, std::string_view path) const
    {
        return Run([&](const Frame& frame) { detail::Put(frame, local, path); });
    }
    Result<void> Get(std::string_view path, const Path& local) const
    {
        return Run([&](const Frame& frame) { detail::Get(frame, path, local); });
    }

    // What is in a folder; delete a file, make a folder, rename or move a file (into a folder where that ends in a
    // slash).
    Result<std::vector<Entry>> Ls(std::string_view path) const
    {
        return Run([=](const Frame& frame) { return detail::ListFolder(frame, path); });
    }
    Result<void> Rm(std::string_view path) const
    {
        return Run([=](const Frame& frame) { detail::Check(vxDelete(detail::PathOn(frame, path).c_str())); });
    }
    Result<void> Mkdir(std::string_view path) const
    {
        return Run([=](const Frame& frame) { detail::Check(vxCreateDir(detail::PathOn(frame, path).c_str())); });
    }
    Result<void> Mv(std::string_view from, std::string_view to) const
    {
        return Run([=](const Frame& frame) { detail::Move(frame, from, to); });
    }

    // Makes a play list of local files and sends it with them. It plays at once, or goes to the numbered place index.
    // The thread's own play list (vxPLInit) makes way for it, as in FetchPlaylist.
    Result<void> Playlist(View<Path> paths, std::uint16_t stay = 5, std::optional<std::uint8_t> index = {}) const
    {
        return Run([&](const Frame& frame) { detail::SendList(frame, paths, stay, index); });
    }

    // Fetches the play list of the sign and its files into a local folder. Gives their names.
    Result<std::vector<std::string>> FetchPlaylist(const Path& folder) const
    {
        return Run([&](const Frame& frame) { return detail::FetchList(frame, folder); });
    }

    // The file that plays; nothing when nothing plays.
    Result<std::optional<std::string>> Playing() const { return Run(detail::ReadPlaying); }

    // "next", "previous", "pause", "continue", "replay" (the list from its start), "again" (the file), or the name of a
    // file, which plays ahead of all others.
    Result<void> Play(std::string_view action) const
    {
        return Run([=](const Frame& frame) { detail::Play(frame, action); });
    }

    // How the sign is.
    Result<vxsign::Status> Status() const { return Run(detail::ReadStatus); }

    // The latest rows of a log: play, system, temperature, tile or event. They stay on the sign.
    Result<Table> Logs(std::string_view log, std::uint32_t limit = 100) const
    {
        return Run([=](const Frame& frame) { return detail::ReadLog(frame, log, limit); });
    }

    // The bad pixels: "check" lets the sign look, which takes its time, "last" is what it found when it last did.
    Result<std::vector<PixelRow>> Pixels(std::string_view source = "check") const
    {
        return Run([=](const Frame&) { return detail::ReadPixels(source); });
    }

    // The sign's clock, which tells no seconds; and sets it, such as to ClockTime::Now().
    Result<ClockTime> Clock() const
    {
        return Run([](const Frame&) {
            ClockTime time;
            detail::Check(detail::ReadClock(time));
            return time;
        });
    }
    Result<void> Clock(const ClockTime& time) const
    {
        return Run([&](const Frame&) { detail::SetClock(time); });
    }

    // How bright the face is in eighths, where the sign tells; and sets it to a level of the sign's.
    Result<std::optional<std::uint32_t>> Light() const
    {
        return Run([](const Frame&) { return detail::ReadFace().light; });
    }
    Result<void> Light(std::uint8_t level) const
    {
        return Run([=](const Frame&) { detail::Check(vxBrightAdjust(level)); });
    }

    // The power of the face.
    Result<bool> Power() const
    {
        return Run([](const Frame&) {
            bool isOn = false;
            detail::Check(detail::ReadPower(isOn));
            return isOn;
        });
    }
    Result<void> Power(bool on) const
    {
        return Run([=](const Frame&) { detail::Check(vxPowerOnOff(on ? 1 : 0)); });
    }

    // Ends whatever is over the play list. Gives the names of what was there, or may have been.
    Result<std::vector<std::string>> Restore() const
    {
        return Run([](const Frame&) { return detail::Restore(); });
    }

    // Turns the face dark, and lets it show again what it plays.
    Result<void> Blank() const { return Call(vxBlackScreen); }
    Result<void> Unblank() const { return Call(vxEndBlackScreen); }

    // Reads a register of a field device of a class (LC, TLS, ALCS, MLCS, VSLS, TOR, VMS, PVMS), or writes value to it.
    // Section 255 is the device as a whole. Gives the value.
    Result<std::uint16_t> Modbus(std::string_view deviceClass, std::uint8_t device, std::uint16_t registerNumber,
                                 std::uint8_t section = 255, std::optional<std::uint16_t> value = {}) const
    {
        return Run([=](const Frame& frame) {
            return detail::UseRegister(frame, deviceClass, {device, registerNumber, section}, value);
        });
    }

    // Firmware for a boot loader that receives XMODEM. A success has every block confirmed; whether the end was, the
    // library tells on standard output alone, "sedn EOT:wait ACK tiem out!" when it was not.
    Result<void> Upgrade(const Path& path) const
    {
        return Run([&](const Frame& frame) { detail::Upgrade(frame, path); });
    }

    // The sign remembers who is logged in.
    Result<void> Login(std::string_view user, std::string_view password) const
    {
        return Run([=](const Frame& frame) {
            detail::Check(vxLogin(frame.Encode(user).c_str(), frame.Encode(password).c_str()));
        });
    }
    Result<void> Logout() const { return Call(vxLogout); }

    // From any thread: ends what runs on this sign, with VX_ABORTED. A call that is begun later runs.
    void Cancel() const { link->Cancel(); }

    // Any function of vxsign.h that gives a result word, on this sign: sign.Call(vxBrightAdjustEx, 4, 5).
    template <class... Parameters, class... Arguments>
    Result<void> Call(std::uint32_t (*function)(Parameters...), Arguments&&... arguments) const
    {
        return Run([&](const Frame&) {
            detail::Check(function(static_cast<Parameters>(std::forward<Arguments>(arguments))...));
        });
    }

private:
    using Frame = detail::Frame;

    explicit Sign(std::shared_ptr<detail::Link> sign) : link(std::move(sign)) {}

    template <class Body>
    auto Run(const Body& body) const -> Result<decltype(body(std::declval<Frame&>()))>
    {
        return detail::Run(link, body);
    }

    std::shared_ptr<detail::Link> link;
};

} // namespace vxsign

#endif
