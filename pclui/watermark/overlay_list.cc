#include "watermark/overlay_list.h"

#include <cstring>

#include "module.h"
#include "platform/user.h"
#include "resources/control_numbers.h"
#include "settings/wide_text.h"
#include "spooler/opened_printer.h"
#include "spooler/printer_data.h"

OverlayEntry* OverlayList = nullptr;
OverlayEntry* OverlaySelected = nullptr;
OverlayEntry* OverlayEditing = nullptr;
int OverlayIndex = 0;
int OverlayIsNew = 0;
WCHAR OverlayNewName[OverlayTextChars] = {};
WCHAR OverlayNewPath[OverlayTextChars] = {};

namespace {

// A row's own links are 32 bits wide and hold handles; these are the ones that are followed.
struct Node {
    OverlayEntry row;
    Node* previous;
    Node* next;
    HGLOBAL block;  // that the node lies in, locked as long as the node lives
};

Node* NodeOf(const OverlayEntry* row) { return reinterpret_cast<Node*>(const_cast<OverlayEntry*>(row)); }
OverlayEntry* RowOf(Node* node) { return node ? &node->row : nullptr; }
DWORD HandleOf(const Node* node) { return node ? static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(node->block)) : 0; }

void Join(Node* before, Node* after)
{
    if (before) {
        before->next = after;
        before->row.ovNext = HandleOf(after);
    }
    if (after) {
        after->previous = before;
        after->row.ovPrevious = HandleOf(before);
    }
}

void Release(Node* node)
{
    const HGLOBAL block = node->block;
    GlobalUnlock(block);
    GlobalFree(block);
}

OverlayEntry* MakeHead()
{
    OverlayEntry* head = MakeOverlay();
    if (!head) return nullptr;
    LoadStringW(ResourceHandle, IDS_NONE, head->ovName, OverlayTextChars);
    CopyBounded(head->ovPath, head->ovName, OverlayTextChars);
    return head;
}

// Stored rows are hostile: texts end at their fields' ends, links are not read, and a part of a row is none.
void AppendStoredRows(OverlayEntry* head, const BYTE* stored, std::size_t bytes, int index, OverlayEntry*& chosen)
{
    OverlayEntry* last = head;
    int position = 0;
    for (std::size_t at = OverlayHeaderBytes; at + sizeof(OverlayEntry) <= bytes; at += sizeof(OverlayEntry)) {
        OverlayEntry from;
        std::memcpy(&from, stored + at, sizeof from);
        OverlayEntry* row = MakeOverlay();
        if (!row) return;
        CopyBounded(row->ovName, from.ovName, OverlayTextChars);
        CopyBounded(row->ovPath, from.ovPath, OverlayTextChars);
        row->ovPending = from.ovPending;
        LinkOverlay(last, row);
        last = row;
        if (++position == index) chosen = row;
    }
}

}  // namespace

OverlayEntry* MakeOverlay()
{
    const HGLOBAL block = GlobalAlloc(GHND, sizeof(Node));
    if (!block) return nullptr;
    auto* node = static_cast<Node*>(GlobalLock(block));
    if (!node) {
        GlobalFree(block);
        return nullptr;
    }
    node->block = block;
    return &node->row;
}

void LinkOverlay(OverlayEntry* before, OverlayEntry* row)
{
    Node* after = NodeOf(before)->next;
    Join(NodeOf(before), NodeOf(row));
    Join(NodeOf(row), after);
}

void UnlinkOverlay(OverlayEntry* row)
{
    Node* node = NodeOf(row);
    Join(node->previous, node->next);
    node->previous = node->next = nullptr;
    row->ovPrevious = row->ovNext = 0;
}

OverlayEntry* CutOverlaysBehind(OverlayEntry* row)
{
    OverlayEntry* cut = NextOverlay(row);
    if (cut) {
        Join(NodeOf(row), nullptr);
        Join(nullptr, NodeOf(cut));
    }
    return cut;
}

void AppendOverlays(OverlayEntry* last, OverlayEntry* rows)
{
    if (last && rows) Join(NodeOf(last), NodeOf(rows));
}

void ReleaseOverlay(OverlayEntry* row)
{
    UnlinkOverlay(row);
    if (OverlaySelected == row) OverlaySelected = OverlayList;
    if (OverlayEditing == row) OverlayEditing = OverlayList;
    Release(NodeOf(row));
}

OverlayEntry* NextOverlay(const OverlayEntry* row) { return row ? RowOf(NodeOf(row)->next) : nullptr; }

OverlayEntry* FindPendingOverlay(OverlayEntry* head)
{
    while (head && head->ovPending != 1) head = NextOverlay(head);
    return head;
}

void FreeOverlayEntries(OverlayEntry* head)
{
    while (head) {
        OverlayEntry* next = NextOverlay(head);
        Release(NodeOf(head));
        head = next;
    }
}

int LoadOverlayList(OverlayEntry*& head, OverlayEntry*& selected, OverlayEntry*& editing, int& index)
{
    head = selected = editing = MakeHead();
    const OpenedPrinter printer(PrinterName, PRINTER_READ);
    if (!printer) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    DWORD bytes = 0;
    const auto stored = ReadOverlayBlob(printer.Handle(), &bytes);
    if (stored && head) AppendStoredRows(head, stored.get(), bytes, index, selected);
    editing = selected;
    return 1;
}

int SaveOverlayList(const OverlayEntry* head, int index)
{
    const OpenedPrinter printer(PrinterName, PRINTER_ALL_ACCESS);
    if (!printer) return 0;
    std::size_t rows = 0;
    for (const OverlayEntry* row = NextOverlay(head); row; row = NextOverlay(row)) ++rows;
    if (rows == 0) {
        WritePrinterBlob(printer.Handle(), nullptr, 0, OverlaySlot);
        return 1;
    }
    const std::size_t bytes = OverlayHeaderBytes + rows * sizeof(OverlayEntry);
    const LockedBlock block(bytes);
    if (!block) return 0;
    std::memcpy(block.Bytes(), &index, OverlayHeaderBytes);
    BYTE* at = block.Bytes() + OverlayHeaderBytes;
    for (const OverlayEntry* row = NextOverlay(head); row; row = NextOverlay(row), at += sizeof(OverlayEntry))
        std::memcpy(at, row, sizeof(OverlayEntry));
    WritePrinterBlob(printer.Handle(), block.Bytes(), static_cast<DWORD>(bytes), OverlaySlot);
    return 1;
}

int SaveOverlayChoice() { return SaveOverlayList(OverlayList, OverlayIndex); }
