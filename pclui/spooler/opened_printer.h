// A printer opened by its name, closed again with the object; and a movable block that is locked as long.
#pragma once

#include "platform/kernel.h"
#include "platform/spooler.h"

class OpenedPrinter {
  public:
    // access 0 opens with no defaults.
    OpenedPrinter(const WCHAR* name, DWORD access)
    {
        PRINTER_DEFAULTSW defaults{nullptr, nullptr, access};
        if (!OpenPrinterW(const_cast<WCHAR*>(name), &handle_, access ? &defaults : nullptr)) handle_ = nullptr;
    }
    ~OpenedPrinter() { Close(); }
    OpenedPrinter(const OpenedPrinter&) = delete;
    OpenedPrinter& operator=(const OpenedPrinter&) = delete;

    explicit operator bool() const { return handle_ != nullptr; }
    HANDLE Handle() const { return handle_; }
    void Close()
    {
        if (handle_) ClosePrinter(handle_);
        handle_ = nullptr;
    }

  private:
    HANDLE handle_ = nullptr;
};

class LockedBlock {
  public:
    explicit LockedBlock(SIZE_T bytes) : block_(GlobalAlloc(GHND, bytes))
    {
        if (block_) bytes_ = static_cast<BYTE*>(GlobalLock(block_));
    }
    ~LockedBlock()
    {
        if (bytes_) GlobalUnlock(block_);
        if (block_) GlobalFree(block_);
    }
    LockedBlock(const LockedBlock&) = delete;
    LockedBlock& operator=(const LockedBlock&) = delete;

    explicit operator bool() const { return bytes_ != nullptr; }
    BYTE* Bytes() const { return bytes_; }

  private:
    HGLOBAL block_;
    BYTE* bytes_ = nullptr;
};
