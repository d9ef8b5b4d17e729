#include "fuzz_input.h"
#include "profiles/profile_file.h"
#include "store/ini_value.h"

#include <algorithm>

namespace {

/// Clearing a profile keeps what it should keep, and nothing else.
void CheckCleared(WeatherProfile profile)
{
    profile.values[Quantity::Time] = "12:51 PM";
    profile.values[Quantity::Temperature] = "68.0 F";
    const WeatherProfile before = profile;

    ClearWeatherProfile(profile);

    const auto kept = static_cast<std::size_t>(Quantity::Time);
    for (std::size_t i = 0; i < kQuantityCount; ++i) {
        const QString expected = i >= kept ? before.tags[i].Open : QString();
        Demand(profile.tags[i].Open == expected, "the tags of time and location stay alone");
    }
    Demand(profile.title.isEmpty() && profile.baseURL.isEmpty(), "title and address go");
    Demand(profile.copyrightURL == before.copyrightURL, "the credit's address stays");
    Demand(profile.concatinateWindSpeedDir == before.concatinateWindSpeedDir, "the flag stays");
    Demand(profile.values[Quantity::Time] == "12:51 PM", "the time stays");
    Demand(profile.values[Quantity::Temperature].isEmpty(), "the temperature goes");
}

/// The slot as the file has it, key by key.
void CheckSlot(const WeatherProfile &profile, const PrivateProfile &file, const QString &section)
{
    const auto read = [&](const QString &key) { return ReadIniValue(file, section, key); };
    Demand(profile.title == read("title"), "the title");
    if (profile.title.isEmpty()) {
        Demand(profile.tags[0].Open == "as before", "a slot without a title stays as it is");
        return;
    }
    for (std::size_t i = 0; i < kQuantityCount; ++i) {
        const QString stem = kQuantities[i].stem.toString();
        const QuantityTags &tags = profile.tags[i];
        Demand(tags.Open == read(stem + "Open") && tags.Close == read(stem + "Close")
                   && tags.Prefix == read(stem + "Prefix") && tags.Suffix == read(stem + "Suffix")
                   && tags.Units == read(stem + "Units") && tags.Factor == read(stem + "Factor"),
               "six texts of a quantity");
    }
    Demand(profile.baseURL == read("baseURL"), "the address");
    Demand(profile.mainNodeOpen == read("mainNodeOpen"), "the opening tag of the main node");
    Demand(profile.mainNodeClose == read("mainNodeClose"), "the closing tag of the main node");
    Demand(profile.windSpeedDirFormat == read("windSpeedDirFormat"), "the pattern of the wind");
    Demand(profile.locationTitle[3] == read("location4Title"), "the fourth label");
    Demand(profile.concatinateWindSpeedDir == (read("concatinateWindSpeedDir") == "TRUE"),
           "on for TRUE alone");
    Demand(profile.description == read("description").replace("[CRLF]", "\r\n"), "line ends");
    Demand(profile.values == WeatherValues(), "no values yet");
    Demand(std::none_of(profile.required.begin(), profile.required.end(),
                        [](const QString &stem) {
                            return stem.isEmpty() || stem.contains(',') || stem.startsWith(' ');
                        }),
           "stems without commas and blanks");
    CheckCleared(profile);
}

void CheckForecast(const PrivateProfile &file)
{
    ForecastProfile forecast;
    forecast.baseURL = "as before";
    const std::optional<QString> caption = LoadForecastProfile(forecast, file, 2026);
    const bool blank = FindIniValue(file, u"ForecastProfile0", u"title") == QString();
    Demand(caption.has_value() != blank, "a blank title gives no caption");
    if (!caption) {
        Demand(forecast.baseURL == "as before", "a blank title leaves the rest alone");
        return;
    }
    Demand(*caption == QString(forecast.copyright).replace("%YEAR%", "2026"), "the year is filled");
    const bool given = FindIniValue(file, u"ForecastProfile0", u"baseURL").has_value();
    Demand(given || forecast.baseURL.contains("%ZONECODE%"), "a missing address is the program's");
}

} // namespace

// The contract: each slot holds what the file's section says key by key, a slot without a title
// stays as it was, and clearing keeps what should stay.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    FuzzInput input(bytes, size);
    const auto codePage = input.Line() == "1252" ? CodePage::Windows1252 : CodePage::Utf8;
    const PrivateProfile file(input.Rest(), codePage);
    ProfileTable profiles;
    for (WeatherProfile &profile : profiles.weather)
        profile.tags[0].Open = "as before";

    LoadWeatherProfiles(profiles, file);

    for (std::size_t i = 0; i < profiles.weather.size(); ++i)
        CheckSlot(profiles.weather[i], file, "Profile" + QString::number(i));
    CheckForecast(file);
    return 0;
}
