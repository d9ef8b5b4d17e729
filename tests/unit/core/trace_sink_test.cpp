#include "core/trace_sink.h"
#include "support/qt_printers.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#ifdef Q_OS_UNIX
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#endif

namespace {

QByteArray Contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

TEST(TraceLine, StaysOneLine)
{
    EXPECT_EQ(TraceLineBytes("plain"), "plain\n");
    EXPECT_EQ(TraceLineBytes("a\r\nb"), "a\\r\\nb\n");
    EXPECT_EQ(TraceLineBytes(QString("a") + QChar(u'\0') + "b"), "a\\0b\n");
    EXPECT_EQ(TraceLineBytes("back\\slash\ttab"), "back\\slash\ttab\n");
    EXPECT_EQ(TraceLineBytes(QString(QChar(0x00B0))), "\xC2\xB0\n"); // degree sign
}

TEST(TraceLine, StaysOneLineForEveryReader)
{
    // What some readers treat as a line end: vertical tab, form feed, separators 28 to 30, next
    // line, line and paragraph separator.
    EXPECT_EQ(TraceLineBytes("a\vb\fc\x1C"
                             "d\x1D"
                             "e\x1E"
                             "f"),
              "a\\x0Bb\\x0Cc\\x1Cd\\x1De\\x1Ef\n");
    EXPECT_EQ(TraceLineBytes(QString("a") + QChar(0x0085) + QChar(0x2028) + QChar(0x2029) + "b"),
              "a\\x85\\x2028\\x2029b\n");
}

TEST(TraceLine, CannotSteerATerminal)
{
    EXPECT_EQ(TraceLineBytes(QString("\x1B[2Ja\x7F") + QChar(0x009B) + "b"),
              "\\x1B[2Ja\\x7F\\x9Bb\n");
}

TEST(TraceSink, AppendsToTheFileLineByLine)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("trace.txt");
    {
        const auto sink = OpenTraceSink(path);
        ASSERT_NE(sink, nullptr);
        sink->Line("first");
        EXPECT_EQ(Contents(path), "first\n"); // written before the sink is closed
    }
    OpenTraceSink(path)->Line("second");

    EXPECT_EQ(Contents(path), "first\nsecond\n");
}

TEST(TraceSink, WritesToStandardErrorForOne)
{
    const auto sink = OpenTraceSink("1");
    ASSERT_NE(sink, nullptr);

    testing::internal::CaptureStderr();
    sink->Line("Form_Load Point 1");

    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Form_Load Point 1\n");
}

TEST(TraceSink, ReportsAFileThatCannotBeWritten)
{
    const QTemporaryDir folder;
    testing::internal::CaptureStderr();

    EXPECT_EQ(OpenTraceSink(folder.filePath("missing/trace.txt")), nullptr);

    const std::string message = testing::internal::GetCapturedStderr();
    EXPECT_NE(message.find("missing/trace.txt"), std::string::npos) << message;
}

#ifndef Q_OS_WIN
TEST(TraceSink, IsNoneUnlessAskedFor)
{
    EXPECT_EQ(OpenTraceSink(""), nullptr);
    EXPECT_EQ(OpenTraceSink("0"), nullptr);
}
#endif

#ifdef Q_OS_UNIX
/// Runs `print` in a separate process whose standard output and error go to a pipe that nobody
/// reads any more.
/// @return its exit code, 0 if it ran to its end; -1 if a signal killed it.
int ExitCodeWithoutAReader(void (*print)())
{
    std::array<int, 2> ends = {};
    if (::pipe(ends.data()) != 0)
        return -2;
    ::close(ends[0]);
    std::fflush(nullptr); // or buffered text would be written twice
    const pid_t child = ::fork();
    if (child == 0) {
        std::signal(SIGPIPE, SIG_DFL); // as at the start of a program
        if (::dup2(ends[1], STDOUT_FILENO) < 0 || ::dup2(ends[1], STDERR_FILENO) < 0)
            ::_exit(1);
        print();
        ::_exit(0);
    }
    ::close(ends[1]);
    int status = 0;
    if (::waitpid(child, &status, 0) != child)
        return -2;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(TraceSink, OutlivesItsReader)
{
    const auto trace = [] {
        const auto sink = OpenTraceSink("1");
        sink->Line("Form_Load Point 1");
        sink->Line("Form_Load Point 2");
    };
    EXPECT_EQ(ExitCodeWithoutAReader(trace), 0);
}

TEST(TraceSink, LetsPrintingOutliveItsReader)
{
    const auto print = [] {
        const auto none = OpenTraceSink("");
        std::fputs("out\n", stdout);
        std::fflush(stdout);
        std::fputs("error\n", stderr);
    };
    EXPECT_EQ(ExitCodeWithoutAReader(print), 0);
}
#endif

} // namespace
