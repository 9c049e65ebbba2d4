#include "host/json_lines.h"

#include <cerrno>
#include <system_error>
#include <utility>

#include "host/errors.h"

namespace host {

JsonLines::JsonLines(std::string what, const std::string& path) : what_(std::move(what) + " " + path)
{
    errno = 0;
    stream_.open(path, std::ios::binary | std::ios::trunc);
    if (!stream_) Fail(errno);
}

void JsonLines::Add(const Json& line)
{
    if (error_ != 0) return;
    errno = 0;
    stream_ << ToLine(line) << '\n';
    if (!stream_) error_ = errno ? errno : EIO;
}

void JsonLines::Check()
{
    errno = 0;
    if (error_ == 0 && !stream_.flush()) error_ = errno ? errno : EIO;
    if (error_ != 0) Fail(error_);
}

void JsonLines::Fail(int error) const
{
    throw Failure("cannot write " + what_ + ": " + std::generic_category().message(error));
}

}  // namespace host
