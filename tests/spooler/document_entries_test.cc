// The document's entries through the shared library, and its sheet as a user works it.
#include "platform/kernel/modules.h"
#include "platform/seams/fonts.h"
#include "tests/spooler/printer_fixture.h"
#include "tests/support/scripted_desktop.h"

namespace {

using namespace testing_support;
namespace user = platform::user;

using PropertiesEntry = LONG (*)(HWND, HANDLE, WCHAR*, DEVMODEW*, DEVMODEW*, DWORD);
using AdvancedEntry = LONG (*)(HWND, HANDLE, WCHAR*, DEVMODEW*, DEVMODEW*);

template <class Entry>
Entry EntryNamed(const char* name)
{
    static const HMODULE module = platform::modules::Load(QD_MODULE_PATH, nullptr);
    return reinterpret_cast<Entry>(platform::modules::Entry(module, name));
}

class DocumentEntries : public PrinterTest {
  protected:
    DocumentEntries()
    {
        Play([](HWND) {});
    }
    ~DocumentEntries() override
    {
        platform::CurrentEnvironment().desktop = nullptr;
        platform::CurrentEnvironment().fonts = nullptr;
        EXPECT_EQ(user::WindowCount(), 0u);
    }
    void Play(std::function<void(HWND sheet)> script)
    {
        platform::CurrentEnvironment().desktop = std::make_shared<ScriptedDesktop>(std::move(script));
        platform::CurrentEnvironment().fonts = platform::MakeBuiltinFonts();
    }
    LONG Properties(DWORD mode, DEVMODEW* in = nullptr, bool withOutput = true)
    {
        const auto entry = EntryNamed<PropertiesEntry>("DrvDocumentProperties");
        return entry(nullptr, printer, name.data(), withOutput ? PublicPart(&output) : nullptr, in, mode);
    }
    LONG Advanced(bool withOutput = true)
    {
        const auto entry = EntryNamed<AdvancedEntry>("DrvAdvancedDocumentProperties");
        return entry(nullptr, printer, name.data(), withOutput ? PublicPart(&output) : nullptr, nullptr);
    }

    std::u16string name = OfficePrinter;
    DriverDevMode output{};
};

TEST_F(DocumentEntries, GiveTheSizeAndOpenNothing)
{
    platform::CurrentEnvironment().faults.CountCalls(true);
    EXPECT_EQ(Properties(0), 1848);
    EXPECT_EQ(Properties(DM_COPY, nullptr, false), 1848);
    EXPECT_EQ(Properties(DM_PROMPT | DM_COPY, nullptr, false), 1848);
    EXPECT_EQ(Advanced(false), 1848);
    EXPECT_THAT(platform::CurrentEnvironment().faults.Calls(), testing::IsEmpty());
}

TEST_F(DocumentEntries, HandOutTheWholeRecordWithoutAnInput)
{
    EXPECT_EQ(Properties(DM_MODIFY), 1);
    EXPECT_EQ(output.dmSize, 0);  // not asked for
    EXPECT_EQ(Properties(DM_COPY), 1);
    EXPECT_EQ(output.dmSize, 220);
    EXPECT_EQ(output.dmDriverExtra, 1628);
    EXPECT_EQ(std::u16string(output.dmDeviceName), OfficeDriver);
    EXPECT_EQ(output.dmOverlayReserved[0], u'0');
}

TEST_F(DocumentEntries, HandOutTheShapeOfTheInput)
{
    DriverDevMode input = BusyRecord();
    input.dmFields = DM_COPIES;
    input.dmDriverExtra = 0;
    std::memset(static_cast<void*>(&output), 0xEE, sizeof output);
    EXPECT_EQ(Properties(DM_UPDATE, PublicPart(&input)), 1);
    EXPECT_EQ(output.dmCopies, 7);
    EXPECT_EQ(output.dmDriverExtra, 0);
    EXPECT_EQ(output.dmPrivSignature, 0xEEEEEEEEu);
}

struct EndRow {
    user::SheetButton button;
    LONG answer, advancedAnswer;
    bool published;
};

TEST_F(DocumentEntries, SayHowTheSheetEnded)
{
    constexpr EndRow rows[] = {
        {user::SheetButton::Ok,     1, 1, true },
        {user::SheetButton::Cancel, 2, 0, false}
    };
    for (const EndRow& row : rows) {
        Play([&](HWND sheet) { user::PressButton(sheet, row.button); });
        output = {};
        EXPECT_EQ(Properties(DM_PROMPT | DM_COPY), row.answer);
        EXPECT_EQ(output.dmSize == 220, row.published);
        output = {};
        EXPECT_EQ(Advanced(), row.advancedAnswer);
        EXPECT_EQ(output.dmSize == 220, row.published);
    }
}

TEST_F(DocumentEntries, KeepWhatApplyHasPublished)
{
    Play([](HWND sheet) {
        EXPECT_TRUE(ShowPage(sheet, u"Quality"));
        const HWND page = user::DialogOf(sheet);
        for (HWND control : user::Find(page)->children) {
            const auto* list = user::Find(control)->As<user::ListState>();
            if (list && list->items.size() == 3) user::Pick(control, 2);
        }
        EXPECT_EQ(user::PressButton(sheet, user::SheetButton::Apply), user::Outcome::Done);
        user::PressButton(sheet, user::SheetButton::Cancel);
    });
    EXPECT_EQ(Properties(DM_PROMPT | DM_COPY), 2);
    EXPECT_EQ(output.dmResolutionChoice, 1200);
    EXPECT_EQ(output.dmPrintQuality, 1200);
}

struct FaultRow {
    const char* function;
    std::uint64_t call;
};

TEST_F(DocumentEntries, GiveThePaperBySizeToAnApplicationThatNeedsIt)
{
    platform::FixedFactValues facts = Machine::InCountry(49);
    facts.windows = u"VWClass500";
    platform::CurrentEnvironment().facts = platform::MakeFixedFacts(facts);
    Play([](HWND sheet) { user::PressButton(sheet, user::SheetButton::Ok); });
    Properties(DM_PROMPT | DM_COPY);
    EXPECT_EQ(output.dmPaperSize, 9);
    EXPECT_EQ(output.dmPaperWidth, 2099);
    EXPECT_EQ(output.dmPaperLength, 2969);
    EXPECT_EQ(output.dmFields & DM_PAPERSIZE, 0u);
}

}  // namespace
