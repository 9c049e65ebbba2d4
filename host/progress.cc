#include "host/progress.h"

#include <unistd.h>

#include <cstdio>

namespace host {

namespace {

using std::chrono_literals::operator""ms;
constexpr auto Patience = 500ms, Pause = 100ms;
constexpr char ToLineStart[] = "\r\033[K";

}  // namespace

Progress::Progress() : terminal_(::isatty(STDERR_FILENO) != 0), next_(Clock::now() + Patience) {}

Progress::~Progress()
{
    if (shown_) std::fputs(ToLineStart, stderr);
}

void Progress::Tell(const std::string& how)
{
    if (!terminal_ || Clock::now() < next_) return;
    next_ = Clock::now() + Pause;
    shown_ = true;
    std::fprintf(stderr, "%s%s", ToLineStart, how.c_str());
}

}  // namespace host
