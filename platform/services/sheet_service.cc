#include "platform/services/sheet_service.h"

#include <map>
#include <memory>
#include <utility>

#include "platform/controls/property_sheet.h"
#include "platform/kernel/last_error.h"
#include "platform/seams/environment.h"
#include "platform/services/option_pages.h"
#include "platform/user/windows.h"

namespace platform::services {

namespace {

constexpr LONG Failed = -1;

// One run of the service, known to the function by a handle.
struct Run {
    controls::SheetPlan plan;
    bool settingUp = true;  // pages are added by the function's INIT alone
};

thread_local std::map<std::uintptr_t, Run*> runs;
thread_local std::uintptr_t lastHandle = 0;
thread_local std::optional<LONG> lastOutcome;

class RegisteredRun : public Run {
  public:
    RegisteredRun() : key_(++lastHandle) { runs[key_] = this; }
    ~RegisteredRun() { runs.erase(key_); }
    RegisteredRun(const RegisteredRun&) = delete;
    RegisteredRun& operator=(const RegisteredRun&) = delete;
    HANDLE Handle() const { return reinterpret_cast<HANDLE>(key_); }

  private:
    std::uintptr_t key_;
};

Run* FindRun(HANDLE handle)
{
    const auto found = runs.find(reinterpret_cast<std::uintptr_t>(handle));
    return found == runs.end() ? nullptr : found->second;
}

// The handle of what was added; pages are numbered from 1.
LONG_PTR AddPage(Run& run, const PROPSHEETPAGEW* page)
{
    if (!run.settingUp || !page) return 0;
    auto plan = controls::PlanPage(*page);
    if (!plan) return 0;
    run.plan.pages.push_back(std::move(*plan));
    return static_cast<LONG_PTR>(run.plan.pages.size());
}

LONG_PTR AddOptions(Run& run, const COMPROPSHEETUI* options, DWORD* result)
{
    if (!run.settingUp || !options) return 0;
    auto pages = PlanOptionPages(*options);
    if (pages.empty()) return 0;
    if (result) *result = static_cast<DWORD>(pages.size());
    for (auto& page : pages) run.plan.pages.push_back(std::move(page));
    return static_cast<LONG_PTR>(run.plan.pages.size());
}

std::u16string Title(PFNPROPSHEETUI function, PROPSHEETUI_INFO& info)
{
    PROPSHEETUI_INFO_HEADER header{};
    header.cbSize = sizeof header;
    info.Reason = PROPSHEETUI_REASON_GET_INFO_HEADER;
    if (function(&info, reinterpret_cast<LPARAM>(&header)) <= 0 || !header.pTitle) return u"Properties";
    std::u16string title = header.pTitle;
    if (header.Flags & PSUIHDRF_PROPTITLE) title += u" Properties";
    return title;
}

}  // namespace

LONG RunCommonSheet(HWND owner, PFNPROPSHEETUI function, LPARAM lParam, DWORD* result)
{
    lastOutcome = Failed;
    if (!function || !CurrentEnvironment().desktop) return Failed;
    RegisteredRun run;
    PROPSHEETUI_INFO info{};
    info.cbSize = sizeof info;
    info.Version = PROPSHEETUI_INFO_VERSION;
    info.Reason = PROPSHEETUI_REASON_INIT;
    info.hComPropSheet = run.Handle();
    info.pfnComPropSheet = pfnComPropSheet;
    info.lParamInit = lParam;
    // A function that fails to set itself up has cleaned up after itself and is not called again.
    if (function(&info, lParam) <= 0) return Failed;
    run.settingUp = false;

    run.plan.owner = owner;
    run.plan.title = Title(function, info);
    const LONG outcome = controls::RunPropertySheet(run.plan);

    // What the pages have set as result while the sheet was up is overruled by how it ended.
    if (outcome >= 0) {
        SETRESULT_INFO end{};
        end.cbSize = sizeof end;
        end.hSetResult = run.Handle();
        end.Result = outcome;
        info.Reason = PROPSHEETUI_REASON_SET_RESULT;
        function(&info, reinterpret_cast<LPARAM>(&end));
        if (result) *result = static_cast<DWORD>(info.Result);
    }
    info.Reason = PROPSHEETUI_REASON_DESTROY;
    function(&info, 0);
    lastOutcome = outcome;
    return outcome < 0 ? Failed : 1;
}

std::optional<LONG> TakeSheetOutcome() { return std::exchange(lastOutcome, std::nullopt); }

HWND MakeOwnerWindow()
{
    return user::MakeWindow(user::Kind::Owner, u"Application", nullptr,
                            [](HWND, UINT, WPARAM, LPARAM) -> LRESULT { return 0; });
}

void DestroyOwnerWindow(HWND owner) { user::Destroy(owner); }

}  // namespace platform::services

extern "C" {

LONG_PTR pfnComPropSheet(HANDLE sheet, UINT function, LPARAM param1, LPARAM param2)
{
    using namespace platform::services;
    if (platform::Fault("pfnComPropSheet", ERROR_NOT_ENOUGH_MEMORY)) return 0;
    Run* run = FindRun(sheet);
    if (!run) return 0;
    switch (function) {
        case CPSFUNC_ADD_PROPSHEETPAGEW:
            return AddPage(*run, reinterpret_cast<const PROPSHEETPAGEW*>(param1));
        case CPSFUNC_ADD_PCOMPROPSHEETUIW:
            return AddOptions(*run, reinterpret_cast<const COMPROPSHEETUI*>(param1), reinterpret_cast<DWORD*>(param2));
        case CPSFUNC_SET_RESULT:
            return 1;
        default:
            return 0;
    }
}

LONG CommonPropertySheetUIW(HWND owner, PFNPROPSHEETUI function, LPARAM lParam, DWORD* result)
{
    if (platform::Fault("CommonPropertySheetUIW", ERROR_NOT_ENOUGH_MEMORY)) return -1;
    return platform::services::RunCommonSheet(owner, function, lParam, result);
}

}  // extern "C"
