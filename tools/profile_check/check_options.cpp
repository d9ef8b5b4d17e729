#include "profile_check/check_options.h"

#include "net/port_text.h"

using namespace Qt::StringLiterals;

namespace {

bool ReadProfile(const QString &text, CheckOptions &options)
{
    if (text.size() != 1 || text[0] < u'0' || text[0] > u'9')
        return false;
    options.profile = std::size_t(text[0].unicode() - u'0');
    return true;
}

bool ReadPort(const QString &text, CheckOptions &options)
{
    options.port = text;
    return IsPort(text);
}

bool ReadFormat(const QString &text, CheckOptions &options)
{
    options.format = text == u"ini"_s ? CheckFormat::Ini : CheckFormat::Table;
    return text == u"ini"_s || text == u"table"_s;
}

bool ReadFile(const QString &text, CheckOptions &options)
{
    options.profileFile = text;
    return !text.isEmpty();
}

template <std::size_t index>
bool ReadLocation(const QString &text, CheckOptions &options)
{
    options.location[index] = text;
    return true;
}

/// An option that takes one value.
struct ValueOption
{
    QLatin1StringView name = {};
    bool (*read)(const QString &, CheckOptions &) = nullptr;
};

constexpr std::array kValueOptions{
    ValueOption{"--profiles"_L1, ReadFile},
    ValueOption{"--profile"_L1, ReadProfile},
    ValueOption{"--location1"_L1, ReadLocation<0>},
    ValueOption{"--location2"_L1, ReadLocation<1>},
    ValueOption{"--location3"_L1, ReadLocation<2>},
    ValueOption{"--location4"_L1, ReadLocation<3>},
    ValueOption{"--port"_L1, ReadPort},
    ValueOption{"--format"_L1, ReadFormat},
};

/// Takes the options from the arguments, one after another.
class OptionReader
{
public:
    explicit OptionReader(const QStringList &arguments) : m_arguments(arguments) {}

    /// @return what is wrong, on one line; empty if nothing is.
    QString Read(CheckOptions &options)
    {
        while (m_at < m_arguments.size()) {
            QString problem = ReadOption(m_arguments[m_at++], options);
            if (!problem.isEmpty())
                return problem;
        }
        if (options.help || options.fetch != !options.replies.isEmpty())
            return {};
        return options.fetch ? u"--reply and --fetch exclude each other"_s
                             : u"--reply FILE... or --fetch is needed"_s;
    }

private:
    QString ReadOption(const QString &name, CheckOptions &options)
    {
        if (name == u"--help"_s)
            options.help = true;
        else if (name == u"--fetch"_s)
            options.fetch = true;
        else if (name == u"--trace"_s)
            options.trace = true;
        else if (name == u"--reply"_s)
            return ReadReplies(options);
        else
            return ReadValue(name, options);
        return {};
    }

    QString ReadReplies(CheckOptions &options)
    {
        const qsizetype before = options.replies.size();
        while (m_at < m_arguments.size() && !m_arguments[m_at].startsWith("--"_L1))
            options.replies.append(m_arguments[m_at++]);
        return options.replies.size() > before ? QString() : u"--reply needs a file"_s;
    }

    QString ReadValue(const QString &name, CheckOptions &options)
    {
        for (const ValueOption &option : kValueOptions) {
            if (name != option.name)
                continue;
            if (m_at == m_arguments.size())
                return name + u" needs a value"_s;
            const QString &value = m_arguments[m_at++];
            return option.read(value, options) ? QString()
                                               : u"\"%1\" is no value for %2"_s.arg(value, name);
        }
        return u"unknown argument \"%1\""_s.arg(name);
    }

    const QStringList &m_arguments;
    qsizetype m_at = 0;
};

} // namespace

std::optional<CheckOptions> ReadCheckOptions(const QStringList &arguments, QString &problem)
{
    CheckOptions options;
    problem = OptionReader(arguments).Read(options);
    if (problem.isEmpty())
        return options;
    problem += u", see --help"_s;
    return {};
}

QString CheckHelp()
{
    return u"Usage: TavrinProfileCheck [--profiles FILE] [--profile N]\n"
           "         [--location1 TEXT ... --location4 TEXT] [--port TEXT]\n"
           "         (--reply FILE... | --fetch) [--format table|ini] [--trace]\n"
           "Shows what a weather service profile makes of replies of its service.\n"
           "  --profiles FILE   the profile file; default: the one that the program reads\n"
           "  --profile N       the profile's number, 0..9; default: 0\n"
           "  --locationN TEXT  what the user enters in the profile's location boxes\n"
           "  --port TEXT       the port box, for the address; default: 80\n"
           "  --reply FILE...   files that hold a reply each\n"
           "  --fetch           asks the service now\n"
           "  --format table    a table for people (the default)\n"
           "  --format ini      a section for each reply, values written as in Weather.ini\n"
           "  --trace           the search, step by step, on the standard error output\n"
           "Exit code: 0 when every reply was parsed, 1 when one was not, 2 when the arguments "
           "are\n"
           "not understood or a file cannot be read. No file is written.\n"_s;
}
