#pragma once

#include <QString>

class QWidget;

/// `text` as a tool tip that shows it literally, whatever it holds, in lines of a handy length.
[[nodiscard]] QString PlainToolTip(const QString &text);

/// A control whose tool tip says more than what it is for.
class ToolTipSource
{
public:
    ToolTipSource() = default;
    virtual ~ToolTipSource() = default;
    Q_DISABLE_COPY_MOVE(ToolTipSource)

    /// The text where it does not fit, and what the control is for.
    [[nodiscard]] virtual QString ToolTipText() const = 0;
};

/// Has the tool tip of `control` shown literally, in lines of a handy length: the toolkit would
/// guess whether it holds markup. It says what toolTip() says, or a ToolTipSource itself.
void ShowToolTipLiterally(QWidget *control);

/// Gives `control` a tool tip that says what it is for. The text is kept plain, so that assistive
/// tools can read it out.
void SetHelp(QWidget *control, const QString &text);
