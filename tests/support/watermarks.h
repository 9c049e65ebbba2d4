// Stored watermarks for tests.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "platform/kernel/unicode.h"
#include "tests/support/stored_bytes.h"

namespace testing_support {

struct StoredWatermark {
    std::u16string name, text;
    std::u16string attributes = u"1|20|72|0|0|0|0|2|0|Times New Roman";
};

// Puts texts into the three values as they are, as many characters as there is room for.
inline void StoreWatermarks(platform::PrinterStore& store, std::u16string_view texts, std::u16string_view names,
                            std::u16string_view attributes, const std::u16string& printer = OfficePrinter)
{
    for (const auto& [name, text] : {
             std::pair{u"WatermarkText",       texts     },
             {u"WatermarkTextName",   names     },
             {u"WatermarkAttributes", attributes}
    }) {
        platform::Bytes bytes(3000);
        std::memcpy(bytes.data(), text.data(), std::min(bytes.size(), 2 * text.size()));
        store.SetValue(printer, name, {3, bytes});
    }
}

inline void StoreWatermarks(platform::PrinterStore& store, const std::vector<StoredWatermark>& rows,
                            const std::u16string& printer)
{
    const std::string count = std::to_string(rows.size()) + "\r\n";
    std::u16string texts(count.begin(), count.end()), names = texts, attributes;
    for (const StoredWatermark& row : rows) {
        texts += row.text + u"\r\n";
        names += row.name + u"\r\n";
        attributes += row.attributes + u"\r\n";
    }
    StoreWatermarks(store, texts, names, attributes, printer);
}

// A stored value up to its terminator, with '/' at the line ends.
inline std::string StoredLines(platform::PrinterStore& store, const char16_t* name,
                               const std::u16string& printer = OfficePrinter)
{
    const auto text = RowsIn<char16_t>(StoredBytes(store, printer, name));
    std::string lines = platform::ToUtf8(std::u16string(text.begin(), std::ranges::find(text, u'\0')));
    for (std::size_t at; (at = lines.find("\r\n")) != std::string::npos;) lines.replace(at, 2, "/");
    return lines;
}

}  // namespace testing_support
