// The document sheet with the Setup page in front.
#pragma once

#include "platform/user.h"
#include "settings/list_rows.h"
#include "tests/support/watched_sheet.h"

namespace testing_support {

inline constexpr NamedControl SetupControls[] = {
    {IDC_NUP,                  "nup"           },
    {IDC_BORDER_LINE,          "border"        },
    {IDC_NUP_STYLE,            "style"         },
    {IDC_DUPLEX,               "duplex"        },
    {IDC_GUIDE_PAPER,          "guide"         },
    {IDC_WATERMARK,            "watermark"     },
    {IDC_WATERMARK_FIRST_PAGE, "watermarkFirst"},
    {IDC_EDIT_WATERMARK,       "editWatermark" },
    {IDC_PAPER_SOURCE,         "source"        },
    {IDC_MEDIA_TYPE,           "media"         },
    {IDC_OVERLAY,              "overlay"       },
    {IDC_OVERLAY_FIRST_PAGE,   "overlayFirst"  },
    {IDC_EDIT_OVERLAY,         "editOverlay"   },
};

class SetupSheet : public WatchedSheet {
  public:
    explicit SetupSheet(const Prepare& prepare = {}, const Furnish& furnish = {}, int country = 1,
                        std::u16string owner = {})
        : WatchedSheet(
              u"Setup", SetupControls,
              [prepare](DriverDevMode& record) {
                  SelectedPaperRow = 0;
                  if (prepare) prepare(record);
              },
              furnish, Facts(country, std::move(owner)))
    {
    }

  private:
    static platform::FixedFactValues Facts(int country, std::u16string owner)
    {
        platform::FixedFactValues facts = testing_support::Machine::InCountry(country);
        facts.ownerModule = std::move(owner);
        return facts;
    }
};

}  // namespace testing_support
