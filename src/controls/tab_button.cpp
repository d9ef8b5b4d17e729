#include "controls/tab_button.h"

#include <QStyleOptionFocusRect>
#include <QStyleOptionTab>
#include <QStylePainter>

namespace {

constexpr int kInset = 5; // of the caption on either side
constexpr int kFocusInset = 3;
constexpr int kUnstretched = 100;

} // namespace

void TabButton::paintEvent(QPaintEvent * /*event*/)
{
    QStyleOptionTab option;
    option.initFrom(this);
    option.shape = QTabBar::RoundedNorth;
    option.position = QStyleOptionTab::OnlyOneTab;
    option.state |= QStyle::State_Enabled;
    if (!isEnabled())
        option.state |= QStyle::State_Selected;
    option.palette.setCurrentColorGroup(QPalette::Active);
    QStylePainter painter(this);
    painter.drawControl(QStyle::CE_TabBarTabShape, option);

    const int room = width() - 2 * kInset;
    const int wanted = fontMetrics().size(Qt::TextShowMnemonic, text()).width();
    if (wanted > room) {
        QFont narrow = font();
        narrow.setStretch(kUnstretched * room / wanted);
        painter.setFont(narrow);
    }
    painter.drawItemText(rect(), int(Qt::AlignCenter) | int(Qt::TextShowMnemonic), option.palette,
                         true, text(), QPalette::ButtonText);
    if ((option.state & QStyle::State_KeyboardFocusChange) && hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect.adjust(kFocusInset, kFocusInset, -kFocusInset, -kFocusInset);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
}
