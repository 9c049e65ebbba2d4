#include "settings/record_copy.h"

#include <algorithm>
#include <cstring>

WORD RecordSpecVersion(const DEVMODEW* record)
{
    if (!record) return 0;
    switch (record->dmSize) {
        case 188:
            return 0x320;
        case 212:
            return 0x400;
        case 220:
            return 0x401;
        default:
            return record->dmSpecVersion;
    }
}

int CopyRecordParts(const DEVMODEW* source, DEVMODEW* target)
{
    const WORD version = RecordSpecVersion(target);
    if (version == 0 || RecordSpecVersion(source) == 0) return -1;

    const WORD driverVersion = target->dmDriverVersion, size = target->dmSize, extra = target->dmDriverExtra;
    const WORD sourceSize = source->dmSize;
    const std::size_t publicBytes = std::min(size, sourceSize);
    const std::size_t privateBytes = std::min(extra, source->dmDriverExtra);

    std::memmove(target, source, publicBytes);
    target->dmSpecVersion = version;
    target->dmDriverVersion = driverVersion;
    target->dmSize = size;
    target->dmDriverExtra = extra;
    std::memmove(reinterpret_cast<BYTE*>(target) + size, reinterpret_cast<const BYTE*>(source) + sourceSize,
                 privateBytes);
    return static_cast<int>(publicBytes + privateBytes);
}

bool CopyRecordOut(const DriverDevMode* current, const DEVMODEW* input, DEVMODEW* output)
{
    if (!output) return false;
    if (!input) {
        std::memmove(output, current, RecordBytes(*PublicPart(current)));
        return true;
    }
    const bool wholePublic = input->dmSize >= current->dmSize;
    const bool wholePrivate = input->dmDriverExtra >= current->dmDriverExtra;
    output->dmSpecVersion = wholePublic ? current->dmSpecVersion : input->dmSpecVersion;
    output->dmSize = wholePublic ? current->dmSize : input->dmSize;
    output->dmDriverVersion = wholePrivate ? current->dmDriverVersion : input->dmDriverVersion;
    output->dmDriverExtra = wholePrivate ? current->dmDriverExtra : input->dmDriverExtra;
    return CopyRecordParts(PublicPart(current), output) > 0;
}
