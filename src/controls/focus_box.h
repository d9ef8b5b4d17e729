#pragma once

#include <QLineEdit>

/// An invisible box that holds the focus so that no visible control does. It has the focus most of
/// the time, for years, so its cursor does not blink.
class FocusBox final : public QLineEdit
{
public:
    using QLineEdit::QLineEdit;

protected:
    // The line edit would start its cursor.
    void focusInEvent(QFocusEvent * /*event*/) override {}
};
