#include "app/value_box.h"

#include "app/control.h"

#include <QHelpEvent>
#include <QToolTip>

namespace {

constexpr int kFrame = 5;     // above and below the text together
constexpr int kMinWidth = 40; // narrower is no use to anyone

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
