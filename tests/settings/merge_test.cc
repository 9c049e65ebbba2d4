#include "settings/merge.h"

#include <array>

#include "settings/defaults.h"
#include "settings/record_copy.h"
#include "settings/wide_text.h"
#include "tests/support/machine.h"
#include "tests/support/records.h"

namespace {

using namespace testing_support;

DriverDevMode Default(const std::string& fields = {})
{
    DriverDevMode record;
    BuildDefaultSettings(&record, u"Quillet", u"", 0);
    SetFields(record, fields);
    return record;
}

DriverDevMode Merged(DriverDevMode target, const DriverDevMode& source)
{
    EXPECT_EQ(MergeSettings(&target, PublicPart(&source)), 1);
    return target;
}

// Merged over a record that holds another legal value in each of these fields.
// Field, least, greatest, otherwise.
constexpr std::tuple<const char*, int, int, int> PrivateBounds[] = {
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

TEST(Merge, ReplacesAPrivateFieldOutsideItsBounds)
{
    const auto merged = [](const std::string& field, int given) {
        return GetField(Merged(BusyRecord(), Default(field + "=" + std::to_string(given))), field);
    };
    for (const auto& [field, least, greatest, otherwise] : PrivateBounds) {
        EXPECT_EQ(merged(field, least), least) << field;
        EXPECT_EQ(merged(field, greatest), greatest) << field;
        EXPECT_EQ(merged(field, least - 1), otherwise) << field;
        EXPECT_EQ(merged(field, greatest + 1), otherwise) << field;
    }
    EXPECT_EQ(Merged(Default(), Default("dmTotalMemory=144 dmAvailableMemory=1")).dmAvailableMemory, 4763)
        << "is worked out anew";
    for (const int resolution : {300, 600, 1200}) EXPECT_EQ(merged("dmResolution", resolution), resolution);
    EXPECT_EQ(merged("dmResolution", 601), 600);
    EXPECT_EQ(merged("dmDeviceFlags", 0), 0);
}

constexpr DWORD Always = DM_DEFAULTSOURCE;

// Field, value and dmFields of the source, and the value that comes out.
constexpr std::tuple<const char*, int, DWORD, int> PublicRows[] = {
    {"dmOrientation",   1,    DM_ORIENTATION,   1   },
    {"dmOrientation",   2,    DM_ORIENTATION,   2   },
    {"dmOrientation",   3,    DM_ORIENTATION,   1   },
    {"dmOrientation",   1,    0,                2   },
    {"dmScale",         0,    DM_SCALE,         100 },
    {"dmScale",         1,    DM_SCALE,         1   },
    {"dmScale",         1000, DM_SCALE,         1000},
    {"dmScale",         1001, DM_SCALE,         100 },
    {"dmScale",         20,   0,                50  },
    {"dmCopies",        0,    DM_COPIES,        1   },
    {"dmCopies",        -5,   DM_COPIES,        1   },
    {"dmCopies",        999,  DM_COPIES,        999 },
    {"dmCopies",        1000, DM_COPIES,        999 },
    {"dmCopies",        3,    0,                7   },
    {"dmDefaultSource", 0,    0,                7   },
    {"dmDefaultSource", 1,    0,                1   },
    {"dmDefaultSource", 3,    0,                3   },
    {"dmDefaultSource", 6,    0,                6   },
    {"dmDefaultSource", 8,    DM_DEFAULTSOURCE, 7   },
    {"dmDefaultSource", -1,   DM_DEFAULTSOURCE, 7   },
    {"dmPrintQuality",  300,  DM_PRINTQUALITY,  300 },
    {"dmPrintQuality",  601,  DM_PRINTQUALITY,  600 },
    {"dmPrintQuality",  -4,   DM_PRINTQUALITY,  600 }, // the source's dmResolution
    {"dmPrintQuality",  300,  0,                1200},
    {"dmColor",         7,    DM_COLOR,         1   },
    {"dmColor",         1,    0,                2   },
    {"dmDuplex",        0,    DM_DUPLEX,        1   },
    {"dmDuplex",        2,    0,                2   },
    {"dmDuplex",        4,    0,                1   },
    {"dmCollate",       1,    DM_COLLATE,       0   },
};

TEST(Merge, TakesOrReplacesEachPublicField)
{
    for (const auto& [field, given, fields, expected] : PublicRows) {
        DriverDevMode source = Default();
        source.dmFields = fields;
        SetField(source, field, given);
        const DriverDevMode merged = Merged(BusyRecord(), source);
        EXPECT_EQ(GetField(merged, field), expected) << field << ' ' << given;
        EXPECT_EQ(merged.dmFields, Always | (fields & ~(DM_DUPLEX | DM_COLLATE))) << field << ' ' << given;
    }
}

constexpr DWORD BySize = DM_PAPERLENGTH | DM_PAPERWIDTH;

// Over code 11, 2480 x 1748, form "F". The source's form is "S".
constexpr struct {
    const char* what;
    DWORD fields;
    SHORT code, length, width;
    SHORT expectedCode, expectedLength, expectedWidth;
    DWORD expectedFields;
    char16_t expectedForm;
} PaperRows[] = {
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
    for (const auto& row : PaperRows) {
        DriverDevMode source = Default();
        source.dmFields = row.fields;
        source.dmPaperSize = row.code;
        source.dmPaperLength = row.length;
        source.dmPaperWidth = row.width;
        source.dmFormName[0] = u'S';
        const DriverDevMode merged = Merged(BusyRecord(), source);
        EXPECT_EQ(std::tuple(merged.dmPaperSize, merged.dmPaperLength, merged.dmPaperWidth, merged.dmFields,
                             merged.dmFormName[0]),
                  std::tuple(row.expectedCode, row.expectedLength, row.expectedWidth, Always | row.expectedFields,
                             row.expectedForm))
            << row.what;
    }
}

TEST(Merge, ChecksTheNupLayoutOnlyWhileItIsOn)
{
    constexpr int rows[][5] = {
        {1, 1,  1,   1,  1}, // on, count, a flag; count and flag that come out
        {1, 2,  0,   2,  0},
        {1, 4,  2,   4,  0},
        {1, 6,  255, 6,  0},
        {1, 16, 1,   16, 1},
        {1, 3,  1,   1,  1},
        {1, -1, 1,   1,  1},
        {0, 3,  9,   3,  9},
        {5, 77, 8,   77, 8},
    };
    for (const auto& [on, count, flag, expectedCount, expectedFlag] : rows) {
        DriverDevMode source = Default();
        source.dmReserved283 = 0x5A;
        source.dmNupOn = static_cast<BYTE>(on);
        source.dmNupCount = static_cast<SHORT>(count);
        source.dmNupVertical = source.dmNupDescending = source.dmNupBorder = static_cast<BYTE>(flag);
        const DriverDevMode merged = Merged(Default(), source);
        EXPECT_EQ((std::array<int, 5>{merged.dmNupCount, merged.dmNupVertical, merged.dmNupDescending,
                                      merged.dmNupBorder, merged.dmReserved283}),
                  (std::array{expectedCount, expectedFlag, expectedFlag, expectedFlag, 0x5A}))
            << on << ' ' << count;
    }
}

TEST(Merge, ChecksTheTextModeByTheStoredGraphicsMode)
{
    constexpr BYTE rows[][3] = {
        {0, 2,   2  }, // graphics mode, text mode, the one that comes out
        {0, 3,   2  },
        {1, 0,   0  },
        {1, 200, 2  },
        {2, 3,   3  },
        {2, 255, 255},
        {3, 9,   2  }, // the graphics mode becomes 1
    };
    for (const auto& [graphics, text, expected] : rows) {
        DriverDevMode source = Default();
        source.dmGraphicsMode = graphics;
        source.dmTextMode = text;
        EXPECT_EQ(Merged(BusyRecord(), source).dmTextMode, expected) << int{graphics} << ' ' << int{text};
    }
}

TEST(Merge, CopiesTheOverlayFileUpToItsTerminatorOrTheEndOfTheField)
{
    DriverDevMode target = Default(), source = Default("dmOverlayFirstPage=0x0101");
    target.dmOverlayFile[5] = u'z';
    CopyBounded(source.dmOverlayFile, u"ab", 262);
    target = Merged(target, source);
    EXPECT_EQ(std::u16string(target.dmOverlayFile), u"ab");
    EXPECT_EQ(target.dmOverlayFile[5], u'z');
    std::ranges::fill(source.dmOverlayFile, u'p');
    EXPECT_EQ(std::u16string(Merged(target, source).dmOverlayFile), std::u16string(261, u'p'));
}

TEST(Merge, KeepsWhatNoRuleNames)
{
    constexpr const char* kept[] = {
        "dmDriverVersion",  "dmYResolution",  "dmTTOption",    "dmPrivSignature", "dmPrivReserved",  "dmModelIndex",
        "dmModelParam3",    "dmModelParam4",  "dmModelParam5", "dmModelParam6",   "dmNupModelByte",  "dmNupModelValue1",
        "dmNupModelValue2", "dmConstantFlag", "dmPreviewMode", "dmLogPixels",     "dmPanningHeight",
    };
    DriverDevMode source;
    std::memset(static_cast<void*>(&source), 0x11, sizeof source);
    SetFields(source, "dmSpecVersion=1025 dmSize=220 dmDriverExtra=1628");
    const DriverDevMode target = Merged(Default(), source);
    for (const char* field : kept) EXPECT_EQ(GetField(target, field), GetField(Default(), field)) << field;
    EXPECT_EQ(std::u16string(target.dmDeviceName), u"Quillet");
    EXPECT_EQ(std::u16string(target.dmOverlayReserved), u"0");
    EXPECT_EQ(BytesOf(target.dmReserved738), RecordImage(26));
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
        DriverDevMode source = BusyRecord();
        source.dmSpecVersion = specVersion;
        source.dmSize = size;
        EXPECT_EQ(BytesOf(Merged(Default(), source)), BytesOf(Default())) << specVersion << ' ' << size;
    }
    DriverDevMode target = Default();
    EXPECT_EQ(MergeSettings(&target, nullptr), 1);
    const Machine machine;
    Machine::Fail("GlobalAlloc");
    const DriverDevMode busy = BusyRecord();
    EXPECT_EQ(MergeSettings(&target, PublicPart(&busy)), 0) << "without memory";
    EXPECT_EQ(BytesOf(target), BytesOf(Default()));
}

}  // namespace
