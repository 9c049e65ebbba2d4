#include "help_topics.h"

#include <QRegularExpression>

namespace desktop {

namespace {

// desktop/help/topics.md as it stands: a topic begins with "## NUMBER TITLE".
constexpr char Source[] =
#include "help_topics.inc"
    ;

std::vector<HelpTopic> ReadTopics()
{
    static const QRegularExpression heading("^## (\\d+) (.+)$");
    std::vector<HelpTopic> topics;
    for (const QString& line : QString::fromUtf8(Source).split('\n')) {
        if (const auto match = heading.match(line); match.hasMatch()) {
            topics.push_back({match.captured(1).toUInt(), match.captured(2), {}});
        } else if (!topics.empty()) {
            topics.back().text += line + '\n';
        }
    }
    return topics;
}

}  // namespace

const std::vector<HelpTopic>& HelpTopics()
{
    static const std::vector<HelpTopic> topics = ReadTopics();
    return topics;
}

const HelpTopic* FindHelpTopic(DWORD context)
{
    for (const HelpTopic& topic : HelpTopics())
        if (topic.context == context) return &topic;
    return nullptr;
}

}  // namespace desktop
