#include "settings/defaults.h"

#include "settings/lengths.h"
#include "settings/model_tables.h"
#include "settings/tray2_value.h"
#include "settings/user_locale.h"
#include "settings/wide_text.h"

namespace {

void SetPublicPart(DriverDevMode& record, const ModelEntry& model)
{
    record.dmSpecVersion = RecordSpecVersion1025;
    record.dmDriverVersion = RecordDriverVersion;
    record.dmSize = RecordPublicSize;
    record.dmDriverExtra = RecordPrivateSize;
    record.dmFields = DefaultFields;
    record.dmOrientation = 1;
    record.dmPaperSize = LocaleUsesA4() ? A4PaperCode : LetterPaperCode;
    record.dmPaperLength = 254;  // a filler that the first read of the paper option replaces
    record.dmPaperWidth = 254;
    record.dmScale = 100;
    record.dmCopies = 1;
    record.dmDefaultSource = 7;
    record.dmPrintQuality = model.defaultResolution;
    record.dmColor = 1;
    record.dmDuplex = 1;
    record.dmTTOption = 3;
}

// Fields that are zero by default are not named.
void SetPrivateSection(DriverDevMode& record, const ModelEntry& model)
{
    record.dmPrivSignature = PrivateSignature;
    record.dmModelParam1 = static_cast<SHORT>(model.modelParam1);
    record.dmModelParam2 = static_cast<SHORT>(model.modelParam2);
    record.dmModelParam3 = static_cast<SHORT>(model.modelParam3);
    record.dmModelParam4 = static_cast<SHORT>(model.modelParam4);
    record.dmModelParam5 = model.modelParam5;
    record.dmModelParam6 = static_cast<SHORT>(model.modelParam6);
    record.dmFitToPaper = model.defaultFitToPaper;
    record.dmMediaIndex = model.defaultMediaIndex;
    record.dmZoom = 100;
    record.dmOutputPaper = model.defaultOutputPaper;
    record.dmCollateMode = model.defaultCollateMode;
    record.dmPaperWidthPriv = static_cast<SHORT>(MillimetresToDots(model.minCustomWidthMm));
    record.dmPaperLengthPriv = static_cast<SHORT>(MillimetresToDots(model.minCustomLengthMm));
    record.dmNupCount = 1;
    record.dmNupModelByte = model.defaultNupByte;
    record.dmNupModelValue1 = model.defaultNupValue1;
    record.dmNupModelValue2 = model.defaultNupValue2;
    record.dmGuidePaper = 1;
    record.dmGraphicsMode = model.defaultGraphicsMode;
    record.dmTextMode = model.defaultTextMode;
    record.dmPrinterTrueType = 1;
    record.dmSmoothtone = 2;
    record.dmResolution = model.defaultResolution;
    record.dmTonerDensity = 3;
    record.dmTotalMemory = static_cast<SHORT>(model.defaultTotalMemory);
    record.dmAvailableMemory = AvailableMemory(record.dmTotalMemory);
    record.dmPercent = 100;
    record.dmModelFlag = model.defaultModelFlag;
    record.dmConstantFlag = 1;
    record.dmResolutionChoice = 2;
    record.dmOverlayFile[0] = u'0';
    record.dmOverlayReserved[0] = u'0';
}

}  // namespace

int BuildDefaultSettings(DriverDevMode* record, const WCHAR* deviceName, const WCHAR* printerName, int modelIndex)
{
    const ModelEntry& model = ModelRow(modelIndex);
    *record = {};
    if (deviceName) CopyBounded(record->dmDeviceName, deviceName, std::size(record->dmDeviceName));
    SetPublicPart(*record, model);
    SetPrivateSection(*record, model);
    record->dmModelIndex = static_cast<SHORT>(modelIndex);
    if (ReadTray2(printerName)) record->dmDeviceFlags |= Tray2Flag;
    return 1;
}
