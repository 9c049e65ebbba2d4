// The custom sizes as they are edited: a list that exists while the Custom Paper dialog is open, in the
// order of the dialog's list view. Positions count from 0.
#pragma once

#include <memory>

#include "spooler/stored_records.h"

struct CustomPaperNode {
    CustomPaperEntry entry{};
    std::unique_ptr<CustomPaperNode> next;
};

// The first node, null when the list is empty. Written by the operations below alone.
extern std::unique_ptr<CustomPaperNode> CustomPaperWorkList;

bool WorkListAppend(const CustomPaperEntry& entry);  // false without memory
CustomPaperEntry* WorkListEntryAt(int position);     // null behind the end; below 1 the first
void WorkListRemoveAt(int position);                 // 0 or less removes the first
CustomPaperEntry* WorkListStoreAt(int position, const CustomPaperEntry& entry);  // null if there is none
int WorkListCount();
void WorkListFree();
