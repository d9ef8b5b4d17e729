#include "graph/graph_painter.h"

#include "controls/mixed_color.h"

#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kCurveWidth = 2;
constexpr double kMarkerRadius = 2.5;
constexpr double kDash = 5; // of the minimum and maximum lines
constexpr double kDashDistance = 7.5;

constexpr int kDarkBelow = 128; // lightness
constexpr double kGuideStrength = 0.14;
constexpr double kAxisStrength = 0.45;
constexpr double kLabelStrength = 0.72;
constexpr double kAreaStrength = 0.22;

/// Greys follow the palette; the three colours have a shade that contrasts with its base.
struct GraphColors
{
    explicit GraphColors(const QPalette &palette)
        : base(palette.color(QPalette::Base))
        , text(palette.color(QPalette::Text))
        , label(Mixed(text, base, kLabelStrength))
        , axis(Mixed(text, base, kAxisStrength))
        , guide(Mixed(text, base, kGuideStrength))
    {
        if (base.lightness() < kDarkBelow) {
            curve = QColor(255, 190, 70);
            highest = QColor(255, 128, 104);
            lowest = QColor(104, 180, 255);
        }
    }

    QColor base;
    QColor text;
    QColor label;
    QColor axis;
    QColor guide;
    QColor curve = QColor(214, 122, 0);
    QColor highest = QColor(196, 50, 30);
    QColor lowest = QColor(20, 104, 190);
};

/// Lines along the edges of the screen's pixels. If a logical pixel is one and a half of the
/// screen's, a pen would spread them over two rows.
class HairLines final
{
public:
    explicit HairLines(QPainter &painter)
        : m_painter(painter)
        , m_toScreen(painter.deviceTransform())
        , m_fromScreen(m_toScreen.inverted())
        , m_thickness(std::max(1.0, std::round(m_toScreen.m22())))
    {}

    void Horizontal(const QLineF &line, const QColor &color)
    {
        const QLineF onScreen = m_toScreen.map(line);
        const double left = std::round(onScreen.x1());
        const double top = std::round(onScreen.y1() - m_thickness / 2);
        Fill({left, top, std::round(onScreen.x2()) - left, m_thickness}, color);
    }

    void Vertical(const QLineF &line, const QColor &color)
    {
        const QLineF onScreen = m_toScreen.map(line);
        const double left = std::round(onScreen.x1() - m_thickness / 2);
        const double top = std::round(onScreen.y1());
        Fill({left, top, m_thickness, std::round(onScreen.y2()) - top}, color);
    }

    void Dashed(const QLineF &line, const QColor &color)
    {
        const int count = int(std::ceil(line.dx() / kDashDistance));
        for (int i = 0; i < count; ++i) {
            const double left = line.x1() + i * kDashDistance;
            const double right = std::min(left + kDash, line.x2());
            Horizontal({left, line.y1(), right, line.y1()}, color);
        }
    }

private:
    void Fill(const QRectF &onScreen, const QColor &color)
    {
        m_painter.fillRect(m_fromScreen.mapRect(onScreen), color);
    }

    QPainter &m_painter;
    QTransform m_toScreen;
    QTransform m_fromScreen;
    double m_thickness; ///< Of one logical pixel, in whole pixels of the screen.
};

void PaintLabel(QPainter &painter, const GraphLabel &label, Qt::Alignment alignment,
                const QColor &color)
{
    if (!label.visible)
        return;
    const QString text =
        painter.fontMetrics().elidedText(label.caption, Qt::ElideRight, int(label.box.width()));
    painter.setPen(color);
    painter.drawText(label.box, int(alignment | Qt::AlignVCenter | Qt::TextSingleLine), text);
}

void PaintGrid(QPainter &painter, const GraphElements &elements, const GraphPlan &plan,
               const GraphColors &colors)
{
    HairLines lines(painter);
    for (const GraphLine &guide : elements.linTempLabel) {
        if (guide.visible)
            lines.Horizontal(guide.line, colors.guide);
    }
    lines.Horizontal({plan.plot.bottomLeft(), plan.plot.bottomRight()}, colors.axis);
    for (const GraphLine &tick : elements.linHour) {
        if (tick.visible)
            lines.Vertical(tick.line, colors.axis);
    }
    if (elements.linMinTemp.visible)
        lines.Dashed(elements.linMinTemp.line, colors.lowest);
    if (elements.linMaxTemp.visible)
        lines.Dashed(elements.linMaxTemp.line, colors.highest);
}

/// The curve's segments, and the area between them and the lower edge.
void PaintSegments(QPainter &painter, const GraphElements &elements, const QRectF &plot,
                   const QColor &color)
{
    QLinearGradient shade(plot.topLeft(), plot.bottomLeft());
    QColor upper = color;
    upper.setAlphaF(float(kAreaStrength));
    QColor lower = color;
    lower.setAlphaF(0);
    shade.setColorAt(0, upper);
    shade.setColorAt(1, lower);

    QPainterPath curve;
    QPainterPath area;
    for (const GraphLine &segment : elements.linTemp) {
        if (!segment.visible)
            continue;
        const QPointF from = segment.line.p1();
        const QPointF to = segment.line.p2();
        if (curve.elementCount() == 0 || curve.currentPosition() != from)
            curve.moveTo(from);
        curve.lineTo(to);
        area.addPolygon(QPolygonF({{from.x(), plot.bottom()},
                                   from,
                                   to,
                                   {to.x(), plot.bottom()},
                                   {from.x(), plot.bottom()}}));
    }
    painter.fillPath(area, shade);
    painter.strokePath(curve, QPen(color, kCurveWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void PaintCurve(QPainter &painter, const GraphElements &elements, const QRectF &plot,
                const GraphColors &colors)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(plot.adjusted(-kMarkerRadius, -kCurveWidth, kMarkerRadius, kCurveWidth));
    PaintSegments(painter, elements, plot, colors.curve);
    painter.restore();

    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colors.curve);
    for (const GraphCircle &marker : elements.cirTemp) {
        if (marker.visible)
            painter.drawEllipse(marker.centre, kMarkerRadius, kMarkerRadius);
    }
    painter.restore();
}

} // namespace

void PaintGraph(QPainter &painter, const GraphElements &elements, const GraphPlan &plan,
                const QPalette &palette, const QRectF &background)
{
    const GraphColors colors(palette);
    painter.fillRect(background, colors.base);
    GraphLabel date = elements.lblDate;
    date.box.adjust(plan.edge, 0, -plan.edge, 0);
    PaintLabel(painter, date, Qt::AlignHCenter, colors.text);
    if (plan.plot.isEmpty())
        return;
    PaintGrid(painter, elements, plan, colors);
    PaintCurve(painter, elements, plan.plot, colors);
    for (const GraphLabel &label : elements.lblTempLabel)
        PaintLabel(painter, label, Qt::AlignRight, colors.label);
    for (const GraphLabel &hour : plan.hours)
        PaintLabel(painter, hour, Qt::AlignHCenter, colors.label);
    PaintLabel(painter, plan.highest, Qt::AlignLeft, colors.highest);
    PaintLabel(painter, plan.lowest, Qt::AlignLeft, colors.lowest);
}
