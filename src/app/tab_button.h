#pragma once

#include <QPushButton>
#include <QStyleOptionButton>
#include <QStylePainter>

/// A button that chooses a page. The one of the current page is disabled, but not greyed: it is the
/// page's title.
class TabButton final : public QPushButton
{
    Q_OBJECT

public:
    using QPushButton::QPushButton;

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QStyleOptionButton option;
        initStyleOption(&option);
        option.state |= QStyle::State_Enabled;
        option.palette.setCurrentColorGroup(QPalette::Active);
        QStylePainter(this).drawControl(QStyle::CE_PushButton, option);
    }
};
