#include "sim/main/signBook.h"

#include "sim/face/textConversion.h"
#include "sim/files/storedRecord.h"

#include <iomanip>
#include <sstream>
#include <stdexcept>

namespace vxsim {
namespace {

constexpr std::size_t kSignsInRow = 100;

// A host that asks all addresses of a machine for signs finds them at this one.
std::string ReachableHost(const std::string& host)
{
    return host == "0.0.0.0" ? "127.0.0.1" : host;
}

std::string Numbered(std::size_t number, int digits)
{
    std::ostringstream text;
    text << std::setw(digits) << std::setfill('0') << number;
    return text.str();
}

// As a string of the book.
std::string Quoted(const std::string& text)
{
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\')
            quoted += '\\';
        if (static_cast<unsigned char>(c) < ' ' || c == '\x7f')
            quoted += ' '; // no name of a user has them
        else
            quoted += c;
    }
    return quoted + '"';
}

} // namespace

std::string NameOf(std::size_t index)
{
    return "sign-" + Numbered(index + 1, 4);
}

void WriteBook(const Options& options, const NamedPorts& signs)
{
    std::string text = "site = \"vxsim\"\nsize = " + Quoted(options.size) + "\n";
    if (!IsUtf8Name(options.encoding))
        text += "encoding = " + Quoted(options.encoding) + "\n";
    if (const Users users = options.Logins(); !users.empty())
        text += "login = { user = " + Quoted(users.begin()->first) + ", password-env = \"VXSIM_PASSWORD\" }\n";
    const std::string host = ReachableHost(options.listen.host);
    for (std::size_t i = 0; i < signs.size(); ++i) {
        const auto& [name, port] = signs[i];
        text.append("\n[sign.").append(name).append("]\nurl = \"udp://").append(host).append(":");
        text.append(std::to_string(port)).append("\"\ngroups = [\"row-");
        text.append(Numbered(i / kSignsInRow + 1, 2)).append("\"]\n");
    }
    if (!ReplaceFile(options.book, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}))
        throw std::runtime_error("cannot write " + options.book);
}

} // namespace vxsim
