#pragma once

#include "controls/tool_tip.h"

#include <QLineEdit>

/// A read-only box for one value of any length.
///
/// A line edit cuts at 32,767 characters and takes seconds to lay out a long text; what is shown
/// here is written to a file, so the box keeps the whole value and shows its beginning only;
/// a value that does not fit ends in an ellipsis, and the tool tip shows more of it. A value that
/// says that there is none is shown muted.
class ValueBox final : public QLineEdit, public ToolTipSource
{
    Q_OBJECT

public:
    /// Characters that are laid out; far more than the window's width.
    static constexpr qsizetype kShownLength = 2000;

    explicit ValueBox(QWidget *parent);

    void SetValue(const QString &value);
    [[nodiscard]] const QString &Value() const { return m_value; }

    /// Whether the value can be read in the box from its beginning to its end.
    [[nodiscard]] bool IsShownWhole() const;

    [[nodiscard]] QString ToolTipText() const override;

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void TakeColors();
    [[nodiscard]] bool IsMissing() const;
    [[nodiscard]] QRect Room() const;

    QString m_value;
};
