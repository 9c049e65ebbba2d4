// What the layer reports about the machine and the user.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/kernel.h"

namespace platform {

struct OsVersion {
    DWORD platform = 2, major = 5, minor = 1, build = 2600;
    WORD servicePack = 2;
};

class QD_API SystemFacts {
  public:
    virtual ~SystemFacts() = default;
    virtual int Country() = 0;      // telephone country code of the user's locale
    virtual LANGID Language() = 0;  // language identifier of the user's locale
    virtual UINT CodePage() = 0;    // narrow code page
    virtual std::u16string UserName() = 0;
    virtual SYSTEMTIME LocalTime() = 0;
    virtual OsVersion Version() = 0;
    virtual bool LibraryLoadable(std::u16string_view fileName) = 0;  // of system libraries
    virtual bool WindowExists(std::u16string_view className) = 0;    // top-level windows of other programs
    virtual std::u16string OwnerModule() = 0;  // module file of the sheet's owner window; empty: none
};

// Facts that a caller sets one by one; every field starts as on a plain machine in the United States.
struct FixedFactValues {
    int country = 1;
    LANGID language = 0x0409;
    UINT codePage = 1252;
    std::u16string userName = u"user";
    SYSTEMTIME time{2005, 12, 6, 31, 17, 45, 0, 0};
    OsVersion version;
    std::u16string missingLibraries;  // file names, one a line
    std::u16string windows;           // class names, one a line
    std::u16string ownerModule;
};
QD_API std::shared_ptr<SystemFacts> MakeFixedFacts(const FixedFactValues& values);

// This machine's: locale from LC_ALL, LC_PAPER (country), LC_MESSAGES (language), LANG; user and clock real.
QD_API std::shared_ptr<SystemFacts> MakeMachineFacts();
QD_API FixedFactValues MachineFactValues();  // the same, read once

}  // namespace platform
