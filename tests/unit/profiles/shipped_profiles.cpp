#include "unit/profiles/shipped_profiles.h"

#include <array>

namespace {

/// What belongs to a reply's form alone: labels, mark-up, words of another line.
constexpr std::array kPieces{
    u"Wind:",       u"Windchill",
    u"Visibility",  u"Sky conditions",
    u"Weather:",    u"Precipitation",
    u"inches",      u"trace",
    u"Temperature", u"Heat index",
    u"Dew",         u"Humidity",
    u"Pressure",    u"hours ago",
    u"UTC",         u"EDT",
    u"EST",         u"ob:",
    u"):",          u"mile:",
    u"Calm:",       u"<",
    u">",           u"\"",
    u"{",           u"}",
    u"[",           u"]",
    u"null",        u"value",
    u"interval",    u"FeelsLike",
    u"http",        u"Hg",
    u"2017",
};

} // namespace

IniPath ShippedProfileFile()
{
    return {QStringLiteral(TAVRIN_SOURCE_DIR "/profiles/TavrinWeatherProfiles.ini")};
}

const ProfileTable &ShippedProfiles()
{
    static const ProfileTable profiles = [] {
        ProfileTable loaded;
        LoadWeatherProfiles(loaded, ShippedProfileFile());
        return loaded;
    }();
    return profiles;
}

Outcome Parse(std::size_t index, const QString &reply)
{
    WeatherProfile profile = ShippedProfiles().weather.at(index);
    profile.location[0] = kEnteredPlace.toString();
    const QDateTime now(QDate(2026, 3, 5), QTime(6, 7, 8), Qt::OffsetFromUTC, 3600);
    Outcome outcome;
    const ReadWeather read = ReadInto(&profile, reply, now);
    outcome.parsed = read.taken;
    outcome.values = Lines(profile.values);
    for (const Quantity quantity : kValues) {
        for (const char16_t *piece : kPieces) {
            const QString &value = profile.values[quantity];
            if (quantity != Quantity::Time && value.contains(QStringView(piece)))
                outcome.pieces.append(RowOf(quantity).value.toString() + '=' + value);
        }
    }
    outcome.statuses = read.statuses;
    outcome.temps = read.temps;
    return outcome;
}

QString Lines(const WeatherValues &values)
{
    QString text;
    for (const Quantity quantity : kValues)
        text += RowOf(quantity).value.toString() + '=' + values[quantity] + '\n';
    return text;
}

WeatherValues NothingKnown(const QString &unit)
{
    WeatherValues values;
    for (const Quantity quantity : kValues)
        values[quantity] = kNone.toString();
    values[Quantity::MinTemp] = "1000" + unit; // the store's neutral values; the display shows N/A
    values[Quantity::MaxTemp] = "-1000" + unit;
    values[Quantity::Time] = kClockTime.toString();
    values[Quantity::Location] = kEnteredPlace.toString();
    return values;
}

QString WithoutLine(const QString &text, const QString &piece)
{
    QStringList lines = text.split('\n');
    const auto removed = lines.removeIf([&](const QString &line) { return line.contains(piece); });
    return removed > 0 ? lines.join('\n') : QString();
}
