#include "preview_pictures.h"

#include "desktop/qt_fonts.h"
#include "desktop/qt_runtime.h"
#include "desktop/qt_surface.h"
#include "platform/seams/environment.h"

namespace preview_test {

QImage Paint(const DriverDevMode& record, Fonts fonts)
{
    desktop::EnsureApplication();
    const auto surface = std::make_shared<desktop::ImageSurface>(FrameWidth, FrameHeight, 1.0);
    surface->Fill({0, 0, FrameWidth, FrameHeight}, 0xF0F0F0);
    Preview preview(FrameWidth - 6, FrameHeight - 7, IDC_QUALITY_PREVIEW, surface);
    if (fonts == Fonts::Real) platform::CurrentEnvironment().fonts = desktop::MakeQtFonts();
    preview.Draw(record);
    return surface->Picture().convertToFormat(QImage::Format_RGB32);
}

std::vector<std::pair<const char*, DriverDevMode>> References()
{
    return {
        {"plain",            A4()                                                                     },
        {"sixteen-marked",   Marked("wmAngleMode=2 dmNupOn=1 dmNupCount=16")                          },
        {"booklet-right",    A4("dmBookletPaper=9 dmDuplexOn=1 dmBookletRight=1 dmOrientation=2")     },
        {"six-bound",        A4("dmNupOn=1 dmNupCount=6 dmNupBorder=1 dmDuplexOn=1 dmDuplexBinding=1")},
        {"fitted-toner",     A4("dmFitToPaper=2 dmOutputPaper=11 dmTonerSave=1")                      },
        {"scaled-marked",    Marked("wmAngleMode=2 dmFitToPaper=1 dmZoom=150")                        },
        {"marked-with-line", Marked("wmSize=8")                                                       },
    };
}

}  // namespace preview_test
