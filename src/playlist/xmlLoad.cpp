// Reads XML files into the thread's play list.
#include "playlist/playlist.h"
#include "playlist/xmlForm.h"
#include "util/file.h"
#include "util/littleEndian.h"
#include "util/localCall.h"
#include "util/pathText.h"
#include "util/text.h"

#include <vxsign/result.h>

#include <algorithm>
#include <cstdlib>
#include <new>
#include <optional>
#include <span>
#include <tinyxml2.h>

using namespace vxsign;
using namespace vxsign::playlist;
using tinyxml2::XMLNode;

namespace {

// A missing element is no fault: a number is 0 then and a text empty.
const XMLNode* ValueOf(const XMLNode& parent, const char* name)
{
    const XMLNode* const element = parent.FirstChildElement(name);
    return element == nullptr ? nullptr : element->FirstChild();
}

// What cannot be read as a number is 0; one that is too large keeps its low bits.
std::optional<int> NumberIfAny(const XMLNode& parent, const char* name)
{
    const XMLNode* const value = ValueOf(parent, name);
    if (value == nullptr)
        return {};
    return value->ToText() == nullptr ? 0 : static_cast<int>(std::strtoll(value->Value(), nullptr, 10));
}

int Number(const XMLNode& parent, const char* name)
{
    return NumberIfAny(parent, name).value_or(0);
}

const char* Text(const XMLNode& parent, const char* name)
{
    const XMLNode* const value = ValueOf(parent, name);
    return value == nullptr || value->ToText() == nullptr ? "" : value->Value();
}

void ReadNumbers(const XMLNode& element, void* record, std::span<const NumberField> fields)
{
    for (const NumberField& field : fields) {
        std::uint8_t* const bytes = static_cast<std::uint8_t*>(record) + field.offset;
        const int value = Number(element, field.name);
        if (field.size == 1)
            *bytes = static_cast<std::uint8_t>(value);
        else
            Store16(bytes, static_cast<std::uint16_t>(value));
    }
}

// schCount stays as it was read, even when fewer schedules follow.
void ReadSchedules(const XMLNode& element, VXPLAYLIST_FILE_INFO& file)
{
    const XMLNode* schedule = element.FirstChildElement("SCH");
    for (std::size_t i = 0; i < file.schCount && schedule != nullptr; ++i) {
        ReadNumbers(*schedule, &file.SCH[i], kScheduleNumbers);
        schedule = schedule->NextSiblingElement("SCH");
    }
}

// The files beside sub-groups lose their picture fields: that is how the form is defined.
enum class Picture
{
    kRead,
    kLeftOut
};

FilePointer ReadFile(const XMLNode& element, Picture picture)
{
    FilePointer file = MakeFile();
    if (!file)
        throw std::bad_alloc();
    CopyToText(file->fileName, sizeof file->fileName, Text(element, "fileName"));
    CopyToText(file->pcFileName, sizeof file->pcFileName, Text(element, "pcFileName"));
    ReadNumbers(element, file.get(), kFileNumbers);
    if (picture == Picture::kRead)
        ReadNumbers(element, file.get(), kPictureNumbers);
    ReadSchedules(element, *file);
    return file;
}

template <class Node>
void ReadHead(const XMLNode& element, const char* nameElement, Node& node)
{
    node.groupName = Text(element, nameElement);
    node.playType = static_cast<std::uint8_t>(Number(element, "playType"));
    node.itemType = static_cast<std::uint8_t>(Number(element, "itemType"));
    node.parentIndex = static_cast<std::uint8_t>(Number(element, "parentIndex"));
}

std::shared_ptr<Child> ReadSubGroup(const XMLNode& element)
{
    auto child = std::make_shared<Child>();
    ReadHead(element, "subGroupName", *child);
    const int count = Number(element, "fileCount");
    const XMLNode* file = element.FirstChildElement("File");
    for (int i = 0; i < count && file != nullptr; ++i) {
        child->children.push_back(ReadFile(*file, Picture::kRead));
        file = file->NextSiblingElement("File");
    }
    return child;
}

std::shared_ptr<Child> MakeFileChild(const Item& item, FilePointer file)
{
    auto child = std::make_shared<Child>();
    child->playType = item.playType;
    child->parentIndex = item.parentIndex;
    child->children.push_back(std::move(file));
    return child;
}

// One child for each sibling behind fileCount. An element of another name is read as the kind before it. The files get
// children without a name, which no search for a group finds.
void ReadMixedChildren(const XMLNode& element, int count, Item& item)
{
    const XMLNode* const countElement = element.FirstChildElement("fileCount");
    const XMLNode* node = countElement == nullptr ? nullptr : countElement->NextSibling();
    bool isSubGroup = false;
    for (int i = 0; i < count && node != nullptr; ++i) {
        const std::string_view name = node->Value();
        if (name == "SubGroup" || name == "File")
            isSubGroup = name == "SubGroup";
        item.children.push_back(isSubGroup ? ReadSubGroup(*node)
                                           : MakeFileChild(item, ReadFile(*node, Picture::kLeftOut)));
        node = node->NextSibling();
    }
}

// One child for each node from the first File on. Each has the item's name: the first serves as default child.
void ReadFileChildren(const XMLNode& element, int count, Item& item)
{
    const XMLNode* node = element.FirstChildElement("File");
    for (int i = 0; i < count && node != nullptr; ++i) {
        auto child = MakeFileChild(item, ReadFile(*node, Picture::kRead));
        child->groupName = item.groupName;
        item.children.push_back(std::move(child));
        node = node->NextSibling();
    }
}

Items ReadItems(const XMLNode& root)
{
    Items items;
    const int count = Number(root, "Count");
    int childCount = 0; // an item without the element has as many children as the one before
    const XMLNode* node = root.FirstChildElement("Item");
    for (int i = 0; i < count && node != nullptr; ++i) {
        auto item = std::make_shared<Item>();
        ReadHead(*node, "groupName", *item);
        childCount = NumberIfAny(*node, "fileCount").value_or(childCount);
        if (node->FirstChildElement("SubGroup") != nullptr)
            ReadMixedChildren(*node, childCount, *item);
        else
            ReadFileChildren(*node, childCount, *item);
        items.push_back(std::move(item));
        node = node->NextSibling();
    }
    return items;
}

} // namespace

std::uint32_t vxPLInit(char* dir, char* fileName)
{
    if (dir == nullptr || fileName == nullptr)
        return VX_ARGUMENTS;
    return LocalCall<std::uint32_t>(VX_CALL, [=]() -> std::uint32_t {
        vxPlaylistState* const state = ThreadPlaylist();
        if (state == nullptr)
            return VX_CALL;
        state->playlistDir = dir;
        state->playlistFile = fileName;
        std::string& folder = state->playlistDir;
        for (std::size_t place = 0; (place = NextOf(folder, "\\", place)) != std::string::npos;)
            folder[place] = '/';
        const std::string path = BoundFile(*state);
        if (!OpenFile(path.c_str(), "rb") && !OpenFile(path.c_str(), "wb"))
            return VX_CALL;
        vxLoadSYSFromXML(nullptr);
        return VX_OK;
    });
}

std::uint32_t vxLoadSYSFromXML(char* path)
{
    return LocalCall<std::uint32_t>(VX_NO_RECORD, [=]() -> std::uint32_t {
        vxPlaylistState* const state = ThreadPlaylist();
        if (state == nullptr)
            return VX_NO_RECORD;
        state->items.clear();
        const File file = OpenFile(path == nullptr ? BoundFile(*state).c_str() : path, "rb");
        tinyxml2::XMLDocument document;
        if (!file || document.LoadFile(file.get()) != tinyxml2::XML_SUCCESS)
            return VX_NO_RECORD;
        if (const XMLNode* const root = document.FirstChildElement())
            state->items = ReadItems(*root);
        return VX_OK;
    });
}
