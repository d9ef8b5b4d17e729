#include "demo_host/demo_options.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace {

TEST(DemoOptions, PicksAFreePortByItself)
{
    QString problem;

    const auto options = ReadDemoOptions({}, problem);

    ASSERT_TRUE(options.has_value());
    EXPECT_EQ(options->port, 0);
    EXPECT_FALSE(options->help);
    EXPECT_FALSE(options->time.has_value());
    EXPECT_EQ(problem, "");
}

TEST(DemoOptions, TakesPortAndTime)
{
    QString problem;

    const auto options =
        ReadDemoOptions({"--time", "2026-03-14T20:05", "--port", "65535"}, problem);

    ASSERT_TRUE(options.has_value());
    EXPECT_EQ(options->port, 65535);
    EXPECT_EQ(options->time, QDateTime(QDate(2026, 3, 14), QTime(20, 5), Qt::UTC));
}

struct BadOptionsCase
{
    const char *name;
    QStringList arguments = {};
    QString problem = {};
};

void PrintTo(const BadOptionsCase &c, std::ostream *out)
{
    *out << c.name;
}

class BadDemoOptions : public testing::TestWithParam<BadOptionsCase>
{
};

TEST_P(BadDemoOptions, AreNamedInOneLine)
{
    QString problem;

    EXPECT_FALSE(ReadDemoOptions(GetParam().arguments, problem).has_value());

    EXPECT_EQ(problem, GetParam().problem);
}

const BadOptionsCase kBadOptions[] = {
    {"UnknownArgument", {"-v"}, "unknown argument \"-v\", see --help"},
    {"NoPort", {"--port"}, "--port needs a value, see --help"},
    {"PortTooHigh", {"--port", "65536"}, "\"65536\" is no value for --port, see --help"},
    {"PortBelowZero", {"--port", "-1"}, "\"-1\" is no value for --port, see --help"},
    {"PortNoNumber", {"--port", "http"}, "\"http\" is no value for --port, see --help"},
    {"NoSuchDay",
     {"--time", "2026-02-30T00:00"},
     "\"2026-02-30T00:00\" is no value for --time, see --help"},
};

INSTANTIATE_TEST_SUITE_P(Table, BadDemoOptions, testing::ValuesIn(kBadOptions),
                         [](const auto &test) { return std::string(test.param.name); });

} // namespace
