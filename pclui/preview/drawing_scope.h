// Owners of what a drawing helper borrows or makes: all of it is given back on every way out, and a refusal to
// take it back is met by asking once more.
#pragma once

#include "platform/gdi.h"
#include "platform/user.h"
#include "watermark/put_back.h"

// The context of a window's client area; null if the window or its context can't be had. A null window
// would stand for the screen, so it is not asked.
class WindowContext {
  public:
    explicit WindowContext(HWND window) : window_(window), context_(window ? GetDC(window) : nullptr) {}
    ~WindowContext()
    {
        if (context_) PutBack([this] { return ReleaseDC(window_, context_); });
    }
    WindowContext(const WindowContext&) = delete;
    WindowContext& operator=(const WindowContext&) = delete;

    explicit operator bool() const { return context_ != nullptr; }
    HDC Get() const { return context_; }

    // Empty on failure.
    RECT ClientRect() const
    {
        RECT client{};
        return GetClientRect(window_, &client) ? client : RECT{};
    }

  private:
    HWND window_;
    HDC context_;
};

// A pen, brush or font that was made for one drawing: selected for the scope, then deselected and deleted.
// If it could not be made, the context draws with what it has.
class SelectedObject {
  public:
    SelectedObject(HDC context, HGDIOBJ object)
        : context_(context), object_(object), before_(object ? SelectObject(context, object) : nullptr)
    {
    }
    ~SelectedObject()
    {
        if (before_) PutBack([this] { return SelectObject(context_, before_); });
        if (object_) PutBack([this] { return DeleteObject(object_); });
    }
    SelectedObject(const SelectedObject&) = delete;
    SelectedObject& operator=(const SelectedObject&) = delete;

  private:
    HDC context_;
    HGDIOBJ object_, before_;
};

// A stock object for one drawing; it is not deleted.
class SelectedStock {
  public:
    SelectedStock(HDC context, int index) : context_(context), before_(SelectObject(context, GetStockObject(index))) {}
    ~SelectedStock()
    {
        if (before_) PutBack([this] { return SelectObject(context_, before_); });
    }
    SelectedStock(const SelectedStock&) = delete;
    SelectedStock& operator=(const SelectedStock&) = delete;

  private:
    HDC context_;
    HGDIOBJ before_;
};

// What SetTextColor, SetBkColor and SetTextAlign gave is set again, unless they failed.
inline void PutTextColorBack(HDC context, COLORREF color)
{
    if (color != CLR_INVALID) PutBack([&] { return SetTextColor(context, color) != CLR_INVALID; });
}
inline void PutBkColorBack(HDC context, COLORREF color)
{
    if (color != CLR_INVALID) PutBack([&] { return SetBkColor(context, color) != CLR_INVALID; });
}
inline void PutTextAlignBack(HDC context, UINT alignment)
{
    if (alignment != GDI_ERROR) PutBack([&] { return SetTextAlign(context, alignment) != GDI_ERROR; });
}
