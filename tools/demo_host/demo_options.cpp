#include "demo_host/demo_options.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kHighestPort = 65535;

bool ReadPort(const QString &text, DemoOptions &options)
{
    bool isNumber = false;
    options.port = text.toInt(&isNumber);
    return isNumber && options.port >= 0 && options.port <= kHighestPort;
}

bool ReadTime(const QString &text, DemoOptions &options)
{
    options.time = QDateTime::fromString(text, u"yyyy-MM-dd'T'HH:mm"_s);
    options.time->setTimeSpec(Qt::UTC);
    return options.time->isValid();
}

} // namespace

std::optional<DemoOptions> ReadDemoOptions(const QStringList &arguments, QString &problem)
{
    DemoOptions options;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString &name = arguments[i];
        if (name == u"--help"_s) {
            options.help = true;
            continue;
        }
        if (name != u"--port"_s && name != u"--time"_s) {
            problem = u"unknown argument \"%1\", see --help"_s.arg(name);
            return {};
        }
        if (++i == arguments.size()) {
            problem = name + u" needs a value, see --help"_s;
            return {};
        }
        const bool read =
            name == u"--port"_s ? ReadPort(arguments[i], options) : ReadTime(arguments[i], options);
        if (!read) {
            problem = u"\"%1\" is no value for %2, see --help"_s.arg(arguments[i], name);
            return {};
        }
    }
    return options;
}

QString DemoHelp()
{
    return u"Usage: TavrinDemoHost [--port N] [--time YYYY-MM-DDTHH:MM]\n"
           "Serves weather of some stations on 127.0.0.1, in the form of the services that the\n"
           "shipped profiles ask, and zone forecasts of MD, TX and WA. Ctrl+C or SIGTERM ends it.\n"
           "  --port N   listen there, 0..65535; 0, the default, picks a free port\n"
           "  --time T   the moment in UTC to serve; default: the clock's\n"_s;
}
