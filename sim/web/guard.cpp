#include "sim/web/guard.h"

#include "sim/web/jsonText.h"
#include "sim/web/refusal.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <string_view>
#include <unistd.h>

namespace vxsim {
namespace {

constexpr std::uint64_t kMostJson = 1U << 20;
constexpr std::uint64_t kMostUpload = 64U << 20;
constexpr std::string_view kUploadPath = "/api/file";

std::string HostName()
{
    char name[256] = {};
    return ::gethostname(name, sizeof name - 1) == 0 ? name : "";
}

// Looks at all bytes, whichever is wrong.
bool IsSame(std::string_view given, std::string_view wanted)
{
    unsigned differs = given.size() != wanted.size();
    for (std::size_t i = 0; i < given.size(); ++i)
        differs |= static_cast<unsigned char>(given[i] ^ wanted[i % wanted.size()]);
    return differs == 0;
}

// A body has a length that is told and bounded, and is what it is: neither packed nor in parts.
void CheckBody(const httplib::Request& request)
{
    const std::string length = request.get_header_value("Content-Length");
    std::uint64_t size = 0;
    const auto [end, error] = std::from_chars(length.data(), length.data() + length.size(), size);
    if (request.has_header("Transfer-Encoding") || request.get_header_value_count("Content-Length") != 1)
        throw Refusal(411, "the length of the body is wanted");
    if (error != std::errc() || end != length.data() + length.size())
        throw Refusal(400, "the length of the body is no number");
    if (request.has_header("Content-Encoding") ||
        request.get_header_value("Content-Type").starts_with("multipart/form-data"))
        throw Refusal(415, "the body is packed or in parts");
    if (size > (request.path == kUploadPath ? kMostUpload : kMostJson))
        throw Refusal(413, "the body is too large");
}

} // namespace

void Guard::Check(const httplib::Request& request) const
{
    if (request.method != "GET" && request.method != "POST")
        throw Refusal(405, "only GET and POST are known");
    if (!IsOwnHost(request))
        throw Refusal(403, "the request is for another host");
    if (!settings.password.empty() && !HasPassword(request))
        throw Refusal(401, "the password is wanted");
    const std::string site = request.get_header_value("Sec-Fetch-Site");
    const bool isForeign = !site.empty() && site != "same-origin" && site != "none";
    const bool isPart = request.path.starts_with("/api/") || request.path == "/events";
    if (isForeign && (isPart || request.method == "POST"))
        throw Refusal(403, "the request comes from another page");
    if (request.has_header("Origin") &&
        request.get_header_value("Origin") != "http://" + request.get_header_value("Host"))
        throw Refusal(403, "the request comes from another origin");
    if (request.method == "POST")
        CheckBody(request);
}

// By the address it was reached at, or by a name that is this machine's: a page of another name that was led here has
// neither.
bool Guard::IsOwnHost(const httplib::Request& request) const
{
    const std::string host = request.get_header_value("Host");
    const auto is = [&](const std::string& name) {
        return host == name + ":" + std::to_string(port) || (port == 80 && host == name);
    };
    if (request.get_header_value_count("Host") != 1)
        return false;
    const bool isLocal = request.local_addr.starts_with("127.");
    return is(request.local_addr) || is(settings.host) || (isLocal ? is("localhost") : is(HostName()));
}

bool Guard::HasPassword(const httplib::Request& request) const
{
    constexpr std::string_view kBasic = "Basic ";
    const std::string given = request.get_header_value("Authorization");
    if (!given.starts_with(kBasic))
        return false;
    const std::string login = FromBase64(std::string_view(given).substr(kBasic.size()));
    const std::size_t colon = login.find(':');
    return colon != std::string::npos && IsSame(std::string_view(login).substr(colon + 1), settings.password);
}

} // namespace vxsim
