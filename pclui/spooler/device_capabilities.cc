#include "spooler/device_capabilities.h"

#include "boundary.h"
#include "settings/defaults.h"
#include "settings/global_block.h"
#include "settings/merge.h"
#include "settings/model_tables.h"
#include "settings/user_locale.h"
#include "settings/wide_text.h"
#include "spooler/paper_lists.h"

namespace {

struct Question {
    HANDLE printer;
    const DriverDevMode& record;
    void* output;  // may be null
    int Model() const { return record.dmModelIndex; }
};

constexpr LONG ReadyMediaWithoutOutput = 3;
constexpr LONG MostCopies = 999;

LONG Resolutions(const Question& question)
{
    if (auto* pairs = static_cast<LONG*>(question.output))
        for (const LONG dotsPerInch : {600, 600, 1200, 1200}) *pairs++ = dotsPerInch;
    return 2;
}

LONG FileDependencies(const Question& question)
{
    if (question.output) *static_cast<WCHAR*>(question.output) = 0;
    return 0;
}

LONG MediaReady(const Question& question)
{
    if (!question.output) return ReadyMediaWithoutOutput;
    lstrcpyW(static_cast<WCHAR*>(question.output), LocaleUsesA4() ? u"A4" : u"Letter");
    return 1;
}

struct Capability {
    WORD code;
    LONG (*answer)(const Question&);
};

constexpr Capability Capabilities[] = {
    {DC_FIELDS,           [](const Question& q) { return static_cast<LONG>(q.record.dmFields); }                        },
    {DC_PAPERS,           [](const Question& q) { return PaperCodeList(q.printer, q.Model(), q.output); }               },
    {DC_PAPERSIZE,
     [](const Question& q) { return PaperSizeList(q.printer, q.Model(), q.record.dmOrientation, q.output); }            },
    {DC_MINEXTENT,        [](const Question& q) { return static_cast<LONG>(MinExtent(q.Model())); }                     },
    {DC_MAXEXTENT,        [](const Question& q) { return static_cast<LONG>(MaxExtent(q.Model())); }                     },
    {DC_BINS,             [](const Question& q) { return BinCodeList(q.Model(), q.output); }                            },
    {DC_DUPLEX,           [](const Question&) -> LONG { return 0; }                                                     },
    {DC_SIZE,             [](const Question& q) -> LONG { return q.record.dmSize; }                                     },
    {DC_EXTRA,            [](const Question& q) -> LONG { return q.record.dmDriverExtra; }                              },
    {DC_VERSION,          [](const Question& q) -> LONG { return q.record.dmSpecVersion; }                              },
    {DC_DRIVER,           [](const Question& q) -> LONG { return q.record.dmDriverVersion; }                            },
    {DC_BINNAMES,         [](const Question& q) { return BinNameList(q.Model(), q.output); }                            },
    {DC_ENUMRESOLUTIONS,  Resolutions                                                                                   },
    {DC_FILEDEPENDENCIES, FileDependencies                                                                              },
    {DC_TRUETYPE,         [](const Question& q) -> LONG { return q.record.dmFields & DM_TTOPTION ? 6 : 0; }             },
    {DC_PAPERNAMES,       [](const Question& q) { return PromisedNames(PaperNameList(q.printer, q.Model(), q.output)); }},
    {DC_ORIENTATION,      [](const Question&) -> LONG { return 90; }                                                    },
    {DC_COPIES,           [](const Question&) { return MostCopies; }                                                    },
    {DC_MEDIAREADY,       MediaReady                                                                                    },
    {DC_STAPLE,           [](const Question&) -> LONG { return 0; }                                                     },
    {DC_PRINTRATEPPM,     [](const Question&) -> LONG { return LocaleUsesA4() ? 20 : 21; }                              },
    {DC_COLORDEVICE,      [](const Question&) -> LONG { return 0; }                                                     },
};

}  // namespace

LONG DrvDeviceCapabilities(HANDLE hPrinter, const WCHAR* deviceName, WORD capability, void* output,
                           const DEVMODEW* record)
{
    return AtBoundary(LONG{-1}, [&]() -> LONG {
        const auto settings = AllocateBlock<DriverDevMode>(RecordSize);
        if (!settings) return -1;
        BuildDefaultSettings(settings.get(), deviceName, u"", 0);
        if (!MergeSettings(settings.get(), record)) return -1;
        for (const Capability& row : Capabilities)
            if (row.code == capability) return row.answer({hPrinter, *settings, output});
        return -1;
    });
}
