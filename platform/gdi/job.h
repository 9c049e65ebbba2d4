// A job's device context: what the rendering side and the print subsystem stand behind.
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "platform/gdi.h"

namespace platform {
class Surface;
}

namespace platform::gdi {

struct JobDevice {
    int dotsPerInchX = 600, dotsPerInchY = 600;
    int physicalWidth = 0, physicalHeight = 0;  // of the page, in dots
    int offsetX = 0, offsetY = 0;               // printable origin, in dots
    int printableWidth = 0, printableHeight = 0;
};

class QD_API EscapeTarget {
  public:
    virtual ~EscapeTarget() = default;
    // Above 0: done; 0: not supported; below 0: failed.
    virtual int Escape(int code, std::span<const std::uint8_t> input, std::span<std::uint8_t> output) = 0;
};

// The context's origin is the printable origin, one logical unit a dot. The surface may be changed page
// by page; it may be null: then drawing is only traced.
QD_API HDC CreateJobContext(const JobDevice& device, std::shared_ptr<Surface> surface, EscapeTarget* escapes);
QD_API bool SetJobSurface(HDC job, std::shared_ptr<Surface> surface);
QD_API void DeleteJobContext(HDC job);

QD_API std::size_t ContextCount();  // contexts that are not given back, for leak tests
QD_API std::size_t ObjectCount();   // pens, brushes, fonts, bitmaps and regions that are not deleted

}  // namespace platform::gdi
