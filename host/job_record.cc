#include "host/job_record.h"

#include <algorithm>
#include <utility>

#include "host/entries.h"
#include "host/files.h"

namespace host {

JobRecord::JobRecord(std::span<const std::uint8_t> bytes) : bytes_(bytes.begin(), bytes.end())
{
    bytes_.resize(std::max(bytes_.size(), RecordSize));
}

JobRecord JobRecord::FromFile(const std::string& path) { return JobRecord(ReadFile(path)); }

JobRecord AskForRecord(Context& context, HANDLE printer, std::u16string name, RecordBuffer record)
{
    constexpr std::size_t Room = 4096;  // for any record
    RecordBuffer answer = RecordBuffer::Zeroed(Room);
    const DWORD mode = DM_COPY | (record.Record() ? DM_MODIFY : 0);
    const LONG result = context.Entry<DocumentPropertiesEntry>("DrvDocumentProperties")(
        nullptr, printer, name.data(), answer.Record(), record.Record(), mode);
    if (result < 0) {
        throw Failure("cannot get the job's settings: DrvDocumentProperties answered " + std::to_string(result));
    }
    return JobRecord(answer.Promised());
}

AsideFromFaults::AsideFromFaults()
    : faults_(std::exchange(platform::CurrentEnvironment().faults, {})),
      trace_(std::exchange(platform::CurrentEnvironment().trace, nullptr))
{
}

AsideFromFaults::~AsideFromFaults()
{
    platform::CurrentEnvironment().faults = std::move(faults_);
    platform::CurrentEnvironment().trace = std::move(trace_);
}

}  // namespace host
