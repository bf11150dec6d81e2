// What only the system can make of files and folders.
#pragma once

#include <cstdint>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <string>
#include <tuple>

namespace vxctl::platform {

// A new file or folder, whose name ends in XXXXXX until it is made. Null, or false, when it cannot be made: errno tells
// why.
std::FILE* MakeFile(std::string& pattern);
bool MakeFolder(std::string& pattern);

// Another one whenever the file was written, or another file put in its place.
using FileVersion = std::tuple<std::uint64_t, std::int64_t, std::int64_t>;
FileVersion VersionOf(const std::filesystem::path& file);

// A second name for a file.
void Link(const std::filesystem::path& file, const std::filesystem::path& name, std::error_code& error);

std::tm LocalTime(std::time_t when);
// How many seconds the local time is ahead of UTC then.
long SecondsAhead(std::tm local);

// Where programs keep what a user has set.
std::filesystem::path SettingsFolder();

} // namespace vxctl::platform
