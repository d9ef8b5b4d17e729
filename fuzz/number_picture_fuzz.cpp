#include "core/number.h"
#include "core/number_picture.h"
#include "fuzz_input.h"

#include <QRegularExpression>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// A number's decimal digits on both sides of the point, without superfluous zeros.
struct Digits
{
    QByteArray ahead = {};
    QByteArray behind = {};
};

Digits DigitsOf(double value)
{
    const DecimalNumber number = ToDecimal(value);
    const QByteArray all = QByteArray::fromStdString(number.digits);
    if (number.pointAt <= 0)
        return {{}, all.isEmpty() ? all : QByteArray(-number.pointAt, '0') + all};
    if (number.pointAt >= all.size())
        return {all + QByteArray(number.pointAt - all.size(), '0'), {}};
    return {all.first(number.pointAt), all.sliced(number.pointAt)};
}

/// Rounds as one does on paper: digit by digit from the right, with a carry.
void RoundOnPaper(Digits &digits, qsizetype decimals)
{
    if (digits.behind.size() <= decimals)
        return;
    bool carry = digits.behind.at(decimals) >= '5';
    digits.behind.truncate(decimals);
    for (QByteArray *part : {&digits.behind, &digits.ahead}) {
        for (qsizetype i = part->size() - 1; i >= 0 && carry; --i) {
            carry = part->at(i) == '9';
            (*part)[i] = carry ? '0' : char(part->at(i) + 1);
        }
    }
    if (carry)
        digits.ahead.prepend('1');
    while (digits.behind.endsWith('0'))
        digits.behind.chop(1);
}

/// `value` formatted by a picture of places, commas and one point.
QString PlainFormat(double value, const QString &picture)
{
    const qsizetype point = picture.indexOf('.');
    const QString ahead = point < 0 ? picture : picture.left(point);
    const QString places = QString(ahead).remove(',');
    const QString decimals = point < 0 ? QString() : picture.mid(point + 1);

    Digits digits = DigitsOf(value);
    RoundOnPaper(digits, decimals.size());
    const bool zero =
        digits.behind.isEmpty() && QByteArray(digits.ahead).replace('0', "").isEmpty();
    const qsizetype leastAhead = places.contains('0') ? places.size() - places.indexOf('0') : 0;
    QByteArray left = digits.ahead.rightJustified(leastAhead, '0');
    if (ahead.contains(QRegularExpression(u"[0#],+[0#]"_s))) {
        for (qsizetype i = left.size() - 3; i > 0; i -= 3)
            left.insert(i, ',');
    }
    const QByteArray right = digits.behind.leftJustified(decimals.lastIndexOf('0') + 1, '0');
    return (value < 0 && !zero ? u"-"_s : QString()) + left + (point < 0 ? "" : ".") + right;
}

void CheckPlainPicture(double value, const QString &picture)
{
    static const QRegularExpression plain(u"^[0#,]*[0#][,]*(\\.[0#]*)?$"_s);
    if (!plain.match(picture).hasMatch())
        return;
    Demand(FormatNumber(value, picture) == PlainFormat(value, picture), "the plain version's text");
}

void CheckOneDecimal(double value)
{
    const QString text = FormatNumber(value, u"0.0");
    static const QRegularExpression form(u"^-?[0-9]+\\.[0-9]$"_s);
    Demand(form.match(text).hasMatch(), "one decimal");
    if (std::abs(value) < 1e12) {
        Demand(FormatNumber(LeadingNumber(text).value_or(0), u"0.0") == text, "stable");
        Demand(std::abs(*LeadingNumber(text) - value) <= 0.0501, "near the value");
    }
}

} // namespace

// The contract: every picture formats every number; an empty picture gives NumberToText(); pictures
// of places alone agree with a sum on paper.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    constexpr qsizetype kLongestNumber = 2000; // a double's digits and a comma for every third
    FuzzInput input(bytes, size);
    const std::optional<double> value = LeadingNumber(TextOf(input.Line()));
    const QString picture = TextOf(input.Line());
    if (!value)
        return 0;

    const QString text = FormatNumber(*value, picture);
    Demand(text.size() <= kLongestNumber + 4 * picture.size(), "no longer than its picture asks");
    Demand(!picture.isEmpty() || text == NumberToText(*value), "no picture: number to text");
    CheckPlainPicture(*value, picture);
    CheckPlainPicture(-*value, picture);
    CheckOneDecimal(*value);
    return 0;
}
