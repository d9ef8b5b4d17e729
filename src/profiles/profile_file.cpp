#include "profiles/profile_file.h"

#include "core/text.h"

#include <tuple>

using namespace Qt::StringLiterals;

namespace {

/// A text of the profile and its key.
struct TextField
{
    QStringView key = {};
    QString WeatherProfile::*text = nullptr;
};

constexpr std::array kTextFields{
    TextField{u"copyright", &WeatherProfile::copyright},
    TextField{u"copyrightURL", &WeatherProfile::copyrightURL},
    TextField{u"baseURL", &WeatherProfile::baseURL},
    TextField{u"description", &WeatherProfile::description},
    TextField{u"mainNodeClose", &WeatherProfile::mainNodeClose},
    TextField{u"mainNodeOpen", &WeatherProfile::mainNodeOpen},
    TextField{u"windSpeedDirFormat", &WeatherProfile::windSpeedDirFormat},
};

/// A text of a quantity, and what its key adds to the quantity's stem.
struct TagField
{
    QStringView group = {};
    QString QuantityTags::*text = nullptr;
};

constexpr std::array kTagFields{
    TagField{u"Close", &QuantityTags::Close},   TagField{u"Factor", &QuantityTags::Factor},
    TagField{u"Open", &QuantityTags::Open},     TagField{u"Prefix", &QuantityTags::Prefix},
    TagField{u"Suffix", &QuantityTags::Suffix}, TagField{u"Units", &QuantityTags::Units},
};

/// The items of a comma list, without outer spaces; empty ones are dropped.
QStringList CommaList(QStringView text)
{
    QStringList items;
    for (const QStringView part : text.split(u',')) {
        const QStringView item = TrimSpaces(part);
        if (!item.isEmpty())
            items.append(item.toString());
    }
    return items;
}

void LoadTags(WeatherProfile &profile, const PrivateProfile &file, QStringView section)
{
    for (std::size_t i = 0; i < kQuantityCount; ++i) {
        for (const TagField &field : kTagFields) {
            const QString key = kQuantities[i].stem.toString().append(field.group);
            profile.tags[i].*field.text = ReadIniValue(file, section, key);
        }
    }
}

void LoadWeatherProfile(WeatherProfile &profile, const PrivateProfile &file, QStringView section)
{
    profile.title = ReadIniValue(file, section, u"title");
    if (profile.title.isEmpty())
        return;

    for (const TextField &field : kTextFields)
        profile.*field.text = ReadIniValue(file, section, field.key);
    profile.description.replace("[CRLF]"_L1, "\r\n"_L1);
    for (std::size_t i = 0; i < profile.locationTitle.size(); ++i) {
        const QString key = u"location"_s + QString::number(i + 1) + u"Title"_s;
        profile.locationTitle[i] = ReadIniValue(file, section, key);
    }
    profile.concatinateWindSpeedDir =
        ReadIniValue(file, section, u"concatinateWindSpeedDir", u"FALSE") == u"TRUE";
    LoadTags(profile, file, section);
    profile.required = CommaList(ReadIniValue(file, section, u"required"));
    profile.values = {};
}

} // namespace

void LoadWeatherProfiles(ProfileTable &profiles, const PrivateProfile &file)
{
    for (std::size_t i = 0; i < profiles.weather.size(); ++i)
        LoadWeatherProfile(profiles.weather[i], file, u"Profile"_s + QString::number(i));
}

void LoadWeatherProfiles(ProfileTable &profiles, const IniPath &path)
{
    LoadWeatherProfiles(profiles, IniFile(path).Profile());
}

std::optional<QString> LoadForecastProfile(ForecastProfile &forecast, const PrivateProfile &file,
                                           int year)
{
    const auto read = [&file](QStringView key, QStringView fallback) {
        return ReadIniValue(file, u"ForecastProfile0", key, fallback);
    };

    // The host is read even if a blank title leaves the rest unchanged.
    forecast.host = read(u"host", u"https://tgftp.nws.noaa.gov");
    forecast.title = read(u"title", u"NOAA 7-Day Forecast for USA Locations");
    if (forecast.title.isEmpty())
        return std::nullopt;
    forecast.baseURL = read(u"baseURL", u"https://tgftp.nws.noaa.gov%PORT%"
                                        u"/pub/data/forecasts/zone/%STATE%/%ZONECODE%.txt");
    forecast.copyright =
        read(u"copyright", u"Public domain sources at U.S. National Weather Services.");
    forecast.copyrightURL = read(u"copyrightURL", u"https://tgftp.nws.noaa.gov/");
    // "[CRLF]" stays as it is, unlike in the description of a weather profile.
    forecast.description =
        read(u"description", u"Seven-day weather forecast data is provided for the USA by NOAA");
    forecast.forecastText.clear();
    return WithYear(forecast.copyright, year);
}

std::optional<QString> LoadForecastProfile(ForecastProfile &forecast, const IniPath &path, int year)
{
    return LoadForecastProfile(forecast, IniFile(path).Profile(), year);
}

bool IsSameService(const WeatherProfile &one, const WeatherProfile &other)
{
    const auto service = [](const WeatherProfile &profile) {
        return std::tie(profile.baseURL, profile.mainNodeOpen, profile.mainNodeClose,
                        profile.concatinateWindSpeedDir, profile.windSpeedDirFormat, profile.tags,
                        profile.required);
    };
    return service(one) == service(other);
}

void ClearWeatherProfile(WeatherProfile &profile)
{
    WeatherProfile cleared;
    // These stay: a new profile begins with the time and location tags of the one it replaces.
    cleared.copyrightURL = profile.copyrightURL;
    cleared.concatinateWindSpeedDir = profile.concatinateWindSpeedDir;
    for (const Quantity quantity : {Quantity::Time, Quantity::Location}) {
        cleared.values[quantity] = profile.values[quantity];
        cleared[quantity] = profile[quantity];
    }
    profile = cleared;
}
