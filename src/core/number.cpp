#include "core/number.h"

#include "core/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr int kSignificantDigits = 15;
constexpr int kPlainLimit = 15; // digits before the point, and after it, in plain notation

bool IsBlank(QChar c)
{
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n';
}

qsizetype SkipDigits(QStringView text, qsizetype from)
{
    while (from < text.size() && IsDigit(text[from]))
        ++from;
    return from;
}

/// Length of the exponent that `text` has at `from`, 0 if it has none.
qsizetype ExponentLength(QStringView text, qsizetype from)
{
    if (from >= text.size() || (text[from] != u'E' && text[from] != u'e'))
        return 0;
    qsizetype at = from + 1;
    if (at < text.size() && (text[at] == u'+' || text[at] == u'-'))
        ++at;
    const qsizetype end = SkipDigits(text, at);
    return end > at ? end - from : 0;
}

/// Length of the number at the front of `text` (without leading blanks), 0 if there is none.
qsizetype NumberLength(QStringView text)
{
    const qsizetype sign = !text.isEmpty() && (text[0] == u'+' || text[0] == u'-') ? 1 : 0;
    qsizetype end = SkipDigits(text, sign);
    qsizetype digits = end - sign;
    if (end < text.size() && text[end] == u'.') {
        const qsizetype fraction = SkipDigits(text, end + 1);
        digits += fraction - end - 1;
        end = fraction;
    }
    if (digits == 0)
        return 0;
    return end + ExponentLength(text, end);
}

/// Whether a number that does not fit a double is too small rather than too large.
bool IsTiny(const std::string &number)
{
    const std::size_t exponentAt = number.find_first_of("Ee");
    const std::string mantissa = number.substr(0, exponentAt);
    const std::size_t first = mantissa.find_first_of("123456789");
    if (first == std::string::npos)
        return true;
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    auto magnitude = static_cast<double>(point) - static_cast<double>(first);
    if (exponentAt != std::string::npos) {
        const bool negative = number[exponentAt + 1] == '-';
        // Saturates: an exponent of many digits is far out of range either way.
        double exponent = 0;
        for (const char c : number.substr(exponentAt + 1)) {
            if (c >= '0' && c <= '9')
                exponent = std::min(exponent * 10 + (c - '0'), 1e18);
        }
        magnitude += negative ? -exponent : exponent;
    }
    return magnitude < 0;
}

/// The value of a text that is a number from end to end; nothing if it overflows a double.
std::optional<double> ValueOf(QStringView number)
{
    if (number.startsWith(u'+'))
        number = number.sliced(1);
    const std::string ascii = number.toString().toStdString();
    double value = 0;
    const auto result = std::from_chars(ascii.data(), ascii.data() + ascii.size(), value);
    if (result.ec != std::errc::result_out_of_range)
        return value;
    return IsTiny(ascii) ? std::optional(0.0) : std::nullopt;
}

std::string ExponentText(const DecimalNumber &number)
{
    std::string text = number.digits.substr(0, 1);
    if (number.digits.size() > 1)
        text.append(1, '.').append(number.digits, 1);
    const int exponent = number.pointAt - 1;
    const std::string power = std::to_string(std::abs(exponent));
    text.append(exponent < 0 ? "E-" : "E+");
    return text.append(power.size() < 2 ? "0" : "").append(power);
}

std::string PlainText(const DecimalNumber &number)
{
    const auto ahead = static_cast<std::size_t>(std::max(number.pointAt, 0));
    if (ahead == 0)
        return std::string("0.").append(static_cast<std::size_t>(-number.pointAt), '0')
             + number.digits;
    std::string text = number.digits;
    if (ahead >= text.size())
        return text.append(ahead - text.size(), '0');
    return text.insert(ahead, 1, '.');
}

} // namespace

std::optional<double> LeadingNumber(QStringView text)
{
    while (!text.isEmpty() && IsBlank(text.front()))
        text = text.sliced(1);
    const qsizetype length = NumberLength(text);
    return length == 0 ? 0.0 : ValueOf(text.first(length));
}

DecimalNumber ToDecimal(double value)
{
    DecimalNumber number;
    number.negative = std::signbit(value);
    if (value == 0 || !std::isfinite(value))
        return number;

    std::array<char, 40> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(value),
                                   std::chars_format::scientific, kSignificantDigits - 1)
                         .ptr;
    const char *exponent = std::find(buffer.data(), end, 'e');
    std::copy_if(static_cast<const char *>(buffer.data()), exponent,
                 std::back_inserter(number.digits), [](char c) { return c != '.'; });
    number.digits.erase(number.digits.find_last_not_of('0') + 1);

    int power = 0;
    const char *powerText = exponent + (exponent[1] == '+' ? 2 : 1);
    std::from_chars(powerText, end, power);
    number.pointAt = power + 1;
    return number;
}

QString NumberToText(double value)
{
    const DecimalNumber number = ToDecimal(value);
    if (number.digits.empty())
        return u"0"_s;
    const int behindPoint = static_cast<int>(number.digits.size()) - number.pointAt;
    const bool plain = number.pointAt <= kPlainLimit && behindPoint <= kPlainLimit;
    const std::string text = plain ? PlainText(number) : ExponentText(number);
    return QString::fromStdString(number.negative ? '-' + text : text);
}

std::optional<qint16> ToInt16(double value)
{
    // The default rounding mode of the processor: to nearest, halves to even.
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<qint16>::min()
          && rounded <= std::numeric_limits<qint16>::max()))
        return std::nullopt;
    return static_cast<qint16>(rounded);
}

std::optional<double> WholeTextNumber(QStringView text)
{
    while (!text.isEmpty() && IsBlank(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && IsBlank(text.back()))
        text.chop(1);
    const qsizetype length = NumberLength(text);
    if (length == 0 || length != text.size())
        return std::nullopt;
    return ValueOf(text).value_or(std::numeric_limits<double>::infinity());
}
