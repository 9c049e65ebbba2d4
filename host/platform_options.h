// The values of --platform KEY=VALUE: what the layer is told to report in place of the machine's own facts.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/seams/fonts.h"
#include "platform/seams/system_facts.h"

namespace host {

struct PlannedFault {
    std::string function;
    std::uint64_t call = 1;
    bool andLater = false;
};

struct PlatformOptions {
    std::optional<int> country;
    std::optional<LANGID> language;
    std::optional<UINT> codePage;
    std::optional<std::u16string> userName;
    std::optional<SYSTEMTIME> time;
    std::optional<platform::OsVersion> version;
    std::vector<std::u16string> missingLibraries;
    std::vector<std::u16string> windows;
    std::optional<std::u16string> ownerModule;
    bool builtinFonts = false;
    std::vector<PlannedFault> faults;

    // Takes one KEY=VALUE; a later value of a key replaces an earlier one, but libraries, windows and faults
    // add up. UsageError names what is wrong with it.
    void Take(std::string_view keyAndValue);
};

// The machine's facts with what the options override.
std::shared_ptr<platform::SystemFacts> MakeFacts(const PlatformOptions& options);
// Built-in metrics, or those of the system, which start no sooner than the first question.
std::shared_ptr<platform::FontService> MakeFonts(const PlatformOptions& options);

// For the help text: a line for each key.
std::string PlatformOptionsHelp();

}  // namespace host
