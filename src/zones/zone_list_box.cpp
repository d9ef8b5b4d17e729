#include "zones/zone_list_box.h"

#include "controls/muted_color.h"

#include <QStyledItemDelegate>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kLongestShown = 1000; // several times the longest real entry
constexpr int kLineGap = 3;

/// Paints each entry on one line. Of a file that is not a zone's it paints only as much as can be
/// laid out instantly.
class EntryPainter final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QString displayText(const QVariant &value,
                                      const QLocale & /*locale*/) const override
    {
        return value.toString().left(kLongestShown).remove(u'\r');
    }

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option,
                                 const QModelIndex &index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, kLineGap);
    }
};

} // namespace

ZoneListBox::ZoneListBox(QWidget *parent) : WithFocusFrame(parent)
{
    setItemDelegate(new EntryPainter(this)); // owned by the list
    setTextElideMode(Qt::ElideNone);         // long entries scroll instead
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setTabKeyNavigation(false);
}

void ZoneListBox::paintEvent(QPaintEvent *event)
{
    QListWidget::paintEvent(event);
    if (count() > 0 || !isEnabled()) // disabled: it is being filled
        return;
    QPainter painter(viewport());
    painter.setPen(MutedColor(palette(), QPalette::Text, QPalette::Base));
    painter.drawText(viewport()->rect(), int(Qt::AlignCenter) | int(Qt::TextWordWrap),
                     u"Choose a state and press \"Get Zone Code List\"."_s);
}
