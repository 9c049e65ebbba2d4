#include "platform/gdi/objects.h"

#include <algorithm>
#include <map>
#include <string_view>

#include "platform/gdi/job.h"
#include "platform/kernel/last_error.h"

namespace platform::gdi {

namespace {

// The two lowest bits of every handle of the layer's drawing tell what it is a handle of.
constexpr std::uintptr_t ObjectTag = 2;
constexpr std::uintptr_t DefaultBitmapNumber = 31;
constexpr std::uintptr_t FirstNumber = 32;  // below: stock objects, by index + 1

HGDIOBJ HandleOf(std::uintptr_t number) { return reinterpret_cast<HGDIOBJ>(number << 2 | ObjectTag); }

template <class T>
struct StockRow {
    int index;
    T value;
};
const StockRow<Pen> StockPens[] = {
    {WHITE_PEN, {PS_SOLID, 0, RGB(255, 255, 255)}},
    {BLACK_PEN, {PS_SOLID, 0, RGB(0, 0, 0)}      },
    {NULL_PEN,  {PS_NULL, 0, RGB(0, 0, 0)}       },
};
const StockRow<Brush> StockBrushes[] = {
    {WHITE_BRUSH,  {RGB(255, 255, 255)}},
    {LTGRAY_BRUSH, {RGB(192, 192, 192)}},
    {GRAY_BRUSH,   {RGB(128, 128, 128)}},
    {DKGRAY_BRUSH, {RGB(64, 64, 64)}   },
    {BLACK_BRUSH,  {RGB(0, 0, 0)}      },
    {NULL_BRUSH,   {std::nullopt}      },
};
struct StockFontRow {
    int index;
    const char16_t* face;
    LONG height, weight;
};
constexpr StockFontRow StockFonts[] = {
    {OEM_FIXED_FONT,      u"Fixedsys",    12,  400},
    {ANSI_FIXED_FONT,     u"Courier New", 12,  400},
    {ANSI_VAR_FONT,       u"Arial",       12,  400},
    {SYSTEM_FONT,         u"System",      16,  700},
    {DEVICE_DEFAULT_FONT, u"System",      16,  700},
    {SYSTEM_FIXED_FONT,   u"Fixedsys",    15,  400},
    {DEFAULT_GUI_FONT,    u"System",      -11, 400},
};

Font FontOf(const StockFontRow& row)
{
    Font font;
    font.description.lfHeight = row.height;
    font.description.lfWeight = row.weight;
    std::ranges::copy(std::u16string_view(row.face), font.description.lfFaceName);
    return font;
}

class Table {
  public:
    Table()
    {
        for (const StockRow<Pen>& row : StockPens) AddStock(row.index, row.value);
        for (const StockRow<Brush>& row : StockBrushes) AddStock(row.index, row.value);
        for (const StockFontRow& row : StockFonts) AddStock(row.index, FontOf(row));
        AddStock(DEFAULT_PALETTE, Palette{});
        AddPermanent(DefaultBitmapNumber, Bitmap(1, 1, 1), -1);
    }

    HGDIOBJ Add(Object::Value value)
    {
        auto object = std::make_shared<Object>();
        object->handle = HandleOf(next_);
        object->value = std::move(value);
        objects_.emplace(object->handle, object);
        ++next_;
        return object->handle;
    }

    std::shared_ptr<Object> Find(HGDIOBJ handle) const
    {
        const auto found = objects_.find(handle);
        return found == objects_.end() ? nullptr : found->second;
    }

    void Remove(HGDIOBJ handle) { objects_.erase(handle); }

    std::size_t Count() const
    {
        return static_cast<std::size_t>(
            std::ranges::count_if(objects_, [](const auto& entry) { return !entry.second->permanent; }));
    }

  private:
    void AddStock(int index, Object::Value value)
    {
        AddPermanent(static_cast<std::uintptr_t>(index) + 1, std::move(value), index);
    }

    void AddPermanent(std::uintptr_t number, Object::Value value, int stock)
    {
        auto object = std::make_shared<Object>();
        object->handle = HandleOf(number);
        object->value = std::move(value);
        object->stock = stock;
        object->permanent = true;
        objects_.emplace(object->handle, std::move(object));
    }

    std::map<HGDIOBJ, std::shared_ptr<Object>> objects_;
    std::uintptr_t next_ = FirstNumber;
};

Table& Objects()
{
    // Never destroyed: contexts may be given back while the process ends.
    static Table* table = new Table;
    return *table;
}

}  // namespace

HGDIOBJ AddObject(Object::Value value) { return Objects().Add(std::move(value)); }

std::shared_ptr<Object> PeekObject(HGDIOBJ handle) { return Objects().Find(handle); }

std::shared_ptr<Object> FindObject(HGDIOBJ handle)
{
    auto object = Objects().Find(handle);
    if (!object) SetError(ERROR_INVALID_HANDLE);
    return object;
}

template <class T>
T* FindAs(HGDIOBJ handle)
{
    const auto object = Objects().Find(handle);
    T* value = object ? object->As<T>() : nullptr;
    if (value == nullptr) SetError(ERROR_INVALID_HANDLE);
    return value;
}

template Pen* FindAs<Pen>(HGDIOBJ);
template Brush* FindAs<Brush>(HGDIOBJ);
template Font* FindAs<Font>(HGDIOBJ);
template Bitmap* FindAs<Bitmap>(HGDIOBJ);
template Region* FindAs<Region>(HGDIOBJ);

std::shared_ptr<Object> StockObject(int index)
{
    if (index < WHITE_BRUSH || index > DEFAULT_GUI_FONT) return nullptr;
    return Objects().Find(HandleOf(static_cast<std::uintptr_t>(index) + 1));
}

std::shared_ptr<Object> DefaultBitmap() { return Objects().Find(HandleOf(DefaultBitmapNumber)); }

bool RemoveObject(HGDIOBJ handle)
{
    const auto object = FindObject(handle);
    if (!object) return false;
    if (object->permanent) return true;
    if (object->selections > 0) {
        SetError(ERROR_BUSY);
        return false;
    }
    Objects().Remove(handle);
    return true;
}

std::size_t ObjectCount() { return Objects().Count(); }

}  // namespace platform::gdi
