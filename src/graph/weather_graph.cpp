#include "graph/weather_graph.h"

#include "graph/graph_painter.h"

#include <QFontMetricsF>
#include <QResizeEvent>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// Width of one hour in pixels; width of the rest, and height of the whole, in lines of text.
constexpr int kHourWidth = 14;
constexpr int kNarrowHourWidth = 4;
constexpr int kTextLines = 8;
constexpr int kLines = 14;
constexpr int kFewLines = 7;

/// The labels' typeface if it is installed, at the size of the control's own font.
QFont LabelFont(QFont font)
{
    font.setFamilies({u"Tahoma"_s, font.family()});
    return font;
}

GraphTextSizes Measure(const GraphTexts &texts, const QFont &font)
{
    const QFontMetricsF metrics(font);
    const auto width = [&metrics](const QString &text) {
        return text.isEmpty() ? 0 : std::ceil(metrics.horizontalAdvance(text)) + 1;
    };
    GraphTextSizes sizes;
    sizes.height = std::ceil(metrics.height());
    for (const QString &label : texts.labels)
        sizes.label = std::max(sizes.label, width(label));
    sizes.mark = std::max(width(texts.lowest), width(texts.highest));
    for (int hour = 0; hour < kHoursPerDay; ++hour)
        sizes.hour = std::max(sizes.hour, width(HourText(hour)));
    return sizes;
}

/// Describes the graph in words.
QString Description(const DayTemps &day)
{
    const auto extremes = FindExtremes(day);
    if (!extremes)
        return u"No readings"_s;
    const auto count = std::count_if(day.TempArray.begin(), day.TempArray.end(), IsReading);
    return u"Readings: %1, lowest %2, highest %3"_s.arg(QString::number(count),
                                                        DegreesText(extremes->lowest, 1),
                                                        DegreesText(extremes->highest, 1));
}

} // namespace

WeatherGraph::WeatherGraph(QWidget *parent) : QWidget(parent)
{
    setAccessibleName(u"Temperature graph"_s);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    CreateElements(m_elements, int(m_day.TempArray.size()) - 1, kTempLabels - 1);
    ShowChange();
}

void WeatherGraph::ResetTempArray()
{
    ClearReadings(m_day);
    ShowChange();
    RedrawGraph();
}

void WeatherGraph::MaxTemp(double temperature)
{
    m_day.MaxTemp = temperature;
    ShowChange();
}

void WeatherGraph::MinTemp(double temperature)
{
    m_day.MinTemp = temperature;
    ShowChange();
}

void WeatherGraph::TempArray(double temperature, qint16 hour)
{
    StoreReading(m_day, temperature, hour);
    ShowChange();
}

void WeatherGraph::RedrawGraph() const
{
    // The range itself is not needed, only the exception.
    static_cast<void>(ScaleRange(m_day));
}

void WeatherGraph::SetDate(const QString &caption)
{
    m_elements.lblDate.caption = caption;
    update();
}

void WeatherGraph::ShowChange()
{
    setAccessibleDescription(Description(m_day));
    update();
}

QSize WeatherGraph::sizeHint() const
{
    const int line = fontMetrics().height();
    return {kHoursPerDay * kHourWidth + kTextLines * line, kLines * line};
}

QSize WeatherGraph::minimumSizeHint() const
{
    const int line = fontMetrics().height();
    return {kHoursPerDay * kNarrowHourWidth + kTextLines * line, kFewLines * line};
}

void WeatherGraph::paintEvent(QPaintEvent * /*event*/)
{
    const QFont labelFont = LabelFont(font());
    const GraphTexts texts = MakeTexts(m_day);
    const GraphPlan plan = PlanGraph(m_day, size(), texts, Measure(texts, labelFont));
    PlaceElements(m_elements, m_day, texts, plan);

    QPainter painter(this);
    painter.setFont(labelFont);
    PaintGraph(painter, m_elements, plan, palette(), rect());
}

void WeatherGraph::resizeEvent(QResizeEvent *event)
{
    m_elements.lblDate.box.setWidth(event->size().width());
}
