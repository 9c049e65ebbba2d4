// The settings record of a job, as an application comes by it.
#pragma once

#include <string>
#include <vector>

#include "driver_dev_mode.h"
#include "host/context.h"
#include "host/record_file.h"
#include "platform/seams/environment.h"

namespace host {

// A record as long as the module's own at least, with zeros behind what there is.
class JobRecord {
  public:
    explicit JobRecord(std::span<const std::uint8_t> bytes);
    static JobRecord FromFile(const std::string& path);  // its bytes as they are

    DriverDevMode& Settings() { return *reinterpret_cast<DriverDevMode*>(bytes_.data()); }
    const DriverDevMode& Settings() const { return *reinterpret_cast<const DriverDevMode*>(bytes_.data()); }
    std::span<const std::uint8_t> Bytes() const { return bytes_; }

  private:
    std::vector<std::uint8_t> bytes_;
};

// What DrvDocumentProperties answers for the record, which may be none, over the printer's defaults. Failure
// when it answers none.
JobRecord AskForRecord(Context& context, HANDLE printer, std::u16string name, RecordBuffer record);

// What the module is asked by the way, and no step of the command's own, neither fails by plan nor counts for the
// plan, and stands in no trace.
class AsideFromFaults {
  public:
    AsideFromFaults();
    ~AsideFromFaults();
    AsideFromFaults(const AsideFromFaults&) = delete;
    AsideFromFaults& operator=(const AsideFromFaults&) = delete;

  private:
    platform::FaultPlan faults_;
    std::shared_ptr<platform::TraceSink> trace_;
};

}  // namespace host
