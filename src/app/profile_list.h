#pragma once

#include "controls/tool_tip.h"

#include <QComboBox>

/// The drop-down list of the profiles, with one signal for every choice.
///
/// The toolkit reports a choice from the list and a change of the current entry apart, and a choice
/// that changes the entry twice; Click() comes exactly once for either. A title that does not fit
/// ends in an ellipsis, and the opened list is as wide as its titles.
class ProfileList final : public QComboBox, public ToolTipSource
{
    Q_OBJECT

public:
    explicit ProfileList(QWidget *parent);

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
