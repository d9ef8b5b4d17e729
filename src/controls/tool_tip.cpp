#include "controls/tool_tip.h"

#include <QHelpEvent>
#include <QToolTip>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

const QString kName = u"LiteralToolTip"_s;
constexpr qsizetype kLongest = 1000;      // a tool tip must fit on the screen
constexpr qsizetype kLongestTipLine = 60; // characters

/// `line` in lines of readable length, wrapped at blanks if there are any. The toolkit itself would
/// make a column of a few words of it.
QString Folded(QStringView line)
{
    QStringList lines;
    while (line.size() > kLongestTipLine) {
        const qsizetype blank = line.first(kLongestTipLine + 1).lastIndexOf(u' ');
        lines.append(line.first(blank > 0 ? blank : kLongestTipLine).toString());
        line = line.sliced(blank > 0 ? blank + 1 : kLongestTipLine);
    }
    lines.append(line.toString());
    return lines.join(u'\n');
}

/// Shows the tool tip of its parent.
class LiteralToolTip final : public QObject
{
public:
    explicit LiteralToolTip(QWidget *control) : QObject(control)
    {
        setObjectName(kName);
        control->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::ToolTip)
            return false;
        auto *control = static_cast<QWidget *>(watched);
        const auto *source = dynamic_cast<const ToolTipSource *>(control);
        const QString text = source == nullptr ? control->toolTip() : source->ToolTipText();
        if (text.isEmpty())
            QToolTip::hideText();
        else
            QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), PlainToolTip(text),
                               control);
        return true;
    }
};

} // namespace

QString PlainToolTip(const QString &text)
{
    QStringList lines;
    for (const QStringView line : QStringView(text).left(kLongest).split(u'\n'))
        lines.append(Folded(line));
    return u"<p style=\"white-space:pre\">"_s + lines.join(u'\n').toHtmlEscaped() + u"</p>"_s;
}

void ShowToolTipLiterally(QWidget *control)
{
    if (control->findChild<QObject *>(kName, Qt::FindDirectChildrenOnly) == nullptr)
        new LiteralToolTip(control); // owned by it
}

void SetHelp(QWidget *control, const QString &text)
{
    control->setToolTip(text);
    ShowToolTipLiterally(control);
}
