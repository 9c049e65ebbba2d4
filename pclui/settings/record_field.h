// Access to a record by the rows of its field table, for code whose rules are rows.
#pragma once

#include <cstring>

#include "driver_dev_mode.h"

// The row of a field's name, at compile time.
consteval RecordField FieldNamed(std::string_view name)
{
    for (const RecordField& field : RecordFields) {
        if (field.name == name) return field;
    }
    throw "no such field";
}

inline BYTE* FieldBytes(DriverDevMode& record, const RecordField& field)
{
    return reinterpret_cast<BYTE*>(&record) + field.offset;
}
inline const BYTE* FieldBytes(const DriverDevMode& record, const RecordField& field)
{
    return reinterpret_cast<const BYTE*>(&record) + field.offset;
}

// Fields of 1 or 2 bytes.
inline int ShortField(const DriverDevMode& record, const RecordField& field)
{
    const BYTE* bytes = FieldBytes(record, field);
    if (field.width == 1) return *bytes;
    SHORT value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}
inline void SetShortField(DriverDevMode& record, const RecordField& field, int value)
{
    BYTE* bytes = FieldBytes(record, field);
    bytes[0] = static_cast<BYTE>(value);
    if (field.width == 2) bytes[1] = static_cast<BYTE>(value >> 8);
}

inline void CopyField(DriverDevMode& target, const DriverDevMode& source, const RecordField& field)
{
    // Most fields are this short; they are spared the call.
    if (field.width == sizeof(SHORT)) {
        std::memcpy(FieldBytes(target, field), FieldBytes(source, field), sizeof(SHORT));
    } else {
        std::memcpy(FieldBytes(target, field), FieldBytes(source, field), field.width);
    }
}
