// A year of operation, second by second, on a clock that is moved by hand: all timers, two clock
// changes, a leap day, the ends of the months, and resets of the clock by hours. What the program
// does is compared with small models that put the rules in another form.

#include "support/fake_transfers.h"
#include "support/fixed_clock.h"
#include "support/one_place.h"
#include "support/open_station.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <map>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kDays = 366; // 1 September 2027 to 31 August 2028
constexpr int kSecondsPerDay = 86400;
constexpr int kInterval = 900;

const QString kForecast = "Expires:202607041500;;123456\nZFPLWX\n\nMDZ011-041500-\n"
                          "Southern Baltimore-\n\n.TODAY...Sunny.\n\n$$\n";

void Check(bool holds, const QString &what, const QDateTime &now)
{
    if (!holds)
        qFatal("%s: %s", qUtf8Printable(now.toString(Qt::ISODate)), qUtf8Printable(what));
}

/// A temperature for each moment, with one decimal; summers and afternoons are warmer.
double TemperatureAt(const QDateTime &now)
{
    const double year = std::cos(2 * M_PI * (now.date().dayOfYear() - 200) / 365.0);
    const double day = std::cos(2 * M_PI * (now.time().hour() - 15) / 24.0);
    return std::round((55 + 30 * year + 9 * day + (now.time().minute() % 7)) * 10) / 10;
}

/// The day's lowest and highest as a person would keep them on paper.
class PaperExtremes
{
public:
    explicit PaperExtremes(int day) : m_day(day) {}

    void Note(int day, double temperature)
    {
        if (day != m_day) {
            m_pages[m_day] = m_previous; // the page of the old day gets the pair before it
            m_previous = m_today;
            m_today = {temperature, temperature};
            m_day = day;
        }
        m_today = {std::min(m_today[0], temperature), std::max(m_today[1], temperature)};
        m_pages[m_day] = m_today;
    }

    [[nodiscard]] bool AreThoseOf(const MinMaxTemps &store) const
    {
        return std::array{store.TodayMinTemp, store.TodayMaxTemp} == m_today
            && std::array{store.PrevMinTemp, store.PrevMaxTemp} == m_previous
            && store.MinMaxDay == m_day;
    }

    /// Whether the file has all pages.
    [[nodiscard]] bool AreIn(const IniFile &file) const
    {
        return std::all_of(m_pages.begin(), m_pages.end(), [&file](const auto &page) {
            const QString section = "DAY" + QString::number(page.first);
            return ReadIniValue(file, section, u"MIN").toDouble() == page.second[0]
                && ReadIniValue(file, section, u"MAX").toDouble() == page.second[1];
        });
    }

private:
    using Pair = std::array<double, 2>; ///< Lowest, highest.
    int m_day;
    Pair m_today{1000, -1000};
    Pair m_previous{1000, -1000};
    std::map<int, Pair> m_pages;
};

/// Counts the passes of the local clock through the times at which a forecast is due.
class Passes
{
public:
    /// @return true for the first look at the clock in a pass.
    bool Begins(const QTime &now)
    {
        const bool inside = now.hour() % 6 == 0 && now.minute() == 0 && now.second() <= 10;
        return inside && !std::exchange(m_inside, inside) ? true : (m_inside = inside, false);
    }

private:
    bool m_inside = false;
};

/// The station without a view, with its ticks in the hands of this test.
class Year
{
public:
    Year()
    {
        Write("TavrinWeatherProfiles.ini",
              kOnePlaceProfile + "[ForecastProfile0]\r\nhost=http://forecast.test\r\n");
        Write("TavrinWeatherSettings.ini",
              "[Profile0]\r\nlocation1=Salem\r\n[Settings]\r\nFirstRun=False\r\n"
              "ForecastZone=MDZ011\r\nForecastState=MD\r\n");
        m_station.LoadProfiles();
        Check(!m_station.LoadSettings(), "does not start", Now());
        m_station.ShowWeatherProfile();
        m_station.LoadExtremes();
        m_station.Start();
    }

    void Run()
    {
        for (int day = 0; day < kDays; ++day) {
            m_passesToday = 0;
            const QDate date = Now().date();
            for (int second = 0; second < kSecondsPerDay; ++second)
                Second();
            // Days with a clock change, and those with a reset, may have another number.
            if (date.addDays(1) == Now().date() && !m_reset)
                Check(m_passesToday == 4, "not four forecasts", Now());
            m_reset = false;
            Check(m_paper.AreIn(IniFile({Path("TavrinWeatherMinMax.ini")})),
                  "the file's extremes differ", Now());
            if (day % 40 == 20)
                ResetClock(day % 80 == 20 ? 5 : -7);
        }
        std::printf("soak_year: %d weather requests, %d forecast requests\n", m_weather,
                    m_forecasts);
    }

private:
    [[nodiscard]] QDateTime Now() const { return m_clock.Now(); }
    [[nodiscard]] QString Path(const QString &name) const { return m_folder.filePath(name); }

    void Write(const QString &name, const QByteArray &bytes)
    {
        QFile file(Path(name));
        Check(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(),
              "cannot write " + name, Now());
    }

    /// Somebody sets the clock.
    void ResetClock(int hours)
    {
        m_clock.Set(Now().addSecs(3600 * hours + 1800));
        m_reset = true;
    }

    void Second()
    {
        m_clock.AdvanceSeconds(1);
        ++m_elapsed;
        const bool due = m_passes.Begins(Now().time()) && m_elapsed > 10;
        m_station.TickSecond();
        if (due || m_station.ForecastThreadHandle() != 0)
            AnswerForecast(due);
        if (m_station.WeatherThreadHandle() != 0)
            AnswerWeather();
        for (int tick = 0; tick < 4; ++tick) {
            m_station.Poll();
            if (m_elapsed <= 10 && m_station.ForecastThreadHandle() != 0)
                m_http.Finish(m_station.ForecastThreadHandle(),
                              kForecast); // the one after the start
        }
        CheckCounters();
    }

    void AnswerForecast(bool due)
    {
        Check(due, "a forecast that is not due", Now());
        Check(m_station.ForecastThreadHandle() != 0, "no forecast though it is due", Now());
        ++m_passesToday;
        ++m_forecasts;
        m_http.Finish(m_station.ForecastThreadHandle(), kForecast);
    }

    void AnswerWeather()
    {
        Check(m_weather == 0 || m_elapsed - m_lastWeather == kInterval,
              "a request off the interval", Now());
        m_lastWeather = m_elapsed;
        ++m_weather;
        const double temperature = TemperatureAt(Now());
        m_http.Finish(m_station.WeatherThreadHandle(),
                      "<now><temp>" + QString::number(temperature, 'f', 1) + "</temp> </now>");
        m_station.Poll();
        m_http.calls.clear();
        m_paper.Note(Now().date().day(), temperature);
        Check(m_paper.AreThoseOf(m_station.minMax), "the extremes differ", Now());
        const QString stored =
            ReadIniValue(IniFile({Path("Weather.ini")}), u"Weather", u"TEMP", u"none");
        Check(stored == QString::number(temperature, 'f', 1) + " F",
              "another temperature in the file: " + stored, Now());
    }

    void CheckCounters()
    {
        const qint16 countdown = m_station.ForecastRequestCountdown();
        Check(countdown >= 0 && countdown <= 5000, "the forecast's countdown is out of range",
              Now());
        // Minutes and seconds to the next request.
        const qint64 left = kInterval - (m_elapsed - m_lastWeather);
        const QString expected =
            u"Next Update in %1:%2"_s.arg(left / 60 % 15).arg(left % 60, 2, 10, '0'_L1);
        if (m_station.NextWeatherCheck() != expected)
            Check(false, m_station.NextWeatherCheck() + " instead of " + expected, Now());
    }

    QTemporaryDir m_folder;
    FixedClock m_clock{QDateTime(QDate(2027, 9, 1), QTime(0, 0, 30))};
    FakeTransfers m_http;
    DirectFileWriter m_writer;
    OpenStation m_station{{.folder = m_folder.path()}, m_clock, m_http, m_writer, Owner::Window};
    PaperExtremes m_paper{1};
    Passes m_passes;
    qint64 m_elapsed = 0;
    qint64 m_lastWeather = 0;
    int m_weather = 0;
    int m_forecasts = 0;
    int m_passesToday = 0;
    bool m_reset = false;
};

} // namespace

int main(int argc, char *argv[])
{
    qputenv("TZ", "America/New_York");
    const QCoreApplication app(argc, argv);
    Year year;
    year.Run();
    return 0;
}
