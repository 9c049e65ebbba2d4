// Strings of the module by number: the texts that applications see are written down once more.
#include <gtest/gtest.h>

#include "platform/kernel/modules.h"
#include "platform/kernel/unicode.h"
#include "settings/model_tables.h"
#include "tests/support/sheet_driver.h"

namespace {

struct Text {
    unsigned number;
    const char16_t* text;
};

constexpr Text Texts[] = {
    {707,  u"Invalid DEVMODE structure."                                                      },
    {735,  u"About"                                                                           },
    {790,  u"The watermark name is already registered.\nOverwrite it?"                        },
    {1103, u"Letter (8.5 x 11 inch)"                                                          },
    {1113, u"B5 (JIS) (182 x 257 mm)"                                                         },
    {1119, u"Custom"                                                                          },
    {1349, u"Double Postcard (148 x 200 mm)"                                                  },
    {4007, u"16-up"                                                                           },
    {4044, u"Thick Paper"                                                                     },
    {4045, u"Postcard"                                                                        },
    {4073, u"Manual Feed"                                                                     },
    {4082, u"Extra Dark"                                                                      },
    {4108, u"Booklet Right Binding"                                                           },
    {4115, u"Selected paper source can't work with duplex printing.\nOnly Tray1 is supported."},
    {4116, u"Transparency can't work with duplex printing,\nPlease choose other Media Type."  },
    {4211, u"1200 x 1200"                                                                     },
    {4215, u"Dark"                                                                            },
    {4316, u"User Setting"                                                                    },
    {4317, u"TOP SECRET"                                                                      },
    {4325, u"<NONE>"                                                                          },
    {4331, u"Times New Roman"                                                                 },
    {4351, u"144"                                                                             },
    {4401, u"The specific file is not found in this directory."                               },
    {4500, u"Notice"                                                                          },
    {4501, u"Warning"                                                                         },
    {4502, u"Form Overlay"                                                                    },
};

TEST(StringTable, HoldsTheTexts)
{
    const testing_support::TestMachine machine;
    for (const Text& one : Texts)
        EXPECT_EQ(platform::ToUtf8(platform::modules::String(machine.Module(), one.number)), platform::ToUtf8(one.text))
            << one.number;
}

TEST(StringTable, NamesEveryRowOfTheModel)
{
    const testing_support::TestMachine machine;
    const auto named = [&](DWORD number) { return !platform::modules::String(machine.Module(), number).empty(); };
    for (const PaperEntry& paper : PaperTable) EXPECT_TRUE(named(paper.nameString)) << paper.code;
    for (const BinEntry& bin : BinTable) EXPECT_TRUE(named(bin.nameString)) << bin.code;
    for (const MediaEntry& media : MediaTable) EXPECT_TRUE(named(media.nameString)) << media.index;
}

}  // namespace
