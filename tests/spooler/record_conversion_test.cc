#include "spooler/record_conversion.h"

#include "settings/defaults.h"
#include "settings/record_copy.h"
#include "settings/tray2_value.h"
#include "spooler/format_text.h"
#include "tests/support/printer_fixture.h"
#include "tests/support/records.h"

namespace {

using namespace testing_support;

class Conversion351 : public PrinterTest {
  protected:
    BOOL Convert(DWORD mode, LONG room, bool withInput = true, bool withOutput = true)
    {
        needed = room;
        buffer.resize(static_cast<std::size_t>(std::max<LONG>(room, 0)));
        SetLastError(0);
        const BOOL result =
            DrvConvertDevMode(OfficePrinter, withInput ? PublicPart(&input) : nullptr,
                              withOutput ? reinterpret_cast<DEVMODEW*>(buffer.data()) : nullptr, &needed, mode);
        error = GetLastError();
        return result;
    }
    DEVMODEW* PromiseRecord(WORD size, WORD extra)
    {
        buffer.assign(4096, 0);
        auto* record = reinterpret_cast<DEVMODEW*>(buffer.data());
        record->dmSpecVersion = 1025;
        record->dmDriverVersion = 296;
        record->dmSize = size;
        record->dmDriverExtra = extra;
        return record;
    }

    DriverDevMode input = BusyRecord();
    RecordImage buffer;
    LONG needed = 0;
    DWORD error = 0;
};

TEST_F(Conversion351, TellsTheRoomThatItNeedsAndRefusesWhatIsMissingOrPromisesMoreThanThereIs)
{
    constexpr struct {
        DWORD mode;
        LONG room;
        WORD size, extra;  // that the output promises
        bool in, out;
        BOOL result;
        DWORD error;
        LONG needed;
    } Rows[] = {
        {CDM_CONVERT351,     0,    0,   0,    true,  true,  FALSE, 122, 300 },
        {CDM_CONVERT351,     -1,   0,   0,    true,  true,  FALSE, 122, 300 },
        {CDM_CONVERT351,     299,  0,   0,    true,  true,  FALSE, 122, 300 },
        {CDM_CONVERT351,     300,  0,   0,    true,  true,  TRUE,  0,   300 },
        {CDM_CONVERT351,     4096, 0,   0,    true,  true,  TRUE,  0,   300 },
        {CDM_CONVERT351,     400,  220, 0,    false, true,  FALSE, 87,  400 },
        {CDM_CONVERT351,     300,  220, 0,    true,  false, FALSE, 122, 300 },
        {CDM_DRIVER_DEFAULT, 1847, 0,   0,    true,  true,  FALSE, 122, 1848},
        {CDM_DRIVER_DEFAULT, 1848, 0,   0,    true,  true,  TRUE,  122, 1848}, // of asking the driver how long its name is
        {CDM_CONVERT,        0,    0,   0,    true,  true,  FALSE, 87,  0   },
        {CDM_CONVERT,        71,   0,   0,    true,  true,  FALSE, 87,  71  },
        {CDM_CONVERT,        300,  220, 0,    true,  true,  TRUE,  0,   220 },
        {CDM_CONVERT,        300,  71,  0,    true,  true,  TRUE,  0,   71  }, // a size of no version
        {CDM_CONVERT,        1847, 220, 1628, true,  true,  FALSE, 87,  1847},
        {CDM_CONVERT,        220,  220, 0,    false, true,  FALSE, 87,  220 },
        {CDM_CONVERT,        220,  220, 0,    true,  false, FALSE, 87,  220 },
        {3,                  4096, 0,   0,    true,  true,  FALSE, 0,   4096},
        {0,                  0,    0,   0,    true,  true,  FALSE, 0,   0   },
    };
    for (const auto& row : Rows) {
        PromiseRecord(row.size, row.extra);
        EXPECT_EQ(Convert(row.mode, row.room, row.in, row.out), row.result) << row.mode << ' ' << row.room;
        EXPECT_EQ(error, row.error) << row.mode << ' ' << row.room;
        EXPECT_EQ(needed, row.needed) << row.mode << ' ' << row.room;
    }
    PromiseRecord(71, 0)->dmSpecVersion = 0;
    EXPECT_FALSE(Convert(CDM_CONVERT, 300));
    EXPECT_EQ(error, 87u);
    for (const DWORD mode : {CDM_CONVERT, CDM_CONVERT351, CDM_DRIVER_DEFAULT, DWORD{3}}) {
        SetLastError(0);
        EXPECT_FALSE(DrvConvertDevMode(OfficePrinter, PublicPart(&input), PromiseRecord(220, 0), nullptr, mode));
        EXPECT_EQ(GetLastError(), 87u) << mode;
    }
}

TEST_F(Conversion351, TheDefaultIsTheModelsWithoutTheInput)
{
    WriteTray2(OfficePrinter, true);
    ASSERT_TRUE(Convert(CDM_DRIVER_DEFAULT, 2000));
    DriverDevMode expected;
    BuildDefaultSettings(&expected, OfficeDriver, u"", 0);
    EXPECT_NE(RecordImage(buffer.begin(), buffer.begin() + 1848), BytesOf(expected)) << "the printer counts";
    BuildDefaultSettings(&expected, OfficeDriver, OfficePrinter, 0);
    buffer.resize(1848);
    EXPECT_EQ(buffer, BytesOf(expected));
    buffer.clear();
    Machine::Fail("OpenPrinterW");
    EXPECT_FALSE(Convert(CDM_DRIVER_DEFAULT, 1848));
    EXPECT_EQ(buffer, RecordImage(1848));
}

TEST_F(Conversion351, ARefusedJobHasAMessageAsFarAsThereIsRoom)
{
    // the allocation that fails, room
    const std::tuple<std::uint64_t, DWORD, std::u16string, DWORD> rows[] = {
        {1, 64,          u"Memory allocation failed",   25},
        {1, 8,           u"Memory ",                    25},
        {1, 0,           u"unwritten",                  25},
        {4, 64,          u"Invalid DEVMODE structure.", 27},
        {4, 0x7FFF,      u"Invalid DEVMODE structure.", 27},
        {4, 0xFFFFFFFFu, u"Invalid DEVMODE structure.", 27},
        {9, 64,          u"unwritten",                  0 }, // which prints
    };
    for (const auto& [call, room, text, characters] : rows) {
        std::vector<WCHAR> message(0x8000);
        lstrcpyW(message.data(), u"unwritten");
        DEVQUERYPRINT_INFO info{sizeof info, 1, printer, PublicPart(&input), message.data(), room, 0};
        Machine::Fail("GlobalAlloc", call);
        EXPECT_EQ(DevQueryPrintEx(&info), characters == 0);
        EXPECT_EQ(std::u16string(message.data()), text) << room;
        EXPECT_EQ(info.cchNeeded, characters);
    }
}

TEST(FormatTextTest, TakesAnArgumentForEachDirective)
{
    WCHAR text[64];
    DWORD needed = 0;
    EXPECT_EQ(FormatText(nullptr, text, 64, &needed, u"%d %u %x %X %c%s%%", {-5, -1, 255, 255, u'c', u"str"}), 25);
    EXPECT_EQ(std::u16string(text), u"-5 4294967295 ff FF cstr%");
}

TEST(FormatTextTest, WritesWhatFitsAndCountsWhatIsAskedFor)
{
    WCHAR text[6] = u"unset";
    DWORD needed = 0;
    EXPECT_EQ(FormatText(nullptr, text, 5, nullptr, u"%s", {u"longer"}), 4);
    EXPECT_EQ(std::u16string(text), u"long");
    EXPECT_EQ(FormatText(nullptr, nullptr, 0, &needed, u"a%s%", {u"longer"}), 0);
    EXPECT_EQ(needed, 8u);
    text[4] = u'x';
    EXPECT_EQ(FormatText(nullptr, text, 5, &needed, u"ab%", {}), 2) << "nothing for a % at the end";
    EXPECT_EQ(std::u16string(text), u"ab");
    EXPECT_EQ(text[4], 0);
    EXPECT_EQ(needed, 3u);
}

}  // namespace
