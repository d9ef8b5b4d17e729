#pragma once

#include "profiles/forecast_profile.h"
#include "profiles/quantity.h"

#include <QString>
#include <QStringList>

#include <array>
#include <cstddef>
#include <utility>

/// Where one quantity is in a reply, and how it is displayed.
struct QuantityTags
{
    QString Open = {};
    QString Close = {};
    QString Prefix = {};
    QString Suffix = {};
    QString Units = {};
    QString Factor = {};

    [[nodiscard]] bool operator==(const QuantityTags &) const = default;
};

/// A weather profile: how to request the current weather from a service, and where the values are
/// in its reply.
struct WeatherProfile
{
    double timeStamp = 0; ///< Days since 30 December 1899; only ever cleared.
    QString baseURL = {}; ///< Address template with %PORT% and %LOC1%..%LOC4%.
    QString description = {};
    QString title = {}; ///< Empty: the slot is not used.
    QString copyright = {};
    QString copyrightURL = {};
    std::array<QString, 4> location = {};      ///< location1..location4, kept per session.
    std::array<QString, 4> locationTitle = {}; ///< location1Title..location4Title.
    bool concatinateWindSpeedDir = false;      ///< The profile files spell it so.
    QString windSpeedDirFormat = {};           ///< Pattern with %SPEED% and %DIR%.
    QString mainNodeOpen = {};
    QString mainNodeClose = {};
    WeatherValues values = {};
    std::array<QuantityTags, kQuantityCount> tags = {};
    QStringList required = {}; ///< Key stems of the values that a reply must have; empty: none.

    [[nodiscard]] QuantityTags &operator[](Quantity quantity)
    {
        return tags[static_cast<std::size_t>(quantity)];
    }
    [[nodiscard]] const QuantityTags &operator[](Quantity quantity) const
    {
        return tags[static_cast<std::size_t>(quantity)];
    }
};

/// The ten weather profiles, which of them is current, and the forecast profile.
struct ProfileTable
{
    std::array<WeatherProfile, 10> weather = {};
    qint16 currentWeatherProfile = 0; ///< 0..9; -1 if there is no profile to choose.
    ForecastProfile forecast = {};

    /// The current profile; null if the index names none.
    [[nodiscard]] const WeatherProfile *Selected() const
    {
        const auto index = static_cast<std::size_t>(currentWeatherProfile);
        return currentWeatherProfile >= 0 && index < weather.size() ? &weather[index] : nullptr;
    }
    [[nodiscard]] WeatherProfile *Selected()
    {
        return const_cast<WeatherProfile *>(std::as_const(*this).Selected());
    }
};
