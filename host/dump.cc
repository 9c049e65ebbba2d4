#include "host/dump.h"

#include <algorithm>
#include <iterator>

#include "platform/user/window.h"

namespace host {

namespace {

namespace user = platform::user;

// Lists whose item data are references, which say nothing outside the process.
constexpr int ListsOfReferences[] = {1107, 2201};

bool ShowsCheck(const user::Window& window)
{
    switch (window.style & BS_TYPEMASK) {
        case BS_CHECKBOX:
        case BS_AUTOCHECKBOX:
        case BS_RADIOBUTTON:
        case BS_AUTORADIOBUTTON:
            return true;
        default:
            return false;
    }
}

void AddList(const user::Window& window, const user::ListState& list, Json& json)
{
    Json items = Json::array(), data = Json::array();
    for (const user::ListItem& item : list.items) {
        items.push_back(Text(item.text));
        data.push_back(item.data);
    }
    if (std::ranges::find(ListsOfReferences, window.id) != std::end(ListsOfReferences)) data = nullptr;
    json["items"] = std::move(items);
    json["data"] = std::move(data);
    json["selection"] = list.selection;
}

void AddListView(const user::ListViewState& list, Json& json)
{
    Json rows = Json::array();
    for (const user::ListViewState::Row& row : list.rows) {
        Json cells = Json::array();
        for (const std::u16string& cell : row.cells) cells.push_back(Text(cell));
        rows.push_back(std::move(cells));
    }
    const auto selected = std::ranges::find(list.rows, true, &user::ListViewState::Row::selected);
    json["rows"] = std::move(rows);
    json["selection"] = selected == list.rows.end() ? -1 : static_cast<int>(selected - list.rows.begin());
    json["mark"] = list.mark;
}

void AddTree(const user::TreeState& tree, Json& json)
{
    Json rows = Json::array();
    for (const user::TreeState::Row& row : tree.rows) rows.push_back(Json::array({Text(row.text)}));
    json["rows"] = std::move(rows);
    json["selection"] = tree.selection;
}

// A combo box shows the text of what is selected in it.
std::u16string ShownText(const user::Window& window)
{
    const auto* list = window.As<user::ListState>();
    if (window.kind != user::Kind::ComboBox || !list) return window.text;
    const bool selected = list->selection >= 0 && list->selection < static_cast<int>(list->items.size());
    return selected ? list->items[list->selection].text : std::u16string();
}

Json DumpControl(const user::Window& window)
{
    Json json;
    json["id"] = window.id;
    json["class"] = Text(window.className);
    json["text"] = Text(ShownText(window));
    json["enabled"] = window.enabled;
    json["visible"] = window.visible;
    if (const auto* button = window.As<user::ButtonState>(); button && ShowsCheck(window)) {
        json["checked"] = button->check;
    }
    if (const auto* list = window.As<user::ListState>()) AddList(window, *list, json);
    if (const auto* list = window.As<user::ListViewState>()) AddListView(*list, json);
    if (const auto* tree = window.As<user::TreeState>()) AddTree(*tree, json);
    return json;
}

Json DumpFocus(const user::DialogState& dialog)
{
    const user::Window* focus = user::Find(dialog.focus);
    return focus ? Json(focus->id) : Json();
}

}  // namespace

Json Dump(HWND top)
{
    const user::Window* sheetWindow = user::Find(top);
    const auto* sheet = sheetWindow ? sheetWindow->As<user::SheetState>() : nullptr;
    const user::Window* window = user::Find(user::DialogOf(top));
    const auto* dialog = window ? window->As<user::DialogState>() : nullptr;
    if (!dialog) return nullptr;

    Json json;
    json["template"] = dialog->templateNumber;
    json["title"] = Text(sheet && sheet->active >= 0 ? sheet->pages[sheet->active].title : window->text);
    json["focus"] = DumpFocus(*dialog);
    json["applyEnabled"] = sheet ? Json(sheet->applyEnabled) : Json();
    json["changes"] = sheet ? Json(sheet->changes) : Json();
    json["controls"] = Json::array();
    for (const HWND child : window->children) {
        if (const user::Window* control = user::Find(child)) json["controls"].push_back(DumpControl(*control));
    }
    return json;
}

}  // namespace host
