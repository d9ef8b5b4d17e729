// Shows the temperature graph with a day of readings: WeatherGraphExample
// Or saves its picture, without a display: WeatherGraphExample --picture FILE [--dark]
#include "graph/weather_graph.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QPixmap>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kSize(560, 300);

/// A fair day in degrees Fahrenheit; the reading of 2 PM is missing.
constexpr std::array kDay = {
    51.4, 50.2, 49.5,       48.9, 48.4, 48.2, 49.1, 51.8, 55.3, 58.7, 62.0, 64.9,
    67.4, 69.3, kNoReading, 71.6, 71.2, 70.1, 68.0, 65.2, 62.1, 59.4, 57.3, 55.6,
};

void Fill(WeatherGraph &graph)
{
    graph.ResetTempArray();
    graph.MinTemp(40);
    graph.MaxTemp(80);
    qint16 hour = 0;
    for (const double temperature : kDay)
        graph.TempArray(temperature, hour++);
    graph.RedrawGraph();
    graph.SetDate(u"Tuesday, June 3"_s);
}

QPalette DarkPalette()
{
    QPalette palette(QColor(49, 54, 59));
    palette.setColor(QPalette::Base, QColor(35, 38, 41));
    palette.setColor(QPalette::Text, QColor(239, 240, 241));
    return palette;
}

bool AsksForPicture(int argc, char *argv[])
{
    return std::any_of(argv, argv + argc, [](const char *argument) {
        return std::strncmp(argument, "--picture", 9) == 0;
    });
}

int SavePicture(WeatherGraph &graph, const QString &file)
{
    if (graph.grab().save(file))
        return 0;
    std::fprintf(stderr, "WeatherGraphExample: cannot write %s\n", qUtf8Printable(file));
    return 1;
}

} // namespace

int main(int argc, char *argv[])
{
    if (AsksForPicture(argc, argv))
        qputenv("QT_QPA_PLATFORM", "offscreen"); // the same picture on every desktop
    const QApplication app(argc, argv);

    QCommandLineParser parser;
    parser.addHelpOption();
    const QCommandLineOption picture(u"picture"_s, u"Saves the graph's picture and ends."_s,
                                     u"FILE"_s);
    const QCommandLineOption dark(u"dark"_s, u"Light texts on a dark ground."_s);
    parser.addOptions({picture, dark});
    parser.process(app);

    WeatherGraph graph;
    Fill(graph);
    graph.setWindowTitle(u"Temperature graph"_s);
    graph.resize(kSize);
    if (parser.isSet(dark))
        graph.setPalette(DarkPalette());
    if (parser.isSet(picture))
        return SavePicture(graph, parser.value(picture));
    graph.show();
    return QApplication::exec();
}
