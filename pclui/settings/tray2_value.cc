#include "settings/tray2_value.h"

#include <algorithm>
#include <array>
#include <string>

#include "platform/registry.h"
#include "settings/narrow_number.h"

namespace {

constexpr std::u16string_view PrintersKey = u"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\";
constexpr std::u16string_view DataSubkey = u"\\PrinterDriverData";
constexpr WCHAR Tray2Value[] = u"tray2";

constexpr std::size_t ValueBytes = 4;  // two wide characters, of which the first is the number

// The printer's key with full access, closed again with the object.
class PrinterKey {
  public:
    explicit PrinterKey(const WCHAR* printerName)
    {
        std::u16string path(PrintersKey);
        if (printerName) path += printerName;
        path += DataSubkey;
        if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_ALL_ACCESS, &key_) != 0) key_ = nullptr;
    }
    ~PrinterKey()
    {
        if (key_) RegCloseKey(key_);
    }
    PrinterKey(const PrinterKey&) = delete;
    PrinterKey& operator=(const PrinterKey&) = delete;

    explicit operator bool() const { return key_ != nullptr; }
    HKEY Get() const { return key_; }

  private:
    HKEY key_ = nullptr;
};

}  // namespace

bool ReadTray2(const WCHAR* printerName)
{
    std::array<CHAR, ValueBytes> text = {'0'};
    if (const PrinterKey key(printerName); key) {
        DWORD bytes = text.size();
        RegQueryValueExW(key.Get(), Tray2Value, nullptr, nullptr, reinterpret_cast<BYTE*>(text.data()), &bytes);
    }
    const auto end = std::find(text.begin(), text.end(), '\0');
    const int number = DecimalNumber(std::string_view(text.data(), static_cast<std::size_t>(end - text.begin())));
    return (number & 0xFFFF) != 0;
}

void WriteTray2(const WCHAR* printerName, bool installed)
{
    const std::array<BYTE, ValueBytes> text = {static_cast<BYTE>(installed ? '1' : '0')};
    if (const PrinterKey key(printerName); key) {
        RegSetValueExW(key.Get(), Tray2Value, 0, REG_BINARY, text.data(), static_cast<DWORD>(text.size()));
    }
}
