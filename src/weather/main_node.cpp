#include "weather/main_node.h"

#include "core/text.h"

#include <algorithm>
#include <cstdint>

QString WorkingText(const QString &reply)
{
    // Most characters stay, so blocks without a control character are copied whole.
    constexpr qsizetype kBlock = 8; // characters in one vector
    const auto stays = [](QChar c) { return c != u'\r' && c != u'\n' && c != u'\t'; };
    QString text(reply.size(), Qt::Uninitialized);
    QChar *to = text.data();
    const QChar *from = reply.cbegin();
    for (; reply.cend() - from >= kBlock; from += kBlock) {
        std::uint16_t least = UINT16_MAX;
        for (qsizetype i = 0; i < kBlock; ++i)
            least = std::min<std::uint16_t>(least, from[i].unicode());
        to = least <= u'\r' ? std::copy_if(from, from + kBlock, to, stays)
                            : std::copy_n(from, kBlock, to);
    }
    to = std::copy_if(from, reply.cend(), to, stays);
    text.truncate(to - text.data());
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
    // If the closing tag begins inside the opening one, the cut is impossible.
    if (length >= 0)
        text = text.sliced(open + profile.mainNodeOpen.size() - 1, length);
    return MainNode::Found;
}
