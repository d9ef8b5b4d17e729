#include "core/trace_sink.h"

#include <QFile>

#include <csignal>
#include <cstdio>
#ifdef Q_OS_WIN
#include <qt_windows.h>
#endif

using namespace Qt::StringLiterals;

namespace {

/// Writes to an open file; unbuffered, so that the last line before a crash is there.
class FileSink final : public TraceListener
{
public:
    explicit FileSink(std::unique_ptr<QFile> file) : m_file(std::move(file)) {}

    void Line(const QString &line) override { m_file->write(TraceLineBytes(line)); }

private:
    std::unique_ptr<QFile> m_file;
};

#ifdef Q_OS_WIN
class DebuggerSink final : public TraceListener
{
public:
    void Line(const QString &line) override
    {
        const QString text = QString::fromUtf8(TraceLineBytes(line));
        OutputDebugStringW(reinterpret_cast<const wchar_t *>(text.utf16()));
    }
};
#endif

std::unique_ptr<TraceListener> DefaultSink()
{
#ifdef Q_OS_WIN
    return std::make_unique<DebuggerSink>();
#else
    return nullptr;
#endif
}

/// True for characters that end a line for some reader or control a terminal. A tab does neither.
bool IsEscaped(QChar c)
{
    constexpr QChar kDelete(0x7F);
    constexpr QChar kLastControl(0x9F);
    return (c < u' ' && c != u'\t') || (c >= kDelete && c <= kLastControl)
        || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

QByteArray Escape(QChar c)
{
    switch (c.unicode()) {
    case u'\r':
        return "\\r";
    case u'\n':
        return "\\n";
    case u'\0':
        return "\\0";
    default:
        return "\\x" + QByteArray::number(c.unicode(), 16).rightJustified(2, '0').toUpper();
    }
}

/// From here on a write to a pipe that nobody reads any more fails, instead of ending the process.
void IgnoreBrokenPipes()
{
#ifdef SIGPIPE
    std::signal(SIGPIPE, SIG_IGN);
#endif
}

} // namespace

QByteArray TraceLineBytes(const QString &line)
{
    QByteArray bytes;
    qsizetype begin = 0; // of what has not been copied yet
    for (qsizetype i = 0; i < line.size(); ++i) {
        if (!IsEscaped(line[i]))
            continue;
        bytes += QStringView(line).sliced(begin, i - begin).toUtf8() + Escape(line[i]);
        begin = i + 1;
    }
    return bytes + QStringView(line).sliced(begin).toUtf8() + '\n';
}

std::unique_ptr<TraceListener> OpenTraceSink(const QString &where)
{
    IgnoreBrokenPipes();
    if (where.isEmpty() || where == "0"_L1)
        return DefaultSink();

    auto file = std::make_unique<QFile>(where);
    const bool opened =
        where == "1"_L1
            ? file->open(stderr, QIODevice::WriteOnly | QIODevice::Unbuffered)
            : file->open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered);
    if (!opened) {
        std::fprintf(stderr, "TavrinWeatherUtility: cannot write the trace file %s: %s\n",
                     qUtf8Printable(where), qUtf8Printable(file->errorString()));
        return nullptr;
    }
    return std::make_unique<FileSink>(std::move(file));
}
