#pragma once

#include <QStringView>

#include <array>
#include <vector>

/// One element of a section of a number picture.
struct PictureElement
{
    enum class Kind
    {
        Zero,     ///< "0": always a digit.
        Digit,    ///< "#": only a significant digit.
        Point,    ///< The decimal point.
        Exponent, ///< "E+00": `text` is "E+" or "E-" as written, `width` the least digits.
        Literal   ///< `text` as is.
    };
    Kind kind = Kind::Literal;
    QStringView text = {}; ///< A view of the picture.
    int width = 0;
};

/// One section of a number picture, parsed.
struct PictureSection
{
    std::vector<PictureElement> elements = {};
    int integerPlaces = 0;      ///< "0" and "#" before the point.
    int leastIntegerDigits = 0; ///< Places from the first "0" on.
    int decimalPlaces = 0;
    int leastDecimals = 0; ///< Places up to the last "0".
    int percents = 0;
    bool grouped = false;
    bool exponent = false;
};

/// The sections of a picture. A ";" in quotes or after "\" does not separate; whatever follows the
/// third section is ignored.
[[nodiscard]] std::array<QStringView, 3> SplitSections(QStringView picture);

/// Parses one of them. The elements are views of `picture`.
[[nodiscard]] PictureSection ReadSection(QStringView picture);
