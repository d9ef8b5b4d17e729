#include "app/start_up.h"
#include "core/state_tables.h"
#include "support/qt_printers.h"
#include "support/recorded_trace.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace {

TEST(CommandText, JoinsTheArgumentsByBlanks)
{
    const std::array argv{"/opt/tavrin/TavrinWeatherUtility", "/X", "/SESSION=2"};

    EXPECT_EQ(CommandText(3, argv.data()), "/X /SESSION=2");
}

TEST(CommandText, IsEmptyWithoutArguments)
{
    const std::array argv{"TavrinWeatherUtility"};

    EXPECT_EQ(CommandText(1, argv.data()), "");
    EXPECT_EQ(CommandText(0, argv.data()), "");
}

TEST(ConsoleAnswer, IsGivenToHelpAndVersionOnly)
{
    EXPECT_EQ(ConsoleAnswer("--version"), "TavrinWeatherUtility 1.0.1\n");
    EXPECT_EQ(ConsoleAnswer("/X --version"), "TavrinWeatherUtility 1.0.1\n");
    const auto help = ConsoleAnswer("--help /SESSION=2");
    ASSERT_TRUE(help);
    EXPECT_TRUE(help->contains("/SESSION=n"));
    EXPECT_TRUE(help->contains("/CODEPAGE=1252"));
    EXPECT_FALSE(ConsoleAnswer(""));
    EXPECT_FALSE(ConsoleAnswer("/SESSION=2"));
    EXPECT_FALSE(ConsoleAnswer("--versions"));
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

    EXPECT_EQ(SessionFromCommand(c.command), c.session);

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
    EXPECT_EQ(CodePageFromCommand(u"/CODEPAGE=1252"), CodePage::Windows1252);
    EXPECT_EQ(CodePageFromCommand(u"/codepage=1252 /SESSION=2"), CodePage::Windows1252);
    EXPECT_EQ(CodePageFromCommand(u"/X /CODEPAGE=1252 /Y"), CodePage::Windows1252);
    EXPECT_EQ(CodePageFromCommand(u"/CODEPAGE=12522 /CODEPAGE=1252"), CodePage::Windows1252);
}

TEST(CodePageSwitch, IsUtf8Otherwise)
{
    EXPECT_EQ(CodePageFromCommand(u""), CodePage::Utf8);
    EXPECT_EQ(CodePageFromCommand(u"/CODEPAGE=1250"), CodePage::Utf8);
    EXPECT_EQ(CodePageFromCommand(u"/CODEPAGE=12520"), CodePage::Utf8);
    EXPECT_EQ(CodePageFromCommand(u"/CODEPAGE=1252/SESSION=2"), CodePage::Utf8);
    EXPECT_EQ(CodePageFromCommand(u"/SESSION=2 /CODEPAGE=1252"), CodePage::Utf8);
}

TEST(WindowCaption, NamesTheSession)
{
    EXPECT_EQ(WindowCaption(""), "Tavrin Weather Utility");
    EXPECT_EQ(WindowCaption("2"), "Tavrin Weather Utility - Session 2");
}

TEST(VersionText, CarriesVersionAndYear)
{
    EXPECT_EQ(VersionText(2026), "Version 1.0.1 - (c) 2026 Tavrin Weather Utility");
}

TEST(StateTables, AreAlphabeticalAndMatch)
{
    EXPECT_TRUE(std::is_sorted(StateNames.begin(), StateNames.end()));
    const auto codeOf = [](QStringView name) {
        const auto found = std::find(StateNames.begin(), StateNames.end(), name);
        return StateCodes[static_cast<std::size_t>(found - StateNames.begin())];
    };
    EXPECT_EQ(codeOf(u"ALABAMA"), u"AL");
    EXPECT_EQ(codeOf(u"MISSOURI"), u"MO");
    EXPECT_EQ(codeOf(u"MONTANA"), u"MT");
    EXPECT_EQ(codeOf(u"NORTH CAROLINA"), u"NC");
    EXPECT_EQ(codeOf(u"OREGON"), u"OR");
    EXPECT_EQ(codeOf(u"VIRGINIA"), u"VA");
    for (const QStringView code : StateCodes)
        EXPECT_EQ(std::count(StateCodes.begin(), StateCodes.end(), code), 1);
}

} // namespace
