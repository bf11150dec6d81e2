#include "vxctl/cli/command.h"
#include "vxctl/cli/localFiles.h"
#include "vxctl/show/showCodes.h"

#include <vxsign/quickshow.h>

#include <memory>
#include <vector>

namespace vxctl {

namespace {

constexpr const char* kGroup = "Show";
constexpr std::uint32_t kLongestStay = 9999;
constexpr std::size_t kMostFiles = 128;

// Where content goes and how it appears, the same for all three commands.
struct Appearance
{
    std::string mode = "0";
    std::uint32_t staySec = 5;
    std::string drive = "auto";

    std::uint32_t ToE() const { return drive == "E" ? 1 : 0; }
};

void AddAppearance(CLI::App& command, Appearance& look)
{
    command.add_option("--mode", look.mode, "entry and exit mode: a character or its code")
        ->type_name("MODE")
        ->capture_default_str();
    AddNumber(command, "--stay", look.staySec, 0, kLongestStay, "seconds to stay")->default_str("5");
    command.add_option("--drive", look.drive, "E, or auto: F where the sign has it, else D")
        ->check(CLI::IsMember({"E", "auto"}))
        ->capture_default_str();
}

struct Message : Appearance
{
    std::string text;
    std::string font = "1";
    std::string colour = "1";
    bool noPlay = false;
};

void Show(Session& session, const Message& message)
{
    const SignUrl sign = session.Sign();
    const Options& options = session.options;
    Check(vxShowMsgTimeout(
        reinterpret_cast<const std::uint8_t*>(message.text.data()), static_cast<std::uint32_t>(message.text.size()),
        ParseFont(message.font), ParseColour(message.colour), ParseMode(message.mode), message.staySec,
        sign.host.c_str(), sign.port, message.ToE(), message.noPlay ? 0 : 1, static_cast<std::uint8_t>(options.retries),
        options.timeoutMs, sign.kind, sign.serialName.c_str(), sign.baudRate, options.Destination()));
}

void AddShow(CLI::App& app, Session& session)
{
    CLI::App* const command = AddCommand(
        app,
        {kGroup, "show", "Show a text",
         R"(Fonts, modes and colour codes are the sign's own. Colours by name and #RRGGBB go out as three colour bytes.
--chunk does not apply: text goes out in packets of 768 bytes. A text that begins with a dash stands behind "--".

Examples:
  vxctl show "HELLO 42"
  vxctl show --colour "#FF8000" --mode 3 --stay 10 "Lane closed"
  vxctl show --no-play --drive E "for later"
  vxctl show -- "-5 C")"});
    const auto message = std::make_shared<Message>();
    command->add_option("TEXT", message->text, "the text, sent as it is")->required();
    command->add_option("--font", message->font, "a character or its code, 48 to 169")
        ->type_name("FONT")
        ->capture_default_str();
    command->add_option("--colour,--color", message->colour, "a name, #RRGGBB, or a code of the sign")
        ->type_name("COLOUR")
        ->capture_default_str();
    AddAppearance(*command, *message);
    command->add_flag("--no-play", message->noPlay, "leave the sign's play list as it is");
    command->callback([&session, message] { Show(session, *message); });
}

struct Picture : Appearance
{
    std::string file;
};

void AddPicture(CLI::App& app, Session& session)
{
    CLI::App* const command =
        AddCommand(app, {kGroup, "picture", "Show a picture file",
                         R"(The file goes over unchanged; which types a sign draws is its own matter (BMP always).
--timeout, --retries and --chunk do not apply: 3 tries of 3000 ms, packets of 768 bytes.

Example:
  vxctl picture --stay 20 logo.bmp)"});
    const auto picture = std::make_shared<Picture>();
    command->add_option("FILE", picture->file, "the picture")->required()->check(ReadableFile());
    AddAppearance(*command, *picture);
    command->callback([&session, picture] {
        const SignUrl sign = session.Sign();
        const std::uint32_t mode = ParseMode(picture->mode);
        const std::vector<std::uint8_t> bytes = ReadWhole(picture->file);
        Check(vxShowPicEx(bytes.data(), static_cast<std::uint32_t>(bytes.size()), mode, picture->staySec,
                          sign.host.c_str(), sign.port, picture->ToE(), sign.kind, sign.serialName.c_str(),
                          sign.baudRate, session.options.Destination()));
    });
}

struct FileList : Appearance
{
    std::vector<std::string> files;
    bool noPlay = false;
    bool onlyPlay = false;
};

void ShowFiles(Session& session, const FileList& list)
{
    if (list.files.size() > kMostFiles)
        throw UsageError("a play list takes " + std::to_string(kMostFiles) + " files at most");
    enum : std::uint8_t
    {
        kBoth = 0,
        kFilesAlone = 1,
        kSequenceAlone = 2
    };
    const std::uint8_t what = list.noPlay ? kFilesAlone : list.onlyPlay ? kSequenceAlone : kBoth;
    const SignUrl sign = session.Sign();
    std::vector<const char*> paths;
    for (const std::string& file : list.files)
        paths.push_back(file.c_str());
    Check(vxShowFilesSpe(paths.data(), static_cast<std::uint32_t>(paths.size()), static_cast<int>(ParseMode(list.mode)),
                         list.staySec, sign.host.c_str(), sign.port, list.ToE(), sign.kind, sign.serialName.c_str(),
                         sign.baudRate, session.options.Destination(), what));
}

void AddFiles(CLI::App& app, Session& session)
{
    CLI::App* const command = AddCommand(
        app,
        {kGroup, "files", "Show files one after the other",
         R"(Mode and stay time become the sign's defaults, for all files alike. The files get the names of this PC, shortened
to 8.3, and folders by their kind. --timeout, --retries and --chunk do not apply: 6 tries of 3000 ms, packets of 768
bytes.

Examples:
  vxctl files --stay 8 welcome.nmg logo.bmp
  vxctl files --no-play next-week.nmg)"});
    const auto list = std::make_shared<FileList>();
    command->add_option("FILE", list->files, "up to 128 files, in their order")->required()->check(ReadableFile());
    AddAppearance(*command, *list);
    CLI::Option* const noPlay = command->add_flag("--no-play", list->noPlay, "send the files, but no play list");
    command->add_flag("--only-play", list->onlyPlay, "send the play list alone, for files that are on the sign already")
        ->excludes(noPlay);
    command->callback([&session, list] { ShowFiles(session, *list); });
}

} // namespace

void AddShowCommands(CLI::App& app, Session& session)
{
    AddShow(app, session);
    AddPicture(app, session);
    AddFiles(app, session);
}

} // namespace vxctl
