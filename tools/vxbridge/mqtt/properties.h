// The properties of an MQTT 5 packet.
#pragma once

#include <mosquitto.h>
#include <mqtt_protocol.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

namespace vxbridge {

class Properties
{
public:
    Properties() = default;
    ~Properties() { mosquitto_property_free_all(&list); }
    Properties(const Properties&) = delete;
    Properties& operator=(const Properties&) = delete;

    const mosquitto_property* Get() const { return list; }

    void AddNumber(int which, std::uint32_t value) { mosquitto_property_add_int32(&list, which, value); }
    void AddText(int which, const std::string& text) { mosquitto_property_add_string(&list, which, text.c_str()); }
    void AddUser(const char* name, const char* value)
    {
        mosquitto_property_add_string_pair(&list, MQTT_PROP_USER_PROPERTY, name, value);
    }
    void AddBytes(int which, const std::string& bytes)
    {
        mosquitto_property_add_binary(&list, which, bytes.data(), static_cast<std::uint16_t>(bytes.size()));
    }

private:
    mosquitto_property* list = nullptr;
};

// "" when it is not there.
inline std::string TextOf(const mosquitto_property* list, int which)
{
    char* text = nullptr;
    mosquitto_property_read_string(list, which, &text, false);
    const std::unique_ptr<char, decltype(&std::free)> owned(text, std::free);
    return text == nullptr ? "" : text;
}

inline std::string BytesOf(const mosquitto_property* list, int which)
{
    void* bytes = nullptr;
    std::uint16_t size = 0;
    mosquitto_property_read_binary(list, which, &bytes, &size, false);
    const std::unique_ptr<void, decltype(&std::free)> owned(bytes, std::free);
    return bytes == nullptr ? "" : std::string(static_cast<const char*>(bytes), size);
}

} // namespace vxbridge
