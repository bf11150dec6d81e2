#include "sim/web/queryText.h"

#include "sim/web/refusal.h"

#include <charconv>
#include <system_error>

namespace vxsim {

std::uint64_t ToNumber(const std::string& text, const std::string& name, std::uint64_t most)
{
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number > most)
        throw Refusal(400, "'" + name + "' is no number from 0 to " + std::to_string(most));
    return number;
}

std::uint64_t NumberIn(const httplib::Request& request, const std::string& name, std::uint64_t usual,
                       std::uint64_t most)
{
    return request.has_param(name) ? ToNumber(request.get_param_value(name), name, most) : usual;
}

} // namespace vxsim
