#include "watermark/face_list.h"

#include <algorithm>
#include <iterator>
#include <new>

int CollectFaceNames(const LOGFONTW* font, const TEXTMETRICW* /*metrics*/, DWORD fontType, LPARAM parameter)
{
    if (fontType != TRUETYPE_FONTTYPE) return 1;
    try {
        const auto* end = std::find(std::begin(font->lfFaceName), std::end(font->lfFaceName), u'\0');
        reinterpret_cast<FaceNames*>(parameter)->emplace_back(std::begin(font->lfFaceName), end);
        return 1;
    } catch (const std::bad_alloc&) {
        return 0;
    }
}
