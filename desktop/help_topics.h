// The help that the desktop shows: one topic for each context number that a dialog can ask for.
#pragma once

#include <QString>
#include <vector>

#include "platform/types.h"

namespace desktop {

struct HelpTopic {
    DWORD context;
    QString title;
    QString text;  // Markdown, without the title
};

// In the order of their numbers.
const std::vector<HelpTopic>& HelpTopics();

// Null for a number without a topic.
const HelpTopic* FindHelpTopic(DWORD context);

}  // namespace desktop
