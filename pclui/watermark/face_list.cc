#include "watermark/face_list.h"

#include <algorithm>
#include <iterator>
#include <new>

int CollectFaceNames(const LOGFONTW* font, const TEXTMETRICW* /*metrics*/, DWORD fontType, LPARAM parameter)
{
    if (fontType != TRUETYPE_FONTTYPE) return 1;
    FaceName face{};
    std::copy_n(font->lfFaceName, std::size(face.text) - 1, face.text);
    auto& faces = *reinterpret_cast<FaceNames*>(parameter);
    try {
        faces.reserve(faces.size() + 1);
        faces.push_back(face);
        return 1;
    } catch (const std::bad_alloc&) {
        return 0;
    }
}
