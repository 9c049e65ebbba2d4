// qd480: the print subsystem, an application and, for a job, the rendering side, around the module.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <exception>
#include <string>
#include <utility>
#include <vector>

#include "host/commands.h"
#include "host/context.h"

namespace {

using AddCommand = void (*)(CLI::App& program, host::Context& context);

constexpr AddCommand Commands[] = {
    host::AddPrinterCommand,       host::AddRecordCommand,    host::AddDocumentPropertiesCommand,
    host::AddCapabilitiesCommand,  host::AddConvertCommand,   host::AddCanPrintCommand,
    host::AddUpgradeCommand,       host::AddEventCommand,     host::AddSheetCommand,
    host::AddDeviceSheetCommand,   host::AddSnapshotsCommand, host::AddPrintCommand,
    host::AddDocumentEventCommand,
};

constexpr char About[] =
    "The driver's user interface for the page printer Ordana Quillet 4820E, run from the command line.\n";

constexpr char Notes[] =
    "qd480 COMMAND --help tells more about a command.\n"
    "Results go to standard output, as JSON one object a line; messages go to standard error.\n"
    "Exit status: 0 done, or the user pressed OK; 1 the user cancelled, or two records differ;\n"
    "2 wrong usage; 3 the operation failed.\n"
    "N-up, booklet, scaling and toner are the rendering side's work and are not done here.";

constexpr char StoreNote[] =
    "The default store is qd480/printers.db under $XDG_DATA_HOME or ~/.local/share. A store that does\n"
    "not exist is made, with the one printer \"Ordana Quillet 4820E\" in it.\n\n";

// Each command explains the whole line that it stands in.
void AddOptionsToAll(CLI::App& app, host::Context& context)
{
    context.AddOptions(app);
    const std::string footer = app.get_footer();
    app.footer(footer + (footer.empty() ? "" : "\n\n") + StoreNote + host::PlatformOptionsHelp());
    for (CLI::App* command : app.get_subcommands({})) AddOptionsToAll(*command, context);
}

int Complain(int status, const char* message)
{
    std::fprintf(stderr, "qd480: %s\n", message);
    return status;
}

// The words behind the program's name, last one first, as the parser takes them. "--hex=" is "--hex" and an
// empty value, which the parser by itself would miss.
std::vector<std::string> Words(int argc, char** argv)
{
    std::vector<std::string> words;
    bool options = true;
    for (int i = 1; i < argc; ++i) {
        std::string word = argv[i];
        options = options && word != "--";
        const bool emptyValue = options && word.starts_with("--") && word.find('=') == word.size() - 1;
        if (emptyValue) word.pop_back();
        words.push_back(std::move(word));
        if (emptyValue) words.emplace_back();
    }
    std::ranges::reverse(words);
    return words;
}

int Run(int argc, char** argv)
{
    host::Context context;
    CLI::App program(About, "qd480");
    program.require_subcommand(1);
    program.set_help_all_flag("--help-all", "Print the help of all commands and exit");
    for (const AddCommand add : Commands) add(program, context);
    program.footer(Notes);
    AddOptionsToAll(program, context);
    try {
        program.parse(Words(argc, argv));
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() != static_cast<int>(CLI::ExitCodes::Success)) {
            // The parser misses a command before it minds the word that stands in its place.
            const std::vector<std::string> left = program.remaining(true);
            const bool unknown = error.get_name() == "RequiredError" && !left.empty() && !left.front().starts_with("-");
            const std::string what = unknown ? "there is no command \"" + left.front() + "\"" : error.what();
            return Complain(host::WrongUsage, (what + "\nqd480 --help tells what there is").c_str());
        }
        program.exit(error);
    }
    return context.status;
}

}  // namespace

int main(int argc, char** argv)
{
    // A reader that has gone makes a write fail, which is told like any other failure.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);  // so is a file that may not grow
    int status = host::Failed;
    try {
        status = Run(argc, argv);
    } catch (const host::UsageError& error) {
        return Complain(host::WrongUsage, error.what());
    } catch (const std::exception& error) {
        return Complain(host::Failed, error.what());
    }
    if (std::fflush(stdout) != 0 || std::ferror(stdout)) return Complain(host::Failed, "cannot write standard output");
    return status;
}
