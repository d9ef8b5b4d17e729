#include "app/value_box.h"

namespace {

constexpr int kFrame = 4;     // above and below the text together
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
