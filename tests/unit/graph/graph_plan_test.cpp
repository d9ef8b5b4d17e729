#include "graph/graph_plan.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>

namespace {

// A line of text is 16 pixels high: 8 beside the plot, 12 along the edge. With these widths, a
// control of 350 x 196 leaves a plot of 240 x 120 at (50, 36): 10 pixels per hour and, on a scale
// from 40 to 80, 3 pixels per degree.
constexpr GraphTextSizes kSizes{.height = 16, .label = 30, .mark = 40, .hour = 44};
constexpr QSizeF kSize(350, 196);

DayTemps DayOf(const std::map<qint16, double> &readings)
{
    DayTemps day;
    day.MinTemp = 40;
    day.MaxTemp = 80;
    for (const auto &[hour, temperature] : readings)
        StoreReading(day, temperature, hour);
    return day;
}

/// A day's elements and plan in a control of kSize.
struct Placed
{
    explicit Placed(const DayTemps &day, const QSizeF &size = kSize) : texts(MakeTexts(day))
    {
        CreateElements(elements, 24, 4);
        GraphTextSizes sizes = kSizes;
        if (texts.highest.isEmpty() && texts.lowest.isEmpty())
            sizes.mark = 0;
        plan = PlanGraph(day, size, texts, sizes);
        PlaceElements(elements, day, texts, plan);
    }

    GraphTexts texts;
    GraphPlan plan;
    GraphElements elements;
};

TEST(MakeTexts, NamesGuideLinesAndExtremes)
{
    const GraphTexts texts = MakeTexts(DayOf({{3, 50}, {15, 71.6}}));

    EXPECT_EQ(texts.labels,
              (std::vector<QString>{"40\u00B0", "50\u00B0", "60\u00B0", "70\u00B0", "80\u00B0"}));
    EXPECT_EQ(texts.lowest, "50.0\u00B0");
    EXPECT_EQ(texts.highest, "71.6\u00B0");
}

TEST(MakeTexts, NamesTheOneTemperatureOfADayOnce)
{
    const GraphTexts texts = MakeTexts(DayOf({{3, 50}, {4, 50}}));

    EXPECT_EQ(texts.highest, "50.0\u00B0");
    EXPECT_EQ(texts.lowest, "");
}

TEST(MakeTexts, NamesNoExtremeThatIsOffTheScale)
{
    const GraphTexts texts = MakeTexts(DayOf({{3, 39.9}, {15, 80.1}}));

    EXPECT_EQ(texts.highest, "");
    EXPECT_EQ(texts.lowest, "");
    EXPECT_EQ(texts.labels.size(), 5U);
}

TEST(PlanGraph, LeavesRoomForTheTexts)
{
    const Placed graph(DayOf({{3, 50}, {15, 70}}));

    EXPECT_EQ(graph.plan.plot, QRectF(50, 36, 240, 120));
    EXPECT_EQ(graph.plan.labelStep, 1); // 30 pixels from line to line
    EXPECT_EQ(graph.plan.hourStep, 6);  // 44 + 8 pixels take six hours of 10
    ASSERT_EQ(graph.plan.hours.size(), 4U);
    EXPECT_EQ(graph.plan.hours[1].caption, "6 AM");
    EXPECT_EQ(graph.plan.hours[1].box, QRectF(110 - 22, 168, 44, 16));
}

TEST(PlanGraph, GivesTheWidthBackWhenThereIsNothingToMark)
{
    const Placed graph(DayOf({}));

    EXPECT_EQ(graph.plan.plot, QRectF(50, 36, 288, 120)); // up to 12 from the right edge
    EXPECT_FALSE(graph.plan.highest.visible);
    EXPECT_FALSE(graph.plan.lowest.visible);
}

TEST(PlanGraph, GivesWideTextsAFourthOfTheWidthAtMost)
{
    const DayTemps day = DayOf({{3, 50}, {15, 70}});
    const GraphTextSizes wide{.height = 16, .label = 500, .mark = 500, .hour = 44};

    const GraphPlan plan = PlanGraph(day, {400, 196}, MakeTexts(day), wide);

    // On either side, 12 and 8 pixels around 100.
    EXPECT_EQ(plan.plot, QRectF(120, 36, 160, 120));
    EXPECT_EQ(plan.highest.box, QRectF(288, 58, 100, 16));
}

TEST(PlanGraph, PutsTheExtremesBesideTheirLines)
{
    const Placed graph(DayOf({{3, 50}, {15, 70}}));

    EXPECT_TRUE(graph.plan.highest.visible);
    EXPECT_TRUE(graph.plan.lowest.visible);
    EXPECT_EQ(graph.plan.highest.box, QRectF(298, 66 - 8, 40, 16));
    EXPECT_EQ(graph.plan.lowest.box, QRectF(298, 126 - 8, 40, 16));
}

TEST(PlanGraph, PartsExtremesThatAreClose)
{
    // Lines at 90 and 96: texts 82..98 and 88..104, which overlap by 10.
    const Placed between(DayOf({{3, 60}, {15, 62}}));
    EXPECT_EQ(between.plan.highest.box, QRectF(298, 77, 40, 16));
    EXPECT_EQ(between.plan.lowest.box, QRectF(298, 93, 40, 16));

    // Lines at the upper edge, 36, and at 39: no text goes more than half a line above the edge.
    const Placed above(DayOf({{3, 79}, {15, 80}}));
    EXPECT_EQ(above.plan.highest.box, QRectF(298, 28, 40, 16));
    EXPECT_EQ(above.plan.lowest.box, QRectF(298, 44, 40, 16));

    // Lines at 153 and at the lower edge, 156.
    const Placed below(DayOf({{3, 40}, {15, 41}}));
    EXPECT_EQ(below.plan.highest.box, QRectF(298, 132, 40, 16));
    EXPECT_EQ(below.plan.lowest.box, QRectF(298, 148, 40, 16));
}

TEST(PlanGraph, GivesUpThePlotInASmallControl)
{
    const DayTemps day = DayOf({{3, 50}, {15, 70}});

    EXPECT_EQ(Placed(day, {158, 92}).plan.plot, QRectF(50, 36, 48, 16));
    EXPECT_TRUE(Placed(day, {157, 92}).plan.plot.isEmpty());
    EXPECT_TRUE(Placed(day, {158, 91}).plan.plot.isEmpty());
    EXPECT_TRUE(Placed(day, {0, 0}).plan.plot.isEmpty());
}

TEST(PlaceElements, DrawsTheCurveWithAGapAtAMissingHour)
{
    const Placed graph(DayOf({{0, 50}, {1, 60}, {3, 70}}));
    const GraphElements &elements = graph.elements;

    EXPECT_TRUE(elements.cirTemp[0].visible);
    EXPECT_EQ(elements.cirTemp[0].centre, QPointF(50, 126));
    EXPECT_TRUE(elements.cirTemp[1].visible);
    EXPECT_EQ(elements.cirTemp[1].centre, QPointF(60, 96));
    EXPECT_FALSE(elements.cirTemp[2].visible);
    EXPECT_TRUE(elements.cirTemp[3].visible);
    EXPECT_EQ(elements.cirTemp[3].centre, QPointF(80, 66));
    EXPECT_FALSE(elements.cirTemp[4].visible);

    EXPECT_TRUE(elements.linTemp[1].visible);
    EXPECT_EQ(elements.linTemp[1].line, QLineF(50, 126, 60, 96));
    for (const std::size_t hidden : {0U, 2U, 3U, 4U, 24U})
        EXPECT_FALSE(elements.linTemp[hidden].visible) << hidden;
}

TEST(PlaceElements, ShowsNoMarkerOffTheScale)
{
    const Placed graph(DayOf({{0, 80}, {1, 90}, {2, 39}}));

    EXPECT_TRUE(graph.elements.cirTemp[0].visible);
    EXPECT_FALSE(graph.elements.cirTemp[1].visible);
    EXPECT_FALSE(graph.elements.cirTemp[2].visible);
    EXPECT_TRUE(graph.elements.linTemp[1].visible);                   // runs out of the plot
    EXPECT_EQ(graph.elements.linTemp[1].line, QLineF(50, 36, 62, 6)); // 12 pixels per hour
    EXPECT_FALSE(graph.elements.linMinTemp.visible);
    EXPECT_FALSE(graph.elements.linMaxTemp.visible);
}

TEST(PlaceElements, PutsGuideLinesAndLabelsOnTheScale)
{
    const Placed graph(DayOf({{3, 50}, {15, 70}}));
    const GraphElements &elements = graph.elements;

    EXPECT_EQ(elements.linTempLabel[0].line, QLineF(50, 156, 290, 156));
    EXPECT_EQ(elements.linTempLabel[1].line, QLineF(50, 126, 290, 126));
    EXPECT_EQ(elements.linTempLabel[4].line, QLineF(50, 36, 290, 36));
    EXPECT_EQ(elements.lblTempLabel[1].caption, "50\u00B0");
    EXPECT_EQ(elements.lblTempLabel[1].box, QRectF(12, 118, 30, 16));
    EXPECT_TRUE(elements.lblTempLabel[1].visible);
    EXPECT_EQ(elements.linMinTemp.line, QLineF(50, 126, 290, 126));
    EXPECT_EQ(elements.linMaxTemp.line, QLineF(50, 66, 290, 66));
}

TEST(PlaceElements, PutsOneTickAtEachHour)
{
    const Placed graph(DayOf({{3, 50}, {15, 70}}));
    const std::vector<GraphLine> &ticks = graph.elements.linHour;

    EXPECT_EQ(ticks[0].line, QLineF(50, 156, 50, 162)); // labelled, so a little longer
    EXPECT_EQ(ticks[1].line, QLineF(60, 156, 60, 160));
    EXPECT_EQ(ticks[23].line, QLineF(280, 156, 280, 160));
    EXPECT_TRUE(ticks[23].visible);
}

TEST(PlaceElements, LabelsFewerGuideLinesInALowControl)
{
    // 32 pixels of plot: two lines of text between the edges.
    const Placed graph(DayOf({}), {350, 108});

    EXPECT_EQ(graph.plan.plot.height(), 32);
    EXPECT_TRUE(graph.elements.lblTempLabel[0].visible);
    EXPECT_FALSE(graph.elements.lblTempLabel[1].visible);
    EXPECT_FALSE(graph.elements.linTempLabel[1].visible);
    EXPECT_TRUE(graph.elements.lblTempLabel[2].visible);
    EXPECT_TRUE(graph.elements.lblTempLabel[4].visible);
}

TEST(PlaceElements, ShowsHoursAndDateAloneWhenTheScaleCannotBeDrawn)
{
    DayTemps day = DayOf({{0, 50}, {1, 60}});
    day.MaxTemp = std::numeric_limits<double>::infinity();

    const Placed graph(day);

    EXPECT_FALSE(graph.plan.scale);
    EXPECT_FALSE(graph.plan.plot.isEmpty());
    EXPECT_TRUE(graph.elements.linHour[0].visible);
    EXPECT_TRUE(graph.elements.lblDate.visible);
    EXPECT_FALSE(graph.elements.cirTemp[0].visible);
    EXPECT_FALSE(graph.elements.linTemp[1].visible);
    EXPECT_FALSE(graph.elements.linTempLabel[0].visible);
    EXPECT_FALSE(graph.elements.lblTempLabel[0].visible);
    EXPECT_FALSE(graph.elements.linMinTemp.visible);
    EXPECT_FALSE(graph.elements.linMaxTemp.visible);
}

TEST(PlaceElements, LeavesTheDateItsWidth)
{
    GraphElements elements;
    CreateElements(elements, 24, 4);
    elements.lblDate.box.setWidth(350);
    const DayTemps day = DayOf({});

    PlaceElements(elements, day, {}, PlanGraph(day, kSize, {}, kSizes));

    EXPECT_EQ(elements.lblDate.box, QRectF(0, 12, 350, 16));
}

/// All visible texts.
std::vector<QRectF> Texts(const Placed &graph, double width)
{
    std::vector<QRectF> boxes;
    const auto add = [&boxes](const GraphLabel &label) {
        if (label.visible)
            boxes.push_back(label.box);
    };
    for (const GraphLabel &label : graph.elements.lblTempLabel)
        add(label);
    for (const GraphLabel &hour : graph.plan.hours)
        add(hour);
    add(graph.plan.highest);
    add(graph.plan.lowest);
    boxes.emplace_back(0, graph.elements.lblDate.box.top(), width, 16);
    return boxes;
}

TEST(PlanGraph, KeepsAllTextsApartAndInsideAtEverySize)
{
    const DayTemps days[] = {DayOf({}), DayOf({{3, 60}, {15, 61}}), DayOf({{3, 40}, {15, 80}}),
                             DayOf({{3, 79}, {15, 80}}), DayOf({{3, 40}, {15, 41}})};
    int looked = 0;
    for (const DayTemps &day : days) {
        for (int width = 150; width <= 620; width += 17) {
            for (int height = 80; height <= 300; height += 13) {
                const std::vector<QRectF> boxes = Texts(Placed(day, QSizeF(width, height)), width);
                for (std::size_t i = 0; i < boxes.size(); ++i) {
                    EXPECT_TRUE(QRectF(0, 0, width, height).contains(boxes[i]))
                        << width << 'x' << height << ", text " << i;
                    for (std::size_t k = i + 1; k < boxes.size(); ++k)
                        EXPECT_FALSE(boxes[i].intersects(boxes[k]))
                            << width << 'x' << height << ", texts " << i << " and " << k;
                }
                looked += boxes.size() > 1 ? 1 : 0;
            }
        }
    }
    EXPECT_GT(looked, 1000);
}

} // namespace
