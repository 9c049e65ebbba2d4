#include "tests/random/invariants.h"

#include "resources/control_numbers.h"

namespace random_use {

namespace {

bool IsPage(int dialog)
{
    return dialog == IDD_SETUP || dialog == IDD_PAPER || dialog == IDD_QUALITY || dialog == IDD_DEVICE_OPTIONS;
}

}  // namespace

bool Judge::Excused(const Invariant& row, const Pair& now, const View& view)
{
    const auto known = excused_.find(row.name);
    if (known != excused_.end() && known->second.pair == now) return true;
    for (const auto exceptions : {PageExceptions, DialogExceptions}) {
        for (const Exception& exception : exceptions) {
            if (std::string_view(exception.invariant) != row.name || !exception.when(view)) continue;
            excused_.insert_or_assign(row.name, Excuse{now, exception.lasts});
            return true;
        }
    }
    return false;
}

std::string Judge::Wrong(const View& view)
{
    if (IsPage(view.dialog) && view.page != page_) {
        page_ = view.page;
        std::erase_if(excused_, [](const auto& excuse) { return !excuse.second.lasts; });
    }
    for (const auto rows : {PageInvariants, DialogInvariants}) {
        for (const Invariant& row : rows) {
            if (row.dialog == AnyPage ? !IsPage(view.dialog) : row.dialog != view.dialog) continue;
            const Pair now = row.ask(view);
            if (now.shown == now.held) {
                excused_.erase(row.name);
                held_.insert(row.name);
                continue;
            }
            if (row.since == OnceHeld && !view.start.asBuilt && !held_.contains(row.name)) continue;
            if (!Excused(row, now, view))
                return std::string(row.name) + ": " + std::to_string(now.shown) + " where " + std::to_string(now.held) +
                       " has to be";
        }
    }
    return {};
}

}  // namespace random_use
