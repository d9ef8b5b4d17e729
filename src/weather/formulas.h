#pragma once

/// What the formulas return where they do not apply.
inline constexpr double kNotApplicable = -32000;

/// Heat index in degrees Fahrenheit of `temperature` (degrees Fahrenheit, 80..150) and `humidity`
/// (relative, percent, 40..100); kNotApplicable outside these ranges, and if the result is below
/// the temperature. Source: the regression of the U.S. National Weather Service (Rothfusz, 1990).
[[nodiscard]] double GetHeatIndexF(double temperature, double humidity);

/// The same in degrees Celsius.
[[nodiscard]] double GetHeatIndexC(double temperature, double humidity);

/// Wind chill in degrees Fahrenheit of `temperature` (degrees Fahrenheit, at most 40) and
/// `windSpeed` (miles per hour, from 0 on); kNotApplicable outside these ranges, and if the result
/// is above the temperature. Source: the wind chill temperature index of 2001 (NWS and Environment
/// Canada).
[[nodiscard]] double GetWindChillF(double temperature, double windSpeed);

/// The same in degrees Celsius (at most 5) and kilometres per hour.
[[nodiscard]] double GetWindChillC(double temperature, double windSpeed);

/// Dew point in degrees Fahrenheit of `temperature` (degrees Fahrenheit) and `humidity` (relative,
/// percent, at least 50; kNotApplicable below).
/// Source: the linear approximation by Lawrence, Bull. Amer. Meteor. Soc. 86 (2005), in Fahrenheit.
[[nodiscard]] double GetDewPointF(double temperature, double humidity);

/// The same in degrees Celsius.
[[nodiscard]] double GetDewPointC(double temperature, double humidity);
