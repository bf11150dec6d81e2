// The drives of the sign, as a page sees and fills them.
#include "sim/files/drives.h"
#include "sim/platform/descriptor.h"
#include "sim/web/fileShelf.h"
#include "sim/web/jsonText.h"
#include "sim/web/refusal.h"
#include "sim/web/routes.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <memory>
#include <string_view>
#include <utility>

namespace vxsim {
namespace {

using nlohmann::json;

// Those that a page shows as pictures; all others are files to keep.
constexpr std::pair<std::string_view, const char*> kPictures[] = {{".png", "image/png"},
                                                                  {".jpg", "image/jpeg"},
                                                                  {".jpeg", "image/jpeg"},
                                                                  {".gif", "image/gif"},
                                                                  {".bmp", "image/bmp"}};

std::string InLowerCase(std::string text)
{
    std::ranges::transform(text, text.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

// Of a header: any name in ASCII.
std::string Quoted(const std::string& name)
{
    std::string text;
    for (const char c : name) {
        const auto byte = static_cast<std::uint8_t>(c);
        text += byte < 128 && std::isalnum(byte) != 0 ? std::string(1, c) : "%" + Hex({&byte, 1});
    }
    return text;
}

FileShelf ShelfOf(const SignDesk& desk)
{
    const SignSettings& settings = desk.Sign().sign.Settings();
    return {settings.folder, settings.drives};
}

// The type of a file; it is one to keep unless it is a picture.
const char* TypeOf(const std::filesystem::path& file, httplib::Response& response)
{
    const std::string ending = InLowerCase(file.extension().string());
    const auto* const picture = std::ranges::find(kPictures, ending, [](const auto& known) { return known.first; });
    if (picture != std::end(kPictures))
        return picture->second;
    response.set_header("Content-Disposition", "attachment; filename*=UTF-8''" + Quoted(file.filename().string()));
    return "application/octet-stream";
}

void GiveFile(const FileShelf& shelf, const httplib::Request& request, httplib::Response& response)
{
    const auto file = std::make_shared<OpenFile>(shelf.Open(request.get_param_value("path")));
    const char* const type = TypeOf(file->path, response);
    if (file->size == 0)
        return response.set_content("", type);
    response.set_content_provider(file->size, type, [file](std::size_t offset, std::size_t length, auto& sink) {
        std::array<char, 65536> piece;
        const ssize_t count =
            ::pread(file->descriptor.Get(), piece.data(), std::min(length, piece.size()), static_cast<off_t>(offset));
        return count > 0 && sink.write(piece.data(), static_cast<std::size_t>(count));
    });
}

void GiveFolder(const FileShelf& shelf, const httplib::Request& request, httplib::Response& response)
{
    const std::string path = request.get_param_value("path");
    json entries = json::array();
    for (const FolderEntry& entry : shelf.List(path))
        entries.push_back({{"name", entry.name},
                           {"folder", entry.isFolder},
                           {"bytes", entry.size},
                           {"time", LocalTimeText(entry.time)}});
    response.set_content(Dump({{"path", path}, {"entries", std::move(entries)}}), "application/json");
}

// Told on the sign's thread, as of a file that a host has sent.
void TellSign(SignDesk& desk, const std::filesystem::path& file)
{
    desk.Questions().Ask([&] { desk.Sign().sign.NoteFile(file); });
}

void TakeFile(SignDesk& desk, const FileShelf& shelf, const httplib::Request& request, httplib::Response& response,
              const httplib::ContentReader& reader)
{
    NewFile file = shelf.Make(request.get_param_value("path"));
    const bool isWhole = reader([&](const char* bytes, std::size_t size) { return file.Write({bytes, size}); });
    if (!file.IsWritten())
        throw Refusal(507, "there is no room for the file");
    if (!isWhole)
        throw Refusal(400, "the file is not complete");
    desk.Questions().Ask([&] {
        file.Place();
        desk.Sign().sign.NoteFile(file.Target());
    });
    response.set_content("{}", "application/json");
}

void Delete(SignDesk& desk, const FileShelf& shelf, const httplib::Request& request, httplib::Response& response)
{
    TellSign(desk, shelf.Delete(TextOf(ParseObject(request.body), "path")));
    response.set_content("{}", "application/json");
}

} // namespace

void AddFiles(HttpServer& server, const DeskOf& deskOf)
{
    server.Get("/api/files", [deskOf](const auto& request, auto& response) {
        GiveFolder(ShelfOf(deskOf(request)), request, response);
    });
    server.Get("/api/file", [deskOf](const auto& request, auto& response) {
        GiveFile(ShelfOf(deskOf(request)), request, response);
    });
    server.Post("/api/file", [deskOf](const httplib::Request& request, httplib::Response& response,
                                      const httplib::ContentReader& reader) {
        SignDesk& desk = deskOf(request);
        TakeFile(desk, ShelfOf(desk), request, response, reader);
    });
    server.Post("/api/delete", [deskOf](const httplib::Request& request, httplib::Response& response) {
        SignDesk& desk = deskOf(request);
        Delete(desk, ShelfOf(desk), request, response);
    });
}

} // namespace vxsim
