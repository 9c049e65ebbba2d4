// The document's entries through the shared library, and its sheet as a user works it.
#include "platform/kernel/modules.h"
#include "tests/spooler/printer_fixture.h"
#include "tests/support/idle_desktop.h"

namespace {

using namespace testing_support;
namespace user = platform::user;

// An entry of the library, called with the desktop's window and what is given.
template <class... Arguments>
LONG CallEntry(const char* name, Arguments... arguments)
{
    static const HMODULE module = platform::modules::Load(QD_MODULE_PATH, nullptr);
    return reinterpret_cast<LONG (*)(HWND, Arguments...)>(platform::modules::Entry(module, name))(nullptr,
                                                                                                  arguments...);
}

class DocumentEntries : public PrinterTest {
  protected:
    DocumentEntries()
    {
        Play([](HWND) {});
    }
    ~DocumentEntries() override { EXPECT_EQ(user::WindowCount(), 0u); }
    void Play(std::function<void(HWND sheet)> script)
    {
        platform::CurrentEnvironment().desktop = std::make_shared<ScriptedDesktop>(std::move(script));
    }
    LONG Properties(DWORD mode, DEVMODEW* in = nullptr, bool withOutput = true)
    {
        DEVMODEW* out = withOutput ? PublicPart(&output) : nullptr;
        return CallEntry("DrvDocumentProperties", printer, name.data(), out, in, mode);
    }
    LONG Advanced(bool withOutput = true)
    {
        DEVMODEW *out = withOutput ? PublicPart(&output) : nullptr, *in = nullptr;
        return CallEntry("DrvAdvancedDocumentProperties", printer, name.data(), out, in);
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
    EXPECT_EQ(Properties(DM_UPDATE), 1);
    EXPECT_EQ(std::exchange(output, {}).dmSize, 220);
    EXPECT_EQ(Properties(DM_MODIFY), 1);
    EXPECT_EQ(output.dmSize, 0);  // not asked for
    EXPECT_EQ(Properties(DM_COPY), 1);
    EXPECT_EQ(output.dmSize, 220);
    EXPECT_EQ(output.dmDriverExtra, 1628);
    EXPECT_EQ(std::u16string(output.dmDeviceName), OfficeDriver);
    EXPECT_EQ(output.dmOverlayReserved[0], u'0');
}

TEST_F(DocumentEntries, SayHowTheSheetEnded)
{
    for (const bool ok : {true, false}) {
        Play([&](HWND sheet) { user::PressButton(sheet, ok ? user::SheetButton::Ok : user::SheetButton::Cancel); });
        output = {};
        EXPECT_EQ(Properties(DM_PROMPT | DM_COPY), ok ? 1 : 2);
        EXPECT_EQ(output.dmSize == 220, ok);
        output = {};
        EXPECT_EQ(Advanced(), ok ? 1 : 0);
        EXPECT_EQ(output.dmSize == 220, ok);
    }
}

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
