#include "gui/painted_graph.h"

#include <QTest>

#include <limits>
#include <stdexcept>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kLargest = std::numeric_limits<double>::max();

} // namespace

/// The members of the temperature graph, a component for other programs that no form here uses.
class tst_WeatherGraph final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beginsWithTheElementsOfADay();
    void resetForgetsAllReadings();
    void storesHours0To23Only_data();
    void storesHours0To23Only();
    void redrawingChangesNoElement_data();
    void redrawingChangesNoElement();
    void redrawingThrowsWithoutAFiniteRange_data();
    void redrawingThrowsWithoutAFiniteRange();
    void resizingGivesTheDateTheWidth();
    void dateIsPaintedAsItIsSet();
    void tellsWhatItShows();
};

void tst_WeatherGraph::beginsWithTheElementsOfADay()
{
    const WeatherGraph graph;
    const GraphElements &elements = graph.Elements();

    QCOMPARE(elements.cirTemp.size(), 24U);
    QCOMPARE(elements.linHour.size(), 24U);
    QCOMPARE(elements.linTemp.size(), 25U);
    QCOMPARE(elements.linTempLabel.size(), 5U);
    QCOMPARE(elements.lblTempLabel.size(), 5U);
    QCOMPARE(elements.lblDate.caption, "Date");
}

void tst_WeatherGraph::resetForgetsAllReadings()
{
    WeatherGraph graph;
    FillDay(graph);
    Painted(graph);
    QCOMPARE(MarkersInSight(graph), 24);

    graph.ResetTempArray();
    const QImage image = Painted(graph);

    QCOMPARE(MarkersInSight(graph), 0);
    QVERIFY(!HasColor(image, image.rect(), kCurve));
}

void tst_WeatherGraph::storesHours0To23Only_data()
{
    QTest::addColumn<qint16>("hour");
    QTest::addColumn<bool>("stored");
    QTest::newRow("first") << qint16(0) << true;
    QTest::newRow("last") << qint16(23) << true;
    QTest::newRow("behind the last") << qint16(24) << false;
    QTest::newRow("ahead of the first") << qint16(-1) << false;
    QTest::newRow("largest") << qint16(32767) << false;
}

void tst_WeatherGraph::storesHours0To23Only()
{
    QFETCH(qint16, hour);
    QFETCH(bool, stored);
    WeatherGraph graph;
    graph.resize(kGraphSize);
    graph.MinTemp(40);
    graph.MaxTemp(80);
    const QImage before = Painted(graph);

    graph.TempArray(60, hour);
    const QImage after = Painted(graph);

    QCOMPARE(after != before, stored);
    QCOMPARE(MarkersInSight(graph), stored ? 1 : 0);
    if (stored)
        QVERIFY(graph.Elements().cirTemp[size_t(hour)].visible);
}

void tst_WeatherGraph::redrawingChangesNoElement_data()
{
    QTest::addColumn<double>("minTemp");
    QTest::addColumn<double>("maxTemp");
    QTest::newRow("a scale") << 40.0 << 80.0;
    QTest::newRow("a range of 0") << 50.0 << 50.0;
    QTest::newRow("upside down") << 80.0 << 40.0;
}

void tst_WeatherGraph::redrawingChangesNoElement()
{
    QFETCH(double, minTemp);
    QFETCH(double, maxTemp);
    WeatherGraph graph;
    FillDay(graph);
    const QImage imageBefore = Painted(graph);
    graph.MinTemp(minTemp);
    graph.MaxTemp(maxTemp);
    const GraphElements before = graph.Elements(); // as painted, on the previous scale

    graph.RedrawGraph();

    QVERIFY(graph.Elements() == before);
    const QImage image = Painted(graph);
    graph.RedrawGraph();
    QCOMPARE(Painted(graph), image);
    QCOMPARE(image == imageBefore, minTemp != maxTemp); // upside down is drawn upright
}

void tst_WeatherGraph::redrawingThrowsWithoutAFiniteRange_data()
{
    QTest::addColumn<double>("minTemp");
    QTest::addColumn<double>("maxTemp");
    QTest::newRow("too large") << -kLargest << kLargest;
    QTest::newRow("too small") << kLargest << -kLargest;
    QTest::newRow("infinite") << 0.0 << kInfinity;
    QTest::newRow("infinite at both ends") << kInfinity << kInfinity;
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << 80.0;
}

void tst_WeatherGraph::redrawingThrowsWithoutAFiniteRange()
{
    QFETCH(double, minTemp);
    QFETCH(double, maxTemp);
    WeatherGraph graph;
    FillDay(graph);
    Painted(graph);
    QCOMPARE(MarkersInSight(graph), 24);
    graph.MinTemp(minTemp);
    graph.MaxTemp(maxTemp);

    QVERIFY_THROWS_EXCEPTION(std::overflow_error, graph.RedrawGraph());
    QVERIFY_THROWS_EXCEPTION(std::overflow_error, graph.ResetTempArray());

    Painted(graph); // which must not throw
    graph.MinTemp(40);
    graph.MaxTemp(80);
    Painted(graph);
    QCOMPARE(MarkersInSight(graph), 0); // the reset was done before the exception
}

void tst_WeatherGraph::resizingGivesTheDateTheWidth()
{
    WeatherGraph graph;

    graph.resize(400, 200);
    graph.show();
    QCOMPARE(graph.Elements().lblDate.box.width(), 400);

    graph.resize(333, 200);
    QCOMPARE(graph.Elements().lblDate.box.width(), 333);
    Painted(graph);
    QCOMPARE(graph.Elements().lblDate.box.width(), 333);
}

void tst_WeatherGraph::dateIsPaintedAsItIsSet()
{
    WeatherGraph graph;
    graph.resize(kGraphSize);
    const QImage asDesigned = Painted(graph);

    graph.SetDate("<b>June 3 & 4</b>");

    QCOMPARE(graph.Elements().lblDate.caption, "<b>June 3 & 4</b>");
    QVERIFY(Painted(graph) != asDesigned);
    graph.SetDate("Date");
    QCOMPARE(Painted(graph), asDesigned);
}

void tst_WeatherGraph::tellsWhatItShows()
{
    WeatherGraph graph;
    QCOMPARE(graph.accessibleName(), "Temperature graph");
    QCOMPARE(graph.accessibleDescription(), "No readings");

    graph.TempArray(48.25, 4);
    graph.TempArray(71.5, 15);

    QCOMPARE(graph.accessibleDescription(), "Readings: 2, lowest 48.3\u00B0, highest 71.5\u00B0");
    graph.ResetTempArray();
    QCOMPARE(graph.accessibleDescription(), "No readings");
}

QTEST_MAIN(tst_WeatherGraph)
#include "tst_weather_graph.moc"
