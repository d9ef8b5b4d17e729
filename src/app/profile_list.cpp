#include "app/profile_list.h"

#include <QAbstractItemView>
#include <QScrollBar>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QWheelEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kTextMargin = 2; // as the styles have it
constexpr int kMinWidth = 80;  // narrower is no use to anyone
constexpr int kMaxWidth = 600; // of the opened list: it has to fit on a screen

} // namespace

ProfileList::ProfileList(QWidget *parent) : QComboBox(parent)
{
    setPlaceholderText(u"No profiles found"_s);
    connect(this, &QComboBox::currentIndexChanged, this, [this] {
        m_changeReported = true;
        Q_EMIT Click();
    });
    connect(this, &QComboBox::activated, this, [this] {
        if (!std::exchange(m_changeReported, false))
            Q_EMIT Click();
    });
}

// Not before the list is opened: until somebody asks for it, there is none.
void ProfileList::WatchScrolling()
{
    if (std::exchange(m_watchesScrolling, true))
        return;
    connect(view()->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        if (view()->isVisible())
            Q_EMIT Scroll();
    });
}

// What the user does begins in one of these two; a change made by code before does not count.

void ProfileList::showPopup()
{
    m_changeReported = false;
    WatchScrolling();
    const int titles =
        view()->sizeHintForColumn(0) + style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    view()->setMinimumWidth(std::min(titles, kMaxWidth));
    QComboBox::showPopup();
}

void ProfileList::keyPressEvent(QKeyEvent *event)
{
    m_changeReported = false;
    QComboBox::keyPressEvent(event);
}

void ProfileList::wheelEvent(QWheelEvent *event)
{
    // Another profile resets the lowest and highest temperature of today: never by accident.
    event->ignore();
}

QSize ProfileList::minimumSizeHint() const
{
    return {kMinWidth, QComboBox::minimumSizeHint().height()};
}

QString ProfileList::ElidedTitle() const
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QRect room =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    return fontMetrics().elidedText(currentText(), Qt::ElideRight, room.width() - kTextMargin);
}

bool ProfileList::IsShownWhole() const
{
    return ElidedTitle() == currentText();
}

QString ProfileList::ToolTipText() const
{
    return IsShownWhole() ? toolTip() : currentText() + u'\n' + toolTip();
}

void ProfileList::paintEvent(QPaintEvent *event)
{
    if (currentIndex() < 0) { // the placeholder
        QComboBox::paintEvent(event);
        return;
    }
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.currentText = ElidedTitle();
    QStylePainter painter(this);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}
