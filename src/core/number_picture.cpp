#include "core/number_picture.h"

#include "core/number.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int kGroupLength = 3;

/// One element of a picture section.
struct Element
{
    enum class Kind
    {
        Zero,     ///< "0": a digit always.
        Digit,    ///< "#": a significant digit only.
        Point,    ///< The decimal point.
        Exponent, ///< "E+00": `text` is "E+" or "E-" as written, `width` the least digits.
        Literal   ///< `text` as it is.
    };
    Kind kind = Kind::Literal;
    QStringView text = {}; ///< A view of the picture.
    int width = 0;
};

/// One section of a picture, taken apart.
struct Section
{
    std::vector<Element> elements = {};
    int integerPlaces = 0;      ///< "0" and "#" ahead of the point.
    int leastIntegerDigits = 0; ///< Places from the first "0" on.
    int decimalPlaces = 0;
    int leastDecimals = 0; ///< Places up to the last "0".
    int percents = 0;
    bool grouped = false;
    bool exponent = false;
};

bool IsPlace(QChar c)
{
    return c == u'0' || c == u'#';
}

/// Length of the quoted text or escaped character at the front of `picture`; 0: neither.
qsizetype VerbatimLength(QStringView picture)
{
    if (picture.front() == u'\\')
        return std::min<qsizetype>(2, picture.size());
    if (picture.front() != u'"')
        return 0;
    const qsizetype end = picture.indexOf(u'"', 1);
    return end < 0 ? picture.size() : end + 1;
}

QStringView VerbatimText(QStringView verbatim)
{
    if (verbatim.front() == u'\\')
        return verbatim.sliced(1);
    return verbatim.size() > 1 && verbatim.back() == u'"' ? verbatim.sliced(1).chopped(1)
                                                          : verbatim.sliced(1);
}

/// The sections of a picture; ";" in quotes and behind "\" part nothing, and what follows a third
/// section is of no use.
std::array<QStringView, 3> SplitSections(QStringView picture)
{
    std::array<QStringView, 3> sections;
    std::size_t section = 0;
    qsizetype start = 0;
    for (qsizetype i = 0; i < picture.size() && section < sections.size();) {
        const qsizetype verbatim = VerbatimLength(picture.sliced(i));
        if (verbatim == 0 && picture[i] == u';') {
            sections[section++] = picture.sliced(start, i - start);
            start = i + 1;
        }
        i += std::max<qsizetype>(verbatim, 1);
    }
    if (section < sections.size())
        sections[section] = picture.sliced(start);
    return sections;
}

/// Length of the exponent sign and its places at the front of `picture` ("E+00"); 0: none is there.
qsizetype ExponentLength(QStringView picture)
{
    if (picture.size() < 3 || (picture[0] != u'E' && picture[0] != u'e')
        || (picture[1] != u'+' && picture[1] != u'-'))
        return 0;
    qsizetype end = 2;
    while (end < picture.size() && IsPlace(picture[end]))
        ++end;
    return end > 2 ? end : 0;
}

/// Takes a section apart, element by element.
class SectionReader
{
public:
    explicit SectionReader(QStringView picture) : m_rest(picture)
    {
        m_section.elements.reserve(static_cast<std::size_t>(picture.size()));
    }

    Section Read()
    {
        while (!m_rest.isEmpty())
            m_rest = m_rest.sliced(TakeElement());
        return std::move(m_section);
    }

private:
    /// @return how much of the picture the element took.
    qsizetype TakeElement();
    void TakePlace(QChar c);
    void TakeMark(QChar c);
    void Add(Element::Kind kind, QStringView text = {}, int width = 0)
    {
        m_section.elements.push_back({kind, text, width});
    }

    QStringView m_rest;
    Section m_section;
    bool m_behindPoint = false;
    bool m_comma = false; // behind an integer place, not yet between two
};

qsizetype SectionReader::TakeElement()
{
    if (const qsizetype length = VerbatimLength(m_rest); length > 0) {
        Add(Element::Kind::Literal, VerbatimText(m_rest.first(length)));
        return length;
    }
    if (const qsizetype length = ExponentLength(m_rest); length > 0 && !m_section.exponent) {
        m_section.exponent = true;
        Add(Element::Kind::Exponent, m_rest.first(2), static_cast<int>(length) - 2);
        return length;
    }
    if (IsPlace(m_rest.front()))
        TakePlace(m_rest.front());
    else
        TakeMark(m_rest.front());
    return 1;
}

void SectionReader::TakePlace(QChar c)
{
    Add(c == u'0' ? Element::Kind::Zero : Element::Kind::Digit);
    if (m_behindPoint) {
        ++m_section.decimalPlaces;
        if (c == u'0')
            m_section.leastDecimals = m_section.decimalPlaces;
        return;
    }
    ++m_section.integerPlaces;
    if (c == u'0' || m_section.leastIntegerDigits > 0)
        ++m_section.leastIntegerDigits;
    m_section.grouped = m_section.grouped || m_comma;
}

void SectionReader::TakeMark(QChar c)
{
    if (c == u'.' && !m_behindPoint) {
        m_behindPoint = true;
        Add(Element::Kind::Point);
    } else if (c == u',' && !m_behindPoint) {
        m_comma = m_section.integerPlaces > 0;
    } else {
        m_section.percents += c == u'%' ? 1 : 0;
        Add(Element::Kind::Literal, m_rest.first(1));
    }
}

/// Rounds to `decimals` digits behind the point, halves away from zero.
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

/// The digit at `index` behind the number's own first one, "0" outside its significant digits.
QChar DigitAt(const DecimalNumber &number, int index)
{
    const bool significant = index >= 0 && index < static_cast<int>(number.digits.size());
    return significant ? QLatin1Char(number.digits[static_cast<std::size_t>(index)])
                       : QLatin1Char('0');
}

/// The digits ahead of the point, at least `least`; a value below one has none of its own.
QString IntegerDigits(const DecimalNumber &number, int least)
{
    const int own = number.digits.empty() ? 0 : std::max(number.pointAt, 0);
    const int length = std::max(own, least);
    QString digits(length, Qt::Uninitialized);
    for (int i = 0; i < length; ++i)
        digits[i] = i < length - own ? QLatin1Char('0') : DigitAt(number, i - (length - own));
    return digits;
}

/// The significant digits behind the point, at least `least`.
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
    Composer(const Section &section, const DecimalNumber &number, int exponent)
        : m_section(section)
        , m_integer(IntegerDigits(number, section.leastIntegerDigits))
        , m_decimals(DecimalDigits(number, section.leastDecimals))
        , m_exponent(exponent)
    {}

    QString Compose()
    {
        for (const Element &element : m_section.elements)
            Put(element);
        return std::move(m_text);
    }

private:
    void Put(const Element &element);
    void PutPlace();
    void PutIntegerDigits(qsizetype upTo);
    void PutExponent(const Element &element);

    const Section &m_section;
    QString m_integer;  // all integer digits, padded to the least number
    QString m_decimals; // all decimals to show, padded likewise
    int m_exponent = 0;
    QString m_text;
    qsizetype m_integerPlace = 0; // places passed
    qsizetype m_integerDone = 0;  // digits put
    qsizetype m_decimalPlace = 0;
    bool m_behindPoint = false;
};

void Composer::Put(const Element &element)
{
    switch (element.kind) {
    case Element::Kind::Zero:
    case Element::Kind::Digit:
        PutPlace();
        break;
    case Element::Kind::Point:
        PutIntegerDigits(m_integer.size()); // a picture without integer places shows them all
        m_behindPoint = true;
        m_text.append(u'.');
        break;
    case Element::Kind::Exponent:
        PutExponent(element);
        break;
    case Element::Kind::Literal:
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
    // The digits are aligned with the last place; the first place takes all that stand ahead.
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

void Composer::PutExponent(const Element &element)
{
    m_text.append(element.text.front());
    if (m_exponent < 0)
        m_text.append(u'-');
    else if (element.text.back() == u'+')
        m_text.append(u'+');
    m_text.append(QString::number(std::abs(m_exponent)).rightJustified(element.width, u'0'));
}

/// Moves the point so that the number has as many integer digits as the section has places, and
/// rounds it there. Rounding may carry into one more digit, which moves the point once more.
/// @return the power of ten that was taken out.
int Normalize(DecimalNumber &number, const Section &section)
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
    const Section section = SectionReader(ownNegative ? negative
                                          : ownZero   ? zero
                                                      : positive)
                                .Read();

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
