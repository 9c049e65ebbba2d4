// Pens, brushes, fonts, bitmaps and regions: what they are, and the table that their handles are looked up
// in. A handle is never given out twice, so a stale one is known as such.
#pragma once

#include <memory>
#include <variant>

#include "platform/gdi.h"
#include "platform/gdi/bitmap.h"
#include "platform/seams/surface.h"

namespace platform::gdi {

struct Pen {
    int style = PS_SOLID;
    int width = 0;  // logical units; 0: one pixel
    COLORREF color = 0;
};
struct Brush {
    BrushSpec color;  // absent: hollow
};
struct Font {
    LOGFONTW description{};
};
struct Region {
    RECT box{};  // all zero when empty
    bool Empty() const { return box.left >= box.right || box.top >= box.bottom; }
};
struct Palette {};

struct Object {
    using Value = std::variant<Pen, Brush, Font, Bitmap, Region, Palette>;

    HGDIOBJ handle = nullptr;
    Value value;
    int stock = -1;          // index of a stock object
    bool permanent = false;  // stock objects and the bitmap that memory contexts start with
    int selections = 0;      // contexts that hold it

    template <class T>
    T* As()
    {
        return std::get_if<T>(&value);
    }
};

HGDIOBJ AddObject(Object::Value value);

std::shared_ptr<Object> PeekObject(HGDIOBJ handle);  // null for what is no object

// Null, with the last error set, for what is no object (of that kind).
std::shared_ptr<Object> FindObject(HGDIOBJ handle);
template <class T>
T* FindAs(HGDIOBJ handle);

// Null for an index that stands for none.
std::shared_ptr<Object> StockObject(int index);
std::shared_ptr<Object> DefaultBitmap();  // 1 by 1, monochrome

// False, with the last error set, for a selected object. Deleting a stock object does nothing and is no error.
bool RemoveObject(HGDIOBJ handle);

extern template Pen* FindAs<Pen>(HGDIOBJ);
extern template Brush* FindAs<Brush>(HGDIOBJ);
extern template Font* FindAs<Font>(HGDIOBJ);
extern template Bitmap* FindAs<Bitmap>(HGDIOBJ);
extern template Region* FindAs<Region>(HGDIOBJ);

}  // namespace platform::gdi
