// A caller's record on its way through a job: the context is made, the document and a page begin, the rendering
// side answers with the record when the page ends, the context is reset. The first byte says what differs from
// the usual (information context, input one byte short, no room for the answer), the rest is the record.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "driver_dev_mode.h"
#include "events/document_event.h"
#include "platform/gdi/job.h"
#include "platform/seams/fonts.h"
#include "platform/seams/surface.h"
#include "settings/record_copy.h"
#include "tests/support/machine.h"

namespace {

using testing_support::Machine;
using testing_support::OfficePrinter;

constexpr std::uint8_t InformationContext = 1, ShortInput = 2, NoRoom = 4, AnswersInPart = 8, Refuses = 16;

struct Freer {
    void operator()(void* block) const { std::free(block); }
};
using Block = std::unique_ptr<DEVMODEW, Freer>;

// The record in a block of exactly the length that its own size fields promise; whole if they promise none.
Block Caller(const std::uint8_t* data, std::size_t size)
{
    DEVMODEW header{};
    std::memcpy(&header, data, std::min(size, sizeof header));
    const bool says = header.dmSize != 0 || header.dmDriverExtra != 0;
    const std::size_t promised = says ? std::max(RecordBytes(header), offsetof(DEVMODEW, dmFields)) : RecordSize;
    Block block(static_cast<DEVMODEW*>(std::calloc(1, promised)));
    std::memcpy(block.get(), data, std::min(size, promised));
    return block;
}

class RenderingSide : public platform::gdi::EscapeTarget {
  public:
    RenderingSide(const std::uint8_t* data, std::size_t size, std::uint8_t flags)
        : data_(data), size_(flags & AnswersInPart ? size / 2 : size), refuses_(flags & Refuses)
    {
    }
    int Escape(int, std::span<const std::uint8_t>, std::span<std::uint8_t> output) override
    {
        std::copy_n(data_, std::min(size_, output.size()), output.begin());
        return refuses_ ? -1 : 1;
    }

  private:
    const std::uint8_t* data_;
    std::size_t size_;
    bool refuses_;
};

struct Place {
    Place()
    {
        platform::CurrentEnvironment().fonts = platform::MakeBuiltinFonts();
        OpenPrinterW(const_cast<WCHAR*>(OfficePrinter), &printer, nullptr);
    }
    Machine machine;
    HANDLE printer = nullptr;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 1) return 0;
    static const Place place;
    const std::uint8_t flags = *data++;
    --size;
    RenderingSide side(data, size, flags);
    const auto page = std::make_shared<platform::RecordingSurface>();
    const HDC job = platform::gdi::CreateJobContext({}, page, &side);
    const auto event = [&](int code, ULONG bytes, void* input) {
        void* output = nullptr;
        DrvDocumentEvent(place.printer, job, code, flags & ShortInput && bytes ? bytes - 1 : bytes, input,
                         flags & NoRoom ? 0 : sizeof output, &output);
    };

    const Block created = Caller(data, size);
    void* creation[4] = {nullptr, nullptr, created.get(),
                         reinterpret_cast<void*>(std::uintptr_t{static_cast<unsigned>(flags & InformationContext)})};
    event(DOCUMENTEVENT_CREATEDCPRE, sizeof creation, creation);
    event(DOCUMENTEVENT_CREATEDCPOST, 0, nullptr);
    event(DOCUMENTEVENT_STARTDOC, 0, nullptr);
    event(DOCUMENTEVENT_STARTPAGE, 0, nullptr);
    event(DOCUMENTEVENT_ENDPAGE, 0, nullptr);
    const Block reset = Caller(data, size);
    void* record = reset.get();
    event(DOCUMENTEVENT_RESETDCPRE, sizeof record, &record);
    event(DOCUMENTEVENT_ENDPAGE, 0, nullptr);
    event(DOCUMENTEVENT_ENDDOC, 0, nullptr);

    platform::gdi::DeleteJobContext(job);
    if (platform::gdi::ObjectCount() != 0 || platform::gdi::ContextCount() != 0) std::abort();
    return 0;
}
