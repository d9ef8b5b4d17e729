#include "net/port_text.h"

#include "core/text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kHighestPort = 65535;

} // namespace

bool IsPort(QStringView port)
{
    if (!std::all_of(port.begin(), port.end(), IsDigit))
        return false;
    int number = 0;
    for (const QChar digit : port) {
        number = number * 10 + (digit.unicode() - u'0');
        if (number > kHighestPort)
            return false; // before it can overflow
    }
    return number >= 1;
}

QString PortSuffix(const QString &port)
{
    return port == "80"_L1 ? QString() : u':' + port;
}
