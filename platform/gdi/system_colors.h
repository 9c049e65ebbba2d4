// The colours of the classic light scheme.
#pragma once

#include "platform/gdi.h"

namespace platform::gdi {

COLORREF SystemColor(int index);  // 0 for an index that stands for none

}  // namespace platform::gdi
