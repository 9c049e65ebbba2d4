// A walk in a process of its own, and the search for the shortest one that fails.
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <stdexcept>

#include "module.h"
#include "platform/kernel/modules.h"
#include "tests/random/hands.h"
#include "tests/random/ledger.h"

namespace random_use {

Played Play(std::uint64_t seed, const std::optional<std::vector<Step>>& steps, unsigned seconds)
{
    static Ledger* const ledger =
        static_cast<Ledger*>(mmap(nullptr, sizeof(Ledger), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    if (ledger == MAP_FAILED) throw std::runtime_error("no shared memory");
    std::memset(static_cast<void*>(ledger), 0, sizeof *ledger);
    std::string why;
    static const HMODULE module = platform::modules::Load(QD_MODULE_PATH, &why);
    if (!module) throw std::runtime_error("the module cannot be loaded: " + why);
    ModuleHandle = ResourceHandle = module;
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("no process for a walk");
    if (child == 0) {
        alarm(seconds);  // a handler that never returns
        try {
            PlayHere(*ledger, seed, steps);
        } catch (const std::exception& error) {
            Note(ledger->failure, std::string("an exception: ") + error.what());
        }
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFSIGNALED(status)) Note(ledger->failure, "signal " + std::to_string(WTERMSIG(status)));
    if (WIFEXITED(status) && (WEXITSTATUS(status) != 0 || !ledger->finished))
        Note(ledger->failure, "ends on its own with exit status " + std::to_string(WEXITSTATUS(status)));

    Played played;
    const auto count = std::min(ledger->count, MostSteps);
    played.steps.assign(ledger->steps, ledger->steps + count);
    played.failure = ledger->failure;
    played.story = ledger->story;
    played.seen = {std::begin(ledger->seen), std::end(ledger->seen)};
    played.seen.erase(0);
    for (int k = 0; k < count; ++k) played.script += ScriptOf(ledger->steps[k], ledger->boxes[k], ledger->files[k]);
    return played;
}

Played Shrink(std::uint64_t seed, const Played& failed)
{
    // The same fault: what is told in front of the numbers, and the control that it is put down to.
    const auto fault = [](const Played& played) {
        const std::string& told = played.failure;
        const std::size_t by = std::min(told.find(" by control "), told.find(", after: "));
        const std::string control = by == told.npos ? "" : told.substr(by, told.find(',', by + 1) - by);
        return told.substr(0, told.find_first_of("0123456789")) + control;
    };
    const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(2);
    Played shortest = failed;
    for (std::size_t part = std::max<std::size_t>(failed.steps.size() / 2, 1); part > 0;) {
        const std::size_t before = shortest.steps.size();
        for (std::size_t from = 0; from < shortest.steps.size();) {
            if (std::chrono::steady_clock::now() > end) return shortest;
            std::vector<Step> fewer = shortest.steps;
            fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(from),
                        fewer.begin() + static_cast<std::ptrdiff_t>(std::min(from + part, fewer.size())));
            const Played tried = Play(seed, fewer, 10);
            if (fault(tried) != fault(failed))
                from += part;
            else
                shortest = tried;
        }
        // Until no single step can go.
        if (part > 1 || shortest.steps.size() == before) part /= 2;
    }
    return shortest;
}

}  // namespace random_use
