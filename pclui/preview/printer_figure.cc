#include "preview/printer_figure.h"

#include "module.h"
#include "preview/drawing_scope.h"

void DrawPrinterFigure(int bitmapId, int frameId, HWND dialog)
{
    const WindowContext frame(GetDlgItem(dialog, frameId));
    if (!frame) return;
    const RECT client = frame.ClientRect();
    HDC memory = CreateCompatibleDC(frame.Get());
    HBITMAP bitmap = LoadBitmapW(ResourceHandle, ResourceName(bitmapId));
    BITMAP size{};
    if (memory && bitmap && GetObjectW(bitmap, sizeof size, &size) != 0) {
        if (HGDIOBJ before = SelectObject(memory, bitmap)) {
            StretchBlt(frame.Get(), client.left, client.top, client.right, client.bottom, memory, 0, 0, size.bmWidth,
                       size.bmHeight, SRCCOPY);
            PutBack([&] { return SelectObject(memory, before); });
        }
    }
    if (memory) PutBack([&] { return DeleteDC(memory); });
    if (bitmap) PutBack([&] { return DeleteObject(bitmap); });
}
