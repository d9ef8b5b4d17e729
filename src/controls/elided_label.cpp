#include "controls/elided_label.h"

#include "controls/control.h"
#include "controls/muted_color.h"
#include "controls/tabular_text.h"

#include <QPainter>
#include <QTextLayout>

#include <algorithm>

namespace {

constexpr qsizetype kLongestLaidOut = 1000; // far more than the window can show
constexpr int kPreferredWidth = 120;
constexpr int kNoticeLines = 2;

} // namespace

ElidedLabel::ElidedLabel(int lines, QWidget *parent) : QLabel(parent), m_lines(lines)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    ShowToolTipLiterally(this);
}

void ElidedLabel::SetElideMode(Qt::TextElideMode mode)
{
    m_elideMode = mode;
    update();
}

void ElidedLabel::SetRoomFor(const QString &text)
{
    m_roomFor = text;
    updateGeometry();
}

void ElidedLabel::SetMuted()
{
    m_muted = true;
    update();
}

QSize ElidedLabel::sizeHint() const
{
    return {kPreferredWidth, m_lines * fontMetrics().lineSpacing()};
}

QSize ElidedLabel::minimumSizeHint() const
{
    const TextWidth width = Width();
    return {width(WithWidestDigits(m_roomFor, width)), sizeHint().height()};
}

TextWidth ElidedLabel::Width() const
{
    // Digits are measured one by one: looking up a single character is cheaper than shaping a text.
    return [metrics = fontMetrics()](const QString &text) {
        return text.size() == 1 ? metrics.horizontalAdvance(text.front())
                                : metrics.horizontalAdvance(text);
    };
}

QString ElidedLabel::ShownText() const
{
    return text().left(kLongestLaidOut).simplified();
}

QString ElidedLabel::ToolTipText() const
{
    QStringList parts;
    if (text().size() > kLongestLaidOut || Lines().join(QString()) != ShownText())
        parts.append(text());
    parts.append(toolTip());
    parts.removeAll({});
    return parts.join(u'\n');
}

// Lines are wrapped and cut as if all digits were the widest, so that neither place moves when a
// digit changes.
QStringList ElidedLabel::Lines() const
{
    const QString shown = ShownText();
    const QString widest = WithWidestDigits(shown, Width());
    QTextLayout layout(widest, font());
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);

    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(contentsRect().width());
        if (lines.size() + 1 == m_lines) { // the last line takes the rest, as far as it fits
            lines.append(Elided(shown.mid(line.textStart()), widest.mid(line.textStart())));
            break;
        }
        lines.append(shown.mid(line.textStart(), line.textLength()));
    }
    layout.endLayout();
    return lines;
}

/// `line` cut where `widest`, the same line with the widest digits, must be.
QString ElidedLabel::Elided(const QString &line, const QString &widest) const
{
    const QString cut = fontMetrics().elidedText(widest, m_elideMode, contentsRect().width());
    if (cut == widest)
        return line;
    const auto ellipsis = std::mismatch(cut.begin(), cut.end(), widest.begin(), widest.end()).first;
    if (ellipsis == cut.end()) // nothing fits
        return {};
    const qsizetype front = ellipsis - cut.begin();
    return line.left(front) + *ellipsis + line.right(cut.size() - front - 1);
}

void ElidedLabel::PaintLine(QPainter &painter, int top, const QString &line) const
{
    for (const PlacedText &piece : PlaceTabular(line, Width())) {
        const QRect room(contentsRect().x() + piece.x, top, piece.width, fontMetrics().height());
        painter.drawText(room, int(Qt::AlignCenter) | int(Qt::TextDontClip), piece.text);
    }
}

void ElidedLabel::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    painter.setPen(m_muted ? MutedColor(palette(), foregroundRole(), backgroundRole())
                           : palette().color(foregroundRole()));
    const QRect room = contentsRect();
    const int spacing = fontMetrics().lineSpacing();
    // The first line of a text that comes and goes stays in place.
    int top = room.top() + (room.height() - m_lines * spacing) / 2;
    for (const QString &line : Lines()) {
        PaintLine(painter, top, line);
        top += spacing;
    }
}

ElidedLabel *MakeNotice(QWidget *parent, const QString &name, const QString &text)
{
    auto *notice = MakeControl<ElidedLabel>(parent, name, kNoticeLines);
    notice->setText(text);
    notice->SetMuted();
    return notice;
}
