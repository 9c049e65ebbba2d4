#include "spooler/record_answer.h"

#include "boundary.h"
#include "platform/user.h"
#include "settings/options.h"
#include "settings/record_copy.h"
#include "spooler/paper_sizes.h"

namespace {

// The window of the one application family that reads papers by size alone.
constexpr const WCHAR* SizeReadingWindow = u"VWClass500";

bool WantsRecord(const DOCUMENTPROPERTYHEADER& header) { return (header.fMode & (DM_UPDATE | DM_COPY)) != 0; }

}  // namespace

void HandOutRecord(UiContext& context)
{
    if (!context.header || !context.header->pdmOut || !WantsRecord(*context.header)) return;
    const DOCUMENTPROPERTYHEADER& header = *context.header;
    const DriverDevMode& settings = context.settings;
    CopyRecordOut(&settings, header.pdmIn, header.pdmOut);

    const std::size_t room = header.cbOut;
    if (room < RecordBytes(*PublicPart(&settings)) || room == RecordBytes(*header.pdmOut)) return;
    header.pdmOut->dmSize = settings.dmSize;
    header.pdmOut->dmDriverExtra = settings.dmDriverExtra;
    CopyRecordOut(&settings, header.pdmOut, header.pdmOut);
}

int ApplyPageSettings(HWND dialog)
{
    return AtBoundary(1, [dialog] {
        auto* context = reinterpret_cast<UiContext*>(GetWindowLongW(dialog, DWL_USER));
        if (!IsWholeContext(context)) return 1;
        HandOutRecord(*context);
        FixUpCustomPaper(context->hPrinter, context->header ? context->header->pdmOut : nullptr);
        FixUpCustomPaper(context->hPrinter, CurrentSettings ? PublicPart(CurrentSettings) : nullptr);
        if (context->pfnComPropSheet) context->pfnComPropSheet(context->hComPropSheet, CPSFUNC_SET_RESULT, 0, CPSUI_OK);
        return 1;
    });
}

int FixUpCustomPaper(HANDLE hPrinter, DEVMODEW* record)
{
    if (!hPrinter || !record || !FindWindowW(SizeReadingWindow, nullptr)) return 1;
    // A buffer that nothing was handed out to may be shorter than the paper fields. It need not reach to
    // dmModelIndex either: the model of all records is 0.
    constexpr std::size_t paperEnd = offsetof(DEVMODEW, dmPaperWidth) + sizeof(SHORT);
    if (RecordBytes(*record) < paperEnd) return 1;
    constexpr int model = 0;
    PaperExtent size;
    if (!PaperSizeTenths(hPrinter, record->dmPaperSize, model, record->dmOrientation, &size)) return 1;
    record->dmPaperLength = static_cast<SHORT>(size.length);
    record->dmPaperWidth = static_cast<SHORT>(size.width);
    record->dmFields &= ~(DM_PAPERSIZE | DM_FORMNAME);
    record->dmFields |= DM_PAPERLENGTH | DM_PAPERWIDTH;
    return 1;
}
