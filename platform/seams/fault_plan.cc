#include "platform/seams/fault_plan.h"

#include <dlfcn.h>

#include <algorithm>

namespace platform {

namespace {

// Messages that put something into a control, and so fail where it has no room.
constexpr std::string_view Messages[] = {
    "CB_ADDSTRING", "CB_INSERTSTRING", "LB_ADDSTRING", "LB_INSERTSTRING", "LVM_INSERTCOLUMNW", "LVM_INSERTITEMW",
};

constexpr int OwnAnchor = 0;  // an address within this library

bool LooksLikeFunctionName(std::string_view name)
{
    auto letter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    auto digit = [](char c) { return c >= '0' && c <= '9'; };
    // A leading underscore begins what the tool chain and the language export, never a platform name.
    return !name.empty() && letter(name.front()) &&
           std::ranges::all_of(name, [&](char c) { return letter(c) || digit(c); });
}

}  // namespace

void FaultPlan::Add(std::string_view name, std::uint64_t call, bool andLater)
{
    rules_.emplace(std::string(name), Rule{call, andLater});
    planned_ = true;
}

void FaultPlan::AddAll(std::uint64_t call)
{
    allFrom_ = call;
    planned_ = true;
}

void FaultPlan::Clear()
{
    rules_.clear();
    calls_.clear();
    failures_.clear();
    allCalls_ = allFrom_ = 0;
    counting_ = planned_ = false;
}

bool FaultPlan::CountedFails(const char* name)
{
    const std::string_view key = name;
    auto counter = calls_.find(key);
    if (counter == calls_.end()) counter = calls_.emplace(std::string(key), 0).first;
    const std::uint64_t call = ++counter->second;
    const auto [first, last] = rules_.equal_range(key);
    const bool all = ++allCalls_ >= allFrom_ && allFrom_ != 0;
    const bool fails = all || std::any_of(first, last, [call](const auto& entry) {
                           const Rule& rule = entry.second;
                           return call == rule.call || (rule.andLater && call > rule.call);
                       });
    if (fails) ++failures_[std::string(key)];
    return fails;
}

bool FaultPlan::Offers(std::string_view name)
{
    if (std::ranges::find(Messages, name) != std::end(Messages)) return true;
    if (!LooksLikeFunctionName(name)) return false;

    // What the layer offers is what this very library exports; the look-up also reaches the libraries that
    // it links, so the address decides.
    Dl_info own{};
    if (dladdr(&OwnAnchor, &own) == 0) return false;
    void* library = dlopen(own.dli_fname, RTLD_NOLOAD | RTLD_LAZY);
    if (library == nullptr) return false;
    void* symbol = dlsym(library, std::string(name).c_str());
    Dl_info found{};
    const bool ours = symbol != nullptr && dladdr(symbol, &found) != 0 && found.dli_fbase == own.dli_fbase;
    dlclose(library);
    return ours;
}

}  // namespace platform
