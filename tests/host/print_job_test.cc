// Jobs one after the other in one process, through the module itself.
#include "host/print_job.h"

#include <CLI/CLI.hpp>

#include "host/files.h"
#include "host/printer_handle.h"
#include "platform/seams/surface.h"
#include "tests/store/temporary.h"

namespace {

using namespace host;

// Which pages of a job of three got a stamp.
std::vector<bool> StampedPages(Context& context, HANDLE printer, const std::u16string& name, const JobRecord& record)
{
    PrintJob job(context, printer, name, record, platform::gdi::JobDevice{}, nullptr);
    std::vector<bool> stamped;
    for (int page = 0; page < 3; ++page) {
        const auto drawing = std::make_shared<platform::RecordingSurface>();
        if (page == 1) job.Reset();
        job.Page(drawing);
        stamped.push_back(drawing->Count() > 0);
    }
    job.End();
    return stamped;
}

class PrintJobTest : public testing::Test {
  protected:
    PrintJobTest()
    {
        CLI::App program;
        context_.AddOptions(program);
        program.parse("--store " + (folder_ / "store").string() + " --platform fonts=builtin");
        context_.PlugIn();
        printer_ = std::make_unique<PrinterHandle>(name_);
        record_ = std::make_unique<JobRecord>(AskForRecord(context_, *printer_, name_, RecordBuffer()));
    }

    TemporaryFolder folder_;
    Context context_;
    const std::u16string name_ = u"Ordana Quillet 4820E";
    std::unique_ptr<PrinterHandle> printer_;
    std::unique_ptr<JobRecord> record_;
};

TEST_F(PrintJobTest, StampsTheFirstPageOfEachOfTwoJobs)
{
    DriverDevMode& settings = record_->Settings();
    settings.dmWatermarkOn = 1;
    settings.dmWatermark.wmFirstPageOnly = 1;
    settings.dmWatermark.wmSize = 72;
    std::u16string_view(u"Arial").copy(settings.dmWatermark.wmFaceName, 31);
    std::u16string_view(u"DRAFT").copy(settings.dmWatermark.wmText, 73);
    for (const char* job : {"first", "second"})
        EXPECT_EQ(StampedPages(context_, *printer_, name_, *record_), (std::vector<bool>{true, false, false})) << job;
}

TEST_F(PrintJobTest, IsAbortedWhenItBreaksOff)
{
    const std::size_t contexts = platform::gdi::ContextCount();
    {
        JsonLines events("the events", folder_ / "e");
        PrintJob(context_, *printer_, name_, *record_, platform::gdi::JobDevice{}, &events).Page(nullptr);
    }
    EXPECT_EQ(platform::gdi::ContextCount(), contexts);
    EXPECT_TRUE(ReadTextFile(folder_ / "e")
                    .ends_with("{\"event\": 7, \"result\": 1}\n"
                               "{\"event\": 9, \"result\": 0}\n"
                               "{\"event\": 10, \"result\": 0}\n"));
}

}  // namespace
