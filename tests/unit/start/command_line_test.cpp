#include "start/command_line.h"
#include "support/qt_printers.h"
#include "support/recorded_trace.h"

#include <gtest/gtest.h>

#include <array>

namespace {

CommandLine Read(const QString &text)
{
    return ReadCommandLine(text.split(' '));
}

TEST(CommandLineText, JoinsTheArgumentsByBlanks)
{
    const std::array argv{"/opt/tavrin/TavrinWeatherUtility", "/X", "/SESSION=2"};

    const CommandLine command = ReadCommandLine(ArgumentsOf(3, argv.data()));

    EXPECT_EQ(command.arguments, QStringList({"/X", "/SESSION=2"}));
    EXPECT_EQ(command.text, "/X /SESSION=2");
}

TEST(CommandLineText, IsEmptyWithoutArguments)
{
    const std::array argv{"TavrinWeatherUtility"};

    EXPECT_EQ(ReadCommandLine(ArgumentsOf(1, argv.data())).text, "");
    EXPECT_EQ(ReadCommandLine(ArgumentsOf(0, argv.data())).text, "");
}

TEST(CommandLineText, IsWithoutWhatASessionManagerAdds)
{
    EXPECT_EQ(Read("-session 10a_17 /CODEPAGE=1252 /SESSION=4").text, "/CODEPAGE=1252 /SESSION=4");
    EXPECT_EQ(Read("/SESSION=4 --session 10a_17").text, "/SESSION=4");
    EXPECT_EQ(Read("/SESSION=4 -session 10a_17").sessionId, "4");
    EXPECT_EQ(Read("-session 10a_17").arguments, QStringList());
    EXPECT_EQ(Read("-session 1 /X -session 2").text, "/X");
}

TEST(CommandLineText, KeepsWhatASessionManagerWouldNotAdd)
{
    EXPECT_EQ(Read("/X -session").text, "/X -session");
    EXPECT_EQ(Read("-sessions 1").text, "-sessions 1");
    EXPECT_EQ(Read("-Session 1").text, "-Session 1");
}

TEST(RestartCommand, HasTheArgumentsLast)
{
    EXPECT_EQ(RestartCommand("/opt/program", "10a_17", {"/CODEPAGE=1252", "/SESSION=4"}),
              QStringList({"/opt/program", "-session", "10a_17", "/CODEPAGE=1252", "/SESSION=4"}));
    EXPECT_EQ(RestartCommand("/opt/program", "10a_17", {}),
              QStringList({"/opt/program", "-session", "10a_17"}));
}

TEST(ConsoleAnswer, IsGivenToHelpAndVersionOnly)
{
    EXPECT_EQ(ConsoleAnswer(Read("--version")), "TavrinWeatherUtility 1.0.1\n");
    EXPECT_EQ(ConsoleAnswer(Read("/X --version")), "TavrinWeatherUtility 1.0.1\n");
    const auto help = ConsoleAnswer(Read("--help /SESSION=2"));
    ASSERT_TRUE(help);
    EXPECT_TRUE(help->contains("/SESSION=n"));
    EXPECT_TRUE(help->contains("/CODEPAGE=1252"));
    EXPECT_FALSE(ConsoleAnswer(Read("")));
    EXPECT_FALSE(ConsoleAnswer(Read("/SESSION=2")));
    EXPECT_FALSE(ConsoleAnswer(Read("--versions")));
}

TEST(ServiceCommand, HasItsOwnOptions)
{
    EXPECT_FALSE(ReadServiceCommand({}).isOnce);
    EXPECT_FALSE(ReadServiceCommand({}).isCheck);
    EXPECT_TRUE(ReadServiceCommand({"--once"}).isOnce);
    EXPECT_TRUE(ReadServiceCommand({"/CODEPAGE=1252", "--check"}).isCheck);
    EXPECT_EQ(ReadServiceCommand({"/CODEPAGE=1252", "--check"}).line.codePage,
              CodePage::Windows1252);
}

TEST(ServiceCommand, ReadsTheSessionAlsoAheadOfItsOptions)
{
    EXPECT_EQ(ReadServiceCommand({"--once", "/SESSION=3"}).line.sessionId, "3");
    EXPECT_EQ(ReadServiceCommand({"/SESSION=3", "--once"}).line.sessionId, "3");
    EXPECT_EQ(ReadServiceCommand({"/SESSION=3", "/X"}).line.sessionId, "");
}

TEST(ServiceCommand, KnowsNoOtherOptions)
{
    EXPECT_EQ(ReadServiceCommand({"--once", "--onec", "-x", "/X", "--help"}).unknown,
              QStringList({"--onec", "-x"}));
    EXPECT_EQ(ReadServiceCommand({"--version", "/SESSION=3"}).unknown, QStringList());
}

TEST(ServiceCommand, IsAnsweredInTheServicesName)
{
    EXPECT_EQ(ConsoleAnswer(ReadServiceCommand({"--version"})), "TavrinWeatherService 1.0.1\n");
    const auto help = ConsoleAnswer(ReadServiceCommand({"--help", "--once"}));
    ASSERT_TRUE(help);
    EXPECT_TRUE(help->startsWith("Usage: TavrinWeatherService "));
    EXPECT_TRUE(help->contains("--check"));
    EXPECT_FALSE(ConsoleAnswer(ReadServiceCommand({"--once"})));
}

struct SessionCase
{
    const char *name;
    QString command;
    QString session;
    QStringList traced;
};

void PrintTo(const SessionCase &c, std::ostream *out)
{
    *out << c.name;
}

class SessionSwitch : public testing::TestWithParam<SessionCase>
{
};

TEST_P(SessionSwitch, GivesSession)
{
    const SessionCase &c = GetParam();
    const RecordedTrace trace;

    const CommandLine command = Read(c.command);
    EXPECT_EQ(command.sessionId, c.session);
    EXPECT_EQ(trace.lines, QStringList());

    TraceSession(command);
    EXPECT_EQ(trace.lines, c.traced);
}

const SessionCase kSessionCases[] = {
    {"NothingAsked", "", "", {"Command:", "0position of \"/SESSION=\"", "len(command) = 0"}},
    {"AnyLetterCase",
     "/session=4",
     "4",
     {"Command:/session=4", "1position of \"/SESSION=\"", "len(command) = 10",
      "Mid$(Command, startPos + 9, 1) = 4"}},
    {"LowestDigit",
     "/SESSION=2",
     "2",
     {"Command:/SESSION=2", "1position of \"/SESSION=\"", "len(command) = 10",
      "Mid$(Command, startPos + 9, 1) = 2"}},
    {"HighestDigitBehindOtherText",
     "/X /SESSION=9",
     "9",
     {"Command:/X /SESSION=9", "4position of \"/SESSION=\"", "len(command) = 13",
      "Mid$(Command, startPos + 9, 1) = 9"}},
    {"OneIsTheDefaultSession",
     "/SESSION=1",
     "",
     {"Command:/SESSION=1", "1position of \"/SESSION=\"", "len(command) = 10",
      "Mid$(Command, startPos + 9, 1) = 1", "Unrecognised Session ID:1"}},
    {"Zero",
     "/SESSION=0",
     "",
     {"Command:/SESSION=0", "1position of \"/SESSION=\"", "len(command) = 10",
      "Mid$(Command, startPos + 9, 1) = 0", "Unrecognised Session ID:0"}},
    {"Letter",
     "/SESSION=A",
     "",
     {"Command:/SESSION=A", "1position of \"/SESSION=\"", "len(command) = 10",
      "Mid$(Command, startPos + 9, 1) = A", "Unrecognised Session ID:A"}},
    {"EndsAfterTheEqualSign",
     "/SESSION=",
     "",
     {"Command:/SESSION=", "1position of \"/SESSION=\"", "len(command) = 9",
      "Mid$(Command, startPos + 9, 1) = ", "Unrecognised Session ID:"}},
    {"TextBehindTheDigit",
     "/SESSION=5 /X",
     "",
     {"Command:/SESSION=5 /X", "1position of \"/SESSION=\"", "len(command) = 13"}},
    {"BlankBehindTheDigit",
     "/SESSION=5 ",
     "",
     {"Command:/SESSION=5 ", "1position of \"/SESSION=\"", "len(command) = 11"}},
    {"TwoDigits",
     "/SESSION=12",
     "",
     {"Command:/SESSION=12", "1position of \"/SESSION=\"", "len(command) = 11"}},
};

INSTANTIATE_TEST_SUITE_P(Table, SessionSwitch, testing::ValuesIn(kSessionCases),
                         [](const auto &test) { return std::string(test.param.name); });

TEST(CodePageSwitch, IsReadAheadOfTheSessionSwitch)
{
    EXPECT_EQ(Read("/CODEPAGE=1252").codePage, CodePage::Windows1252);
    EXPECT_EQ(Read("/codepage=1252 /SESSION=2").codePage, CodePage::Windows1252);
    EXPECT_EQ(Read("/X /CODEPAGE=1252 /Y").codePage, CodePage::Windows1252);
    EXPECT_EQ(Read("/CODEPAGE=12522 /CODEPAGE=1252").codePage, CodePage::Windows1252);
}

TEST(CodePageSwitch, LeavesTheSessionSwitchAlone)
{
    EXPECT_EQ(Read("/codepage=1252 /session=9").sessionId, "9");
}

TEST(CodePageSwitch, IsUtf8Otherwise)
{
    EXPECT_EQ(Read("").codePage, CodePage::Utf8);
    EXPECT_EQ(Read("/CODEPAGE=1250").codePage, CodePage::Utf8);
    EXPECT_EQ(Read("/CODEPAGE=12520").codePage, CodePage::Utf8);
    EXPECT_EQ(Read("/CODEPAGE=1252/SESSION=2").codePage, CodePage::Utf8);
    EXPECT_EQ(Read("/SESSION=2 /CODEPAGE=1252").codePage, CodePage::Utf8);
}

} // namespace
