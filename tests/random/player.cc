#include <unistd.h>

#include <algorithm>
#include <functional>

#include "platform/gdi/job.h"
#include "platform/kernel/memory.h"
#include "platform/registry/keys.h"
#include "platform/seams/desktop.h"
#include "platform/seams/fonts.h"
#include "platform/services/sheet_service.h"
#include "platform/spooler/printers.h"
#include "platform/user/windows.h"
#include "resources/control_numbers.h"
#include "settings/options.h"
#include "spooler/device_sheet.h"
#include "spooler/document_properties.h"
#include "tests/random/changes.h"
#include "tests/random/hands.h"
#include "tests/random/invariants.h"
#include "tests/random/ledger.h"
#include "tests/random/messages.h"
#include "tests/random/stores.h"
#include "tests/support/idle_desktop.h"
#include "tests/support/sheet_driver.h"
#include "watermark/overlay_list.h"

extern "C" int __lsan_do_recoverable_leak_check() __attribute__((weak));

namespace random_use {

namespace {

namespace user = platform::user;
using testing_support::TestPrinter;

struct Counter {
    const char* what;
    std::size_t (*count)();
};
constexpr Counter Counters[] = {
    {"windows",         user::WindowCount               },
    {"contexts",        platform::gdi::ContextCount     },
    {"drawing objects", platform::gdi::ObjectCount      },
    {"blocks",          platform::memory::BlockCount    },
    {"private heaps",   platform::memory::HeapCount     },
    {"blocks in heaps", platform::memory::HeapBlockCount},
    {"printer handles", platform::spooler::OpenCount    },
    {"registry keys",   platform::registry::OpenCount   },
};

class Player : public testing_support::IdleDesktop {
  public:
    Player(Ledger& ledger, std::uint64_t seed, const std::optional<std::vector<Step>>& steps)
        : ledger_(ledger), random_(seed), given_(steps), start_(MakeStart(random_))
    {
        Note(ledger_.story, start_.story);
    }

    void Play();

    void Run(HWND top) override;
    int MessageBox(const platform::MessageBoxRequest& request) override
    {
        ++ledger_.boxes[at_];
        if (unjudged_) return IDOK;
        Hear(request.text);
        return (request.style & 0x0F) == MB_OK || now_.ok ? IDOK : IDCANCEL;
    }
    std::optional<std::u16string> PickFile(const platform::FileDialogRequest& request) override
    {
        ++ledger_.files[at_];
        if (now_.file == 0 || !request.accept(Files.at(now_.file))) return std::nullopt;
        return Files.at(now_.file);
    }
    void Beep(UINT) override
    {
        if (!unjudged_) Hear(u"\a");
    }

  private:
    bool Failed() const { return ledger_.failure[0] != 0; }
    void Fail(const std::string& what) { Note(ledger_.failure, what); }
    void Hear(const std::u16string& message)
    {
        messages_.push_back(message);
        const std::string wrong = MessageWithoutReason(ViewOf(user::DialogOf(user::TopWindow())), message);
        if (!wrong.empty()) Fail(wrong + ", after: " + ScriptOf(now_, 0, 0));
    }
    void See(int number)
    {
        int* const known = std::find_if(ledger_.seen, std::end(ledger_.seen),
                                        [&](int other) { return other == number || other == 0; });
        if (known != std::end(ledger_.seen)) *known = number;
    }
    bool MoreSteps() const { return ledger_.count < static_cast<int>(given_ ? given_->size() : MostSteps); }
    View ViewOf(HWND page) const
    {
        const bool mayEdit = start_.mayChange && !(start_.mode & DM_NOPERMISSION);
        const bool fromShell = !platform::CurrentEnvironment().facts->OwnerModule().empty();
        return {start_,   page,    TemplateOf(page), *CurrentSettings,   last_, mayEdit, fromShell,
                control_, dialog_, closed_,          Files.at(now_.file)};
    }
    // What no step of a sheet of the job writes: the default record and the printer's key.
    std::pair<platform::Bytes, platform::StoredValues> UntouchedStores() const
    {
        platform::MemoryStore& store = *start_.machine->store;
        return {store.DefaultRecord(TestPrinter), store.KeyValues(platform::PrinterKeyPath(TestPrinter))};
    }
    void Take(const Step& step, HWND top);
    void Look();
    void Published(LONG result, const std::vector<BYTE>& output);
    void ShowSheet();
    void ShowDeviceSheet();

    Ledger& ledger_;
    Random random_;
    const std::optional<std::vector<Step>>& given_;
    Start start_;
    Judge judge_;
    Step now_;  // the step that is being taken
    int at_ = 0, dialog_ = 0, control_ = Arrival, closed_ = 0;
    std::vector<std::u16string> messages_;
    std::u16string newOverlay_;  // the path of the one that the next job makes
    bool applied_ = false;
    int appliedPage_ = 0;
    // Another sheet is or was up beside the one of the job: the printer's own, which has no record of a job, or a
    // second one, which takes the record and the lists of the first. Then only what is left in the end is looked at.
    bool unjudged_ = false;
    DriverDevMode last_{};
    DriverDevMode appliedRecord_{};  // before the last Apply
    platform::StoredValues lastStore_;
    std::pair<platform::Bytes, platform::StoredValues> untouched_;
};

void Player::Take(const Step& step, HWND top)
{
    if (ledger_.count == MostSteps) return;
    const int at = at_ = ledger_.count++;
    ledger_.steps[at] = now_ = step;
    const int dialog = dialog_ = TemplateOf(user::DialogOf(top)), control = control_ = ControlOf(step, top);
    See(dialog);
    messages_.clear();
    closed_ = 0;
    const user::Outcome outcome = Act(step, top);
    // A step that was refused may have left a field, and nothing else.
    at_ = at, now_ = step, dialog_ = dialog, control_ = outcome == user::Outcome::Done ? control : Elsewhere;
    if (control_ == Applied && outcome == user::Outcome::Done) {
        applied_ = true;
        appliedPage_ = dialog;  // leaving its field may put the record right
        appliedRecord_ = last_;
    }
    Look();
    if (user::Ended(top) && control_ == IDOK) closed_ = dialog;
}

void Player::Look()
{
    const HWND top = user::TopWindow();
    if (Failed() || unjudged_) return;
    const platform::StoredValues store = start_.machine->store->Values(TestPrinter);
    std::string wrong = WrongStores(start_, lastStore_, store, dialog_, control_);
    if (wrong.empty() && UntouchedStores() != untouched_)
        wrong = "the default record or the registry changes by control " + std::to_string(control_);
    lastStore_ = store;
    const HWND sheet = user::OpenWindows().empty() ? nullptr : user::OpenWindows().front();
    if (wrong.empty() && top && !user::Ended(sheet)) {
        const View view = ViewOf(user::DialogOf(top));
        wrong = WrongChanges(view);
        for (std::size_t k = 0; k < messages_.size() && wrong.empty(); ++k) wrong = WrongMessage(view, messages_[k]);
        // The lists of a dialog that has ended are gone.
        if (wrong.empty() && !user::Ended(top)) wrong = judge_.Wrong(view);
        last_ = *CurrentSettings;
        const OverlayEntry* pending = FindPendingOverlay(OverlayList);
        newOverlay_ = pending ? pending->ovPath : u"";
    }
    messages_.clear();
    if (!wrong.empty()) Fail(wrong + ", after: " + ScriptOf(now_, 0, 0));
}

// Also when a dialog ends within a step of the one beneath.
void Player::Run(HWND top)
{
    if (user::OpenWindows().size() == 1 && !unjudged_) {
        judge_ = {};
        now_ = {Action::Page, true, 0, 0, 0}, dialog_ = 0, control_ = Arrival, closed_ = 0;
        last_ = *CurrentSettings;
        lastStore_ = start_.machine->store->Values(TestPrinter);
        untouched_ = UntouchedStores();
    }
    // Paints the page before it is looked at.
    user::PaintPending();
    Look();  // what the step has changed that brought the dialog up
    if (start_.twoSheets && !unjudged_ && MoreSteps()) {
        unjudged_ = true;
        ShowSheet();
    }
    while (!user::Ended(top) && !Failed() && MoreSteps())
        Take(given_ ? (*given_)[static_cast<std::size_t>(ledger_.count)] : DrawStep(random_, top), top);
    for (int tries = 0; !user::Ended(top); ++tries) {
        if (tries == 3) {
            Fail("dialog " + std::to_string(TemplateOf(user::DialogOf(top))) + " cannot be left");
            _exit(0);
        }
        user::Close(top);
    }
}

void Player::ShowSheet()
{
    std::vector<BYTE> input = start_.input, output(140000, BYTE{0xEE});
    std::u16string name = TestPrinter;
    const bool owned = !platform::CurrentEnvironment().facts->OwnerModule().empty();
    const HWND owner = owned ? platform::services::MakeOwnerWindow() : nullptr;
    const HANDLE printer = platform::spooler::Open(name, 0);
    applied_ = false;
    auto* out = reinterpret_cast<DEVMODEW*>(output.data());
    auto* in = input.empty() ? nullptr : reinterpret_cast<DEVMODEW*>(input.data());
    const LONG result = DrvDocumentProperties(owner, printer, name.data(), out, in, start_.mode);
    platform::spooler::Close(printer);
    if (owner) platform::services::DestroyOwnerWindow(owner);
    if (start_.service && result != IDOK && result != IDCANCEL) Fail("the sheet answers " + std::to_string(result));
    if (Failed() || unjudged_) return;
    if (!start_.service) {
        if (result >= 0) Fail("a sheet without its service");
        ledger_.count = MostSteps;  // there is nothing to take a step in
        return;
    }
    Published(result, output);
    // The same user goes on with what was chosen.
    if (result == IDOK && in == nullptr) start_.input.assign(output.begin(), output.begin() + sizeof(DriverDevMode));
}

void Player::Published(LONG result, const std::vector<BYTE>& output)
{
    const bool untouched = std::all_of(output.begin(), output.end(), [](BYTE byte) { return byte == 0xEE; });
    if (untouched) return result == IDOK || applied_ ? Fail("nothing is published") : void();
    if (result == IDCANCEL && !applied_) return Fail("a cancelled sheet publishes a record");
    const auto& published = *reinterpret_cast<const DriverDevMode*>(output.data());
    if (published.dmSize != RecordPublicSize || published.dmDriverExtra != RecordPrivateSize)
        return start_.input.empty() ? Fail("what is published has other sizes") : void();
    // What was chosen behind the last Apply goes with Cancel.
    const DriverDevMode& chosen = result == IDOK ? last_ : appliedRecord_;
    const int page = result == IDOK ? dialog_ : appliedPage_;
    const View view{start_, nullptr, page, published, chosen, false, false, Confirmed, page};
    if (const std::string wrong = WrongChanges(view); !wrong.empty()) Fail("published: " + wrong);
    if (result == IDOK && !newOverlay_.empty() &&
        (published.dmOverlayState != 2 || published.dmOverlayFile != newOverlay_))
        Fail("published: an overlay that is to be made is not named");
}

void Player::ShowDeviceSheet()
{
    unjudged_ = true;
    const auto tray2 = [&] {
        const auto value = start_.machine->store->KeyValue(platform::PrinterKeyPath(TestPrinter), u"tray2");
        return value ? value->bytes : platform::Bytes();
    };
    const platform::Bytes before = tray2(), off = {'0', 0, 0, 0}, on = {'1', 0, 0, 0};
    std::u16string name = TestPrinter;
    DEVICEPROPERTYHEADER header{};
    header.cbSize = sizeof header;
    header.Flags = start_.mayChange ? 0 : DPS_NOPERMISSION;
    header.hPrinter = platform::spooler::Open(name, 0);
    header.pszPrinterName = name.data();
    DWORD result = 0;
    platform::services::RunCommonSheet(nullptr, DrvDevicePropertySheets, reinterpret_cast<LPARAM>(&header), &result);
    platform::spooler::Close(header.hPrinter);
    unjudged_ = false;
    if (DeviceSheetOpen || DeviceSettings) Fail("the device sheet is not over");
    // It goes back as it was read; what was no number may have been read as either.
    const platform::Bytes after = tray2();
    const bool kept = after == (before.empty() ? off : before), read = before.empty() || before == on;
    if (start_.service && start_.mayChange && !kept && (read || (after != off && after != on)))
        Fail("Tray2 is not written back as it was read");
}

void Player::Play()
{
    platform::Environment& environment = platform::CurrentEnvironment();
    environment.fonts = platform::MakeBuiltinFonts();
    environment.desktop = std::shared_ptr<Player>(this, [](Player*) {});
    std::vector<std::size_t> before;
    for (const Counter& counter : Counters) before.push_back(counter.count());
    if (random_.Chance(1, 10)) ShowDeviceSheet();
    for (int sheet = 0; sheet < 4 && MoreSteps() && !Failed(); ++sheet) {
        ShowSheet();
        unjudged_ = false;
    }
    for (std::size_t k = 0; k < std::size(Counters); ++k)
        if (Counters[k].count() != before[k])
            Fail(std::string(Counters[k].what) + " left: " + std::to_string(Counters[k].count()) + " after " +
                 std::to_string(before[k]));
    environment.desktop = nullptr;
    environment.fonts = nullptr;
    if (__lsan_do_recoverable_leak_check && __lsan_do_recoverable_leak_check()) Fail("memory is left");
}

}  // namespace

void PlayHere(Ledger& ledger, std::uint64_t seed, const std::optional<std::vector<Step>>& steps)
{
    Player(ledger, seed, steps).Play();
    ledger.finished = true;
}

}  // namespace random_use
