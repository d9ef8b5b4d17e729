#include "core/clock.h"
#include "core/trace_sink.h"
#include "net/curl_transfers.h"
#include "profile_check/check_options.h"
#include "profile_check/run_check.h"
#include "start/program_folder.h"

#include <QCoreApplication>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int kBadUsage = 2;

void PrintProblem(const QString &problem)
{
    std::fprintf(stderr, "TavrinProfileCheck: %s\n", qUtf8Printable(problem));
}

} // namespace

int main(int argc, char *argv[])
{
    QStringList arguments; // before Qt takes its own options out
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const QCoreApplication app(argc, argv);

    QString problem;
    const std::optional<CheckOptions> options = ReadCheckOptions(arguments, problem);
    if (!options) {
        PrintProblem(problem);
        return kBadUsage;
    }

    const auto trace = options->trace ? OpenTraceSink(u"1"_s) : nullptr;
    SetTraceListener(trace.get());
    const ProgramFiles files{.folder =
                                 FindProgramFolder(QCoreApplication::applicationDirPath()).folder};
    CurlTransfers http;
    const CheckResult result = RunCheck(*options, files.Profiles().path, http, SystemClock().Now());
    SetTraceListener(nullptr);

    std::fputs(qUtf8Printable(result.output), stdout);
    if (!result.problem.isEmpty())
        PrintProblem(result.problem);
    return result.exitCode;
}
