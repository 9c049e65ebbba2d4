// A store's file with any bytes in it: it is refused with a message, or serves whole values.
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "store/sqlite_store.h"

namespace {

std::filesystem::path Folder()
{
    static const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("qd480-fuzz-" + std::to_string(::getpid()));
    std::filesystem::create_directories(folder);
    return folder;
}

void Use(store::SqliteStore& file)
{
    for (const auto& printer : file.Printers()) {
        file.Values(printer.name);
        file.DefaultRecord(printer.name);
        file.KeyValues(platform::PrinterKeyPath(printer.name));
        file.SetValue(printer.name, u"Fuzz",
                      {
                          3, {1, 2, 3}
        });
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::filesystem::path path = Folder() / "printers.db";
    std::filesystem::remove_all(Folder());
    std::filesystem::create_directories(Folder());
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    try {
        store::SqliteStore file(path, 100);
        Use(file);
    } catch (const platform::StoreError&) {
    }
    std::filesystem::remove_all(Folder());
    return 0;
}
