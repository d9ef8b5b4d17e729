#pragma once

#include "controls/tool_tip.h"

#include <QComboBox>

/// A drop-down list with one signal for every choice.
///
/// The toolkit has one signal for a choice from the list and another for a change of the current
/// entry, and sends both for a choice that changes it; Click() comes exactly once. While the list
/// is closed, the mouse wheel does nothing. A title that does not fit ends in an ellipsis, and the
/// opened list is as wide as its titles.
class ChoiceList final : public QComboBox, public ToolTipSource
{
    Q_OBJECT

public:
    explicit ChoiceList(QWidget *parent);

    void showPopup() override;

    [[nodiscard]] bool IsShownWhole() const; ///< The title of the current entry.

    [[nodiscard]] QString ToolTipText() const override;

    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    void Click();  ///< An entry was chosen, also the current one, or the current entry changed.
    void Scroll(); ///< The opened list was scrolled.

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] QString ElidedTitle() const;
    void WatchScrolling();

    bool m_changeReported = false; ///< The user action that runs now has changed the entry.
    bool m_watchesScrolling = false;
};
