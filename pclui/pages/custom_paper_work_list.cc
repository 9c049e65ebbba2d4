#include "pages/custom_paper_work_list.h"

#include <new>

std::unique_ptr<CustomPaperNode> CustomPaperWorkList;

namespace {

// The link behind the last node, where the next one is hung: a store may claim more sizes than can be walked
// for each anew.
std::unique_ptr<CustomPaperNode>* EndLink = &CustomPaperWorkList;

// The link that holds the node at a position; the one behind the last if the list is shorter.
std::unique_ptr<CustomPaperNode>& LinkAt(int position)
{
    std::unique_ptr<CustomPaperNode>* link = &CustomPaperWorkList;
    for (; position > 0 && *link; --position) link = &(*link)->next;
    return *link;
}

}  // namespace

bool WorkListAppend(const CustomPaperEntry& entry)
{
    CustomPaperNode* made = new (std::nothrow) CustomPaperNode{entry, nullptr};
    if (!made) return false;
    EndLink->reset(made);
    EndLink = &made->next;
    return true;
}

CustomPaperEntry* WorkListEntryAt(int position)
{
    const std::unique_ptr<CustomPaperNode>& link = LinkAt(position);
    return link ? &link->entry : nullptr;
}

void WorkListRemoveAt(int position)
{
    std::unique_ptr<CustomPaperNode>& link = LinkAt(position);
    if (link) link = std::move(link->next);
    if (!link) EndLink = &link;
}

CustomPaperEntry* WorkListStoreAt(int position, const CustomPaperEntry& entry)
{
    CustomPaperEntry* stored = WorkListEntryAt(position);
    if (stored) *stored = entry;
    return stored;
}

int WorkListCount()
{
    int count = 0;
    for (const CustomPaperNode* node = CustomPaperWorkList.get(); node; node = node->next.get()) ++count;
    return count;
}

void WorkListFree()
{
    // One by one: a long list must not be released by nested destructors.
    while (CustomPaperWorkList) CustomPaperWorkList = std::move(CustomPaperWorkList->next);
    EndLink = &CustomPaperWorkList;
}
