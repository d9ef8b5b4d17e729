#include "weather/main_node.h"

#include "core/text.h"

QString WorkingText(const QString &reply)
{
    QString text(reply.size(), Qt::Uninitialized);
    const auto end = std::copy_if(reply.cbegin(), reply.cend(), text.begin(),
                                  [](QChar c) { return c != u'\r' && c != u'\n' && c != u'\t'; });
    text.truncate(end - text.begin());
    return text;
}

MainNode CutToMainNode(QString &text, const WeatherProfile &profile)
{
    if (profile.mainNodeOpen.isEmpty() || profile.mainNodeClose.isEmpty())
        return MainNode::Found;
    const qsizetype open = IndexOf(text, profile.mainNodeOpen);
    if (open < 0)
        return MainNode::NoOpening;
    const qsizetype close = IndexOf(text, profile.mainNodeClose, open);
    if (close < 0)
        return MainNode::NoClosing;

    const qsizetype length = close - open - profile.mainNodeOpen.size();
    // A closing tag that begins inside the opening one: the cut cannot be made.
    if (length >= 0)
        text = text.sliced(open + profile.mainNodeOpen.size() - 1, length);
    return MainNode::Found;
}
