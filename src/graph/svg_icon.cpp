#include "graph/svg_icon.h"

#include "core/trace.h"

#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

namespace {

constexpr QColor kDiscFill(245, 165, 36);
constexpr QColor kDiscRing(38, 50, 66);

/// What stands in for a drawing: the sun without anything, ringed as the drawings are.
void DrawDisc(QPainter &painter, const QRectF &area)
{
    const double ring = area.width() / 16;
    const double margin = area.width() / 8;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(kDiscRing, ring));
    painter.setBrush(kDiscFill);
    painter.drawEllipse(area.adjusted(margin, margin, -margin, -margin));
}

QPixmap Rendered(QSvgRenderer &drawing, int size)
{
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    const QRectF area(0, 0, size, size);
    if (drawing.isValid())
        drawing.render(&painter, area);
    else
        DrawDisc(painter, area);
    return pixmap;
}

} // namespace

QIcon IconFromSvg(const QString &fileName)
{
    QSvgRenderer drawing(fileName);
    if (!drawing.isValid())
        Trace(u"Unable to read icon ", fileName);
    QIcon icon;
    for (const int size : kIconSizes)
        icon.addPixmap(Rendered(drawing, size));
    return icon;
}
