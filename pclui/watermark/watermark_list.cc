#include "watermark/watermark_list.h"

#include <algorithm>
#include <iterator>

#include "module.h"
#include "platform/user.h"
#include "resources/control_numbers.h"
#include "watermark/placement.h"
#include "watermark/watermark_values.h"

WatermarkNode* WatermarkHead = nullptr;
WatermarkRecord* WatermarkCurrent = nullptr;
int WatermarkIndex = 0;
int WatermarkCount = 0;
std::array<WORD, MostWatermarks + 1> WatermarkSlots{};
std::array<WCHAR[WatermarkNameChars], MostWatermarks + 1> WatermarkNames{};
WatermarkRecord WatermarkEdit{};
WatermarkPayload WatermarkOption{};

namespace {

// The rows of a printer that never had a list; the first one is there for every printer.
constexpr UINT BaseRows[] = {
    IDS_NONE,
    IDS_WATERMARK_CONFIDENTIAL,
    IDS_WATERMARK_TOP_SECRET,
    IDS_WATERMARK_COPY,
    IDS_WATERMARK_DO_NOT_COPY,
    IDS_WATERMARK_DRAFT,
    IDS_WATERMARK_FINAL,
    IDS_WATERMARK_PROOF,
};

constexpr int NameChars = static_cast<int>(std::size(WatermarkRecord{}.wmName));
constexpr int TextChars = static_cast<int>(std::size(WatermarkRecord{}.wmText)) - 1;
constexpr int FaceChars = static_cast<int>(std::size(WatermarkRecord{}.wmFaceName));

WatermarkNode* NewNode()
{
    const HGLOBAL block = GlobalAlloc(GHND, sizeof(WatermarkNode));
    if (!block) return nullptr;
    auto* node = static_cast<WatermarkNode*>(GlobalLock(block));
    if (!node) {
        GlobalFree(block);
        return nullptr;
    }
    node->block = block;
    return node;
}

void FreeNode(WatermarkNode* node)
{
    const HGLOBAL block = node->block;
    GlobalUnlock(block);
    GlobalFree(block);
}

WatermarkNode* LastNode()
{
    WatermarkNode* node = WatermarkHead;
    while (node->next) node = node->next;
    return node;
}

WatermarkRecord BaseRow(int id)
{
    WatermarkRecord row{};
    row.wmId = static_cast<SHORT>(id);
    LoadStringW(ResourceHandle, BaseRows[id], row.wmName, NameChars);
    if (id > 0) LoadStringW(ResourceHandle, BaseRows[id], row.wmText, TextChars);
    LoadStringW(ResourceHandle, IDS_DEFAULT_FACE, row.wmFaceName, FaceChars);
    row.wmRemovable = id > 0;
    row.wmShading = DefaultShading;
    row.wmSize = row.wmSizeLow = DefaultWatermarkSize;
    row.wmAngleMode = AngleModeDiagonal;
    row.wmAngle = DiagonalAngle;
    return row;
}

}  // namespace

void CopyToField(WCHAR* field, int chars, std::u16string_view text)
{
    const std::size_t room = static_cast<std::size_t>(chars) - 1;
    std::fill_n(field, chars, u'\0');
    std::ranges::copy(text.substr(0, room), field);
}

int BuildWatermarkList()
{
    WatermarkHead = NewNode();
    if (!WatermarkHead) return -1;
    const int rows = PrinterHasNoWatermarks() ? static_cast<int>(std::size(BaseRows)) : 1;
    for (int id = 0; id < rows; ++id) {
        const WatermarkRecord row = BaseRow(id);
        WatermarkNode* node = NewNode();
        if (!node) return -1;
        node->row = row;
        node->row.wmListHandle = static_cast<LONG>(reinterpret_cast<LONG_PTR>(node->block));
        LastNode()->next = node;
        WatermarkSlots[static_cast<std::size_t>(id)] = 1;
        CopyToField(WatermarkNames[static_cast<std::size_t>(id)], WatermarkNameChars, row.wmName);
    }
    return 1;
}

bool WatermarkNameTaken(const WatermarkRecord& row)
{
    for (int k = 0; const WatermarkRecord* listed = WatermarkRowAt(k); ++k)
        if (lstrcmpW(listed->wmName, row.wmName) == 0) return true;
    return false;
}

int AddWatermarkRow(WatermarkRecord row)
{
    if (!WatermarkHead || WatermarkNameTaken(row)) return -1;
    WatermarkNode* node = NewNode();
    if (!node) return -1;
    node->row = row;
    node->row.wmFirstPageOnly = 0;
    node->row.wmListHandle = static_cast<LONG>(reinterpret_cast<LONG_PTR>(node->block));
    LastNode()->next = node;
    return 1;
}

void RemoveWatermarkRow(int index)
{
    if (!WatermarkHead) return;
    WatermarkNode* before = WatermarkHead;
    for (; index > 0 && before->next; --index) before = before->next;
    WatermarkNode* gone = before->next;
    if (!gone) return;
    before->next = gone->next;
    FreeNode(gone);
}

WatermarkRecord* WatermarkRowAt(int index)
{
    WatermarkNode* node = WatermarkHead ? WatermarkHead->next : nullptr;
    for (; index > 0 && node; --index) node = node->next;
    return node && index == 0 ? &node->row : nullptr;
}

int SelectWatermarkRow(int index)
{
    if (!WatermarkHead || !WatermarkHead->next) return 0;
    WatermarkRecord* row = WatermarkRowAt(index);
    if (!row) return -1;
    WatermarkCurrent = row;
    return 1;
}

void LoadWatermarkEdit()
{
    if (!WatermarkCurrent) return;
    WatermarkEdit = *WatermarkCurrent;
    if (WatermarkEdit.wmAngleMode == AngleModeDiagonal) WatermarkEdit.wmAngle = DiagonalAngle;
}

void FreeWatermarkList()
{
    while (WatermarkHead) {
        WatermarkNode* next = WatermarkHead->next;
        FreeNode(WatermarkHead);
        WatermarkHead = next;
    }
}
