// The sheet function as the service calls it, reason by reason.
#include "spooler/document_sheet.h"

#include "settings/options.h"
#include "spooler/printer_data.h"
#include "spooler/record_answer.h"
#include "tests/spooler/printer_fixture.h"

namespace {

using namespace testing_support;

// What the sheet function calls back.
struct Service {
    int pagesAdded = 0;
    int refuseFrom = 100;  // the page that is refused
    std::vector<LPARAM> results;
};
Service* service = nullptr;

LONG_PTR CallIn(HANDLE sheet, UINT function, LPARAM, LPARAM param2)
{
    EXPECT_EQ(sheet, reinterpret_cast<HANDLE>(0x77));
    if (function == CPSFUNC_SET_RESULT) service->results.push_back(param2);
    if (function != CPSFUNC_ADD_PROPSHEETPAGEW) return 0;
    return service->pagesAdded++ >= service->refuseFrom ? 0 : 0x55;
}

class DocumentSheet : public PrinterTest {
  protected:
    struct Call {
        explicit Call(DocumentSheet& test)
        {
            header.hPrinter = test.printer;
            header.pszPrinterName = test.name.data();
            header.pdmOut = PublicPart(&test.output);
            header.cbOut = sizeof test.output;
            header.fMode = DM_COPY | DM_PROMPT;
            info.hComPropSheet = reinterpret_cast<HANDLE>(0x77);
            info.pfnComPropSheet = CallIn;
            info.lParamInit = reinterpret_cast<LPARAM>(&header);
        }
        Call(const Call&) = delete;
        Call& operator=(const Call&) = delete;
        DOCUMENTPROPERTYHEADER header{};
        PROPSHEETUI_INFO info{};
        LONG Reason(WORD reason, void* lParam)
        {
            info.Reason = reason;
            return DrvDocumentPropertySheets(&info, reinterpret_cast<LPARAM>(lParam));
        }
        LONG Open() { return Reason(PROPSHEETUI_REASON_INIT, &header); }
        LONG Close() { return Reason(PROPSHEETUI_REASON_DESTROY, nullptr); }
        LONG End(LRESULT result)
        {
            SETRESULT_INFO end{};
            end.Result = result;
            return Reason(PROPSHEETUI_REASON_SET_RESULT, &end);
        }
        UiContext& Context() { return *reinterpret_cast<UiContext*>(info.UserData); }
    };

    DocumentSheet() { service = &calls; }
    ~DocumentSheet() override
    {
        service = nullptr;
        CurrentSettings = nullptr;
        EXPECT_EQ(DocumentSheetCount, 0);
    }
    Service calls;
    std::u16string name = OfficePrinter;
    DriverDevMode output{};
};

TEST_F(DocumentSheet, IsSetUpWithItsPagesAndContext)
{
    Call call(*this);
    call.info.Result = 9;
    ASSERT_EQ(call.Open(), 1);
    UiContext& context = call.Context();
    EXPECT_EQ(calls.pagesAdded, static_cast<int>(PageTable.size()));
    EXPECT_EQ(call.info.Result, 0u);
    EXPECT_EQ(context.header, &call.header);
    EXPECT_EQ(context.canEdit, 1u);
    EXPECT_EQ(CurrentSettings, &context.settings);
    EXPECT_EQ(DocumentSheetCount, 1);
    const PROPSHEETPAGEW& page = DocumentPages[0];
    EXPECT_EQ(std::tuple(page.dwSize, page.dwFlags, page.hInstance, page.lParam),
              std::tuple(sizeof page, PSP_HASHELP, ModuleHandle, reinterpret_cast<LPARAM>(&context)));
    PROPSHEETUI_INFO_HEADER header{};
    EXPECT_EQ(call.Reason(PROPSHEETUI_REASON_GET_INFO_HEADER, &header), 1);
    EXPECT_EQ(std::tuple(header.Flags, header.pTitle, header.hInst, header.IconID),
              std::tuple(4, name.data(), ResourceHandle, 64082u));
    EXPECT_EQ(call.Close(), 1);
}

TEST_F(DocumentSheet, ThatIsRefusedAPageLeavesNothing)
{
    Call call(*this);
    CurrentSettings = &output;
    calls.refuseFrom = 0;
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
    for (const auto& row : rows) {
        Call call(*this);
        DriverDevMode input = BusyRecord();
        input.dmDriverExtra = row.inputExtra;
        std::memset(static_cast<void*>(&output), 0xEE, sizeof output);
        call.header.pdmIn = PublicPart(&input);
        call.header.fMode = row.mode;
        call.header.cbOut = row.room;
        call.Open();
        EXPECT_EQ(call.End(CPSUI_OK), 1);
        EXPECT_EQ(output.dmDriverExtra, row.outputExtra) << row.inputExtra << ' ' << row.room;
        EXPECT_EQ(output.dmPrivSignature, row.outputExtra == 1628 ? 0x56495250u : 0xEEEEEEEEu);
        EXPECT_EQ(call.info.Result, 1u);
        call.Close();
    }
}

TEST_F(DocumentSheet, KeepsItsRecordWhileAnotherOneIsOpen)
{
    Call first(*this), second(*this);
    first.Open();
    second.Open();
    UiContext& early = first.Context();
    EXPECT_EQ(first.Close(), 1);
    EXPECT_EQ(DocumentSheetCount, 1);
    EXPECT_EQ(CurrentSettings, &early.settings);
    EXPECT_EQ(early.settings.dmZoom, 100);  // the other sheet's pages may still read it
    EXPECT_EQ(second.Close(), 1);           // and the fixture sees that both are gone
}

TEST_F(DocumentSheet, AnswersWithoutAServiceToo)
{
    Call call(*this);
    EXPECT_EQ(DrvDocumentPropertySheets(nullptr, reinterpret_cast<LPARAM>(&call.header)), 1);
    EXPECT_EQ(output.dmDriverExtra, 1628);
    EXPECT_EQ(call.header.cbOut, 1848u);
    EXPECT_EQ(CurrentSettings, nullptr);
}

TEST_F(DocumentSheet, RefusesWhatIsNoHeaderOrContextOfIts)
{
    PROPSHEETUI_INFO info{};
    EXPECT_EQ(DrvDocumentPropertySheets(&info, 1), -1);
    EXPECT_EQ(DrvDocumentPropertySheets(nullptr, 0), -1);
    Call call(*this);
    EXPECT_EQ(call.Close(), -1);
    call.Open();
    EXPECT_EQ(call.Reason(4, nullptr), -1);
    call.Context().self = nullptr;
    EXPECT_EQ(call.Close(), -1);
    EXPECT_EQ(DocumentSheetCount, 1);
    call.Context().self = &call.Context();
    call.Close();
}

class FixUp : public PrinterTest {
  protected:
    static void OpenTheWindow()
    {
        platform::FixedFactValues facts;
        facts.windows = u"Other\nVWClass500";
        platform::CurrentEnvironment().facts = platform::MakeFixedFacts(facts);
    }
    DriverDevMode Fixed(SHORT code)
    {
        DriverDevMode record = BusyRecord();
        record.dmFields = DM_PAPERSIZE | DM_FORMNAME | DM_COPIES;
        record.dmPaperSize = code;
        EXPECT_EQ(FixUpCustomPaper(printer, PublicPart(&record)), 1);
        return record;
    }
};

constexpr DWORD Unchanged = DM_PAPERSIZE | DM_FORMNAME | DM_COPIES;
constexpr DWORD BySize = DM_PAPERLENGTH | DM_PAPERWIDTH | DM_COPIES;

TEST_F(FixUp, GivesThePaperBySizeWhileTheWindowIsThere)
{
    EXPECT_EQ(Fixed(9).dmFields, Unchanged) << "there is no window";
    OpenTheWindow();
    const CustomPaperEntry stored = {257, 2000, 1000, 0, 0, 0, 0, {}};
    WritePrinterBlob(printer, &stored, sizeof stored, CustomPaperSlot);
    constexpr struct {
        SHORT code, length, width;
        DWORD fields;
    } rows[] = {
        {9,   2969, 2099, BySize   },
        {310, 2569, 1819, BySize   },
        {257, 2000, 1000, BySize   },
        {256, 2480, 1748, Unchanged},
        {258, 2480, 1748, Unchanged},
    };
    for (const auto& row : rows) {
        const DriverDevMode fixed = Fixed(row.code);
        EXPECT_EQ(std::tuple(fixed.dmPaperSize, fixed.dmPaperLength, fixed.dmPaperWidth, fixed.dmFields),
                  std::tuple(row.code, row.length, row.width, row.fields));
    }
}

TEST_F(FixUp, LeavesARecordThatDoesNotReachToItsPaper)
{
    OpenTheWindow();
    DriverDevMode record = BusyRecord();
    record.dmPaperSize = 9;
    record.dmSize = 72;
    record.dmDriverExtra = 0;
    FixUpCustomPaper(printer, PublicPart(&record));
    EXPECT_EQ(record.dmPaperLength, 2480);
    EXPECT_EQ(FixUpCustomPaper(printer, nullptr), 1);
    EXPECT_EQ(FixUpCustomPaper(nullptr, PublicPart(&record)), 1);
}

}  // namespace
