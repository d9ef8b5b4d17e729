#include "controls/elided_label.h"

#include "controls/control.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QTextLayout>
#include <QToolTip>

namespace {

constexpr qsizetype kLongestLaidOut = 1000; // far more than the window can show
constexpr int kPreferredWidth = 120;

} // namespace

ElidedLabel::ElidedLabel(int lines, QWidget *parent) : QLabel(parent), m_lines(lines)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

QSize ElidedLabel::sizeHint() const
{
    return {kPreferredWidth, m_lines * fontMetrics().lineSpacing()};
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {0, sizeHint().height()};
}

bool ElidedLabel::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), PlainToolTip(text()),
                           this);
        return true;
    }
    return QLabel::event(event);
}

QStringList ElidedLabel::LinesToPaint() const
{
    const QString shown = text().left(kLongestLaidOut).simplified();
    const int width = contentsRect().width();
    QTextLayout layout(shown, font());
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);

    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        if (lines.size() + 1 == m_lines) { // the last one takes the rest, as far as it goes
            lines.append(
                fontMetrics().elidedText(shown.mid(line.textStart()), Qt::ElideRight, width));
            break;
        }
        lines.append(shown.mid(line.textStart(), line.textLength()));
    }
    layout.endLayout();
    return lines;
}

void ElidedLabel::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    const QString lines = LinesToPaint().join(u'\n');
    painter.drawText(contentsRect(), int(alignment()), lines);
}
