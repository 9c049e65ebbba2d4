#include "platform/seams/system_facts.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <initializer_list>
#include <vector>

#include "platform/kernel/unicode.h"
#include "platform/seams/locale_table.h"

namespace platform {

namespace {

constexpr char16_t LowerLatin(char16_t c) { return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c; }

bool SameName(std::u16string_view a, std::u16string_view b)
{
    return std::ranges::equal(a, b, {}, LowerLatin, LowerLatin);
}

bool ListHas(std::u16string_view lines, std::u16string_view wanted)
{
    while (!lines.empty()) {
        const std::size_t end = std::min(lines.find(u'\n'), lines.size());
        if (end != 0 && SameName(lines.substr(0, end), wanted)) return true;
        lines.remove_prefix(std::min(end + 1, lines.size()));
    }
    return false;
}

class FixedFacts : public SystemFacts {
  public:
    explicit FixedFacts(const FixedFactValues& values) : values_(values) {}
    int Country() override { return values_.country; }
    LANGID Language() override { return values_.language; }
    UINT CodePage() override { return values_.codePage; }
    std::u16string UserName() override { return values_.userName; }
    SYSTEMTIME LocalTime() override { return values_.time; }
    OsVersion Version() override { return values_.version; }
    bool LibraryLoadable(std::u16string_view fileName) override { return !ListHas(values_.missingLibraries, fileName); }
    bool WindowExists(std::u16string_view className) override { return ListHas(values_.windows, className); }
    std::u16string OwnerModule() override { return values_.ownerModule; }

  private:
    FixedFactValues values_;
};

SYSTEMTIME Now()
{
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    tm local{};
    localtime_r(&now.tv_sec, &local);
    auto word = [](long value) { return static_cast<WORD>(value); };
    return {word(local.tm_year + 1900), word(local.tm_mon + 1), word(local.tm_wday), word(local.tm_mday),
            word(local.tm_hour),        word(local.tm_min),     word(local.tm_sec),  word(now.tv_nsec / 1000000)};
}

class MachineFacts : public FixedFacts {
  public:
    using FixedFacts::FixedFacts;
    SYSTEMTIME LocalTime() override { return Now(); }
};

// The first variable that is set and not empty decides, as everywhere with locales.
std::string_view LocaleFrom(std::initializer_list<const char*> variables)
{
    for (const char* variable : variables) {
        const char* value = std::getenv(variable);
        if (value != nullptr && *value != '\0') return value;
    }
    return "C";
}

std::u16string RealUserName()
{
    std::vector<char> room(16384);
    passwd entry{};
    passwd* found = nullptr;
    if (getpwuid_r(geteuid(), &entry, room.data(), room.size(), &found) == 0 && found != nullptr &&
        *found->pw_name != '\0')
        return ToWide(found->pw_name);
    // A user id without an entry, as in containers.
    const char* name = std::getenv("USER");
    return name != nullptr && *name != '\0' ? ToWide(name) : u"user";
}

}  // namespace

std::shared_ptr<SystemFacts> MakeFixedFacts(const FixedFactValues& values)
{
    return std::make_shared<FixedFacts>(values);
}

FixedFactValues MachineFactValues()
{
    FixedFactValues values;
    values.country = TelephoneCountry(LocaleFrom({"LC_ALL", "LC_PAPER", "LANG"}));
    values.language = LanguageIdentifier(LocaleFrom({"LC_ALL", "LC_MESSAGES", "LANG"}));
    values.userName = RealUserName();
    values.time = Now();
    return values;
}

std::shared_ptr<SystemFacts> MakeMachineFacts() { return std::make_shared<MachineFacts>(MachineFactValues()); }

}  // namespace platform
