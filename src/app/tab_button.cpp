#include "app/tab_button.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace {

constexpr int kInset = 5; // of the caption on either side
constexpr int kUnstretched = 100;

} // namespace

void TabButton::paintEvent(QPaintEvent * /*event*/)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    option.state |= QStyle::State_Enabled;
    option.palette.setCurrentColorGroup(QPalette::Active);

    QStylePainter painter(this);
    const int room = width() - 2 * kInset;
    const int wanted = fontMetrics().size(Qt::TextShowMnemonic, text()).width();
    if (wanted > room) {
        QFont narrow = font();
        narrow.setStretch(kUnstretched * room / wanted);
        painter.setFont(narrow);
    }
    painter.drawControl(QStyle::CE_PushButton, option);
}
