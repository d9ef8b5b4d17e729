// A year of running, second by second, in a clock that is moved by hand: all timers, two clock
// changes, a leap day, the ends of the months, and resets of the clock by hours. What the program
// does is held against small models that know the rules in another form.

#include <QApplication>
#include <QTimeZone>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <map>
#include <utility>

#include "gui/main_window.h"
#include "gui/one_place.h"

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
    [[nodiscard]] bool AreIn(const MainWindow &m) const
    {
        const IniFile file({m.Path("TavrinWeatherMinMax.ini"), m.state.files.codePage});
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

/// The program with its timers in the hands of this test.
class Year
{
public:
    Year()
    {
        m.clock.Set(QDateTime(QDate(2027, 9, 1), QTime(0, 0, 30)));
        m.Write("TavrinWeatherProfiles.ini",
                kOnePlaceProfile + "[ForecastProfile0]\r\nhost=http://forecast.test\r\n");
        m.Write("TavrinWeatherSettings.ini",
                "[Profile0]\r\nlocation1=Salem\r\n[Settings]\r\nFirstRun=False\r\n"
                "MinimizeOnStartup=False\r\nForecastZone=MDZ011\r\nForecastState=MD\r\n");
        Check(!m.Start(), "does not start", Now());
        m_label = m.Find<QLabel>("lblNextWeatherCheck");
    }

    void Run()
    {
        for (int day = 0; day < kDays; ++day) {
            m_passesToday = 0;
            const QDate date = Now().date();
            for (int second = 0; second < kSecondsPerDay; ++second)
                Second();
            // Days with a change of the clock, and those with a reset, have what they have.
            if (date.addDays(1) == Now().date() && !m_reset)
                Check(m_passesToday == 4, "not four forecasts", Now());
            m_reset = false;
            Check(m_paper.AreIn(m), "the file's extremes differ", Now());
            QCoreApplication::sendPostedEvents(); // no timers: they are in our hands
            if (day % 40 == 20)
                ResetClock(day % 80 == 20 ? 5 : -7);
        }
        std::printf("soak_year: %d weather requests, %d forecast requests\n", m_weather,
                    m_forecasts);
    }

private:
    [[nodiscard]] QDateTime Now() const { return m.clock.Now(); }

    /// Somebody sets the clock.
    void ResetClock(int hours)
    {
        m.clock.AdvanceSeconds(3600 * hours + 1800);
        m_reset = true;
    }

    void Second()
    {
        m.clock.AdvanceSeconds(1);
        ++m_elapsed;
        const bool due = m_passes.Begins(Now().time()) && m_elapsed > 10;
        m.window->tmrWeatherCheck_Timer();
        if (due || m.state.ForecastThreadHandle != 0)
            AnswerForecast(due);
        if (m.state.WeatherThreadHandle != 0)
            AnswerWeather();
        for (int tick = 0; tick < 4; ++tick) {
            m.window->tmrMain_Timer();
            if (m_elapsed <= 10 && m.state.ForecastThreadHandle != 0)
                m.http.Finish(m.state.ForecastThreadHandle, kForecast); // the one after the start
        }
        if (m_elapsed % 5 == 0)
            m.window->tmrDisclamer_Timer();
        CheckCounters();
    }

    void AnswerForecast(bool due)
    {
        Check(due, "a forecast that is not due", Now());
        Check(m.state.ForecastThreadHandle != 0, "no forecast though it is due", Now());
        ++m_passesToday;
        ++m_forecasts;
        m.http.Finish(m.state.ForecastThreadHandle, kForecast);
    }

    void AnswerWeather()
    {
        Check(m_weather == 0 || m_elapsed - m_lastWeather == kInterval,
              "a request off the interval", Now());
        m_lastWeather = m_elapsed;
        ++m_weather;
        const double temperature = TemperatureAt(Now());
        m.http.Finish(m.state.WeatherThreadHandle,
                      "<now><temp>" + QString::number(temperature, 'f', 1) + "</temp> </now>");
        m.window->tmrMain_Timer();
        m.http.calls.clear();
        m_paper.Note(Now().date().day(), temperature);
        Check(m_paper.AreThoseOf(m.state.minMax), "the extremes differ", Now());
        Check(m.Value("Weather.ini", u"Weather", u"TEMP")
                  == QString::number(temperature, 'f', 1) + " F",
              "another temperature in the file: " + m.Value("Weather.ini", u"Weather", u"TEMP"),
              Now());
    }

    void CheckCounters()
    {
        const qint16 countdown = m.state.ForecastRequestCountdown;
        Check(countdown >= 0 && countdown <= 5000, "the forecast's countdown is out of range",
              Now());
        // The window's own counter shows in its label, minutes and seconds.
        const qint64 left = kInterval - (m_elapsed - m_lastWeather);
        const QString expected =
            u"Next Update in %1:%2"_s.arg(left / 60 % 15).arg(left % 60, 2, 10, '0'_L1);
        if (m_label->text() != expected)
            Check(false, m_label->text() + " instead of " + expected, Now());
    }

    MainWindow m;
    QLabel *m_label = nullptr; ///< The countdown to the weather request.
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
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("TZ", "America/New_York");
    const QApplication app(argc, argv);
    Year year;
    year.Run();
    return 0;
}
