// JSON in ASCII, with the bytes of texts that are no UTF-8.
#include "vxctl/cli/jsonText.h"

#include "vxctl/cli/numbers.h"
#include "vxctl/cli/shown.h"

#include <algorithm>

namespace vxctl {

namespace {

using Json = nlohmann::ordered_json;

// Whether it is a text that is no UTF-8, or an array that has one.
bool IsOdd(const Json& value)
{
    if (value.is_string())
        return !IsUtf8(value.get_ref<const std::string&>());
    return value.is_array() && std::ranges::any_of(value, IsOdd);
}

Json BytesOf(const Json& value)
{
    if (value.is_string()) {
        const auto& text = value.get_ref<const std::string&>();
        return FormatHex(reinterpret_cast<const std::uint8_t*>(text.data()), text.size(), "");
    }
    if (!value.is_array())
        return nullptr;
    Json all = Json::array();
    for (const Json& part : value)
        all.push_back(BytesOf(part));
    return all;
}

Json WithBytes(const Json& value)
{
    Json whole = value;
    if (value.is_array())
        std::ranges::transform(value, whole.begin(), WithBytes);
    if (!value.is_object())
        return whole;
    whole.clear();
    for (const auto& [key, member] : value.items()) {
        whole[key] = WithBytes(member);
        if (IsOdd(member))
            whole[key + "Bytes"] = BytesOf(member);
    }
    return whole;
}

} // namespace

std::string JsonText(const Json& value)
{
    return WithBytes(value).dump(-1, ' ', true, Json::error_handler_t::replace);
}

} // namespace vxctl
