// book list, check, add, rm: the signs that -s may name.
#include "vxctl/book/bookEdit.h"
#include "vxctl/book/signBook.h"
#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/tables.h"
#include "vxctl/cli/textTable.h"
#include "vxctl/show/wantedFace.h"

#include <filesystem>
#include <functional>
#include <utility>

namespace vxctl {

namespace {

namespace fs = std::filesystem;

// What `write` makes of each, with a text between.
template <class Items, class Write>
std::string Joined(const Items& items, const char* between, const Write& write)
{
    std::string text;
    for (const auto& item : items)
        text.append(text.empty() ? "" : between).append(write(item));
    return text;
}

std::string LabelText(const std::pair<const std::string, std::string>& label)
{
    return label.first + "=" + label.second;
}

Report::Json JsonOf(const BookSign& sign)
{
    return {{"name", sign.name},
            {"site", sign.site},
            {"url", sign.options.url},
            {"width", sign.options.size.width},
            {"height", sign.options.size.height},
            {"encoding", sign.options.encoding.empty() ? "utf-8" : sign.options.encoding},
            {"groups", sign.groups},
            {"labels", sign.labels},
            {"timeoutMs", sign.options.timeoutMs},
            {"retries", sign.options.retries},
            {"chunk", sign.options.chunk},
            {"destination", sign.options.destination},
            {"intervalSeconds", sign.intervalSeconds},
            {"user", sign.options.login ? Report::Json(sign.options.login->user) : Report::Json()}};
}

std::uint32_t List(Session& session, const Args& args)
{
    const SignBook book = ReadBook(BookFile(args.Text("--book")));
    const auto& words = args.List("SIGN");
    TextTable table({{"name"}, {"url"}, {"size"}, {"groups"}, {"labels"}});
    Report::Json signs = Report::Json::array();
    for (const BookSign& sign : words.empty() ? book : Select(book, words)) {
        table.Add({sign.name, sign.options.url, sign.options.size.width == 0 ? "" : SizeText(sign.options.size),
                   Joined(sign.groups, " ", std::identity()), Joined(sign.labels, " ", LabelText)});
        signs.push_back(JsonOf(sign));
    }
    if (!session.report.IsJson())
        table.Show(session.report, "signs");
    session.report.Put("signs", std::move(signs));
    return VX_OK;
}

void Write(const std::string& file, const std::string& text)
{
    std::error_code error;
    fs::create_directories(fs::absolute(file).parent_path(), error);
    ReplaceText(file, "signs.toml", text);
}

// The sign says what it is: only the size can be compared.
std::uint32_t Check(Session& session, const Args& /*args*/)
{
    const FaceSize told = ReadFaceSize();
    const FaceSize& known = session.options.size;
    const bool isRight = known.width == 0 || told == known;
    session.report.Put("width", told.width);
    session.report.Put("height", told.height);
    session.report.Put("sizeIsRight", isRight);
    session.report.Line((told.width == 0 ? "does not tell its size" : SizeText(told)) +
                        (isRight ? "" : ", and the book says " + SizeText(known)));
    if (!isRight)
        session.exitStatus = kExitFailure;
    return VX_OK;
}

std::string Quoted(const Args& args, std::string_view option)
{
    return BookText(args.Text(option));
}

std::string LabelMember(const std::string& label)
{
    const std::size_t between = label.find('=');
    if (between == std::string::npos)
        throw UsageError("'" + label + "' is no label such as km=12.4");
    return label.substr(0, between) + " = " + BookText(label.substr(between + 1));
}

std::string LoginTable(const Args& args)
{
    if (!args.Has("--password-file") && !args.Has("--password-env"))
        throw UsageError("--user wants --password-file or --password-env");
    const bool isFile = args.Has("--password-file");
    return "{ user = " + Quoted(args, "--user") + (isFile ? ", password-file = " : ", password-env = ") +
           Quoted(args, isFile ? "--password-file" : "--password-env") + " }";
}

// Its lines in the book: what was given.
std::string LinesOf(const Args& args)
{
    std::string lines;
    const auto add = [&lines](std::string_view key, const std::string& value) {
        lines.append(key).append(" = ").append(value).append("\n");
    };
    add("url", Quoted(args, "URL"));
    for (const std::string_view text : {"--site", "--size", "--encoding"}) {
        if (args.Has(text))
            add(text.substr(2), Quoted(args, text));
    }
    for (const std::string_view number : {"--timeout", "--retries", "--chunk", "--destination", "--interval"}) {
        if (args.Has(number))
            add(number.substr(2), std::to_string(args.Number(number)));
    }
    if (args.Has("--group"))
        add("groups", "[" + Joined(args.List("--group"), ", ", BookText) + "]");
    if (args.Has("--label"))
        add("labels", "{ " + Joined(args.List("--label"), ", ", LabelMember) + " }");
    if (args.Has("--user"))
        add("login", LoginTable(args));
    return lines;
}

std::uint32_t Add(Session& /*session*/, const Args& args)
{
    const std::string file = BookFile(args.Text("--book"));
    Write(file, WithSign(ReadBookText(file), file, args.Text("NAME"), LinesOf(args)));
    return VX_OK;
}

std::uint32_t Remove(Session& /*session*/, const Args& args)
{
    const std::string file = BookFile(args.Text("--book"));
    std::string text = ReadBookText(file);
    for (const std::string& name : args.List("NAME"))
        text = WithoutSign(text, file, name);
    Write(file, text);
    return VX_OK;
}

constexpr Argument kSigns = Text("SIGN", "names, groups as group:NAME, or all; without, all").Optional().Repeated(0);

const Command kCommands[] = {
    {
        .name = "book",
        .help = "The book of signs: names for -s, in place of URLs",
        .details =
            R"(The book is the file of --book or VXBOOK, otherwise vxsign/signs.toml in XDG_CONFIG_HOME or ~/.config. What it says of a
sign (url, timeout, retries, chunk, destination, login) holds unless the command line says otherwise. -s takes the name
of a sign, group:NAME or all, several times.)",
    },
    {
        .name = "book list",
        .help = "List the signs of the book",
        .examples = R"(vxctl book list
vxctl book list group:a7-north)",
        .arguments = {kSigns},
        .line = Line::kNone,
        .run = List,
    },
    {
        .name = "book check",
        .help = "Ask every sign of the book whether it is there, and as large as the book says",
        .examples = R"(vxctl book check
vxctl book check group:a7-north --timeout 500)",
        .arguments = {kSigns},
        .signs = Signs::kOfBook,
        .run = Check,
    },
    {
        .name = "book add",
        .help = "Add a sign to the book",
        .details = "The sign is not asked. --timeout, --retries, --chunk and --destination go into the book where they "
                   "are given.",
        .examples = R"(vxctl book add gantry-1 udp://10.7.0.12:9520 --size 128x32 --group a7-north --label km=12.4
vxctl book add gantry-2 tcp://10.7.0.13:9520 --user operator --password-file gantry-2.pass)",
        .arguments =
            {Text("NAME", "letters, digits, '-', '_' and '.'"), Text("URL", "where the sign is"),
             Text("--size", "pixels of the face").In("WxH"),
             Text("--group", "a group that it belongs to").In("NAME").Repeated(),
             Text("--label", "what else is known of it, such as km=12.4").In("KEY=VALUE").Repeated(),
             Text("--encoding", "how the sign has its texts, such as gbk").In("NAME"),
             Text("--site", "the site that it belongs to").In("NAME"), kInterval,
             Text("--user", "who logs in to the sign"),
             Text("--password-file", "a file with the password, seen from the book").In("FILE").Needs("--user"),
             Text("--password-env", "a variable with the password")
                 .In("VARIABLE")
                 .Needs("--user")
                 .Excludes("--password-file")},
        .line = Line::kNone,
        .run = Add,
    },
    {
        .name = "book rm",
        .help = "Take signs out of the book",
        .examples = "vxctl book rm gantry-1",
        .arguments = {Text("NAME", "the signs").Repeated()},
        .line = Line::kNone,
        .run = Remove,
    },
};

} // namespace

const CommandTable kBookCommands{"Many signs", kCommands};

} // namespace vxctl
