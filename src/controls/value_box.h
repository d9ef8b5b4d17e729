#pragma once

#include "controls/tool_tip.h"

#include <QLineEdit>

/// A read-only box for one value of any length.
///
/// A line edit cuts at 32,767 characters and takes seconds to lay out a long text. This box keeps
/// the whole value, because what it shows is also written to a file, and lays out the beginning
/// only. A value that does not fit ends in an ellipsis, and the tool tip shows more of it. The
/// texts for a missing value are muted.
class ValueBox final : public QLineEdit, public ToolTipSource
{
    Q_OBJECT

public:
    /// Characters that are laid out; far more than the window's width.
    static constexpr qsizetype kShownLength = 2000;

    explicit ValueBox(QWidget *parent);

    /// Shows `value` from its beginning. Half a surrogate pair becomes U+FFFD.
    void SetValue(const QString &value);

    /// The whole value, shown or not.
    [[nodiscard]] const QString &Value() const { return m_value; }

    /// Whether the value can be read in the box from its beginning to its end.
    [[nodiscard]] bool IsShownWhole() const;

    [[nodiscard]] QString ToolTipText() const override;

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void ApplyColors();
    [[nodiscard]] bool IsMissing() const;
    [[nodiscard]] QRect Room() const;

    QString m_value;
};
