#include "gui/painted_graph.h"

#include <QMap>
#include <QTest>

#include <cmath>
#include <limits>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kLargest = std::numeric_limits<double>::max();

} // namespace

/// What the temperature graph looks like.
class tst_WeatherGraphPainting final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void curveLeadsThroughTheReadings();
    void curveStaysInsideThePlot();
    void missingHourLeavesAGap();
    void straightLinesAreSharp_data();
    void straightLinesAreSharp();
    void textsAreLegible_data();
    void textsAreLegible();
    void reversedScaleIsDrawnUpright();
    void everyScaleIsPainted_data();
    void everyScaleIsPainted();
    void everySizeIsPainted();
    void followsThePaletteWhileItRuns();
};

void tst_WeatherGraphPainting::curveLeadsThroughTheReadings()
{
    WeatherGraph graph;
    FillDay(graph);

    const QImage image = Painted(graph);

    const GraphElements &elements = graph.Elements();
    for (const GraphCircle &marker : elements.cirTemp)
        QCOMPARE(image.pixel(marker.centre.toPoint()), kCurve);
    for (size_t i = 1; i < 24; ++i) {
        const QPoint middle = elements.linTemp[i].line.center().toPoint();
        QVERIFY(HasColor(image, QRect(middle - QPoint(1, 1), middle + QPoint(1, 1)), kCurve));
    }
    // One degree higher each hour, and the scale's 40 degrees are the height between its ends.
    const double height = elements.linTempLabel[0].line.y1() - elements.linTempLabel[4].line.y1();
    QCOMPARE(elements.cirTemp[0].centre.y() - elements.cirTemp[20].centre.y(), height / 2);
}

void tst_WeatherGraphPainting::curveStaysInsideThePlot()
{
    WeatherGraph graph;
    FillDay(graph);
    graph.MinTemp(55);
    graph.MaxTemp(60);

    const QImage image = Painted(graph);

    const auto &guides = graph.Elements().linTempLabel;
    const int top = int(guides[4].line.y1());
    const int bottom = int(guides[0].line.y1());
    constexpr int kMarker = 3; // half of it may stick out
    QVERIFY(HasColor(image, QRect(0, top, image.width(), bottom - top), kCurve));
    QVERIFY(!HasColor(image, QRect(0, 0, image.width(), top - kMarker), kCurve));
    const int below = bottom + kMarker + 1;
    QVERIFY(!HasColor(image, QRect(0, below, image.width(), image.height() - below), kCurve));
}

void tst_WeatherGraphPainting::missingHourLeavesAGap()
{
    WeatherGraph graph;
    FillDay(graph);
    const QImage whole = Painted(graph);
    const auto &markers = graph.Elements().cirTemp;
    // Between the markers of the hours before and after, which are five pixels wide.
    const int left = int(markers[13].centre.x()) + 4;
    const QRect gap(left, 0, int(markers[15].centre.x()) - 4 - left, kGraphSize.height());
    QVERIFY(HasColor(whole, gap, kCurve));

    graph.TempArray(-1000, 14);
    const QImage image = Painted(graph);

    QVERIFY(gap.width() > 10);
    QVERIFY(!HasColor(image, gap, kCurve));
    QVERIFY(HasColor(image, gap.translated(-gap.width(), 0), kCurve));
    // Nor is the background shaded: only background, guide lines, axis and ticks are left.
    const int middle = int(graph.Elements().linTempLabel[1].line.y1()) + 10;
    for (int x = gap.left(); x <= gap.right(); ++x)
        QCOMPARE(image.pixelColor(x, middle), graph.palette().color(QPalette::Base));
}

void tst_WeatherGraphPainting::straightLinesAreSharp_data()
{
    QTest::addColumn<double>("ratio");
    QTest::addColumn<int>("thickness");
    QTest::newRow("100 percent") << 1.0 << 1;
    QTest::newRow("150 percent") << 1.5 << 2;
    QTest::newRow("200 percent") << 2.0 << 2;
}

void tst_WeatherGraphPainting::straightLinesAreSharp()
{
    QFETCH(double, ratio);
    QFETCH(int, thickness);
    WeatherGraph graph;
    FillDay(graph);
    graph.TempArray(-1000, 23); // leaves the right end of the plot free
    graph.TempArray(-1000, 0);  // lowest is 51, which is on no guide line

    const QImage image = Painted(graph, ratio);

    // Down the plot between the last two hours: five guide lines, the lowest of them under the
    // axis, and the lines of minimum and maximum, each in its own colour and nothing in between.
    const auto &elements = graph.Elements();
    const double x = elements.linHour[23].line.x1() + 5;
    const int top = int(std::floor(elements.linTempLabel[4].line.y1() * ratio)) - 3;
    const int bottom = int(std::ceil(elements.linTempLabel[0].line.y1() * ratio)) + 3;
    QMap<QRgb, int> rows;
    for (int y = top; y <= bottom; ++y)
        ++rows[image.pixel(int(x * ratio), y)];

    const QRgb ground = graph.palette().color(QPalette::Base).rgb();
    rows.remove(ground);
    rows.remove(qRgb(196, 50, 30)); // maximum, unless a dash has just ended here
    rows.remove(qRgb(20, 104, 190));
    QCOMPARE(rows.size(), 2); // guide lines and axis
    QList<int> counts = rows.values();
    std::sort(counts.begin(), counts.end());
    QCOMPARE(counts, (QList<int>{thickness, 4 * thickness}));
}

void tst_WeatherGraphPainting::textsAreLegible_data()
{
    QTest::addColumn<bool>("dark");
    QTest::addColumn<double>("larger");
    QTest::newRow("light") << false << 1.0;
    QTest::newRow("dark") << true << 1.0;
    QTest::newRow("light, larger font") << false << 1.2;
    QTest::newRow("dark, larger font") << true << 1.2;
}

void tst_WeatherGraphPainting::textsAreLegible()
{
    QFETCH(bool, dark);
    QFETCH(double, larger);
    constexpr double kTexts = 4.5;
    WeatherGraph graph;
    FillDay(graph);
    graph.setPalette(PaletteOf(dark));
    QFont font = graph.font();
    font.setPointSizeF(font.pointSizeF() * larger);
    graph.setFont(font);

    const QImage image = Painted(graph);

    const QColor ground = graph.palette().color(QPalette::Base);
    const GraphElements &elements = graph.Elements();
    QCOMPARE(image.pixelColor(1, 1), ground);
    QVERIFY(BestContrast(image, elements.lblDate.box, ground) >= kTexts);
    for (const GraphLabel &label : elements.lblTempLabel)
        QVERIFY(BestContrast(image, label.box, ground) >= kTexts);
    // The hours below the ticks, the extremes to the right of the lines.
    const QRectF below(0, elements.linHour[0].line.y2() + 2, kGraphSize.width(),
                       kGraphSize.height());
    QVERIFY(BestContrast(image, below, ground) >= kTexts);
    for (const GraphLine *line : {&elements.linMinTemp, &elements.linMaxTemp}) {
        const QRectF beside(line->line.x2() + 2, line->line.y1() - 5, kGraphSize.width(), 10);
        QVERIFY(BestContrast(image, beside, ground) >= kTexts);
    }
}

void tst_WeatherGraphPainting::reversedScaleIsDrawnUpright()
{
    WeatherGraph upright;
    FillDay(upright);
    WeatherGraph reversed;
    FillDay(reversed);

    reversed.MinTemp(80);
    reversed.MaxTemp(40);

    QCOMPARE(Painted(reversed), Painted(upright));
}

void tst_WeatherGraphPainting::everyScaleIsPainted_data()
{
    QTest::addColumn<double>("minTemp");
    QTest::addColumn<double>("maxTemp");
    QTest::addColumn<int>("markers");
    // The day goes from 50 to 73.
    QTest::newRow("usual") << 40.0 << 80.0 << 24;
    QTest::newRow("upside down") << 80.0 << 40.0 << 24;
    QTest::newRow("not set") << 0.0 << 0.0 << 24;
    QTest::newRow("equal") << 60.0 << 60.0 << 24;
    QTest::newRow("too narrow") << 55.0 << 60.0 << 6;
    QTest::newRow("far away") << -1e6 << -2e6 << 0;
    QTest::newRow("hardly any") << 60.0 << 60.0 + 1e-12 << 1;
    QTest::newRow("all there is") << -8e307 << 8e307 << 24;
    QTest::newRow("too large") << -kLargest << kLargest << 0;
    QTest::newRow("infinite") << -kInfinity << kInfinity << 0;
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << 1.0 << 0;
}

void tst_WeatherGraphPainting::everyScaleIsPainted()
{
    QFETCH(double, minTemp);
    QFETCH(double, maxTemp);
    QFETCH(int, markers);
    WeatherGraph graph;
    FillDay(graph);
    graph.MinTemp(minTemp);
    graph.MaxTemp(maxTemp);

    const QImage image = Painted(graph);

    QCOMPARE(MarkersInSight(graph), markers);
    QCOMPARE(HasColor(image, image.rect(), kCurve), markers > 0);
    QVERIFY(graph.Elements().linHour[23].visible);
}

void tst_WeatherGraphPainting::everySizeIsPainted()
{
    WeatherGraph graph;
    FillDay(graph);

    for (const QSize size : {QSize(1, 1), QSize(30, 12), QSize(100, 60), QSize(60, 400),
                             QSize(900, 40), graph.minimumSizeHint(), graph.sizeHint()}) {
        graph.resize(size);
        const QImage image = Painted(graph);
        QVERIFY(!HasColor(image, image.rect(), qRgb(255, 0, 255)));
    }
    graph.resize(graph.minimumSizeHint());
    Painted(graph);
    QCOMPARE(MarkersInSight(graph), 24);
}

void tst_WeatherGraphPainting::followsThePaletteWhileItRuns()
{
    WeatherGraph graph;
    FillDay(graph);
    graph.setPalette(PaletteOf(false));
    QVERIFY(HasColor(Painted(graph), QRect(QPoint(), kGraphSize), kCurve));

    graph.setPalette(PaletteOf(true));
    const QImage dark = Painted(graph);

    QCOMPARE(dark.pixelColor(1, 1), QColor(35, 38, 41));
    QVERIFY(!HasColor(dark, dark.rect(), kCurve));
    QVERIFY(HasColor(dark, dark.rect(), qRgb(255, 190, 70)));
}

QTEST_MAIN(tst_WeatherGraphPainting)
#include "tst_weather_graph_painting.moc"
