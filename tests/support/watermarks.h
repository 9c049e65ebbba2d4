// Stored watermarks for tests.
#pragma once

#include <cstring>
#include <string>
#include <vector>

#include "platform/kernel/unicode.h"
#include "tests/support/machine.h"

namespace testing_support {

struct StoredWatermark {
    std::u16string name, text;
    std::u16string attributes = u"1|20|72|0|0|0|0|2|0|Times New Roman";
};

// Puts texts into the three values as they are, as many characters as there is room for.
inline void StoreWatermarks(Machine& machine, std::u16string_view texts, std::u16string_view names,
                            std::u16string_view attributes, const std::u16string& printer = OfficePrinter)
{
    for (const auto& [name, text] : {
             std::pair{u"WatermarkText",       texts     },
             {u"WatermarkTextName",   names     },
             {u"WatermarkAttributes", attributes}
    }) {
        platform::Bytes bytes(3000);
        std::memcpy(bytes.data(), text.data(), std::min(bytes.size(), 2 * text.size()));
        machine.store->SetValue(printer, name, {3, bytes});
    }
}

inline void StoreWatermarks(Machine& machine, const std::vector<StoredWatermark>& rows, const std::u16string& printer)
{
    const std::string count = std::to_string(rows.size()) + "\r\n";
    std::u16string texts(count.begin(), count.end()), names = texts, attributes;
    for (const StoredWatermark& row : rows) {
        texts += row.text + u"\r\n";
        names += row.name + u"\r\n";
        attributes += row.attributes + u"\r\n";
    }
    StoreWatermarks(machine, texts, names, attributes, printer);
}

// A stored value up to its terminator, with '/' at the line ends.
inline std::string StoredLines(Machine& machine, const char16_t* name, const std::u16string& printer = OfficePrinter)
{
    const platform::Bytes bytes = machine.store->Value(printer, name).value().bytes;
    std::u16string text(bytes.size() / 2, u'\0');
    std::memcpy(text.data(), bytes.data(), text.size() * 2);
    std::string lines = platform::ToUtf8(text.substr(0, text.find(u'\0')));
    for (std::size_t at; (at = lines.find("\r\n")) != std::string::npos;) lines.replace(at, 2, "/");
    return lines;
}

}  // namespace testing_support
