#pragma once

#include <QComboBox>

/// The drop-down list of the profiles, with one signal for every choice.
///
/// The toolkit reports a choice from the list and a change of the current entry apart, and a choice
/// that changes the entry twice; Click() comes exactly once for either.
class ProfileList final : public QComboBox
{
    Q_OBJECT

public:
    explicit ProfileList(QWidget *parent);

    void showPopup() override;

Q_SIGNALS:
    void Click();  ///< An entry was chosen, also the current one, or the current entry changed.
    void Scroll(); ///< The opened list was scrolled.

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    bool m_changeReported = false; ///< The user action that runs now has changed the entry.
};
