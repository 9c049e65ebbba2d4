#include "platform/kernel/system_libraries.h"

#include <dlfcn.h>

#include <algorithm>
#include <iterator>
#include <string>

#include "platform/seams/environment.h"
#include "platform/seams/system_facts.h"

namespace platform::modules {

namespace {

constexpr SystemLibrary Libraries[] = {
    {u"advapi32.dll"}, {u"comctl32.dll"}, {u"comdlg32.dll"}, {u"compstui.dll"}, {u"gdi32.dll"},
    {u"kernel32.dll"}, {u"ntdll.dll"},    {u"spoolss.dll"},  {u"user32.dll"},   {u"winspool.drv"},
};

// What modules get by name at run time, and do not link.
struct Function {
    std::u16string_view library;
    const char* name;
};
constexpr Function Functions[] = {
    {u"compstui.dll", "CommonPropertySheetUIW"  },
    {u"spoolss.dll",  "ImpersonatePrinterClient"},
    {u"spoolss.dll",  "RevertToPrinterSelf"     },
};

constexpr char16_t LowerLatin(char16_t c) { return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c; }

}  // namespace

const SystemLibrary* FindSystemLibrary(std::u16string_view fileName)
{
    std::u16string wanted(fileName);
    std::ranges::transform(wanted, wanted.begin(), LowerLatin);
    if (wanted.find(u'.') == wanted.npos) wanted.append(u".dll");
    const auto library = std::ranges::find(Libraries, std::u16string_view(wanted), &SystemLibrary::fileName);
    return library == std::end(Libraries) ? nullptr : library;
}

bool IsLoadable(const SystemLibrary& library) { return CurrentEnvironment().facts->LibraryLoadable(library.fileName); }

void* LibraryFunction(const SystemLibrary& library, std::string_view name)
{
    const auto function = std::ranges::find_if(
        Functions, [&](const Function& row) { return row.library == library.fileName && row.name == name; });
    if (function == std::end(Functions)) return nullptr;
    // The functions stand in this very library, under their own names.
    Dl_info own{};
    if (dladdr(&Libraries, &own) == 0) return nullptr;
    void* layer = dlopen(own.dli_fname, RTLD_NOLOAD | RTLD_LAZY);
    if (layer == nullptr) return nullptr;
    void* symbol = dlsym(layer, function->name);
    dlclose(layer);
    return symbol;
}

}  // namespace platform::modules
