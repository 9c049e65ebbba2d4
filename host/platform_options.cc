#include "host/platform_options.h"

#include <charconv>
#include <chrono>
#include <cstdio>

#include "desktop/qt_fonts.h"
#include "host/errors.h"
#include "platform/kernel/unicode.h"
#include "platform/seams/fault_plan.h"

namespace host {

namespace {

[[noreturn]] void Refuse(std::string_view key, std::string_view value, std::string_view wanted)
{
    throw UsageError("--platform " + std::string(key) + "=" + std::string(value) + ": " + std::string(key) + " wants " +
                     std::string(wanted));
}

// The whole text as a number from least to greatest; absent when it is anything else.
std::optional<std::uint64_t> Number(std::string_view text, std::uint64_t least, std::uint64_t greatest, int base = 10)
{
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
    if (error != std::errc() || end != text.data() + text.size() || number < least || number > greatest) {
        return std::nullopt;
    }
    return number;
}

// The text cut at each mark.
std::vector<std::string_view> Split(std::string_view text, char mark)
{
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = text.find(mark);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

using Take = void (*)(PlatformOptions& options, std::string_view key, std::string_view value);

void TakeCountry(PlatformOptions& options, std::string_view key, std::string_view value)
{
    const auto number = Number(value, 1, 99999);
    if (!number) Refuse(key, value, "a telephone country code from 1 to 99999");
    options.country = static_cast<int>(*number);
}

void TakeLanguage(PlatformOptions& options, std::string_view key, std::string_view value)
{
    const auto number = Number(value, 0, 0xFFFF, 16);
    if (value.size() != 4 || !number) Refuse(key, value, "four hexadecimal digits, as 0407");
    options.language = static_cast<LANGID>(*number);
}

void TakeCodePage(PlatformOptions& options, std::string_view key, std::string_view value)
{
    const auto number = Number(value, 1, 65535);
    if (!number) Refuse(key, value, "the number of a code page, as 1252");
    options.codePage = static_cast<UINT>(*number);
}

// A text that is UTF-8 and, unless it may be, not empty.
std::u16string WideText(std::string_view key, std::string_view value, std::string_view wanted)
{
    const std::u16string wide = platform::ToWide(value);
    if (value.empty() || platform::ToUtf8(wide) != value || wide.find(u'\n') != std::u16string::npos) {
        Refuse(key, value, wanted);
    }
    return wide;
}

void TakeUser(PlatformOptions& options, std::string_view key, std::string_view value)
{
    options.userName = WideText(key, value, "a user's name");
}

// "2005-12-31T17:45:00"
void TakeTime(PlatformOptions& options, std::string_view key, std::string_view value)
{
    const auto refuse = [&] { Refuse(key, value, "a local time from the year 1601 on, as 2005-12-31T17:45:00"); };
    constexpr std::string_view Form = "0000-00-00T00:00:00";
    if (value.size() != Form.size()) refuse();
    for (const std::size_t mark : {4, 7, 10, 13, 16}) {
        if (value[mark] != Form[mark]) refuse();
    }
    const auto year = Number(value.substr(0, 4), 1601, 9999), month = Number(value.substr(5, 2), 1, 12),
               day = Number(value.substr(8, 2), 1, 31), hour = Number(value.substr(11, 2), 0, 23),
               minute = Number(value.substr(14, 2), 0, 59), second = Number(value.substr(17, 2), 0, 59);
    if (!year || !month || !day || !hour || !minute || !second) refuse();
    const std::chrono::year_month_day date(std::chrono::year(static_cast<int>(*year)),
                                           std::chrono::month(static_cast<unsigned>(*month)),
                                           std::chrono::day(static_cast<unsigned>(*day)));
    if (!date.ok()) refuse();
    const std::chrono::weekday weekday{std::chrono::sys_days(date)};
    options.time = SYSTEMTIME{static_cast<WORD>(*year),
                              static_cast<WORD>(*month),
                              static_cast<WORD>(weekday.c_encoding()),
                              static_cast<WORD>(*day),
                              static_cast<WORD>(*hour),
                              static_cast<WORD>(*minute),
                              static_cast<WORD>(*second),
                              0};
}

// "2.5.1.2600.2"
void TakeOs(PlatformOptions& options, std::string_view key, std::string_view value)
{
    const auto refuse = [&] { Refuse(key, value, "PLATFORM.MAJOR.MINOR.BUILD.SERVICEPACK, as 2.5.1.2600.2"); };
    const auto parts = Split(value, '.');
    if (parts.size() != 5) refuse();
    DWORD numbers[4];
    for (std::size_t i = 0; i < 4; ++i) {
        const auto number = Number(parts[i], 0, 0xFFFFFFFF);
        if (!number) refuse();
        numbers[i] = static_cast<DWORD>(*number);
    }
    const auto servicePack = Number(parts[4], 0, 0xFFFF);
    if (!servicePack) refuse();
    options.version =
        platform::OsVersion{numbers[0], numbers[1], numbers[2], numbers[3], static_cast<WORD>(*servicePack)};
}

void TakeMissing(PlatformOptions& options, std::string_view key, std::string_view value)
{
    options.missingLibraries.push_back(WideText(key, value, "the file name of a library, as compstui.dll"));
}

void TakeWindow(PlatformOptions& options, std::string_view key, std::string_view value)
{
    options.windows.push_back(WideText(key, value, "the name of a window class, as VWClass500"));
}

void TakeOwnerModule(PlatformOptions& options, std::string_view key, std::string_view value)
{
    options.ownerModule = WideText(key, value, "the file name of a module");
}

void TakeFonts(PlatformOptions& options, std::string_view key, std::string_view value)
{
    if (value != "system" && value != "builtin") Refuse(key, value, "system or builtin");
    options.builtinFonts = value == "builtin";
}

// "GetPrinterW", "GetPrinterW:3", "GetPrinterW:3+"
void TakeFail(PlatformOptions& options, std::string_view key, std::string_view value)
{
    PlannedFault fault;
    const std::size_t colon = value.find(':');
    fault.function = value.substr(0, colon);
    if (colon != std::string_view::npos) {
        std::string_view count = value.substr(colon + 1);
        fault.andLater = count.ends_with('+');
        if (fault.andLater) count.remove_suffix(1);
        const auto number = Number(count, 1, UINT64_MAX);
        if (!number) Refuse(key, value, "FUNCTION, FUNCTION:N or FUNCTION:N+, with N from 1");
        fault.call = *number;
    }
    if (!platform::FaultPlan::Offers(fault.function)) {
        throw UsageError("--platform fail=" + std::string(value) + ": the platform layer has no function \"" +
                         fault.function + "\"");
    }
    options.faults.push_back(fault);
}

struct Key {
    std::string_view name;
    Take take;
    const char* help;  // lines for the help text
};

// clang-format off
constexpr Key Keys[] = {
    {"country",      TakeCountry,     "telephone country code of the locale (49, 1, 81 ...);\n"
                                      "default: from LC_ALL, LC_PAPER, LANG"},
    {"language",     TakeLanguage,    "the locale's language, four hexadecimal digits;\n"
                                      "default: from LC_ALL, LC_MESSAGES, LANG"},
    {"codepage",     TakeCodePage,    "the narrow code page; default 1252"},
    {"user",         TakeUser,        "the user's name; default: the real one"},
    {"time",         TakeTime,        "local time as 2005-12-31T17:45:00; default: the clock"},
    {"os",           TakeOs,          "PLATFORM.MAJOR.MINOR.BUILD.SERVICEPACK; default 2.5.1.2600.2"},
    {"missing",      TakeMissing,     "a system library that cannot be loaded, as compstui.dll; repeatable"},
    {"window",       TakeWindow,      "a class of which a top-level window exists, as VWClass500; repeatable"},
    {"owner-module", TakeOwnerModule, "the module file name of the sheet's owner window"},
    {"fonts",        TakeFonts,       "system (default), or builtin: fixed metrics, the same on every machine"},
    {"fail",         TakeFail,        "FUNCTION:N, the N-th call (from 1) of that platform function fails;\n"
                                      "FUNCTION:N+, that one and every later one; FUNCTION is FUNCTION:1.\n"
                                      "Only calls of the module count. A message name (LB_INSERTSTRING)\n"
                                      "stands for a control that has no room for it; repeatable"},
};
// clang-format on

bool SameIgnoringCase(std::u16string_view a, std::u16string_view b)
{
    const auto lower = [](char16_t unit) { return unit >= u'A' && unit <= u'Z' ? char16_t(unit + 32) : unit; };
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (lower(a[i]) != lower(b[i])) return false;
    }
    return true;
}

bool Holds(const std::vector<std::u16string>& names, std::u16string_view name)
{
    for (const std::u16string& held : names) {
        if (SameIgnoringCase(held, name)) return true;
    }
    return false;
}

class OverriddenFacts : public platform::SystemFacts {
  public:
    explicit OverriddenFacts(const PlatformOptions& options) : options_(options), machine_(platform::MakeMachineFacts())
    {
    }

    int Country() override { return options_.country ? *options_.country : machine_->Country(); }
    LANGID Language() override { return options_.language ? *options_.language : machine_->Language(); }
    UINT CodePage() override { return options_.codePage ? *options_.codePage : machine_->CodePage(); }
    std::u16string UserName() override { return options_.userName ? *options_.userName : machine_->UserName(); }
    SYSTEMTIME LocalTime() override { return options_.time ? *options_.time : machine_->LocalTime(); }
    platform::OsVersion Version() override { return options_.version ? *options_.version : machine_->Version(); }
    bool LibraryLoadable(std::u16string_view fileName) override
    {
        return !Holds(options_.missingLibraries, fileName) && machine_->LibraryLoadable(fileName);
    }
    bool WindowExists(std::u16string_view className) override
    {
        return Holds(options_.windows, className) || machine_->WindowExists(className);
    }
    std::u16string OwnerModule() override
    {
        return options_.ownerModule ? *options_.ownerModule : machine_->OwnerModule();
    }

  private:
    PlatformOptions options_;
    std::shared_ptr<platform::SystemFacts> machine_;
};

// Starts the window system's fonts no sooner than the first question, which most commands never ask.
class LazyFonts : public platform::FontService {
  public:
    std::vector<platform::FontDescription> Families() override { return Fonts().Families(); }
    std::vector<platform::FontDescription> Styles(std::u16string_view face) override { return Fonts().Styles(face); }
    SIZE Extent(const LOGFONTW& font, std::u16string_view text) override { return Fonts().Extent(font, text); }

  private:
    platform::FontService& Fonts()
    {
        if (!fonts_) fonts_ = desktop::MakeQtFonts();
        return *fonts_;
    }
    std::shared_ptr<platform::FontService> fonts_;
};

}  // namespace

void PlatformOptions::Take(std::string_view keyAndValue)
{
    const std::size_t equals = keyAndValue.find('=');
    const std::string_view name = keyAndValue.substr(0, equals);
    if (equals == std::string_view::npos) {
        throw UsageError("--platform " + std::string(keyAndValue) + ": KEY=VALUE is wanted");
    }
    for (const Key& key : Keys) {
        if (key.name == name) return key.take(*this, name, keyAndValue.substr(equals + 1));
    }
    std::string known;
    for (const Key& key : Keys) known += (known.empty() ? "" : ", ") + std::string(key.name);
    throw UsageError("--platform " + std::string(keyAndValue) + ": no key \"" + std::string(name) + "\"; there are " +
                     known);
}

std::shared_ptr<platform::SystemFacts> MakeFacts(const PlatformOptions& options)
{
    return std::make_shared<OverriddenFacts>(options);
}

std::shared_ptr<platform::FontService> MakeFonts(const PlatformOptions& options)
{
    if (options.builtinFonts) return platform::MakeBuiltinFonts();
    return std::make_shared<LazyFonts>();
}

std::string PlatformOptionsHelp()
{
    constexpr std::size_t Column = 16;
    std::string text = "Keys of --platform:\n";
    for (const Key& key : Keys) {
        std::string head = "  " + std::string(key.name);
        for (const std::string_view line : Split(key.help, '\n')) {
            head.resize(Column, ' ');
            text.append(head).append(line) += '\n';
            head.clear();
        }
    }
    return text;
}

}  // namespace host
