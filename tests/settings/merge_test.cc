#include "settings/merge.h"

#include <cstdlib>
#include <random>

#include "settings/defaults.h"
#include "settings/record_copy.h"
#include "tests/support/machine.h"
#include "tests/support/records.h"

namespace {

using namespace testing_support;

DriverDevMode Default()
{
    DriverDevMode record;
    BuildDefaultSettings(&record, u"Quillet", u"", 0);
    return record;
}

// The bytes of a record that is no longer than its size fields say, in a block of exactly that length.
class ShortRecord {
  public:
    ShortRecord(const DriverDevMode& whole, std::size_t bytes, WORD size, WORD extra)
        : block_(static_cast<std::uint8_t*>(std::malloc(bytes)), std::free)
    {
        DriverDevMode copy = whole;
        copy.dmSize = size;
        copy.dmDriverExtra = extra;
        std::memcpy(block_.get(), &copy, std::min(bytes, sizeof copy));
        if (bytes > sizeof copy) std::memset(block_.get() + sizeof copy, 0xEE, bytes - sizeof copy);
    }
    const DEVMODEW* get() const { return reinterpret_cast<const DEVMODEW*>(block_.get()); }

  private:
    std::unique_ptr<std::uint8_t, void (*)(void*)> block_;
};

struct Row {
    const char* field;
    std::int64_t given, expected;
};

// Merged over a record that holds another legal value in each of these fields.
constexpr Row PrivateRows[] = {
    {"dmNupOn",            0,     0         },
    {"dmNupOn",            1,     1         },
    {"dmNupOn",            2,     0         },
    {"dmNupOn",            255,   0         },
    {"dmFitToPaper",       0,     0         },
    {"dmFitToPaper",       2,     2         },
    {"dmFitToPaper",       3,     0         },
    {"dmDuplexOn",         99,    99        },
    {"dmGuidePaper",       -2,    0xFFFFFFFE},
    {"dmDuplexBinding",    2,     2         },
    {"dmBookletPaper",     -1,    -1        },
    {"dmZoom",             19,    100       },
    {"dmZoom",             20,    20        },
    {"dmZoom",             400,   400       },
    {"dmZoom",             401,   100       },
    {"dmZoom",             -20,   100       },
    {"dmOutputPaper",      12345, 12345     },
    {"dmWatermarkOn",      7,     7         },
    {"dmMediaIndex",       -1,    0         },
    {"dmMediaIndex",       0,     0         },
    {"dmMediaIndex",       4,     4         },
    {"dmMediaIndex",       5,     0         },
    {"dmPercent",          -1,    100       },
    {"dmPercent",          0,     0         },
    {"dmPercent",          100,   100       },
    {"dmPercent",          101,   100       },
    {"dmGraphicsMode",     0,     0         },
    {"dmGraphicsMode",     2,     2         },
    {"dmGraphicsMode",     3,     1         },
    {"dmTonerSave",        1,     1         },
    {"dmTonerSave",        2,     0         },
    {"dmSmoothtone",       0,     0         },
    {"dmSmoothtone",       3,     3         },
    {"dmSmoothtone",       4,     2         },
    {"dmSmoothtone",       255,   2         },
    {"dmTonerDensity",     -1,    3         },
    {"dmTonerDensity",     0,     0         },
    {"dmTonerDensity",     6,     6         },
    {"dmTonerDensity",     7,     3         },
    {"dmResolution",       300,   300       },
    {"dmResolution",       600,   600       },
    {"dmResolution",       1200,  1200      },
    {"dmResolution",       601,   600       },
    {"dmFixedResolution",  9,     9         },
    {"dmProofPrint",       -9,    -9        },
    {"dmAllRaster",        1,     1         },
    {"dmAllRaster",        2,     0         },
    {"dmPrinterTrueType",  0,     0         },
    {"dmPrinterTrueType",  2,     1         },
    {"dmModelFlag",        1,     1         },
    {"dmModelFlag",        2,     0         },
    {"dmCollateMode",      0,     0         },
    {"dmCollateMode",      1,     1         },
    {"dmCollateMode",      2,     1         },
    {"dmCollateMode",      -1,    1         },
    {"dmImageShiftX",      -51,   0         },
    {"dmImageShiftX",      -50,   -50       },
    {"dmImageShiftX",      50,    50        },
    {"dmImageShiftX",      51,    0         },
    {"dmImageShiftY",      -26,   0         },
    {"dmImageShiftY",      -25,   -25       },
    {"dmImageShiftY",      25,    25        },
    {"dmImageShiftY",      26,    0         },
    {"dmDeviceFlags",      0,     0         },
    {"dmDeviceFlags",      128,   128       },
    {"dmDeviceFlags",      129,   0         },
    {"dmDeviceFlags",      1,     0         },
    {"dmTotalMemory",      8,     16        },
    {"dmTotalMemory",      16,    16        },
    {"dmTotalMemory",      160,   160       },
    {"dmTotalMemory",      161,   16        },
    {"dmModelParam1",      -3,    -3        },
    {"dmModelParam2",      30000, 30000     },
    {"dmPaperWidthPriv",   -1,    -1        },
    {"dmPaperLengthPriv",  0,     0         },
    {"dmImageShiftOn",     5,     5         },
    {"dmResolutionChoice", 77,    77        },
    {"dmBookletRight",     3,     3         },
    {"dmImageRotated",     4,     4         },
    {"dmOverlayState",     9,     9         },
    {"dmOverlayFirstPage", 6,     6         },
    {"dmOverlayIndex",     -7,    -7        },
};

TEST(Merge, TakesOrReplacesEachPrivateField)
{
    for (const Row& row : PrivateRows) {
        DriverDevMode target = BusyRecord(), source = Default();
        SetField(source, row.field, row.given);
        EXPECT_EQ(MergeSettings(&target, PublicPart(&source)), 1);
        EXPECT_EQ(GetField(target, row.field), row.expected) << row.field << ' ' << row.given;
    }
}

struct PublicRow {
    const char* field;
    int given;
    DWORD fields;  // of the source
    int expected;
    DWORD expectedFields;  // among those that the busy record lacks
};
constexpr DWORD Always = DM_DEFAULTSOURCE;

constexpr PublicRow PublicRows[] = {
    {"dmOrientation",   1,    DM_ORIENTATION,   1,    Always | DM_ORIENTATION },
    {"dmOrientation",   2,    DM_ORIENTATION,   2,    Always | DM_ORIENTATION },
    {"dmOrientation",   3,    DM_ORIENTATION,   1,    Always | DM_ORIENTATION },
    {"dmOrientation",   1,    0,                2,    Always                  },
    {"dmScale",         0,    DM_SCALE,         100,  Always | DM_SCALE       },
    {"dmScale",         1,    DM_SCALE,         1,    Always | DM_SCALE       },
    {"dmScale",         1000, DM_SCALE,         1000, Always | DM_SCALE       },
    {"dmScale",         1001, DM_SCALE,         100,  Always | DM_SCALE       },
    {"dmScale",         20,   0,                50,   Always                  },
    {"dmCopies",        0,    DM_COPIES,        1,    Always | DM_COPIES      },
    {"dmCopies",        -5,   DM_COPIES,        1,    Always | DM_COPIES      },
    {"dmCopies",        999,  DM_COPIES,        999,  Always | DM_COPIES      },
    {"dmCopies",        1000, DM_COPIES,        999,  Always | DM_COPIES      },
    {"dmCopies",        3,    0,                7,    Always                  },
    {"dmDefaultSource", 0,    0,                7,    Always                  },
    {"dmDefaultSource", 1,    0,                1,    Always                  },
    {"dmDefaultSource", 3,    0,                3,    Always                  },
    {"dmDefaultSource", 4,    0,                4,    Always                  },
    {"dmDefaultSource", 5,    0,                5,    Always                  },
    {"dmDefaultSource", 6,    0,                6,    Always                  },
    {"dmDefaultSource", 8,    DM_DEFAULTSOURCE, 7,    Always                  },
    {"dmDefaultSource", -1,   DM_DEFAULTSOURCE, 7,    Always                  },
    {"dmPrintQuality",  300,  DM_PRINTQUALITY,  300,  Always | DM_PRINTQUALITY},
    {"dmPrintQuality",  601,  DM_PRINTQUALITY,  600,  Always | DM_PRINTQUALITY},
    {"dmPrintQuality",  -4,   DM_PRINTQUALITY,  600,  Always | DM_PRINTQUALITY}, // the source's dmResolution
    {"dmPrintQuality",  300,  0,                1200, Always                  },
    {"dmColor",         7,    DM_COLOR,         1,    Always | DM_COLOR       },
    {"dmColor",         1,    0,                2,    Always                  },
    {"dmDuplex",        0,    DM_DUPLEX,        1,    Always                  },
    {"dmDuplex",        2,    0,                2,    Always                  },
    {"dmDuplex",        4,    0,                1,    Always                  },
    {"dmCollate",       1,    DM_COLLATE,       0,    Always                  },
};

TEST(Merge, TakesOrReplacesEachPublicField)
{
    for (const PublicRow& row : PublicRows) {
        DriverDevMode target = BusyRecord(), source = Default();
        source.dmFields = row.fields;
        SetField(source, row.field, row.given);
        MergeSettings(&target, PublicPart(&source));
        EXPECT_EQ(GetField(target, row.field), row.expected) << row.field << ' ' << row.given;
        EXPECT_EQ(target.dmFields, row.expectedFields) << row.field << ' ' << row.given;
    }
}

struct PaperRow {
    const char* what;
    DWORD fields;
    SHORT code, length, width;
    SHORT expectedCode, expectedLength, expectedWidth;
    DWORD expectedFields;
    char16_t expectedForm;
};
constexpr DWORD BySize = DM_PAPERLENGTH | DM_PAPERWIDTH;

// Over code 11, 2480 x 1748, form "F". The source's form is "S".
constexpr PaperRow PaperRows[] = {
    {"a size for the custom code",            BySize,                     256, 900, 800, 256, 900,  800,  BySize,       u'F'},
    {"a size for a stored code",              BySize,                     300, 900, 800, 256, 900,  800,  BySize,       u'F'},
    {"the last stored code",                  BySize | DM_PAPERSIZE,      306, 900, 800, 256, 900,  800,  BySize,       u'F'},
    {"a size and a form for a stored code",   BySize | DM_FORMNAME,       257, 900, 800, 256, 900,  800,  BySize,       u'F'},
    {"a stored code alone",                   DM_PAPERSIZE,               300, 900, 800, 300, 900,  800,  DM_PAPERSIZE, u'F'},
    {"a built-in code with sizes",            BySize | DM_PAPERSIZE,      9,   900, 800, 9,   900,  800,  DM_PAPERSIZE, u'F'},
    {"a custom code without length",          BySize | DM_PAPERSIZE,      256, 0,   800, 256, 0,    800,  DM_PAPERSIZE, u'F'},
    {"a code and a form",                     DM_PAPERSIZE | DM_FORMNAME, 9,   1,   2,   9,   1,    2,    DM_PAPERSIZE, u'F'},
    {"a form",                                DM_FORMNAME,                9,   1,   2,   11,  2480, 1748, DM_FORMNAME,  u'S'},
    {"a form and sizes of no custom code",    DM_FORMNAME | BySize,       9,   1,   2,   11,  2480, 1748, DM_FORMNAME,  u'S'},
    {"sizes for a code past the stored ones", BySize,                     307, 900, 800, 307, 900,  800,  BySize,       u'F'},
    {"sizes that are not above 0",            BySize,                     256, -1,  800, 256, -1,   800,  BySize,       u'F'},
    {"a length alone",                        DM_PAPERLENGTH,             256, 900, 800, 11,  2480, 1748, 0,            u'F'},
    {"nothing",                               0,                          9,   900, 800, 11,  2480, 1748, 0,            u'F'},
};

TEST(Merge, LeavesOneWayOfGivingThePaper)
{
    for (const PaperRow& row : PaperRows) {
        DriverDevMode target = BusyRecord(), source = Default();
        source.dmFields = row.fields;
        source.dmPaperSize = row.code;
        source.dmPaperLength = row.length;
        source.dmPaperWidth = row.width;
        source.dmFormName[0] = u'S';
        MergeSettings(&target, PublicPart(&source));
        EXPECT_EQ(target.dmPaperSize, row.expectedCode) << row.what;
        EXPECT_EQ(target.dmPaperLength, row.expectedLength) << row.what;
        EXPECT_EQ(target.dmPaperWidth, row.expectedWidth) << row.what;
        EXPECT_EQ(target.dmFields, Always | row.expectedFields) << row.what;
        EXPECT_EQ(target.dmFormName[0], row.expectedForm) << row.what;
    }
}

TEST(Merge, KeepsThePaperFieldsOfATargetThatTheSourceDoesNotAnswer)
{
    DriverDevMode target = Default(), source = Default();
    source.dmFields = 0;
    MergeSettings(&target, PublicPart(&source));

    EXPECT_EQ(target.dmFields, 20227u);
}

TEST(Merge, ReplacesAnUnsoundQualityThatNeitherRecordCanGive)
{
    DriverDevMode target = Default(), source = Default();
    target.dmPrintQuality = 150;
    source.dmPrintQuality = -1;
    source.dmResolution = 0;
    MergeSettings(&target, PublicPart(&source));

    EXPECT_EQ(target.dmPrintQuality, 600);
}

struct NupRow {
    BYTE on;
    SHORT count;
    BYTE flag;
    SHORT expectedCount;
    BYTE expectedFlag;
};

TEST(Merge, ChecksTheNupLayoutOnlyWhileItIsOn)
{
    constexpr NupRow rows[] = {
        {1, 1,  1,   1,  1},
        {1, 2,  0,   2,  0},
        {1, 4,  2,   4,  0},
        {1, 6,  255, 6,  0},
        {1, 16, 1,   16, 1},
        {1, 3,  1,   1,  1},
        {1, -1, 1,   1,  1},
        {0, 3,  9,   3,  9},
        {5, 77, 8,   77, 8},
    };
    for (const NupRow& row : rows) {
        DriverDevMode target = Default(), source = Default();
        source.dmNupOn = row.on;
        source.dmNupCount = row.count;
        source.dmNupVertical = source.dmNupDescending = source.dmNupBorder = row.flag;
        source.dmReserved283 = 0x5A;
        MergeSettings(&target, PublicPart(&source));
        EXPECT_EQ(target.dmNupCount, row.expectedCount) << int{row.on} << ' ' << row.count;
        EXPECT_EQ(target.dmNupVertical, row.expectedFlag) << int{row.on} << ' ' << row.count;
        EXPECT_EQ(target.dmNupDescending, row.expectedFlag) << int{row.on} << ' ' << row.count;
        EXPECT_EQ(target.dmNupBorder, row.expectedFlag) << int{row.on} << ' ' << row.count;
        EXPECT_EQ(target.dmReserved283, 0x5A);
    }
}

struct TextModeRow {
    BYTE graphics, text, expected;
};

TEST(Merge, ChecksTheTextModeByTheStoredGraphicsMode)
{
    constexpr TextModeRow rows[] = {
        {0, 2,   2  },
        {0, 3,   2  },
        {1, 0,   0  },
        {1, 200, 2  },
        {2, 3,   3  },
        {2, 255, 255},
        {3, 9,   2  }, // the graphics mode becomes 1
    };
    for (const TextModeRow& row : rows) {
        DriverDevMode target = BusyRecord(), source = Default();
        source.dmGraphicsMode = row.graphics;
        source.dmTextMode = row.text;
        MergeSettings(&target, PublicPart(&source));
        EXPECT_EQ(target.dmTextMode, row.expected) << int{row.graphics} << ' ' << int{row.text};
    }
}

TEST(Merge, WorksOutTheAvailableMemoryAnew)
{
    DriverDevMode target = Default(), source = Default();
    source.dmTotalMemory = 144;
    source.dmAvailableMemory = 1;
    MergeSettings(&target, PublicPart(&source));

    EXPECT_EQ(target.dmAvailableMemory, 4763);
}

TEST(Merge, CopiesTheWatermarkWhole)
{
    DriverDevMode target = Default(), source = Default();
    std::memset(static_cast<void*>(&source.dmWatermark), 0xA7, sizeof source.dmWatermark);
    MergeSettings(&target, PublicPart(&source));

    EXPECT_EQ(BytesOf(target.dmWatermark), RecordImage(396, 0xA7));
}

TEST(Merge, CopiesTheOverlayFileUpToItsTerminator)
{
    DriverDevMode target = Default(), source = Default();
    target.dmOverlayFile[5] = u'z';
    source.dmOverlayFile[0] = u'a';
    source.dmOverlayFile[1] = u'b';
    MergeSettings(&target, PublicPart(&source));

    EXPECT_EQ(std::u16string(target.dmOverlayFile), u"ab");
    EXPECT_EQ(target.dmOverlayFile[5], u'z');
}

TEST(Merge, CutsAnOverlayFileWithoutTerminator)
{
    DriverDevMode target = Default(), source = Default();
    std::fill(std::begin(source.dmOverlayFile), std::end(source.dmOverlayFile), u'p');
    source.dmOverlayFirstPage = 0x0101;
    MergeSettings(&target, PublicPart(&source));

    EXPECT_EQ(std::u16string(target.dmOverlayFile), std::u16string(261, u'p'));
}

TEST(Merge, KeepsWhatNoRuleNames)
{
    constexpr const char* kept[] = {
        "dmSpecVersion",    "dmDriverVersion", "dmSize",         "dmDriverExtra",  "dmYResolution",
        "dmTTOption",       "dmPrivSignature", "dmPrivReserved", "dmModelIndex",   "dmModelParam3",
        "dmModelParam4",    "dmModelParam5",   "dmModelParam6",  "dmNupModelByte", "dmNupModelValue1",
        "dmNupModelValue2", "dmConstantFlag",  "dmPreviewMode",  "dmLogPixels",    "dmPanningHeight",
    };
    DriverDevMode target = Default(), source;
    std::memset(static_cast<void*>(&source), 0x11, sizeof source);
    source.dmSpecVersion = 1025;
    source.dmDriverVersion = 296;
    source.dmSize = 220;
    source.dmDriverExtra = 1628;
    MergeSettings(&target, PublicPart(&source));

    for (const char* field : kept) EXPECT_EQ(GetField(target, field), GetField(Default(), field)) << field;
    EXPECT_EQ(std::u16string(target.dmDeviceName), u"Quillet");
    EXPECT_EQ(std::u16string(target.dmOverlayReserved), u"0");
    EXPECT_EQ(BytesOf(target.dmReserved738), RecordImage(26));
}

TEST(Merge, NeverWritesTheSource)
{
    DriverDevMode target = Default(), source = BusyRecord();
    source.dmZoom = 9999;
    const RecordImage before = BytesOf(source);
    MergeSettings(&target, PublicPart(&source));

    EXPECT_EQ(BytesOf(source), before);
}

TEST(Merge, OfARecordIntoItselfClearsDuplexAndCollate)
{
    DriverDevMode record = BusyRecord();
    record.dmZoom = 1000;
    MergeSettings(&record, PublicPart(&record));

    EXPECT_EQ(record.dmFields & (DM_DUPLEX | DM_COLLATE), 0u);
    EXPECT_EQ(record.dmCollate, 0);
    EXPECT_EQ(record.dmZoom, 100);
    EXPECT_EQ(record.dmNupCount, 9);
}

struct SkippedRow {
    WORD specVersion, size;
};

TEST(Merge, SkipsAPublicPartThatIsNotItsOwn)
{
    constexpr SkippedRow rows[] = {
        {1024, 220},
        {1026, 220},
        {0,    220},
        {1025, 212},
        {1025, 188},
        {1025, 221},
        {1025, 0  }
    };
    for (const SkippedRow& row : rows) {
        DriverDevMode target = Default(), source = BusyRecord();
        source.dmSpecVersion = row.specVersion;
        source.dmSize = row.size;
        EXPECT_EQ(MergeSettings(&target, PublicPart(&source)), 1);
        EXPECT_EQ(BytesOf(target), BytesOf(Default())) << row.specVersion << ' ' << row.size;
    }
}

TEST(Merge, SkipsNoRecord)
{
    DriverDevMode target = Default();
    EXPECT_EQ(MergeSettings(&target, nullptr), 1);
    EXPECT_EQ(BytesOf(target), BytesOf(Default()));
}

struct ForeignRow {
    WORD driverVersion, extra;
};

TEST(Merge, TakesThePublicPartAloneOfAForeignRecord)
{
    constexpr ForeignRow rows[] = {
        {296, 0     },
        {296, 112   },
        {296, 1627  },
        {296, 1629  },
        {848, 1628  },
        {296, 0xFFFF}
    };
    for (const ForeignRow& row : rows) {
        DriverDevMode target = Default(), foreign = BusyRecord();
        foreign.dmFields = DM_COPIES;
        foreign.dmDriverVersion = row.driverVersion;
        const ShortRecord source(foreign, 220u + row.extra, 220, row.extra);
        EXPECT_EQ(MergeSettings(&target, source.get()), 1);
        EXPECT_EQ(target.dmCopies, 7) << row.extra;
        const DriverDevMode before = Default();
        EXPECT_EQ(std::memcmp(&target.dmPrivSignature, &before.dmPrivSignature, 1628), 0) << row.extra;
    }
}

TEST(Merge, LetsAForeignResolutionShowInTheQuality)
{
    DriverDevMode target = Default(), foreign = BusyRecord();
    foreign.dmFields = DM_PRINTQUALITY;
    foreign.dmPrintQuality = 0;
    foreign.dmDriverVersion = 848;
    MergeSettings(&target, PublicPart(&foreign));

    EXPECT_EQ(target.dmPrintQuality, 1200);
    EXPECT_EQ(target.dmResolution, 600);
}

TEST(Merge, WithoutMemoryLeavesTheTarget)
{
    const Machine machine;
    DriverDevMode target = Default(), source = BusyRecord();
    Machine::Fail("GlobalAlloc");
    EXPECT_EQ(MergeSettings(&target, PublicPart(&source)), 0);
    EXPECT_EQ(BytesOf(target), BytesOf(Default()));
}

// What a merge promises of its target, whatever the source.
void ExpectLegal(const DriverDevMode& record)
{
    const auto within = [&](const char* field, int least, int greatest) {
        EXPECT_GE(GetField(record, field), least) << field;
        EXPECT_LE(GetField(record, field), greatest) << field;
    };
    within("dmSpecVersion", 1025, 1025);
    within("dmDriverExtra", 1628, 1628);
    within("dmOrientation", 1, 2);
    within("dmCopies", 1, 999);
    within("dmScale", 1, 1000);
    within("dmDefaultSource", 1, 7);
    within("dmDuplex", 1, 3);
    within("dmZoom", 20, 400);
    within("dmMediaIndex", 0, 4);
    within("dmSmoothtone", 0, 3);
    within("dmTonerDensity", 0, 6);
    within("dmImageShiftX", -50, 50);
    within("dmTotalMemory", 16, 160);
    EXPECT_THAT(record.dmPrintQuality, testing::AnyOf(300, 600, 1200));
    EXPECT_NE(std::find(std::begin(record.dmOverlayFile), std::end(record.dmOverlayFile), u'\0'),
              std::end(record.dmOverlayFile));
    const DWORD paper = record.dmFields & (DM_PAPERSIZE | BySize | DM_FORMNAME);
    EXPECT_THAT(paper, testing::AnyOf(DWORD{DM_PAPERSIZE}, BySize, DWORD{DM_FORMNAME}));
}

TEST(Merge, MakesALegalRecordOfAnyBytes)
{
    std::mt19937 random(4820);
    for (int round = 0; round < 2000; ++round) {
        DriverDevMode target = Default(), source;
        auto* bytes = reinterpret_cast<std::uint8_t*>(&source);
        for (std::size_t k = 0; k < sizeof source; ++k) bytes[k] = static_cast<std::uint8_t>(random());
        source.dmSpecVersion = 1025;
        source.dmDriverVersion = 296;
        source.dmSize = 220;
        source.dmDriverExtra = 1628;
        ASSERT_EQ(MergeSettings(&target, PublicPart(&source)), 1);
        ExpectLegal(target);
        if (HasFailure()) FAIL() << "round " << round;
    }
}

}  // namespace
