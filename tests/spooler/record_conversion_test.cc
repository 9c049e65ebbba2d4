#include "spooler/record_conversion.h"

#include "settings/defaults.h"
#include "settings/record_copy.h"
#include "spooler/format_text.h"
#include "tests/spooler/printer_fixture.h"
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
    void PromiseRecord(WORD size, WORD extra)
    {
        buffer.assign(4096, 0);
        auto* record = reinterpret_cast<DriverDevMode*>(buffer.data());
        record->dmSpecVersion = 1025;
        record->dmDriverVersion = 296;
        record->dmSize = size;
        record->dmDriverExtra = extra;
    }

    DriverDevMode input = BusyRecord();
    RecordImage buffer;
    LONG needed = 0;
    DWORD error = 0;
};

struct RoomRow {
    DWORD mode;
    LONG room;
    BOOL result;
    DWORD error;
    LONG needed;
};

TEST_F(Conversion351, TellsTheRoomThatItNeeds)
{
    constexpr RoomRow Rows[] = {
        {CDM_CONVERT351,     0,    FALSE, 122, 300 },
        {CDM_CONVERT351,     -1,   FALSE, 122, 300 },
        {CDM_CONVERT351,     299,  FALSE, 122, 300 },
        {CDM_CONVERT351,     300,  TRUE,  0,   300 },
        {CDM_CONVERT351,     4096, TRUE,  0,   300 },
        {CDM_DRIVER_DEFAULT, 1847, FALSE, 122, 1848},
        {CDM_DRIVER_DEFAULT, 1848, TRUE,  122, 1848}, // of asking the driver how long its name is
        {CDM_CONVERT,        0,    FALSE, 87,  0   },
        {CDM_CONVERT,        71,   FALSE, 87,  71  },
        {3,                  4096, FALSE, 0,   4096},
        {0,                  0,    FALSE, 0,   0   },
    };
    for (const RoomRow& row : Rows) {
        EXPECT_EQ(Convert(row.mode, row.room), row.result) << row.mode << " with room for " << row.room;
        EXPECT_EQ(error, row.error) << row.mode << " with room for " << row.room;
        EXPECT_EQ(needed, row.needed) << row.mode << " with room for " << row.room;
        buffer.clear();
    }
}

TEST_F(Conversion351, TakesTheBeginningOfBothParts)
{
    ASSERT_TRUE(Convert(CDM_CONVERT351, 300));
    const auto* record = reinterpret_cast<const DEVMODEW*>(buffer.data());
    EXPECT_EQ(record->dmSpecVersion, 800);
    EXPECT_EQ(record->dmDriverVersion, 848);
    EXPECT_EQ(record->dmSize, 188);
    EXPECT_EQ(record->dmDriverExtra, 112);
    const RecordImage source = BytesOf(input);
    EXPECT_TRUE(std::equal(source.begin() + 72, source.begin() + 188, buffer.begin() + 72));
    EXPECT_TRUE(std::equal(source.begin() + 220, source.begin() + 332, buffer.begin() + 188));
}

TEST_F(Conversion351, ConvertsIntoTheShapeThatTheOutputHas)
{
    PromiseRecord(220, 0);
    ASSERT_TRUE(Convert(CDM_CONVERT, 300));
    EXPECT_EQ(needed, 220);
    const auto* record = reinterpret_cast<const DEVMODEW*>(buffer.data());
    EXPECT_EQ(record->dmCopies, 7);
    EXPECT_EQ(record->dmDriverExtra, 0);
}

TEST_F(Conversion351, RefusesWhatIsMissingOrPromisesMoreThanThereIs)
{
    PromiseRecord(220, 1628);
    EXPECT_FALSE(Convert(CDM_CONVERT, 1847));
    EXPECT_EQ(error, 87u);
    EXPECT_EQ(needed, 1847);
    PromiseRecord(220, 0);
    EXPECT_FALSE(Convert(CDM_CONVERT, 220, false));
    EXPECT_EQ(error, 87u);
    EXPECT_FALSE(Convert(CDM_CONVERT, 220, true, false));
    EXPECT_EQ(error, 87u);
    EXPECT_FALSE(Convert(CDM_CONVERT351, 300, false));
    EXPECT_EQ(error, 87u);
    EXPECT_FALSE(Convert(CDM_CONVERT351, 300, true, false));
    EXPECT_EQ(error, 122u);
    SetLastError(0);
    EXPECT_FALSE(DrvConvertDevMode(OfficePrinter, PublicPart(&input), nullptr, nullptr, CDM_CONVERT));
    EXPECT_EQ(GetLastError(), 87u);
}

TEST_F(Conversion351, TheDefaultIsTheModelsWithoutTheInput)
{
    ASSERT_TRUE(Convert(CDM_DRIVER_DEFAULT, 2000));
    DriverDevMode expected;
    BuildDefaultSettings(&expected, OfficeDriver, OfficePrinter, 0);
    buffer.resize(1848);
    EXPECT_EQ(buffer, BytesOf(expected));
}

TEST_F(Conversion351, TheDefaultNeedsThePrinter)
{
    Machine::Fail("OpenPrinterW");
    EXPECT_FALSE(Convert(CDM_DRIVER_DEFAULT, 1848));
    EXPECT_EQ(needed, 1848);
    EXPECT_EQ(buffer, RecordImage(1848));
}

TEST_F(Conversion351, AJobPrintsUnlessMemoryRunsOut)
{
    WCHAR message[64] = {};
    DEVQUERYPRINT_INFO info{sizeof info, 1, printer, nullptr, message, 64, 0};
    EXPECT_EQ(DevQueryPrintEx(&info), 1);
    input.dmSize = 188;
    info.pDevMode = PublicPart(&input);
    EXPECT_EQ(DevQueryPrintEx(&info), 1);
    Machine::Fail("GlobalAlloc");
    EXPECT_EQ(DevQueryPrintEx(&info), 0);
    EXPECT_EQ(std::u16string(message), u"Memory allocation failed");
    EXPECT_EQ(info.cchNeeded, 25u);
    info.cchErrorStr = 8;
    platform::CurrentEnvironment().faults.Clear();
    Machine::Fail("GlobalAlloc");
    EXPECT_EQ(DevQueryPrintEx(&info), 0);
    EXPECT_EQ(std::u16string(message), u"Memory ");
    EXPECT_EQ(info.cchNeeded, 25u);
}

TEST(FormatTextTest, TakesAnArgumentForEachDirective)
{
    WCHAR text[64];
    DWORD needed = 0;
    EXPECT_EQ(FormatText(nullptr, text, 64, &needed, u"%d %u %x %X %c%s%%", {-5, -1, 255, 255, u'c', u"str"}), 25);
    EXPECT_EQ(std::u16string(text), u"-5 4294967295 ff FF cstr%");
}

}  // namespace
