#pragma once

#include <QObject>

#include <functional>

class QWidget;

/// Keeps the mnemonics of controls still that a frame in front covers: nobody sees their letters,
/// and a page must not change unseen.
class CoveredMnemonics final : public QObject
{
    Q_OBJECT

public:
    /// @param front the frame in front at this moment; null when there is none.
    CoveredMnemonics(QWidget &window, std::function<const QWidget *()> front);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::function<const QWidget *()> m_front;
};
