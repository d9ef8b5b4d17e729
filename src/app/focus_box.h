#pragma once

#include <QLineEdit>

/// The box nobody sees, which takes the focus off the controls that people see. It has the focus
/// most of the time, for years: so it has no cursor that blinks.
class FocusBox final : public QLineEdit
{
public:
    using QLineEdit::QLineEdit;

protected:
    // The line edit's answer is what sets its cursor going.
    void focusInEvent(QFocusEvent * /*event*/) override {}
};
