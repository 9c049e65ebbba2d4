// The sheet of paper that a job's record asks for: its size as it lies, and what of it the printer reaches. Dots
// are those of the job's resolution; the driver keeps paper in dots at 300 dpi.
#pragma once

#include "host/context.h"
#include "host/job_record.h"
#include "platform/gdi/job.h"

namespace host {

struct JobPaper {
    int width, height;  // dots at 300 dpi, as the page lies
    int margin;         // on each side, dots at 300 dpi
    int scale;          // dots of the job's resolution in a dot at 300 dpi: 1, 2 or 4

    double WidthPoints() const { return width * PointsADot; }
    double HeightPoints() const { return height * PointsADot; }
    double MarginPoints() const { return margin * PointsADot; }
    platform::gdi::JobDevice Device() const;

    static constexpr double PointsADot = 72.0 / 300;
};

// The sizes of papers are what DrvDeviceCapabilities answers; a code without a paper is Letter, as for the driver.
JobPaper PaperOf(Context& context, HANDLE printer, std::u16string name, const JobRecord& record);

}  // namespace host
