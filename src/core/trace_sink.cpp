#include "core/trace_sink.h"

#include <QFile>

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

} // namespace

QByteArray TraceLineBytes(const QString &line)
{
    QByteArray bytes = line.toUtf8();
    bytes.replace('\r', "\\r").replace('\n', "\\n").replace('\0', "\\0");
    return bytes.append('\n');
}

std::unique_ptr<TraceListener> OpenTraceSink(const QString &where)
{
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
