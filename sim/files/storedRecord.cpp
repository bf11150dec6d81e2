#include "sim/files/storedRecord.h"

#include <fstream>
#include <system_error>
#include <utility>

namespace vxsim {
namespace fs = std::filesystem;

StoredRecord::StoredRecord(fs::path path, std::vector<std::uint8_t> initial)
    : file(std::move(path)), bytes(std::move(initial))
{
    auto stored = ReadFileStart(file, bytes.size() + 1);
    if (stored.size() == bytes.size())
        bytes = std::move(stored);
}

bool StoredRecord::Set(std::span<const std::uint8_t> content)
{
    const auto record = content.first(bytes.size());
    if (!ReplaceFile(file, record))
        return false;
    bytes.assign(record.begin(), record.end());
    return true;
}

bool ReplaceFile(const fs::path& file, std::span<const std::uint8_t> bytes)
{
    fs::path temporary = file;
    temporary += ".tmp";
    std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    out.close();
    std::error_code error;
    if (out)
        fs::rename(temporary, file, error);
    if (out && !error)
        return true;
    fs::remove(temporary, error);
    return false;
}

std::vector<std::uint8_t> ReadFileStart(const fs::path& file, std::size_t most)
{
    std::ifstream in(file, std::ios::binary);
    if (!in)
        return {};
    std::vector<std::uint8_t> bytes(most);
    in.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(most));
    bytes.resize(static_cast<std::size_t>(in.gcount()));
    return bytes;
}

} // namespace vxsim
