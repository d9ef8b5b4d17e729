#include "graph/graph_plan.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double kNarrowestHour = 2;   // pixels; below that a curve cannot be seen
constexpr double kWidestColumn = 0.25; // of the control, for texts on either side
constexpr int kMarkDecimals = 1;

/// The plot, inside the texts around it.
QRectF PlotArea(const QSizeF &size, const GraphTextSizes &sizes, const GraphPlan &plan)
{
    const double widest = size.width() * kWidestColumn;
    const double labels = std::max(std::min(sizes.label, widest), sizes.hour / 2);
    const double marks = std::min(sizes.mark, widest);
    const double left = std::ceil(plan.edge + labels + plan.gap);
    const double right = std::floor(size.width() - plan.edge - (marks > 0 ? marks + plan.gap : 0));
    const double top = std::ceil(plan.edge + sizes.height + plan.gap);
    const double bottom = std::floor(size.height() - 2 * plan.edge - sizes.height);
    if (right - left < kNarrowestHour * kHoursPerDay || bottom - top < sizes.height)
        return {};
    return {left, top, right - left, bottom - top};
}

QRectF MarkBox(const GraphPlan &plan, double width, double temperature)
{
    const double y = YOfTemp(plan.plot, *plan.scale, temperature);
    return {plan.plot.right() + plan.gap, y - plan.textHeight / 2, width, plan.textHeight};
}

/// Moves apart two marks that would overlap, and then back to where the plot has room for both.
void PartMarks(QRectF &upper, QRectF &lower, const GraphPlan &plan)
{
    const double overlap = upper.bottom() - lower.top();
    if (overlap <= 0)
        return;
    upper.translate(0, -overlap / 2);
    lower.translate(0, overlap / 2);
    const double above = plan.plot.top() - plan.textHeight / 2 - upper.top();
    const double below = lower.bottom() - plan.plot.bottom() - plan.textHeight / 2;
    const double shift = std::max(above, 0.0) - std::max(below, 0.0);
    upper.translate(0, shift);
    lower.translate(0, shift);
}

void PlanMarks(GraphPlan &plan, const DayTemps &day, const GraphTexts &texts, double width)
{
    plan.highest.caption = texts.highest;
    plan.lowest.caption = texts.lowest;
    const std::optional<DayExtremes> extremes = FindExtremes(day);
    if (!plan.scale || !extremes)
        return;
    plan.highest.box = MarkBox(plan, width, extremes->highest);
    plan.lowest.box = MarkBox(plan, width, extremes->lowest);
    plan.highest.visible = !texts.highest.isEmpty();
    plan.lowest.visible = !texts.lowest.isEmpty();
    if (plan.highest.visible && plan.lowest.visible)
        PartMarks(plan.highest.box, plan.lowest.box, plan);
}

void PlanHours(GraphPlan &plan, double width)
{
    plan.hourStep = HourStep(plan.plot.width() / kHoursPerDay, width);
    for (int hour = 0; hour < kHoursPerDay; hour += plan.hourStep) {
        const QRectF box(XOfHour(plan.plot, hour) - width / 2, plan.plot.bottom() + plan.edge,
                         width, plan.textHeight);
        plan.hours.push_back({.caption = HourText(hour), .box = box, .visible = true});
    }
}

void PlaceCurve(GraphElements &elements, const DayTemps &day, const GraphPlan &plan)
{
    QPointF previous;
    bool hasPrevious = false;
    for (std::size_t i = 0; i < elements.linTemp.size() && i < day.TempArray.size(); ++i) {
        const double temperature = day.TempArray[i];
        const bool hasReading = plan.scale && IsReading(temperature);
        const QPointF point = hasReading ? QPointF(XOfHour(plan.plot, int(i)),
                                                   YOfTemp(plan.plot, *plan.scale, temperature))
                                         : QPointF();
        // A segment needs a reading at both of its ends: a missing hour leaves a gap.
        elements.linTemp[i] = {.line = {previous, point}, .visible = hasReading && hasPrevious};
        if (i < elements.cirTemp.size())
            elements.cirTemp[i] = {.centre = point,
                                   .visible = hasReading && IsOnScale(*plan.scale, temperature)};
        previous = point;
        hasPrevious = hasReading;
    }
}

void PlaceHours(GraphElements &elements, const GraphPlan &plan)
{
    int hour = 0;
    for (GraphLine &tick : elements.linHour) {
        const bool isNamed = plan.hourStep > 0 && hour % plan.hourStep == 0;
        const QPointF top(XOfHour(plan.plot, hour++), plan.plot.bottom());
        const double length = isNamed ? plan.gap * 3 / 4 : plan.gap / 2;
        tick = {.line = {top, top + QPointF(0, length)}, .visible = !plan.plot.isEmpty()};
    }
}

GraphLine AcrossPlot(const GraphPlan &plan, double temperature)
{
    const double y = YOfTemp(plan.plot, *plan.scale, temperature);
    return {.line = {plan.plot.left(), y, plan.plot.right(), y},
            .visible = IsOnScale(*plan.scale, temperature)};
}

void PlaceGuides(GraphElements &elements, const GraphTexts &texts, const GraphPlan &plan)
{
    for (std::size_t i = 0; i < elements.linTempLabel.size(); ++i) {
        GraphLine &guide = elements.linTempLabel[i];
        GraphLabel &label = elements.lblTempLabel[i];
        label.caption = i < texts.labels.size() ? texts.labels[i] : QString();
        guide.visible = plan.scale && plan.labelStep > 0 && int(i) % plan.labelStep == 0;
        label.visible = guide.visible;
        if (!guide.visible)
            continue;
        guide = AcrossPlot(plan, LabelTemp(*plan.scale, int(i)));
        label.box = QRectF(plan.edge, guide.line.y1() - plan.textHeight / 2,
                           plan.plot.left() - plan.gap - plan.edge, plan.textHeight);
    }
}

} // namespace

GraphTexts MakeTexts(const DayTemps &day)
{
    const std::optional<TempScale> scale = DrawnScale(day);
    if (!scale)
        return {};
    GraphTexts texts;
    const int decimals = LabelDecimals(*scale);
    for (int i = 0; i < kTempLabels; ++i)
        texts.labels.push_back(DegreesText(LabelTemp(*scale, i), decimals));

    const std::optional<DayExtremes> extremes = FindExtremes(day);
    if (extremes && IsOnScale(*scale, extremes->highest))
        texts.highest = DegreesText(extremes->highest, kMarkDecimals);
    // On a day with a single temperature the two lines coincide and get one label.
    if (extremes && IsOnScale(*scale, extremes->lowest) && extremes->lowest < extremes->highest)
        texts.lowest = DegreesText(extremes->lowest, kMarkDecimals);
    return texts;
}

GraphPlan PlanGraph(const DayTemps &day, const QSizeF &size, const GraphTexts &texts,
                    const GraphTextSizes &sizes)
{
    GraphPlan plan;
    plan.gap = std::round(sizes.height / 2);
    plan.edge = std::round(sizes.height * 3 / 4); // half a line: labels stay clear of the hours
    plan.textHeight = sizes.height;
    plan.plot = PlotArea(size, sizes, plan);
    if (plan.plot.isEmpty())
        return plan;
    plan.scale = DrawnScale(day);
    plan.labelStep = LabelStep(plan.plot.height(), sizes.height);
    PlanHours(plan, sizes.hour);
    PlanMarks(plan, day, texts, size.width() - plan.plot.right() - plan.gap - plan.edge);
    return plan;
}

void PlaceElements(GraphElements &elements, const DayTemps &day, const GraphTexts &texts,
                   const GraphPlan &plan)
{
    PlaceCurve(elements, day, plan);
    PlaceHours(elements, plan);
    PlaceGuides(elements, texts, plan);
    const std::optional<DayExtremes> extremes = FindExtremes(day);
    const bool hasLines = plan.scale && extremes;
    elements.linMinTemp = hasLines ? AcrossPlot(plan, extremes->lowest) : GraphLine{};
    elements.linMaxTemp = hasLines ? AcrossPlot(plan, extremes->highest) : GraphLine{};
    QRectF &date = elements.lblDate.box;
    date = QRectF(0, plan.edge, date.width(), plan.textHeight);
}
