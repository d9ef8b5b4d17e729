#pragma once

#include <QObject>

#include <functional>

class QWidget;

/// Blocks the mnemonics of controls that a frame in front covers: nobody can see their letters, and
/// a page must not change unseen.
class CoveredMnemonics final : public QObject
{
    Q_OBJECT

public:
    /// `window` owns the object; it watches the controls that the window has now.
    /// @param front returns the frame in front at this moment, or null.
    CoveredMnemonics(QWidget &window, std::function<const QWidget *()> front);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::function<const QWidget *()> m_front;
};
