// What the commands share: the options that every command takes, the store, the wiring of the platform
// layer, the module, and the way results leave the program.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/errors.h"
#include "host/json.h"
#include "host/platform_options.h"
#include "platform/kernel.h"
#include "platform/seams/stores.h"

namespace CLI {
class App;
}
namespace store {
class SqliteStore;
}

namespace host {

class Context {
  public:
    Context() = default;
    ~Context();  // unplugs, which closes the store
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;

    // --store and --platform, on the program and on each of its commands, so that they stand anywhere.
    void AddOptions(CLI::App& command);

    // The printers' store, opened (and made) at the first call.
    store::SqliteStore& Store();
    // UsageError when a file that an option names, to be written, is the printers' store.
    void KeepStoreFrom(const char* option, const std::string& path) const;
    // A printer of the store; Failure when there is none of that name.
    platform::PrinterEntry Printer(const std::string& name);

    // Plugs store, facts, fonts and faults into the layer. The module's loading does it too.
    void PlugIn();
    // The module beside this program, loaded at the first call.
    HMODULE Module();
    // An exported entry, as Entry<DocumentPropertiesEntry>("DrvDocumentProperties").
    template <typename Function>
    Function* Entry(const char* name)
    {
        return reinterpret_cast<Function*>(EntryAddress(name));
    }

    const PlatformOptions& Platform() const { return platform_; }

    int status = Done;

  private:
    FARPROC EntryAddress(const char* name);

    std::string StoreFile() const;

    std::string storePath_;
    PlatformOptions platform_;
    std::shared_ptr<store::SqliteStore> store_;
    HMODULE module_ = nullptr;
    bool pluggedIn_ = false;
};

// A text of the command line as the layer knows it; UsageError when it is not UTF-8. what names it.
std::u16string WideArgument(std::string_view what, const std::string& text);

// One line on standard output, seen at once by whoever reads along. Failure when it can't be written.
void Print(const Json& line);
// Raw bytes on standard output; UsageError when that is a terminal.
void PrintBytes(std::span<const std::uint8_t> bytes);

}  // namespace host
