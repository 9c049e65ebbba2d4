#include "pages/transparent_bitmap.h"

#include "module.h"
#include "platform/user.h"
#include "watermark/put_back.h"

namespace {

constexpr COLORREF White = 0xFFFFFF, Black = 0;

enum Part { Image, Source, Mask, Parts };

// Memory contexts, each with a bitmap of its own; all of them are deleted with the object.
class MemoryPictures {
  public:
    explicit MemoryPictures(HDC like)
    {
        for (HDC& context : contexts_) context = CreateCompatibleDC(like);
    }
    ~MemoryPictures()
    {
        for (int part = 0; part < Parts; ++part)
            if (before_[part]) PutBack([&] { return SelectObject(contexts_[part], before_[part]); });
        for (HDC context : contexts_)
            if (context) PutBack([&] { return DeleteDC(context); });
        for (HBITMAP bitmap : bitmaps_)
            if (bitmap) PutBack([&] { return DeleteObject(bitmap); });
    }
    MemoryPictures(const MemoryPictures&) = delete;
    MemoryPictures& operator=(const MemoryPictures&) = delete;

    HBITMAP Own(Part part, HBITMAP bitmap) { return bitmaps_[part] = bitmap; }
    // Whether every context has its bitmap.
    bool Select()
    {
        bool all = true;
        for (int part = 0; part < Parts; ++part) {
            if (contexts_[part] && bitmaps_[part]) before_[part] = SelectObject(contexts_[part], bitmaps_[part]);
            all = all && before_[part];
        }
        return all;
    }
    HDC operator[](Part part) const { return contexts_[part]; }

  private:
    HDC contexts_[Parts] = {};
    HBITMAP bitmaps_[Parts] = {};
    HGDIOBJ before_[Parts] = {};
};

void FillWithFace(HDC context, const RECT& box)
{
    HBRUSH face = CreateSolidBrush(GetSysColor(COLOR_BTNFACE));
    HRGN region = CreateRectRgn(box.left, box.top, box.right, box.bottom);
    if (face && region) FillRgn(context, region, face);
    if (region) PutBack([&] { return DeleteObject(region); });
    if (face) PutBack([&] { return DeleteObject(face); });
}

}  // namespace

void DrawTransparentBitmap(int bitmapId, const RECT& target, HDC context, COLORREF background)
{
    RECT place = {};
    CopyRect(&place, &target);
    const int width = place.right - place.left, height = place.bottom - place.top;

    MemoryPictures pictures(context);
    HBITMAP bitmap = pictures.Own(Image, LoadBitmapW(ResourceHandle, ResourceName(bitmapId)));
    pictures.Own(Source, LoadBitmapW(ResourceHandle, ResourceName(bitmapId)));
    BITMAP size = {};
    GetObjectW(bitmap, sizeof size, &size);
    const int w = size.bmWidth, h = size.bmHeight;
    pictures.Own(Mask, CreateBitmap(w, h, 1, 1, nullptr));
    if (!pictures.Select()) return;
    HDC image = pictures[Image], source = pictures[Source], mask = pictures[Mask];

    FillWithFace(image, {0, 0, w, h});
    SetBkColor(source, GetPixel(source, 0, 0));
    const COLORREF backBefore = SetBkColor(image, White);
    const COLORREF textBefore = SetTextColor(image, Black);
    if (background == TargetShowsThrough) {
        StretchBlt(image, 0, 0, w, h, context, place.left, place.top, width, height, SRCCOPY);
    }
    // The key colour becomes 1 in the mask. Twice the picture by exclusive or is nothing where the mask lets the
    // first one stand, and the picture itself where the mask has wiped it.
    StretchBlt(mask, 0, 0, w, h, source, 0, 0, w, h, SRCCOPY);
    StretchBlt(image, 0, 0, w, h, source, 0, 0, w, h, SRCINVERT);
    StretchBlt(image, 0, 0, w, h, mask, 0, 0, w, h, SRCAND);
    StretchBlt(image, 0, 0, w, h, source, 0, 0, w, h, SRCINVERT);
    StretchBlt(context, place.left, place.top, width, height, image, 0, 0, w, h, SRCCOPY);
    SetBkColor(image, backBefore);
    SetTextColor(image, textBefore);
}
