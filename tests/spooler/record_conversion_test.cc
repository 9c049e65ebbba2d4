#include "spooler/record_conversion.h"

#include "settings/defaults.h"
#include "settings/record_copy.h"
#include "settings/tray2_value.h"
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

TEST_F(Conversion351, TellsTheRoomThatItNeeds)
{
    constexpr struct {
        DWORD mode;
        LONG room;
        BOOL result;
        DWORD error;
        LONG needed;
    } Rows[] = {
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
    for (const auto& row : Rows) {
        EXPECT_EQ(Convert(row.mode, row.room), row.result) << row.mode << " with room for " << row.room;
        EXPECT_EQ(error, row.error) << row.mode << " with room for " << row.room;
        EXPECT_EQ(needed, row.needed) << row.mode << " with room for " << row.room;
        buffer.clear();
    }
}

TEST_F(Conversion351, RefusesWhatIsMissingOrPromisesMoreThanThereIs)
{
    const struct {
        WORD size, extra;  // of the output
        DWORD mode;
        LONG room;
        bool in, out;
        DWORD error;  // 0: none
        LONG needed;
    } rows[] = {
        {220, 0,    CDM_CONVERT,    300,  true,  true,  0,   220 },
        {71,  0,    CDM_CONVERT,    300,  true,  true,  0,   71  }, // a size of no version
        {220, 1628, CDM_CONVERT,    1847, true,  true,  87,  1847},
        {220, 0,    CDM_CONVERT,    220,  false, true,  87,  220 },
        {220, 0,    CDM_CONVERT,    220,  true,  false, 87,  220 },
        {220, 0,    CDM_CONVERT351, 400,  false, true,  87,  400 },
        {220, 0,    CDM_CONVERT351, 300,  true,  false, 122, 300 },
    };
    for (const auto& row : rows) {
        PromiseRecord(row.size, row.extra);
        EXPECT_EQ(Convert(row.mode, row.room, row.in, row.out), row.error == 0) << row.size << ' ' << row.room;
        EXPECT_EQ(error, row.error) << row.size << ' ' << row.room;
        EXPECT_EQ(needed, row.needed) << row.size << ' ' << row.room;
    }
    PromiseRecord(71, 0);
    reinterpret_cast<DEVMODEW*>(buffer.data())->dmSpecVersion = 0;
    EXPECT_FALSE(Convert(CDM_CONVERT, 300));
    EXPECT_EQ(error, 87u);
    for (const DWORD mode : {CDM_CONVERT, CDM_CONVERT351, CDM_DRIVER_DEFAULT, DWORD{3}}) {
        SetLastError(0);
        auto* out = reinterpret_cast<DEVMODEW*>(buffer.data());
        EXPECT_FALSE(DrvConvertDevMode(OfficePrinter, PublicPart(&input), out, nullptr, mode));
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
    struct Row {
        std::uint64_t call;  // the allocation that fails
        DWORD room;
        std::u16string message;
        DWORD needed;
    };
    for (const Row& row : {
             Row{1, 64,          u"Memory allocation failed",   25},
             {1, 8,           u"Memory ",                    25},
             {1, 0,           u"unwritten",                  25},
             {4, 64,          u"Invalid DEVMODE structure.", 27},
             {4, 0x7FFF,      u"Invalid DEVMODE structure.", 27},
             {4, 0xFFFFFFFFu, u"Invalid DEVMODE structure.", 27},
             {9, 64,          u"unwritten",                  0 }, // which prints
    }) {
        std::vector<WCHAR> message(0x8000);
        lstrcpyW(message.data(), u"unwritten");
        DEVQUERYPRINT_INFO info{sizeof info, 1, printer, PublicPart(&input), message.data(), row.room, 0};
        Machine::Fail("GlobalAlloc", row.call);
        EXPECT_EQ(DevQueryPrintEx(&info), row.needed == 0);
        EXPECT_EQ(std::u16string(message.data()), row.message) << row.room;
        EXPECT_EQ(info.cchNeeded, row.needed);
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
