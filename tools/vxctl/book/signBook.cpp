// Reads the book of signs.
#include "vxctl/book/signBook.h"

#include "vxctl/book/bookEntry.h"
#include "vxctl/cli/args.h"
#include "vxctl/cli/encoding.h"
#include "vxctl/cli/signUrl.h"
#include "vxctl/cli/suggestion.h"
#include "vxctl/cli/tables.h"
#include "vxctl/platform/localFiles.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <tuple>
#include <utility>

namespace vxctl {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLongestName = 64;
constexpr std::size_t kLongestBook = 64 << 20;

bool IsLetterOrDigit(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// An option of every command, which is called like the key.
const Argument& OptionOf(const BookEntry& entry)
{
    return *std::ranges::find(CommonArguments(), "--" + std::string(entry.Key()), &Argument::name);
}

template <auto member>
void TakeNumber(const BookEntry& entry, BookSign& sign)
{
    auto& number = sign.options.*member;
    number = static_cast<std::remove_reference_t<decltype(number)>>(entry.Number(OptionOf(entry)));
}

void TakeUrl(const BookEntry& entry, BookSign& sign)
{
    sign.options.url = entry.Text();
    entry.Reading([&] { return ParseSignUrl(sign.options.url); });
}

void TakeSize(const BookEntry& entry, BookSign& sign)
{
    sign.options.size = entry.Reading([&] { return ParseSides(entry.Text(), kMostFaceSide); });
}

void TakeEncoding(const BookEntry& entry, BookSign& sign)
{
    sign.options.encoding = entry.Text();
    entry.Reading([&] { CheckedEncoding(sign.options.encoding); });
}

void TakeGroups(const BookEntry& entry, BookSign& sign)
{
    sign.groups.clear();
    entry.ForEach([&](const BookEntry& group) { sign.groups.push_back(group.Name()); });
}

// They become labels of metrics, beside those that have the names of sign and site.
void TakeLabels(const BookEntry& entry, BookSign& sign)
{
    entry.ForEachMember([&](const BookEntry& label) {
        const std::string name(label.Key());
        const auto isPart = [](char c) { return IsLetterOrDigit(c) || c == '_'; };
        if (name.empty() || !std::ranges::all_of(name, isPart) || (name[0] >= '0' && name[0] <= '9'))
            label.Refuse("'" + name + "' is no label: they have letters, digits and '_', and no digit ahead");
        if (name == "sign" || name == "site" || name.starts_with("__"))
            label.Refuse("the label " + name + " is taken");
        sign.labels[name] = label.AnyText();
    });
}

// A file that the book names lies beside it, unless it says where.
std::string Beside(const std::string& book, const std::string& file)
{
    return (fs::path(book).parent_path() / file).lexically_normal().string();
}

void TakeLogin(const BookEntry& entry, BookSign& sign)
{
    constexpr const char* kMembers = "a login has user, and password-file or password-env";
    Login login;
    entry.ForEachMember([&](const BookEntry& member) {
        if (member.Key() == "user")
            login.user = member.Reading([&] { return CheckedUser(member.Text()); });
        else if (member.Key() == "password-file")
            login.passwordFile = Beside(member.File(), member.Text());
        else if (member.Key() == "password-env")
            login.passwordVariable = member.Text();
        else
            member.Refuse(std::string(kMembers) + (member.Key() == "password" ? ": the book itself keeps none" : ""));
    });
    if (login.user.empty() || login.passwordFile.empty() == login.passwordVariable.empty())
        entry.Refuse(kMembers);
    sign.options.login = login;
}

struct Row
{
    std::string_view key;
    void (*take)(const BookEntry& entry, BookSign& sign);
    bool isOfSign = false; // rather than for all signs, ahead of their tables
};

constexpr Row kRows[] = {
    {"url", TakeUrl, true},
    {"timeout", TakeNumber<&Options::timeoutMs>},
    {"retries", TakeNumber<&Options::retries>},
    {"chunk", TakeNumber<&Options::chunk>},
    {"destination", TakeNumber<&Options::destination>},
    {"site", [](const BookEntry& entry, BookSign& sign) { sign.site = entry.Name(); }},
    {"groups", TakeGroups},
    {"size", TakeSize},
    {"encoding", TakeEncoding},
    {"labels", TakeLabels},
    {"login", TakeLogin},
    {"interval", [](const BookEntry& entry, BookSign& sign) { sign.intervalSeconds = entry.Number(kInterval); }},
};

void Take(const BookEntry& entry, BookSign& sign, bool isTop)
{
    const auto* const row = std::ranges::find(kRows, entry.Key(), &Row::key);
    if (row != std::end(kRows) && !(isTop && row->isOfSign))
        return row->take(entry, sign);
    std::vector<std::string_view> known;
    for (const Row& other : kRows) {
        if (!isTop || !other.isOfSign)
            known.push_back(other.key);
    }
    entry.Refuse("'" + std::string(entry.Key()) + "' is no key " + (isTop ? "for all signs" : "of a sign") +
                 DidYouMean(Nearest(entry.Key(), known)));
}

// What holds where a book says nothing.
BookSign Standard()
{
    Args args;
    for (const Argument& row : CommonArguments())
        args.Add(row, {});
    BookSign sign;
    sign.options = OptionsOf(args);
    sign.options.url.clear();
    sign.site = "main";
    sign.intervalSeconds = 60;
    return sign;
}

class Reader
{
public:
    explicit Reader(const std::string& bookFile) : file(bookFile) {}

    SignBook Read(const toml::table& top)
    {
        for (const auto& [key, value] : top) {
            if (key != "sign")
                Take(BookEntry(file, key.str(), value), standard, true);
        }
        if (const toml::node* const signs = top.get("sign"))
            BookEntry(file, "sign", *signs).ForEachMember([this](const BookEntry& sign) { Add(sign); });
        SignBook book;
        for (auto& [line, sign] : signsByPlace)
            book.push_back(std::move(sign));
        return book;
    }

private:
    void Add(const BookEntry& entry)
    {
        BookSign sign = standard;
        sign.name = entry.Key();
        if (!IsBookName(sign.name))
            entry.Refuse("'" + sign.name + "' is no name: they have " + std::string(kBookNames));
        entry.ForEachMember([&sign](const BookEntry& member) { Take(member, sign, false); });
        if (sign.options.url.empty())
            entry.Refuse("sign " + sign.name + " has no url");
        const SignUrl url = ParseSignUrl(sign.options.url);
        const auto [same, isNew] =
            names.try_emplace({url.kind, url.host, url.port, url.serialName, sign.options.destination}, sign.name);
        if (!isNew)
            entry.Refuse("sign " + sign.name + " is reached as " + same->second + " is");
        signsByPlace.emplace(std::pair(entry.Place().line, entry.Place().column), std::move(sign));
    }

    const std::string& file;
    BookSign standard = Standard();
    std::multimap<std::pair<std::uint32_t, std::uint32_t>, BookSign> signsByPlace;
    std::map<std::tuple<std::uint32_t, std::string, std::uint16_t, std::string, std::uint16_t>, std::string> names;
};

std::string Variable(const char* name)
{
    const char* const value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): nothing here sets variables
    return value == nullptr ? "" : value;
}

} // namespace

std::string BookFile(const std::string& given)
{
    if (!given.empty())
        return given;
    if (std::string file = Variable("VXBOOK"); !file.empty())
        return file;
    return (platform::SettingsFolder() / "vxsign" / "signs.toml").string();
}

std::string ReadBookText(const std::string& file)
{
    std::error_code error;
    if (!fs::exists(file, error))
        return {};
    std::ifstream stream(file, std::ios::binary);
    std::string text;
    std::array<char, 65536> part{};
    while (stream.read(part.data(), part.size()) || stream.gcount() > 0) {
        text.append(part.data(), static_cast<std::size_t>(stream.gcount()));
        if (text.size() > kLongestBook)
            break;
    }
    if (!stream.eof())
        throw UsageError("the book " + file + " cannot be read, or is larger than 64 MB");
    return text;
}

SignBook ReadBook(const std::string& file)
{
    std::error_code error;
    if (!fs::exists(file, error))
        throw UsageError("there is no book " + file + ": \"vxctl book add\" begins one");
    return ParseBook(ReadBookText(file), file);
}

SignBook ParseBook(std::string_view text, const std::string& file)
{
    try {
        return Reader(file).Read(toml::parse(text));
    } catch (const toml::parse_error& error) {
        RefuseAt(file, error.source().begin, std::string(error.description()));
    }
}

bool IsBookName(std::string_view name)
{
    const auto isPart = [](char c) { return IsLetterOrDigit(c) || c == '-' || c == '_' || c == '.'; };
    return !name.empty() && name.size() <= kLongestName && std::ranges::all_of(name, isPart) && name != kAllSigns &&
           name.find_first_not_of('.') != std::string_view::npos && name.front() != '-';
}

} // namespace vxctl
