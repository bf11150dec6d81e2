// The encoding in which a sign wants its texts.
#pragma once

#include "vxctl/cli/args.h"
#include "vxctl/cli/session.h"

#include <string>
#include <string_view>

namespace vxctl {

// Throws UsageError for an encoding that there is not.
void CheckedEncoding(const std::string& name);

inline constexpr ArgumentType kEncodingName{"NAME", Checked<CheckedEncoding>};
inline constexpr Argument kEncoding =
    Of(kEncodingName, "--encoding", "how the sign has its texts, such as gbk, shift_jis or iso-8859-2")
        .Default("utf-8");

// That of --encoding; otherwise what the book says of the sign, or UTF-8.
std::string EncodingFor(const Session& session, const Args& args);

// A text of UTF-8 in that encoding. UTF-8 goes as it stands, whatever its bytes are. Throws UsageError that names what
// is no character, or one that the encoding lacks, with its place.
std::string Encoded(std::string_view text, const std::string& encoding);

// Where something stands behind that part of a text, as people count: " in line 2 at character 5".
std::string PlaceBehind(std::string_view before);

} // namespace vxctl
