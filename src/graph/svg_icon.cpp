#include "graph/svg_icon.h"

#include "core/trace.h"

#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

#include <algorithm>

namespace {

constexpr QColor kDiscFill(245, 165, 36);
constexpr QColor kDiscRing(38, 50, 66);

/// The substitute for a drawing: only the sun, with a ring like the drawings.
void DrawDisc(QPainter &painter, const QRectF &area)
{
    const double ring = area.width() / 16;
    const double margin = area.width() / 8;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(kDiscRing, ring));
    painter.setBrush(kDiscFill);
    painter.drawEllipse(area.adjusted(margin, margin, -margin, -margin));
}

QPixmap Rendered(const QString &fileName, int size)
{
    QSvgRenderer drawing(fileName);
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    const QRectF area(0, 0, size, size);
    if (drawing.isValid()) {
        drawing.render(&painter, area);
    } else {
        Trace(u"Unable to read icon ", fileName);
        DrawDisc(painter, area);
    }
    return pixmap;
}

/// Renders a drawing when a size is first requested, and keeps that picture.
class SvgIconEngine final : public QIconEngine
{
public:
    explicit SvgIconEngine(QString fileName) : m_fileName(std::move(fileName)) {}

    QPixmap pixmap(const QSize &size, QIcon::Mode /*mode*/, QIcon::State /*state*/) override
    {
        const int edge = std::max(1, std::min(size.width(), size.height()));
        QPixmap &picture = m_pictures[edge];
        if (picture.isNull())
            picture = Rendered(m_fileName, edge);
        return picture;
    }

    QSize actualSize(const QSize &size, QIcon::Mode /*mode*/, QIcon::State /*state*/) override
    {
        const int edge = std::min(size.width(), size.height());
        return {edge, edge};
    }

    QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override
    {
        QList<QSize> sizes;
        for (const int edge : kIconSizes)
            sizes.append({edge, edge});
        return sizes;
    }

    void paint(QPainter *painter, const QRect &area, QIcon::Mode mode, QIcon::State state) override
    {
        const QSize size = area.size() * painter->device()->devicePixelRatio();
        painter->drawPixmap(area, pixmap(size, mode, state));
    }

    bool isNull() override { return false; }

    [[nodiscard]] QIconEngine *clone() const override { return new SvgIconEngine(m_fileName); }

private:
    QString m_fileName;
    QHash<int, QPixmap> m_pictures; ///< By edge length in pixels.
};

} // namespace

QIcon IconFromSvg(const QString &fileName)
{
    return QIcon(new SvgIconEngine(fileName)); // owned by the icon
}
