#pragma once

#include "graph/graph_elements.h"
#include "graph/graph_plan.h"

#include <QPainter>
#include <QPalette>

/// Paints the elements at their positions, on the palette's base colour; straight lines are aligned
/// to whole pixels of the screen, whatever its resolution. `background` is the whole control.
void PaintGraph(QPainter &painter, const GraphElements &elements, const GraphPlan &plan,
                const QPalette &palette, const QRectF &background);
