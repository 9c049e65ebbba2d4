// An open printer, closed at the end of its scope.
#pragma once

#include <string>

#include "host/errors.h"
#include "platform/kernel/unicode.h"
#include "platform/spooler/printers.h"

namespace host {

class PrinterHandle {
  public:
    // Opens for use, as an application does; Failure when that can't be.
    explicit PrinterHandle(const std::u16string& printer) : handle_(platform::spooler::Open(printer, 0))
    {
        if (!handle_) throw Failure("cannot open the printer \"" + platform::ToUtf8(printer) + "\"");
    }
    ~PrinterHandle() { platform::spooler::Close(handle_); }
    PrinterHandle(const PrinterHandle&) = delete;
    PrinterHandle& operator=(const PrinterHandle&) = delete;

    operator HANDLE() const { return handle_; }

  private:
    HANDLE handle_;
};

}  // namespace host
