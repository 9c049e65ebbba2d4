// The document's sheet function as the service calls it, reason by reason, and the entries that show the sheet or go
// without it.
#include "spooler/document_sheet.h"

#include "settings/options.h"
#include "spooler/document_properties.h"
#include "spooler/printer_data.h"
#include "spooler/record_answer.h"
#include "tests/support/idle_desktop.h"
#include "tests/support/printer_fixture.h"

namespace {

using namespace testing_support;
namespace user = platform::user;

// What the sheet function calls back.
int pagesAdded = 0, refusedPage = 0;  // by its number; 0: none
LONG_PTR CallIn(HANDLE sheet, UINT function, LPARAM, LPARAM)
{
    EXPECT_EQ(sheet, reinterpret_cast<HANDLE>(0x77));
    EXPECT_EQ(function, CPSFUNC_ADD_PROPSHEETPAGEW);
    return ++pagesAdded == refusedPage ? 0 : 0x55;
}

// A sheet as the service keeps it.
struct Call {
    Call(HANDLE printer, DriverDevMode& output)
    {
        header.hPrinter = printer;
        header.pszPrinterName = const_cast<WCHAR*>(OfficePrinter);
        header.pdmOut = PublicPart(&output);
        header.cbOut = sizeof output;
        header.fMode = DM_COPY | DM_PROMPT;
        info.hComPropSheet = reinterpret_cast<HANDLE>(0x77);
        info.pfnComPropSheet = CallIn;
        info.lParamInit = reinterpret_cast<LPARAM>(&header);
    }
    LONG Reason(WORD reason, void* lParam)
    {
        info.Reason = reason;
        return DrvDocumentPropertySheets(&info, reinterpret_cast<LPARAM>(lParam));
    }
    LONG Open() { return Reason(PROPSHEETUI_REASON_INIT, &header); }
    LONG Close() { return Reason(PROPSHEETUI_REASON_DESTROY, nullptr); }
    UiContext& Context() { return *reinterpret_cast<UiContext*>(info.UserData); }

    DOCUMENTPROPERTYHEADER header{};
    PROPSHEETUI_INFO info{};
};

class DocumentSheet : public PrinterTest {
  protected:
    DocumentSheet() { pagesAdded = refusedPage = 0; }
    ~DocumentSheet() override
    {
        EXPECT_EQ(DocumentSheetCount, 0);
        EXPECT_EQ(user::WindowCount(), 0u);
    }
    LONG Properties(DWORD mode, DriverDevMode* out)
    {
        return DrvDocumentProperties(nullptr, printer, name.data(), PublicPart(out), nullptr, mode);
    }

    std::u16string name = OfficePrinter;
    DriverDevMode output{};
    Call call{printer, output};
};

TEST_F(DocumentSheet, IsSetUpWithItsPagesAndContext)
{
    call.info.Result = 9;
    ASSERT_EQ(call.Open(), 1);
    UiContext& context = call.Context();
    EXPECT_EQ(pagesAdded, static_cast<int>(PageTable.size()));
    EXPECT_EQ(call.info.Result, 0u);
    EXPECT_EQ(context.header, &call.header);
    EXPECT_EQ(context.canEdit, 1u);
    EXPECT_EQ(CurrentSettings, &context.settings);
    const PROPSHEETPAGEW& page = DocumentPages[0];
    EXPECT_EQ(std::tuple(page.dwSize, page.dwFlags, page.hInstance, page.lParam),
              std::tuple(sizeof page, PSP_HASHELP, ModuleHandle, reinterpret_cast<LPARAM>(&context)));
    PROPSHEETUI_INFO_HEADER header{};
    EXPECT_EQ(call.Reason(PROPSHEETUI_REASON_GET_INFO_HEADER, &header), 1);
    EXPECT_EQ(std::tuple(header.Flags, header.pTitle, header.hInst, header.IconID),
              std::tuple(4, OfficePrinter, ResourceHandle, 64082u));
    EXPECT_EQ(call.Close(), 1);
}

TEST_F(DocumentSheet, ThatIsRefusedAPageLeavesNothing)
{
    CurrentSettings = &output;
    refusedPage = 1;
    EXPECT_EQ(call.Open(), -1);
    EXPECT_EQ(call.info.UserData, 0u);
    EXPECT_EQ(CurrentSettings, &output);
}

TEST_F(DocumentSheet, HandsOutTheShapeOfTheInputOrAllThatFits)
{
    constexpr struct {
        WORD inputExtra;
        DWORD mode, room;
        WORD outputExtra;  // 0xEEEE: nothing was handed out
    } rows[] = {
        {1628, DM_COPY,   0,    1628  },
        {1628, DM_COPY,   1848, 1628  },
        {0,    DM_COPY,   0,    0     },
        {0,    DM_COPY,   1847, 0     },
        {0,    DM_COPY,   1848, 1628  },
        {0,    DM_UPDATE, 4000, 1628  },
        {0,    DM_PROMPT, 1848, 0xEEEE},
    };
    DriverDevMode input = BusyRecord();
    call.header.pdmIn = PublicPart(&input);
    for (const auto& row : rows) {
        input.dmDriverExtra = row.inputExtra;
        std::memset(static_cast<void*>(&output), 0xEE, sizeof output);
        call.header.fMode = row.mode;
        call.header.cbOut = row.room;
        call.Open();
        SETRESULT_INFO end{};
        end.Result = CPSUI_OK;
        EXPECT_EQ(call.Reason(PROPSHEETUI_REASON_SET_RESULT, &end), 1);
        EXPECT_EQ(output.dmDriverExtra, row.outputExtra) << row.inputExtra << ' ' << row.room;
        EXPECT_EQ(output.dmPrivSignature, row.outputExtra == 1628 ? 0x56495250u : 0xEEEEEEEEu);
        EXPECT_EQ(call.info.Result, 1u);
        call.Close();
    }
}

TEST_F(DocumentSheet, KeepsItsRecordWhileAnotherOneIsOpen)
{
    Call second(printer, output);
    call.Open();
    second.Open();
    UiContext& early = call.Context();
    EXPECT_EQ(call.Close(), 1);
    EXPECT_EQ(DocumentSheetCount, 1);
    EXPECT_EQ(CurrentSettings, &early.settings);
    EXPECT_EQ(early.settings.dmZoom, 100);  // the other sheet's pages may still read it
    EXPECT_EQ(second.Close(), 1);           // and the fixture sees that both are gone
}

TEST_F(DocumentSheet, RefusesWhatIsNoHeaderOrContextOfIts)
{
    PROPSHEETUI_INFO info{};
    EXPECT_EQ(DrvDocumentPropertySheets(&info, 1), -1);
    EXPECT_EQ(DrvDocumentPropertySheets(nullptr, 0), -1);
    EXPECT_EQ(call.Close(), -1);
    call.Open();
    EXPECT_EQ(call.Reason(4, nullptr), -1);
    call.Context().self = nullptr;
    EXPECT_EQ(call.Close(), -1);
    EXPECT_EQ(DocumentSheetCount, 1);
    call.Context().self = &call.Context();
    call.Close();
}

TEST_F(DocumentSheet, IsNotNeededForTheSizeOrTheWholeRecord)
{
    platform::CurrentEnvironment().faults.CountCalls(true);
    EXPECT_EQ(Properties(0, &output), 1848);
    EXPECT_EQ(Properties(DM_PROMPT | DM_COPY, nullptr), 1848);
    EXPECT_EQ(DrvAdvancedDocumentProperties(nullptr, printer, name.data(), nullptr, nullptr), 1848);
    EXPECT_TRUE(platform::CurrentEnvironment().faults.Calls().empty());
    for (const DWORD mode : {DM_UPDATE, DM_MODIFY, DM_COPY}) {
        EXPECT_EQ(Properties(mode, &output), 1);
        EXPECT_EQ(std::exchange(output, {}).dmSize, mode == DM_MODIFY ? 0 : 220) << "not asked for";
    }
    EXPECT_EQ(DrvDocumentPropertySheets(nullptr, reinterpret_cast<LPARAM>(&call.header)), 1);
    EXPECT_EQ(call.header.cbOut, 1848u);
    EXPECT_EQ(output.dmDriverExtra, 1628);
    EXPECT_EQ(std::u16string(output.dmDeviceName), OfficeDriver);
    EXPECT_EQ(output.dmOverlayReserved[0], u'0');
    EXPECT_EQ(CurrentSettings, nullptr);
}

class FixUp : public DocumentSheet {
  protected:
    static void OpenTheWindow()
    {
        platform::FixedFactValues facts = Machine::InCountry(Germany);
        facts.windows = u"Other\nVWClass500";
        Machine::UseFacts(facts);
    }
    // Code, length, width, fields.
    using Paper = std::tuple<SHORT, SHORT, SHORT, DWORD>;
    static Paper PaperOf(const DriverDevMode& record)
    {
        return {record.dmPaperSize, record.dmPaperLength, record.dmPaperWidth, record.dmFields};
    }
    Paper Fixed(SHORT code, WORD size = 220)
    {
        DriverDevMode record = BusyRecord();
        SetFields(record, "dmFields=0x10102 dmDriverExtra=0");
        record.dmPaperSize = code;
        record.dmSize = size;
        EXPECT_EQ(FixUpCustomPaper(printer, PublicPart(&record)), 1);
        return PaperOf(record);
    }
};

TEST_F(FixUp, GivesThePaperBySizeWhileTheWindowIsThere)
{
    constexpr DWORD Unchanged = DM_PAPERSIZE | DM_FORMNAME | DM_COPIES;
    constexpr DWORD BySize = DM_PAPERLENGTH | DM_PAPERWIDTH | DM_COPIES;
    EXPECT_EQ(Fixed(9), Paper(9, 2480, 1748, Unchanged)) << "there is no window";
    OpenTheWindow();
    const CustomPaperEntry stored = {257, 2000, 1000, 0, 0, 0, 0, {}};
    WritePrinterBlob(printer, &stored, sizeof stored, CustomPaperSlot);
    EXPECT_EQ(Fixed(9), Paper(9, 2969, 2099, BySize));
    EXPECT_EQ(Fixed(257), Paper(257, 2000, 1000, BySize));
    EXPECT_EQ(Fixed(256), Paper(256, 2480, 1748, Unchanged));
    EXPECT_EQ(Fixed(258), Paper(258, 2480, 1748, Unchanged));
    EXPECT_EQ(Fixed(9, 72), Paper(9, 2480, 1748, Unchanged)) << "the record does not reach to its paper";
    EXPECT_EQ(FixUpCustomPaper(printer, nullptr), 1);
    EXPECT_EQ(FixUpCustomPaper(nullptr, PublicPart(&output)), 1);
}

TEST_F(FixUp, IsDoneByTheEntriesWhichSayHowTheSheetEnded)
{
    OpenTheWindow();
    for (const bool ok : {true, false}) {
        platform::CurrentEnvironment().desktop = std::make_shared<ScriptedDesktop>(
            [&](HWND sheet) { user::PressButton(sheet, ok ? user::SheetButton::Ok : user::SheetButton::Cancel); });
        const Paper expected = ok ? Paper(9, 2969, 2099, DM_PAPERLENGTH | DM_PAPERWIDTH | 0x4F01) : Paper();
        EXPECT_EQ(Properties(DM_PROMPT | DM_COPY, &output), ok ? 1 : 2);
        EXPECT_EQ(PaperOf(std::exchange(output, {})), expected);
        EXPECT_EQ(DrvAdvancedDocumentProperties(nullptr, printer, name.data(), PublicPart(&output), nullptr), ok);
        EXPECT_EQ(PaperOf(std::exchange(output, {})), expected);
    }
}

}  // namespace
