#include "settings/merge.h"

#include <cstdlib>

#include "settings/defaults.h"
#include "settings/record_copy.h"
#include "settings/wide_text.h"
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

struct Bounds {
    const char* field;
    int least, greatest, otherwise;
};

// Merged over a record that holds another legal value in each of these fields.
constexpr Bounds PrivateBounds[] = {
    {"dmNupOn",           0,   1,   0  },
    {"dmFitToPaper",      0,   2,   0  },
    {"dmZoom",            20,  400, 100},
    {"dmMediaIndex",      0,   4,   0  },
    {"dmPercent",         0,   100, 100},
    {"dmGraphicsMode",    0,   2,   1  },
    {"dmTonerSave",       0,   1,   0  },
    {"dmSmoothtone",      0,   3,   2  },
    {"dmTonerDensity",    0,   6,   3  },
    {"dmAllRaster",       0,   1,   0  },
    {"dmPrinterTrueType", 0,   1,   1  },
    {"dmModelFlag",       0,   1,   0  },
    {"dmCollateMode",     0,   1,   1  },
    {"dmImageShiftX",     -50, 50,  0  },
    {"dmImageShiftY",     -25, 25,  0  },
    {"dmTotalMemory",     16,  160, 16 },
    {"dmDeviceFlags",     128, 128, 0  },
};

std::int64_t Merged(const char* field, std::int64_t given)
{
    DriverDevMode target = BusyRecord(), source = Default();
    SetField(source, field, given);
    EXPECT_EQ(MergeSettings(&target, PublicPart(&source)), 1);
    return GetField(target, field);
}

TEST(Merge, ReplacesAPrivateFieldOutsideItsBounds)
{
    for (const Bounds& row : PrivateBounds) {
        EXPECT_EQ(Merged(row.field, row.least), row.least) << row.field;
        EXPECT_EQ(Merged(row.field, row.greatest), row.greatest) << row.field;
        EXPECT_EQ(Merged(row.field, row.least - 1), row.otherwise) << row.field;
        EXPECT_EQ(Merged(row.field, row.greatest + 1), row.otherwise) << row.field;
    }
    DriverDevMode target = Default(), source = Default();
    source.dmTotalMemory = 144;
    source.dmAvailableMemory = 1;
    MergeSettings(&target, PublicPart(&source));
    EXPECT_EQ(target.dmAvailableMemory, 4763) << "is worked out anew";
    for (const int resolution : {300, 600, 1200}) EXPECT_EQ(Merged("dmResolution", resolution), resolution);
    EXPECT_EQ(Merged("dmResolution", 601), 600);
    EXPECT_EQ(Merged("dmDeviceFlags", 0), 0);
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

TEST(Merge, ChecksTheTextModeByTheStoredGraphicsMode)
{
    constexpr struct {
        BYTE graphics, text, expected;
    } rows[] = {
        {0, 2,   2  },
        {0, 3,   2  },
        {1, 0,   0  },
        {1, 200, 2  },
        {2, 3,   3  },
        {2, 255, 255},
        {3, 9,   2  }, // the graphics mode becomes 1
    };
    for (const auto& row : rows) {
        DriverDevMode target = BusyRecord(), source = Default();
        source.dmGraphicsMode = row.graphics;
        source.dmTextMode = row.text;
        MergeSettings(&target, PublicPart(&source));
        EXPECT_EQ(target.dmTextMode, row.expected) << int{row.graphics} << ' ' << int{row.text};
    }
}

TEST(Merge, CopiesTheOverlayFileUpToItsTerminatorOrTheEndOfTheField)
{
    DriverDevMode target = Default(), source = Default();
    target.dmOverlayFile[5] = u'z';
    CopyBounded(source.dmOverlayFile, u"ab", 262);
    MergeSettings(&target, PublicPart(&source));
    EXPECT_EQ(std::u16string(target.dmOverlayFile), u"ab");
    EXPECT_EQ(target.dmOverlayFile[5], u'z');

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

TEST(Merge, SkipsAPublicPartThatIsNotItsOwn)
{
    constexpr std::pair<WORD, WORD> rows[] = {
        {1024, 220},
        {1026, 220},
        {1025, 212},
        {1025, 221},
        {1025, 0  },
    };
    for (const auto& [specVersion, size] : rows) {
        DriverDevMode target = Default(), source = BusyRecord();
        source.dmSpecVersion = specVersion;
        source.dmSize = size;
        EXPECT_EQ(MergeSettings(&target, PublicPart(&source)), 1);
        EXPECT_EQ(BytesOf(target), BytesOf(Default())) << specVersion << ' ' << size;
    }
    DriverDevMode target = Default();
    EXPECT_EQ(MergeSettings(&target, nullptr), 1);
    EXPECT_EQ(BytesOf(target), BytesOf(Default()));
}

TEST(Merge, WithoutMemoryLeavesTheTarget)
{
    const Machine machine;
    DriverDevMode target = Default(), source = BusyRecord();
    Machine::Fail("GlobalAlloc");
    EXPECT_EQ(MergeSettings(&target, PublicPart(&source)), 0);
    EXPECT_EQ(BytesOf(target), BytesOf(Default()));
}

}  // namespace
