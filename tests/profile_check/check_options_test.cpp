#include "profile_check/check_options.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace {

TEST(CheckOptions, HaveDefaults)
{
    QString problem;

    const auto options = ReadCheckOptions({"--reply", "a.txt"}, problem);

    ASSERT_TRUE(options.has_value());
    EXPECT_FALSE(options->help);
    EXPECT_EQ(options->profileFile, QString());
    EXPECT_EQ(options->profile, 0U);
    EXPECT_EQ(options->port, QString("80"));
    EXPECT_EQ(options->replies, QStringList{"a.txt"});
    EXPECT_FALSE(options->fetch);
    EXPECT_EQ(options->format, CheckFormat::Table);
    EXPECT_FALSE(options->trace);
    EXPECT_EQ(problem, QString());
}

TEST(CheckOptions, AreReadInAnyOrder)
{
    QString problem;

    const auto options =
        ReadCheckOptions({"--trace",     "--reply",  "a.txt",       "b c.txt", "--format",    "ini",
                          "--location1", "New York", "--location2", "--x",     "--location3", "",
                          "--location4", "4",        "--port",      "8080",    "--profile",   "9",
                          "--reply",     "d.txt",    "--profiles",  "own.ini"},
                         problem);

    ASSERT_TRUE(options.has_value()) << problem.toStdString();
    EXPECT_EQ(options->replies, (QStringList{"a.txt", "b c.txt", "d.txt"}));
    EXPECT_EQ(options->location[0], QString("New York"));
    EXPECT_EQ(options->location[1], QString("--x"));
    EXPECT_EQ(options->location[2], QString());
    EXPECT_EQ(options->location[3], QString("4"));
    EXPECT_EQ(options->port, QString("8080"));
    EXPECT_EQ(options->profile, 9U);
    EXPECT_EQ(options->profileFile, QString("own.ini"));
    EXPECT_EQ(options->format, CheckFormat::Ini);
    EXPECT_TRUE(options->trace);
}

TEST(CheckOptions, AskTheServiceInsteadOfAFile)
{
    QString problem;

    const auto options = ReadCheckOptions({"--fetch", "--format", "table"}, problem);

    ASSERT_TRUE(options.has_value());
    EXPECT_TRUE(options->fetch);
    EXPECT_EQ(options->format, CheckFormat::Table);
}

TEST(CheckOptions, HelpNeedsNothingElse)
{
    QString problem;

    const auto options = ReadCheckOptions({"--help"}, problem);

    ASSERT_TRUE(options.has_value());
    EXPECT_TRUE(options->help);
    EXPECT_TRUE(CheckHelp().startsWith("Usage: TavrinProfileCheck "));
}

struct BadUsage
{
    const char *name;
    QStringList arguments = {};
    QString problem = {};
};

void PrintTo(const BadUsage &c, std::ostream *out)
{
    *out << c.name;
}

class CheckOptionsProblem : public testing::TestWithParam<BadUsage>
{
};

TEST_P(CheckOptionsProblem, IsOneClearLine)
{
    QString problem;

    EXPECT_FALSE(ReadCheckOptions(GetParam().arguments, problem).has_value());
    EXPECT_EQ(problem, GetParam().problem);
}

const BadUsage kCases[] = {
    {"NoReply", {}, "--reply FILE... or --fetch is needed, see --help"},
    {"ReplyWithoutFile", {"--reply"}, "--reply needs a file, see --help"},
    {"ReplyThenOption", {"--reply", "--trace"}, "--reply needs a file, see --help"},
    {"Both", {"--fetch", "--reply", "a"}, "--reply and --fetch exclude each other, see --help"},
    {"Unknown", {"--fetch", "--colour"}, "unknown argument \"--colour\", see --help"},
    {"LooseFile", {"a.txt", "--fetch"}, "unknown argument \"a.txt\", see --help"},
    {"NoValue", {"--fetch", "--port"}, "--port needs a value, see --help"},
    {"Profile10", {"--fetch", "--profile", "10"}, "\"10\" is no value for --profile, see --help"},
    {"ProfileMinus", {"--fetch", "--profile", "-"}, "\"-\" is no value for --profile, see --help"},
    {"Port0", {"--fetch", "--port", "0"}, "\"0\" is no value for --port, see --help"},
    {"Port65536", {"--fetch", "--port", "65536"}, "\"65536\" is no value for --port, see --help"},
    {"Format", {"--fetch", "--format", "xml"}, "\"xml\" is no value for --format, see --help"},
    {"NoFile", {"--fetch", "--profiles", ""}, "\"\" is no value for --profiles, see --help"},
};

INSTANTIATE_TEST_SUITE_P(Table, CheckOptionsProblem, testing::ValuesIn(kCases),
                         [](const auto &test) { return std::string(test.param.name); });

} // namespace
