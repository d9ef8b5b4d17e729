#pragma once

#include "graph/day_temps.h"
#include "graph/graph_elements.h"
#include "graph/graph_scale.h"

#include <QSizeF>

#include <optional>
#include <vector>

/// Sizes of the graph's texts in its font, in logical pixels.
struct GraphTextSizes
{
    double height = 0; ///< Of one line.
    double label = 0;  ///< Width of the widest temperature at a guide line.
    double mark = 0;   ///< Width of the wider temperature at the minimum and maximum lines.
    double hour = 0;   ///< Width of the widest hour.
};

/// The temperatures that the graph shows as texts.
struct GraphTexts
{
    std::vector<QString> labels = {}; ///< At the guide lines, from the bottom up; empty: no scale.
    QString lowest = {};              ///< Empty: no line, or not a separate one.
    QString highest = {};             ///< Empty: no line.
};

[[nodiscard]] GraphTexts MakeTexts(const DayTemps &day);

/// Where the parts of the graph go: the date above the plot, the labels to its left, the lowest and
/// the highest temperature to its right, the hours below.
struct GraphPlan
{
    QRectF plot = {}; ///< Empty: the control is too small for a graph.
    std::optional<TempScale> scale = {};
    int hourStep = 0;  ///< See HourStep().
    int labelStep = 0; ///< See LabelStep().
    double gap = 0;    ///< Pixels between the plot and the texts beside and above it.
    double edge = 0;   ///< Pixels between the texts and the control's edge, and above the hours.
    double textHeight = 0;
    GraphLabel highest = {};
    GraphLabel lowest = {};
    std::vector<GraphLabel> hours = {};
};

[[nodiscard]] GraphPlan PlanGraph(const DayTemps &day, const QSizeF &size, const GraphTexts &texts,
                                  const GraphTextSizes &sizes);

/// Positions every element and sets which are visible. The date's width is left unchanged, because
/// the control sets it.
void PlaceElements(GraphElements &elements, const DayTemps &day, const GraphTexts &texts,
                   const GraphPlan &plan);
