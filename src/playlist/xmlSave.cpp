// Writes the thread's play list to its XML file.
#include "playlist/paths.h"
#include "playlist/xmlForm.h"
#include "util/littleEndian.h"
#include "util/localCall.h"
#include "util/replaceFile.h"
#include "util/text.h"

#include <vxsign/result.h>

#include <span>
#include <tinyxml2.h>

using namespace vxsign;
using namespace vxsign::playlist;

namespace {

// An item stands on one line, however much it holds.
constexpr bool kOneLine = true;

class Writer
{
public:
    // The whole text, which lives as long as the writer.
    std::string_view Write(const Items& items)
    {
        printer.PushDeclaration("xml version=\"1.0\" encoding=\"UTF-8\"");
        printer.OpenElement("vxPlayList");
        Number("Version", 1, !kOneLine);
        Number("Count", items.size(), !kOneLine);
        for (const auto& item : items)
            Write(*item);
        printer.CloseElement();
        return {printer.CStr(), static_cast<std::size_t>(printer.CStrSize() - 1)};
    }

private:
    void Write(const Item& item)
    {
        printer.OpenElement("Item");
        Head("groupName", item);
        for (const auto& child : item.children) {
            if (child->itemType == kSubGroup) {
                printer.OpenElement("SubGroup", kOneLine);
                Head("subGroupName", *child);
                Files(*child);
                printer.CloseElement(kOneLine);
            } else if (child->itemType == kFile || child->itemType == kGroup) {
                Files(*child); // directly below the item
            }
        }
        printer.CloseElement(kOneLine);
    }

    template <class Node>
    void Head(const char* nameElement, const Node& node)
    {
        Text(nameElement, node.groupName.c_str());
        Number("playType", node.playType);
        Number("itemType", node.itemType);
        Number("parentIndex", node.parentIndex);
        Number("fileCount", node.children.size());
    }

    void Files(const Child& child)
    {
        for (const FilePointer& file : child.children)
            Write(*file);
    }

    void Write(const VXPLAYLIST_FILE_INFO& file)
    {
        printer.OpenElement("File", kOneLine);
        Text("fileName", std::string(FileName(file)).c_str());
        Numbers(&file, kFileNumbers);
        Numbers(&file, kPictureNumbers);
        Text("pcFileName", std::string(FieldText(file.pcFileName, sizeof file.pcFileName)).c_str());
        for (const SCH& schedule : std::span(file.SCH, file.schCount)) {
            printer.OpenElement("SCH", kOneLine);
            Numbers(&schedule, kScheduleNumbers);
            printer.CloseElement(kOneLine);
        }
        printer.CloseElement(kOneLine);
    }

    void Numbers(const void* record, std::span<const NumberField> fields)
    {
        for (const NumberField& field : fields) {
            const std::uint8_t* const bytes = static_cast<const std::uint8_t*>(record) + field.offset;
            Number(field.name, field.size == 1 ? *bytes : Load16(bytes));
        }
    }

    void Number(const char* name, std::size_t value, bool line = kOneLine)
    {
        printer.OpenElement(name, line);
        printer.PushText(static_cast<std::uint64_t>(value));
        printer.CloseElement(line);
    }

    void Text(const char* name, const char* text)
    {
        printer.OpenElement(name, kOneLine);
        printer.PushText(text); // an empty text too gets both tags
        printer.CloseElement(kOneLine);
    }

    tinyxml2::XMLPrinter printer;
};

} // namespace

std::uint32_t vxPLSave()
{
    return LocalCall<std::uint32_t>(VX_NO_RECORD, []() -> std::uint32_t {
        const vxPlaylistState* const state = ThreadPlaylist();
        if (state == nullptr)
            return VX_NO_RECORD;
        ReplaceFile(BoundFile(*state), Writer().Write(state->items));
        return VX_OK;
    });
}
