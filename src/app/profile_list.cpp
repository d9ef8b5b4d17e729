#include "app/profile_list.h"

#include <QAbstractItemView>
#include <QScrollBar>

ProfileList::ProfileList(QWidget *parent) : QComboBox(parent)
{
    connect(this, &QComboBox::currentIndexChanged, this, [this] {
        m_changeReported = true;
        Q_EMIT Click();
    });
    connect(this, &QComboBox::activated, this, [this] {
        if (!std::exchange(m_changeReported, false))
            Q_EMIT Click();
    });
    connect(view()->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        if (view()->isVisible())
            Q_EMIT Scroll();
    });
}

// What the user does begins in one of these three; a change made by code before does not count.

void ProfileList::showPopup()
{
    m_changeReported = false;
    QComboBox::showPopup();
}

void ProfileList::keyPressEvent(QKeyEvent *event)
{
    m_changeReported = false;
    QComboBox::keyPressEvent(event);
}

void ProfileList::wheelEvent(QWheelEvent *event)
{
    m_changeReported = false;
    QComboBox::wheelEvent(event);
}
