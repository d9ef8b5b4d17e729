#include "app/value_box.h"

#include "controls/control.h"

#include <QHelpEvent>
#include <QStyleOptionFrame>
#include <QStylePainter>
#include <QToolTip>

namespace {

constexpr int kFrame = 5;      // above and below the text together
constexpr int kTextMargin = 2; // as in a line edit
constexpr int kMinWidth = 40;  // narrower is no use to anyone

} // namespace

ValueBox::ValueBox(QWidget *parent) : QLineEdit(parent)
{
    setReadOnly(true);
}

void ValueBox::SetValue(const QString &value)
{
    m_value = value;
    setText(value.left(kShownLength));
    setCursorPosition(0); // a long value shows its beginning
}

QSize ValueBox::sizeHint() const
{
    return {QLineEdit::sizeHint().width(), fontMetrics().height() + kFrame};
}

QSize ValueBox::minimumSizeHint() const
{
    return {kMinWidth, sizeHint().height()};
}

bool ValueBox::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip && !m_value.isEmpty()) {
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), PlainToolTip(m_value),
                           this);
        return true;
    }
    return QLineEdit::event(event);
}

void ValueBox::paintEvent(QPaintEvent *event)
{
    QStyleOptionFrame option;
    initStyleOption(&option);
    const QRect room = style()
                           ->subElementRect(QStyle::SE_LineEditContents, &option, this)
                           .adjusted(kTextMargin, 0, -kTextMargin, 0);
    // With the focus it is a line edit that can be scrolled and copied from.
    if (hasFocus() || fontMetrics().horizontalAdvance(text()) <= room.width()) {
        QLineEdit::paintEvent(event);
        return;
    }
    QStylePainter painter(this);
    painter.drawPrimitive(QStyle::PE_PanelLineEdit, option);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(room, int(Qt::AlignLeft | Qt::AlignVCenter),
                     fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
}
