#pragma once

#include <QLineF>
#include <QPointF>
#include <QRectF>
#include <QString>

#include <vector>

/// A marker on the curve. Like all elements it keeps its last position while it is not visible.
struct GraphCircle
{
    QPointF centre = {};
    bool visible = false;

    [[nodiscard]] bool operator==(const GraphCircle &other) const = default;
};

struct GraphLine
{
    QLineF line = {};
    bool visible = false;

    [[nodiscard]] bool operator==(const GraphLine &other) const = default;
};

/// A text and the area that it may fill.
struct GraphLabel
{
    QString caption = {};
    QRectF box = {};
    bool visible = false;

    [[nodiscard]] bool operator==(const GraphLabel &other) const = default;
};

/// The elements of the drawing, in logical pixels of the control. Each array begins with the one
/// element that is always there; CreateElements() adds the others.
struct GraphElements
{
    std::vector<GraphCircle> cirTemp = std::vector<GraphCircle>(1);    ///< One for each hour.
    std::vector<GraphLine> linHour = std::vector<GraphLine>(1);        ///< Tick of each hour.
    std::vector<GraphLine> linTemp = std::vector<GraphLine>(1);        ///< From the hour before.
    std::vector<GraphLine> linTempLabel = std::vector<GraphLine>(1);   ///< Guide lines.
    std::vector<GraphLabel> lblTempLabel = std::vector<GraphLabel>(1); ///< Their temperatures.
    GraphLine linMinTemp = {};                                         ///< At the lowest reading.
    GraphLine linMaxTemp = {};                                         ///< At the highest reading.
    GraphLabel lblDate = {.caption = QStringLiteral("Date"), .box = {}, .visible = true};

    [[nodiscard]] bool operator==(const GraphElements &other) const = default;
};

/// The arrays that elements are added to.
enum class ElementArray
{
    cirTemp,
    linHour,
    linTemp,
    linTempLabel,
    lblTempLabel
};

/// One element to be added: its array and its index there.
struct NewElement
{
    ElementArray array = {};
    int index = 0;

    [[nodiscard]] bool operator==(const NewElement &other) const = default;
};

/// The elements after the first ones, in the order of their creation: marker and tick of each hour
/// up to the one before `lastTemp`, curve segments up to `lastTemp`, guide lines and labels up to
/// `lastLabel`.
[[nodiscard]] std::vector<NewElement> ElementsToCreate(int lastTemp, int lastLabel);

/// Adds them to the elements that are always there.
void CreateElements(GraphElements &elements, int lastTemp, int lastLabel);
