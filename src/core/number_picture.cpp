#include "core/number_picture.h"

#include "core/number.h"
#include "core/picture_section.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int kGroupLength = 3;

/// Rounds to `decimals` digits after the point, halves away from zero.
void Round(DecimalNumber &number, int decimals)
{
    const int keep = number.pointAt + decimals;
    const auto length = static_cast<int>(number.digits.size());
    if (keep >= length)
        return;
    if (keep < 0) {
        number.digits.clear();
        return;
    }
    const bool up = number.digits[static_cast<std::size_t>(keep)] >= '5';
    number.digits.resize(static_cast<std::size_t>(keep));
    if (up) {
        while (!number.digits.empty() && number.digits.back() == '9')
            number.digits.pop_back();
        if (number.digits.empty()) {
            number.digits.assign(1, '1');
            ++number.pointAt;
            return;
        }
        ++number.digits.back();
    }
    number.digits.erase(number.digits.find_last_not_of('0') + 1);
}

/// The digit `index` places after the number's own first one, "0" outside its significant digits.
QChar DigitAt(const DecimalNumber &number, int index)
{
    const bool significant = index >= 0 && index < static_cast<int>(number.digits.size());
    return significant ? QLatin1Char(number.digits[static_cast<std::size_t>(index)])
                       : QLatin1Char('0');
}

/// The digits before the point, at least `least`; a value below one has none of its own.
QString IntegerDigits(const DecimalNumber &number, int least)
{
    const int own = number.digits.empty() ? 0 : std::max(number.pointAt, 0);
    const int length = std::max(own, least);
    QString digits(length, Qt::Uninitialized);
    for (int i = 0; i < length; ++i)
        digits[i] = i < length - own ? QLatin1Char('0') : DigitAt(number, i - (length - own));
    return digits;
}

/// The significant digits after the point, at least `least`.
QString DecimalDigits(const DecimalNumber &number, int least)
{
    const int own = number.digits.empty()
                      ? 0
                      : std::max(static_cast<int>(number.digits.size()) - number.pointAt, 0);
    const int length = std::max(own, least);
    QString digits(length, Qt::Uninitialized);
    for (int i = 0; i < length; ++i)
        digits[i] = i < own ? DigitAt(number, number.pointAt + i) : QLatin1Char('0');
    return digits;
}

/// Puts a number's digits into the places of a section.
class Composer
{
public:
    Composer(const PictureSection &section, const DecimalNumber &number, int exponent)
        : m_section(section)
        , m_integer(IntegerDigits(number, section.leastIntegerDigits))
        , m_decimals(DecimalDigits(number, section.leastDecimals))
        , m_exponent(exponent)
    {}

    QString Compose()
    {
        for (const PictureElement &element : m_section.elements)
            Put(element);
        return std::move(m_text);
    }

private:
    void Put(const PictureElement &element);
    void PutPlace();
    void PutIntegerDigits(qsizetype upTo);
    void PutExponent(const PictureElement &element);

    const PictureSection &m_section;
    QString m_integer;  // all integer digits, padded to the minimum number
    QString m_decimals; // all decimals to show, padded likewise
    int m_exponent = 0;
    QString m_text;
    qsizetype m_integerPlace = 0; // places passed
    qsizetype m_integerDone = 0;  // digits put
    qsizetype m_decimalPlace = 0;
    bool m_behindPoint = false;
};

void Composer::Put(const PictureElement &element)
{
    switch (element.kind) {
    case PictureElement::Kind::Zero:
    case PictureElement::Kind::Digit:
        PutPlace();
        break;
    case PictureElement::Kind::Point:
        PutIntegerDigits(m_integer.size()); // a picture without integer places shows them all
        m_behindPoint = true;
        m_text.append(u'.');
        break;
    case PictureElement::Kind::Exponent:
        PutExponent(element);
        break;
    case PictureElement::Kind::Literal:
        m_text.append(element.text);
        break;
    }
}

void Composer::PutPlace()
{
    if (m_behindPoint) {
        if (m_decimalPlace < m_decimals.size())
            m_text.append(m_decimals[m_decimalPlace]);
        ++m_decimalPlace;
        return;
    }
    ++m_integerPlace;
    // The digits are aligned with the last place; the first place takes all those before it.
    PutIntegerDigits(m_integer.size() - (m_section.integerPlaces - m_integerPlace));
}

void Composer::PutIntegerDigits(qsizetype upTo)
{
    for (; m_integerDone < upTo; ++m_integerDone) {
        m_text.append(m_integer[m_integerDone]);
        const qsizetype behind = m_integer.size() - m_integerDone - 1;
        if (m_section.grouped && behind > 0 && behind % kGroupLength == 0)
            m_text.append(u',');
    }
}

void Composer::PutExponent(const PictureElement &element)
{
    m_text.append(element.text.front());
    if (m_exponent < 0)
        m_text.append(u'-');
    else if (element.text.back() == u'+')
        m_text.append(u'+');
    m_text.append(QString::number(std::abs(m_exponent)).rightJustified(element.width, u'0'));
}

/// Moves the point so that the number has as many integer digits as the section has places, and
/// rounds there. Rounding may carry into one more digit, which moves the point again.
/// @return the power of ten that was taken out.
int Normalize(DecimalNumber &number, const PictureSection &section)
{
    if (number.digits.empty())
        return 0;
    const int places = std::max(section.integerPlaces, 1);
    int exponent = number.pointAt - places;
    number.pointAt = places;
    Round(number, section.decimalPlaces);
    if (number.pointAt > places) {
        exponent += number.pointAt - places;
        number.pointAt = places;
    }
    return exponent;
}

} // namespace

QString FormatNumber(double value, QStringView picture)
{
    if (picture.isEmpty())
        return NumberToText(value);

    const auto [positive, negative, zero] = SplitSections(picture);
    const bool ownNegative = value < 0 && !negative.isEmpty();
    const bool ownZero = value == 0 && !zero.isEmpty();
    const PictureSection section = ReadSection(ownNegative ? negative : ownZero ? zero : positive);

    DecimalNumber number = ToDecimal(value);
    number.pointAt += 2 * section.percents;
    int exponent = 0;
    if (section.exponent)
        exponent = Normalize(number, section);
    else
        Round(number, section.decimalPlaces);

    const QString text = Composer(section, number, exponent).Compose();
    const bool minus = value < 0 && !ownNegative && !number.digits.empty();
    return minus ? u'-' + text : text;
}
