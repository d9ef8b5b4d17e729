#include "core/number.h"
#include "core/text.h"
#include "fuzz_input.h"

#include <QRegularExpression>
#include <QStringList>

#include <array>
#include <cmath>
#include <cstring>
#include <string>

using namespace Qt::StringLiterals;

namespace {

/// What a pattern finds at the front, as the C library reads it.
std::optional<double> PlainLeadingNumber(const QString &text)
{
    static const QRegularExpression number(
        u"^[ \\t\\r\\n]*([+-]?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+)(?:[Ee][+-]?[0-9]+)?)"_s);
    const QRegularExpressionMatch found = number.match(WithoutLoneSurrogates(text));
    if (!found.hasMatch())
        return 0.0;
    const double value = std::strtod(found.captured(1).toLatin1().constData(), nullptr);
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

/// Fifteen digits by the C library, as in 1.23456789012345e+02.
std::string Scientific(double value)
{
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.14e", value);
    return text.data();
}

/// The same digits laid out by hand.
QString PlainText(double value)
{
    const QByteArray scientific = QByteArray::fromStdString(Scientific(std::abs(value)));
    QByteArray digits = scientific.first(1) + scientific.mid(2, 14);
    const int power = scientific.sliced(scientific.indexOf('e') + 1).toInt();
    while (digits.endsWith('0'))
        digits.chop(1);
    if (digits.isEmpty())
        return "0";
    const QString sign = value < 0 ? "-" : "";
    if (power >= 15 || int(digits.size()) - 1 - power > 15) {
        const QString fraction = digits.size() > 1 ? "." + digits.sliced(1) : "";
        return sign + digits.first(1) + fraction + (power < 0 ? "E-" : "E+")
             + QString::number(std::abs(power)).rightJustified(2, '0');
    }
    if (power < 0)
        return sign + "0." + QByteArray(-power - 1, '0') + digits;
    if (power + 1 >= digits.size())
        return sign + digits.leftJustified(power + 1, '0');
    return sign + digits.insert(power + 1, '.');
}

void CheckText(double value)
{
    static const QRegularExpression form(u"^-?[0-9]+(\\.[0-9]*[1-9])?(E[+-][0-9]{2,3})?$"_s);
    const QString text = NumberToText(value);
    Demand(form.match(text).hasMatch(), "a number looks like one");
    Demand(text != "-0", "zero has no sign");
    Demand(text == PlainText(value), "the plain version's text");

    // Rounded up to fifteen digits, the very largest numbers exceed the largest double.
    const std::optional<double> again = LeadingNumber(text);
    if (std::abs(value) > 1.79769313486231e308)
        return;
    Demand(again.has_value(), "the text of a number is a number");
    Demand(NumberToText(*again) == text, "the text of the number of a text is stable");
    Demand(WholeTextNumber(text) == again, "a number's text is one from end to end");
}

void CheckInt16(double value)
{
    const std::optional<qint16> whole = ToInt16(value);
    Demand(whole.has_value() == (value >= -32768.5 && value < 32767.5), "16 bits, never wrapped");
    if (!whole)
        return;
    const double away = std::abs(value - *whole);
    Demand(away < 0.5 || (away == 0.5 && *whole % 2 == 0), "the nearest, halves to even");
}

void CheckReading(const QString &text)
{
    const std::optional<double> value = LeadingNumber(text);
    const std::optional<double> plain = PlainLeadingNumber(text);
    Demand(value == plain, "the plain version's number");
    if (const std::optional<double> whole = WholeTextNumber(text))
        Demand(whole == value.value_or(std::copysign(HUGE_VAL, *whole)), "no two readings");
    if (!value)
        return;
    Demand(std::isfinite(*value), "a number is finite");
    CheckText(*value);
    CheckInt16(*value);
}

} // namespace

// The contract: every text has a number or overflows; every number has a text of at most fifteen
// digits that stays the same when it is read and written again. The first line is read as text and
// as the bytes of a double, to reach numbers that no short text denotes.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    FuzzInput input(bytes, size);
    const QByteArray line = input.Line();
    CheckReading(TextOf(line));
    CheckReading(TextOf(input.Rest()));

    QByteArray raw = line.first(qMin<qsizetype>(line.size(), sizeof(double)));
    raw = raw.leftJustified(sizeof(double), '\0');
    double value = 0;
    std::memcpy(&value, raw.constData(), sizeof value);
    if (std::isfinite(value)) {
        CheckText(value);
        CheckInt16(value);
    }
    return 0;
}
