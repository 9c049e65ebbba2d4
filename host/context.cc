#include "host/context.h"

#include <pwd.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "host/files.h"
#include "platform/kernel/modules.h"
#include "platform/kernel/unicode.h"
#include "platform/seams/environment.h"
#include "store/sqlite_store.h"

namespace host {

namespace {

// qd480/printers.db under $XDG_DATA_HOME, which counts only when it is absolute, or under ~/.local/share.
std::filesystem::path DefaultStorePath()
{
    const char* data = std::getenv("XDG_DATA_HOME");
    if (data && data[0] == '/') return std::filesystem::path(data) / "qd480" / "printers.db";
    const char* home = std::getenv("HOME");
    if (!home || !*home) {
        const passwd* user = ::getpwuid(::getuid());
        home = user ? user->pw_dir : nullptr;
    }
    if (!home || !*home) throw Failure("there is no home directory for the printers' store; give --store FILE");
    return std::filesystem::path(home) / ".local" / "share" / "qd480" / "printers.db";
}

[[noreturn]] void FailPrinting(int error)
{
    throw Failure("cannot write standard output: " + std::generic_category().message(error));
}

void WriteOut(const void* bytes, std::size_t length)
{
    errno = 0;
    if (std::fwrite(bytes, 1, length, stdout) != length || std::fflush(stdout) != 0) FailPrinting(errno);
}

}  // namespace

Context::~Context()
{
    if (!pluggedIn_) return;
    platform::Environment& environment = platform::CurrentEnvironment();
    environment.printers = nullptr;
    environment.registry = nullptr;
    environment.fonts = nullptr;
    environment.faults.Clear();
}

void Context::AddOptions(CLI::App& command)
{
    const auto once = [](CLI::Option* option) { option->expected(1)->allow_extra_args(false); };
    auto* store = command.add_option_function<std::string>(
        "--store", [this](const std::string& path) { storePath_ = path; },
        "The printers' store, an SQLite file; below tells which it is by default");
    store->type_name("FILE")->group("Options of every command")->take_last();
    store->check([](const std::string& path) { return path.empty() ? "a file is wanted" : ""; });
    auto* platform = command.add_option_function<std::vector<std::string>>(
        "--platform",
        [this](const std::vector<std::string>& values) {
            for (const std::string& value : values) platform_.Take(value);
        },
        "Overrides what the platform layer reports, by the keys below; repeatable");
    platform->type_name("KEY=VALUE")->group("Options of every command");
    once(platform);
    platform->take_all();
}

store::SqliteStore& Context::Store()
{
    if (!store_) store_ = std::make_shared<store::SqliteStore>(StoreFile());
    return *store_;
}

std::string Context::StoreFile() const { return storePath_.empty() ? DefaultStorePath().string() : storePath_; }

void Context::KeepStoreFrom(const char* option, const std::string& path) const
{
    const NamedFile written{option, path}, store{"the printers' store", StoreFile()};
    NeedOwnFile(written, {store});
}

platform::PrinterEntry Context::Printer(const std::string& name)
{
    auto entry = Store().Find(WideArgument("the printer's name", name));
    if (!entry) throw Failure("there is no printer \"" + name + "\" in the store");
    return *entry;
}

void Context::PlugIn()
{
    if (pluggedIn_) return;
    Store();
    platform::Environment& environment = platform::CurrentEnvironment();
    environment.printers = store_;
    environment.registry = store_;
    environment.facts = MakeFacts(platform_);
    environment.fonts = MakeFonts(platform_);
    for (const PlannedFault& fault : platform_.faults) {
        environment.faults.Add(fault.function, fault.call, fault.andLater);
    }
    pluggedIn_ = true;
}

HMODULE Context::Module()
{
    if (module_) return module_;
    PlugIn();
    const std::string path = BesideProgram("libqd480ui.so");
    std::string why;
    module_ = platform::modules::Load(std::filesystem::path(path).u16string(), &why);
    if (!module_) throw Failure("cannot load " + path + ": " + why);
    return module_;
}

FARPROC Context::EntryAddress(const char* name)
{
    const FARPROC entry = platform::modules::Entry(Module(), name);
    if (!entry) throw Failure(std::string("the module has no entry ") + name);
    return entry;
}

std::u16string WideArgument(std::string_view what, const std::string& text)
{
    std::u16string wide = platform::ToWide(text);
    if (platform::ToUtf8(wide) != text) throw UsageError(std::string(what) + " is not UTF-8");
    return wide;
}

void Print(const Json& line)
{
    const std::string text = ToLine(line) + "\n";
    WriteOut(text.data(), text.size());
}

void PrintBytes(std::span<const std::uint8_t> bytes)
{
    if (::isatty(STDOUT_FILENO)) throw UsageError("raw bytes do not go to a terminal; give -o FILE");
    WriteOut(bytes.data(), bytes.size());
}

}  // namespace host
