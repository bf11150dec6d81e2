// The folder of a run, and what must hold.
#include "support.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace vxsign::fuzz {
namespace {

namespace fs = std::filesystem;

// A folder in a folder: whatever stands beside the inner one got out of it.
fs::path MakeFolder()
{
    if (::geteuid() == 0) {
        std::fputs("fuzz targets refuse to run as root; scripts/fuzz.sh runs them as another user\n", stderr);
        std::exit(2);
    }
    std::string pattern = (fs::temp_directory_path() / "vxfuzzXXXXXX").string();
    Require(::mkdtemp(pattern.data()) != nullptr, "a temporary folder can be made");
    const fs::path inner = fs::path(pattern) / "inside";
    fs::create_directory(inner);
    fs::current_path(inner);
    ::setenv("TMPDIR", (inner.string() + "/").c_str(), 1);
    static std::string outer; // as the system may have lost its own texts when the program ends
    outer = pattern;
    std::atexit([] {
        std::error_code error;
        fs::remove_all(outer, error);
    });
    return inner;
}

} // namespace

const std::string& EmptyFolder()
{
    static const fs::path folder = MakeFolder();
    static const std::string text = folder.string() + "/";
    for (const auto& entry : fs::directory_iterator(folder))
        fs::remove_all(entry);
    const auto beside = std::distance(fs::directory_iterator(folder.parent_path()), fs::directory_iterator());
    Require(beside == 1, "no run writes beside its folder");
    return text;
}

void WriteFile(const std::string& name, View bytes)
{
    std::ofstream file(name, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    file.close();
    Require(!file.fail(), "a file of a run can be written");
}

void Require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "must hold: %s\n", what);
    std::abort();
}

} // namespace vxsign::fuzz
