#include "tests/faults/every_place.h"

#include <signal.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "module.h"
#include "platform/gdi/job.h"
#include "platform/kernel/memory.h"
#include "platform/kernel/modules.h"
#include "platform/registry/keys.h"
#include "platform/seams/environment.h"
#include "platform/spooler/printers.h"
#include "platform/user/window.h"

extern "C" int __lsan_do_recoverable_leak_check() __attribute__((weak));

namespace testing_support {

namespace {

using platform::FaultPlan;

using FailingPlace = std::pair<std::string, std::uint64_t>;  // a function and which of its calls, from 1

// Of the calls that a walk makes, about one in every so many: one of each function at least, in the order of the
// functions, at other numbers with each function. All of them if QD480_EVERY_FAILURE is in the environment.
std::vector<FailingPlace> FailingPlaces(const std::map<std::string, std::uint64_t>& calls, std::uint64_t every)
{
    if (std::getenv("QD480_EVERY_FAILURE")) every = 1;
    std::vector<FailingPlace> places;
    std::uint64_t turn = 0;
    for (const auto& [function, count] : calls) {
        // Both short and long rows of calls start anywhere.
        const std::uint64_t first = turn++ % (count < every ? count : every);
        for (std::uint64_t call = first; call < count; call += every) places.emplace_back(function, call + 1);
    }
    return places;
}

// A walk that takes longer than this many seconds hangs.
constexpr unsigned Patience = 60;
char attemptNow[200];

// Says at which place, then lets the signal have its way.
void Tell(int number)
{
    constexpr char Words[] = "\nended by a signal, or hanging, at ";
    if (::write(2, Words, sizeof Words - 1) < 0 || ::write(2, attemptNow, std::strlen(attemptNow)) < 0) return;
    if (number == SIGALRM) ::_exit(1);
}

class Watch {
  public:
    explicit Watch(const std::string& name)
    {
        std::snprintf(attemptNow, sizeof attemptNow, "%s\n", name.c_str());
        for (std::size_t i = 0; i < Signals.size(); ++i) {
            struct sigaction action {};
            action.sa_handler = Tell;
            action.sa_flags = static_cast<int>(SA_RESETHAND);
            ::sigaction(Signals[i], &action, &before_[i]);
        }
        ::alarm(Patience);
    }
    ~Watch()
    {
        ::alarm(0);
        for (std::size_t i = 0; i < Signals.size(); ++i) ::sigaction(Signals[i], &before_[i], nullptr);
    }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

  private:
    static constexpr std::array Signals = {SIGALRM, SIGSEGV, SIGFPE, SIGABRT};
    std::array<struct sigaction, Signals.size()> before_;
};

std::size_t Loads(HMODULE module) { return platform::modules::LoadCount(module); }

// What can be left behind, and what gives it back. Drawing is asked to take back once more when it refuses, so that
// one failure leaves nothing.
struct Kind {
    const char* name;
    std::size_t (*count)();
    bool askedAgain;
    std::initializer_list<const char*> givenBackBy;
};
const Kind Kinds[] = {
    {"blocks",   platform::memory::BlockCount,       false, {"GlobalFree"}                  },
    {"heaps",    platform::memory::HeapCount,        false, {"HeapDestroy"}                 },
    {"printers", platform::spooler::OpenCount,       false, {"ClosePrinter"}                },
    {"keys",     platform::registry::OpenCount,      false, {"RegCloseKey"}                 },
    {"loads",    [] { return Loads(ModuleHandle); }, false, {"FreeLibrary"}                 },
    {"windows",  platform::user::WindowCount,        true,  {}                              },
    {"contexts", platform::gdi::ContextCount,        true,  {"ReleaseDC", "DeleteDC"}       },
    {"objects",  platform::gdi::ObjectCount,         true,  {"DeleteObject", "SelectObject"}},
};

class LeftBehind {
  public:
    LeftBehind()
    {
        for (std::size_t i = 0; i < before_.size(); ++i) before_[i] = Kinds[i].count();
    }
    void Check(const Attempt& attempt) const
    {
        for (std::size_t i = 0; i < before_.size(); ++i) {
            const std::size_t now = Kinds[i].count();
            EXPECT_GE(now, before_[i]) << Kinds[i].name;
            const bool mayStay = !Kinds[i].askedAgain || !attempt.Single();
            EXPECT_LE(now, before_[i] + (mayStay ? attempt.Failed(Kinds[i].givenBackBy) : 0)) << Kinds[i].name;
        }
    }

  private:
    std::array<std::size_t, std::size(Kinds)> before_;
};

void Try(Attempt attempt, const std::function<void(Attempt&)>& walk)
{
    SCOPED_TRACE(attempt.Name());
    const Watch watch(attempt.Name());
    const LeftBehind leftBehind;
    walk(attempt);
    EXPECT_GE(attempt.Failed(), 1u) << "the place is not reached";
    leftBehind.Check(attempt);
    // Takes longer than the walk; otherwise the end of the program tells of leaks, without their place.
    static const bool everyPlace = std::getenv("QD480_EVERY_FAILURE");
    EXPECT_FALSE(everyPlace && __lsan_do_recoverable_leak_check && __lsan_do_recoverable_leak_check());
}

FaultPlan::Counters CallsOf(const std::function<void(Attempt&)>& walk)
{
    Attempt clean;
    walk(clean);
    return clean.Calls();
}

}  // namespace

void Attempt::Begin() const
{
    FaultPlan& faults = platform::CurrentEnvironment().faults;
    faults.Clear();
    faults.CountCalls(true);
    if (mode_ == Mode::All) faults.AddAll(call_);
    if (mode_ == Mode::Once || mode_ == Mode::Later) faults.Add(function_, call_, mode_ == Mode::Later);
}

void Attempt::Note(std::initializer_list<int> places)
{
    std::uint64_t sum = 0;
    for (const auto& [function, count] : platform::CurrentEnvironment().faults.Failures()) sum += count;
    if (sum != noted_) places_.insert(places);
    noted_ = sum;
}

void Attempt::End()
{
    FaultPlan& faults = platform::CurrentEnvironment().faults;
    for (const auto& [function, count] : faults.Calls()) calls_[function] += count;
    for (const auto& [function, count] : faults.Failures()) failures_[function] += count;
    faults.Clear();
}

std::string Attempt::Name() const
{
    return function_ + " " + std::to_string(call_) + (mode_ == Mode::Once ? "" : " and every later one");
}

std::uint64_t Attempt::Failed(std::initializer_list<const char*> functions) const
{
    std::uint64_t sum = 0;
    for (const char* function : functions)
        if (const auto found = failures_.find(function); found != failures_.end()) sum += found->second;
    return sum;
}

std::uint64_t Attempt::Failed() const
{
    std::uint64_t sum = 0;
    for (const auto& [function, count] : failures_) sum += count;
    return sum;
}

void TryEveryPlace(const char* what, Attempt::Mode mode, std::uint64_t every, const std::function<void(Attempt&)>& walk)
{
    CallsOf(walk);  // what is kept in the process from the first walk on changes the calls
    const FaultPlan::Counters calls = CallsOf(walk);
    std::uint64_t known = 0;
    for (const auto& [function, count] : calls) known += count;

    std::map<std::string, std::uint64_t> places(calls.begin(), calls.end());
    if (mode == Attempt::Mode::All)
        places = {
            {"any", known}
        };
    const std::vector<FailingPlace> tried = FailingPlaces(places, every);
    EXPECT_GT(known, 100u) << "the walk hardly calls anything";
    EXPECT_FALSE(tried.empty());
    for (const auto& [function, call] : tried) Try({mode, function, call}, walk);
    EXPECT_EQ(CallsOf(walk), calls) << "a failure has left something behind in the process";
    std::printf("%s: %zu functions, %llu places, %zu tried\n", what, calls.size(),
                static_cast<unsigned long long>(known), tried.size());
}

}  // namespace testing_support
