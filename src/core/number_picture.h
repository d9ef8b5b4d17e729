#pragma once

#include <QString>
#include <QStringView>

/// `value` (finite) in the form that a number picture such as "0.0" or "#,##0" describes.
///
/// "0" always shows a digit, "#" only a significant one, so that "#" shows 0 as the empty text; a
/// comma between integer places groups by thousands, "%" shows a hundredfold, "E+00" asks for
/// exponent form, quoted text and the character after "\" are literal, and up to three sections
/// separated by ";" apply to positive, negative and zero values. The digits are those of the
/// 15-digit decimal form, halves away from zero. A value rounded to zero loses its minus sign.
///
/// @return NumberToText() of the value for an empty picture.
[[nodiscard]] QString FormatNumber(double value, QStringView picture);
