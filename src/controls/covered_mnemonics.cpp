#include "controls/covered_mnemonics.h"

#include <QEvent>
#include <QWidget>

CoveredMnemonics::CoveredMnemonics(QWidget &window, std::function<const QWidget *()> front)
    : QObject(&window)
    , m_front(std::move(front))
{
    for (QWidget *control : window.findChildren<QWidget *>())
        control->installEventFilter(this);
}

bool CoveredMnemonics::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Shortcut)
        return false;
    const QWidget *front = m_front();
    const auto *control = static_cast<QWidget *>(watched);
    return front != nullptr && front->parentWidget()->isAncestorOf(control)
        && !front->isAncestorOf(control);
}
