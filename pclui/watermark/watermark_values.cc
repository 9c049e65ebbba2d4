#include "watermark/watermark_values.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include "platform/registry.h"
#include "settings/global_block.h"
#include "spooler/opened_printer.h"
#include "spooler/printer_data.h"
#include "watermark/placement.h"
#include "watermark/watermark_lines.h"
#include "watermark/watermark_list.h"

int WatermarksLeftOut = 0;
int WatermarksUnread = 0;

namespace {

constexpr const WCHAR* TextValue = u"WatermarkText";
constexpr const WCHAR* NameValue = u"WatermarkTextName";
constexpr const WCHAR* AttributeValue = u"WatermarkAttributes";
constexpr DWORD ValueBytes = sizeof(WatermarkValue);

// The three values as they are read or written, and what reading each one gave.
struct StoredValues {
    WatermarkValue texts{}, names{}, attributes{};
    DWORD errors[3] = {};
    bool AllRead() const
    {
        return std::ranges::all_of(errors, [](DWORD error) { return error == ERROR_SUCCESS; });
    }
    bool OneMissing() const { return std::ranges::find(errors, ERROR_FILE_NOT_FOUND) != std::end(errors); }
};

DWORD ReadValue(HANDLE printer, const WCHAR* name, WatermarkValue& value)
{
    DWORD type = 0, needed = 0;
    return GetPrinterDataW(printer, const_cast<WCHAR*>(name), &type, reinterpret_cast<BYTE*>(value.data()), ValueBytes,
                           &needed);
}

// False if the printer cannot be opened.
bool ReadValues(StoredValues& values)
{
    const OpenedPrinter printer(PrinterName, PRINTER_READ);
    if (!printer) return false;
    values.errors[0] = ReadValue(printer.Handle(), TextValue, values.texts);
    values.errors[1] = ReadValue(printer.Handle(), NameValue, values.names);
    values.errors[2] = ReadValue(printer.Handle(), AttributeValue, values.attributes);
    return true;
}

void WriteValue(HANDLE printer, const WCHAR* name, const WatermarkValue& value)
{
    SetPrinterDataW(printer, const_cast<WCHAR*>(name), REG_BINARY,
                    reinterpret_cast<BYTE*>(const_cast<WCHAR*>(value.data())), ValueBytes);
}

// The lines of the stored rows, in step with each other.
class RowReader {
  public:
    explicit RowReader(const StoredValues& values)
        : texts_(values.texts), names_(values.names), attributes_(values.attributes)
    {
        textCount_ = texts_.Next().value_or(u"");
        nameCount_ = names_.Next().value_or(u"");
    }
    bool TextsEmpty() const { return textCount_ == u"0"; }
    bool NamesEmpty() const { return nameCount_ == u"0"; }
    // What does not read as a number counts as none, and there is room for no more than the greatest list.
    int Count() const { return std::min(WholeNumber(textCount_).value_or(0), MostWatermarks); }

    // The next row's text, name and attributes; the other fields of row stay. False when a line is missing.
    bool Next(WatermarkRecord& row)
    {
        const auto text = texts_.Next(), name = names_.Next(), attributes = attributes_.Next();
        if (!text || !name || !attributes) return false;
        CopyToField(row.wmText, static_cast<int>(std::size(row.wmText)) - 1, *text);
        row.wmText[std::size(row.wmText) - 1] = 0;
        CopyToField(row.wmName, static_cast<int>(std::size(row.wmName)), *name);
        ReadAttributes(*attributes, row);
        return true;
    }

  private:
    LineReader texts_, names_, attributes_;
    std::u16string_view textCount_, nameCount_;
};

// A text of a record, which ends with its field at the latest, as a line.
std::u16string Line(const WCHAR* field, std::size_t chars)
{
    const auto* end = std::find(field, field + chars, u'\0');
    return std::u16string(field, end) + u"\r\n";
}

std::u16string CountLine(int count)
{
    const std::string digits = std::to_string(count);
    return std::u16string(digits.begin(), digits.end()) + u"\r\n";
}

struct RowLines {
    std::u16string text, name, attributes;
};

RowLines LinesOf(const WatermarkRecord& row)
{
    return {Line(row.wmText, std::size(row.wmText)), Line(row.wmName, std::size(row.wmName)), AttributeLine(row)};
}

// Composes the values of the list. Rows are taken while each of their three lines fits behind the ones before.
StoredValues Compose()
{
    std::vector<RowLines> rows;
    for (const WatermarkNode* node = WatermarkHead->next; node; node = node->next)
        if (node->row.wmId != 0) rows.push_back(LinesOf(node->row));

    StoredValues values;
    LineWriter texts(values.texts), names(values.names), attributes(values.attributes);
    const std::size_t countRoom = CountLine(WatermarkCount).size();
    std::size_t fitting = 0, textChars = countRoom, nameChars = countRoom, attributeChars = 0;
    for (; fitting < rows.size(); ++fitting) {
        textChars += rows[fitting].text.size();
        nameChars += rows[fitting].name.size();
        attributeChars += rows[fitting].attributes.size();
        if (std::max({textChars, nameChars, attributeChars}) >= WatermarkValueChars) break;
    }
    WatermarksLeftOut = static_cast<int>(rows.size() - fitting);
    const std::u16string count = CountLine(WatermarksLeftOut ? static_cast<int>(fitting) : WatermarkCount);
    texts.Append(count);
    names.Append(count);
    for (std::size_t i = 0; i < fitting; ++i) {
        texts.Append(rows[i].text);
        names.Append(rows[i].name);
        attributes.Append(rows[i].attributes);
    }
    return values;
}

}  // namespace

bool PrinterHasNoWatermarks()
{
    StoredValues values;
    return ReadValues(values) && values.OneMissing();
}

int ReadStoredWatermarks()
{
    WatermarksUnread = 0;
    StoredValues values;
    if (!ReadValues(values) || !values.AllRead()) return 1;
    RowReader reader(values);
    if (reader.TextsEmpty() || reader.NamesEmpty()) return 1;
    std::size_t index = 1;
    for (int n = 1; n <= reader.Count(); ++n) {
        WatermarkRecord row{};
        if (!reader.Next(row)) break;
        row.wmId = static_cast<SHORT>(n);
        // A row that is refused has no name in the lists either, so that these stay in step.
        if (AddWatermarkRow(row) != 1) {
            WatermarksUnread += !WatermarkNameTaken(row);
            continue;
        }
        WatermarkSlots[static_cast<std::size_t>(n)] = 1;
        CopyToField(WatermarkNames[index++], WatermarkNameChars, row.wmName);
    }
    return WatermarkHead && WatermarkHead->next ? 1 : -1;
}

int CountWatermarksWithoutRoom()
{
    if (!WatermarkHead) return 0;
    Compose();
    return WatermarksLeftOut;
}

int SaveWatermarks()
{
    WatermarksLeftOut = 0;
    if (!WatermarkHead || !WatermarkHead->next) return 0;
    const StoredValues values = Compose();
    const OpenedPrinter printer(PrinterName, PRINTER_ALL_ACCESS);
    if (!printer) return 1;
    WriteValue(printer.Handle(), TextValue, values.texts);
    WriteValue(printer.Handle(), NameValue, values.names);
    WriteValue(printer.Handle(), AttributeValue, values.attributes);
    return 1;
}

int RefreshWatermark(WatermarkPayload& option)
{
    StoredValues values;
    if (!ReadValues(values) || !values.AllRead()) return 1;
    RowReader reader(values);
    if (reader.NamesEmpty()) return 1;
    const int count = reader.Count();
    if (count < 1) return 0;
    for (int n = 1; n <= count; ++n) {
        WatermarkRecord row = option.watermark;
        if (!reader.Next(row)) return 0;
        if (option.watermark.wmId >= count) option.watermark.wmId = row.wmId = static_cast<SHORT>(count);
        if (option.watermark.wmId != n) continue;
        option.watermark = row;
        return 1;
    }
    return 0;
}
