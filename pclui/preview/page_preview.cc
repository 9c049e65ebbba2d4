#include "preview/page_preview.h"

#include "preview/drawing_scope.h"
#include "preview/preview_frame.h"

void DrawPagePreview(HWND dialog, const DRAWITEMSTRUCT& drawItem)
{
    const WindowContext picture(drawItem.hwndItem);
    if (!picture) return;
    const RECT client = picture.ClientRect();
    if (client.right - client.left < 1 || client.bottom - client.top < 1) return;
    DrawPreviewFrame(dialog, drawItem);
}
