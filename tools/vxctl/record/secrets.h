// Passwords and keys in recordings.
#pragma once

#include <cstdint>
#include <span>

namespace vxctl {

// Puts '*' in the place of each byte of the passwords of logins and of the keys of Wi-Fi modules, in all packets among
// the bytes, cut or damaged ones with them. A checksum that was right is right again.
void BlankSecrets(std::span<std::uint8_t> bytes);

// Whether the start of a packet, whose rest is to come, may be one with a secret.
bool MayHoldSecret(std::span<const std::uint8_t> begun);

} // namespace vxctl
