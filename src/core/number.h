#pragma once

#include <QString>
#include <QStringView>

#include <optional>
#include <string>

/// The decimal number at the front of `text`: blanks (space, tab, line ends) are skipped, then an
/// optional sign, digits with an optional point, and an exponent (E or e) if digits follow it.
/// ASCII digits and the point only, whatever the system's locale; what follows is ignored.
///
/// @return 0 if there is no number; nothing if the number is too large for a double, which makes
///         the step that asked for it fail.
[[nodiscard]] std::optional<double> LeadingNumber(QStringView text);

/// A number in its 15-digit decimal form: `digits` (no zeros at either end, empty for zero) times
/// a power of ten, so that the value is 0.d1d2d3... x 10^`pointAt`.
struct DecimalNumber
{
    bool negative = false;
    std::string digits = {};
    int pointAt = 0; ///< Digits before the decimal point; zero and below: zeros follow it.
};

/// Splits a finite `value` into digits, its exact value rounded to at most 15 significant ones.
[[nodiscard]] DecimalNumber ToDecimal(double value);

/// The shortest general form of a finite number: at most 15 significant digits, a decimal point,
/// no trailing zeros; from 1E+15 on, and where more than 15 digits would follow the point, in
/// exponent form ("2E+15", "1.66666666666667E-02").
[[nodiscard]] QString NumberToText(double value);

/// The nearest 16-bit whole number, exact halves to even.
/// @return nothing outside -32768..32767 after rounding (and for values that are not numbers).
[[nodiscard]] std::optional<qint16> ToInt16(double value);

/// The number that the *whole* of `text` denotes, rounded to a whole one as ToInt16() does:
/// blanks around it, a sign, a point and an exponent are accepted.
/// @return nothing if the text is not a number at all; infinity for a number beyond the double's
///         range, because it is a number, if a useless one.
[[nodiscard]] std::optional<double> WholeTextNumber(QStringView text);
