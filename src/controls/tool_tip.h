#pragma once

#include <QString>

class QWidget;

/// `text` as a tool tip that shows it literally, whatever it contains, in lines of readable length.
[[nodiscard]] QString PlainToolTip(const QString &text);

/// A control whose tool tip shows more than its purpose.
class ToolTipSource
{
public:
    ToolTipSource() = default;
    virtual ~ToolTipSource() = default;
    Q_DISABLE_COPY_MOVE(ToolTipSource)

    /// The control's text if it does not fit, and what the control is for.
    [[nodiscard]] virtual QString ToolTipText() const = 0;
};

/// Makes `control` show its tool tip literally, in lines of readable length; the toolkit would
/// guess whether it contains markup. The text is that of toolTip() or, for a ToolTipSource, its
/// own.
void ShowToolTipLiterally(QWidget *control);

/// Gives `control` a tool tip that says what it is for. The text is kept plain, so that assistive
/// tools can read it out.
void SetHelp(QWidget *control, const QString &text);
