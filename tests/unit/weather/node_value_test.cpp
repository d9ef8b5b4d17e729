#include "support/qt_printers.h"
#include "support/recorded_trace.h"
#include "weather/node_value.h"

#include <gtest/gtest.h>

namespace {

struct NodeValueCase
{
    const char *name;
    QString data = {};
    QString open = {};
    QString close = {};
    QString prefix = {};
    QString suffix = {};
    QString units = {};
    QString factor = {};
    QString format = {};
    QString expected = {};
};

void PrintTo(const NodeValueCase &c, std::ostream *out)
{
    *out << c.name;
}

/// 20 November 2026, five hours behind UTC.
QDateTime Now()
{
    return {QDate(2026, 11, 20), QTime(8, 0), Qt::OffsetFromUTC, -5 * 3600};
}

class NodeValue : public testing::TestWithParam<NodeValueCase>
{
};

TEST_P(NodeValue, GivesDisplayText)
{
    const NodeValueCase &c = GetParam();
    QString data = c.data;
    QString close = c.close;
    const QDateTime now = Now();

    const QString value = GetNodeValue(data, {.openTag = c.open,
                                              .closeTag = close,
                                              .prefix = c.prefix,
                                              .suffix = c.suffix,
                                              .units = c.units,
                                              .factor = c.factor,
                                              .format = c.format,
                                              .now = &now});

    EXPECT_EQ(value, c.expected);
}

const NodeValueCase kCases[] = {
    {.name = "BetweenTheTags",
     .data = "abc TEMP 21 END xyz",
     .open = "TEMP",
     .close = "END",
     .expected = "21"},
    {.name = "NotDelivered",
     .data = "abc TEMP 21 END xyz",
     .open = "TEMP",
     .close = "END",
     .units = "?",
     .expected = "Not Available From Service"},
    {.name = "NotDeliveredWinsOverNotConfigured",
     .data = "x",
     .units = "?",
     .expected = "Not Available From Service"},
    {.name = "NotConfigured",
     .data = "abc TEMP 21 END xyz",
     .close = "END",
     .units = " F",
     .expected = "N/A"},
    {.name = "SearchesAreCaseSensitive",
     .data = "temp 1 end TEMP 2 END",
     .open = "TEMP",
     .close = "END",
     .expected = "2"},
    {.name = "FirstOpeningTagCounts", .data = "T1;T2;", .open = "T", .close = ";", .expected = "1"},

    // Closing tags that stand for line ends.
    {.name = "EmptyCloseMeansLineEnd", .data = "T 21\r\nx", .open = "T", .expected = "21"},
    {.name = "CrLfToken", .data = "T 21\r\nx", .open = "T", .close = "%CRLF%", .expected = "21"},
    {.name = "CrToken", .data = "T 21\rx", .open = "T", .close = "%CR%", .expected = "21"},
    {.name = "LfToken", .data = "T 21\nx", .open = "T", .close = "%LF%", .expected = "21"},
    {.name = "TokenAmongOtherTextIsLiteral",
     .data = "T 21 a%LF%b",
     .open = "T",
     .close = "a%LF%",
     .expected = "21"},
    {.name = "TokensAreCaseSensitive",
     .data = "T 21\nx%lf%",
     .open = "T",
     .close = "%lf%",
     .expected = "21\nx"},

    // A missing opening tag: as many characters go as the tag has, less one.
    {.name = "MissingOpenKeepsTheRest",
     .data = "abcdef END",
     .open = "TEMP",
     .close = "END",
     .expected = "def"},
    {.name = "MissingOpenOfOneCharacterKeepsAll",
     .data = "abc;",
     .open = "T",
     .close = ";",
     .expected = "abc"},
    {.name = "MissingOpenJustAsLongAsTheData",
     .data = "abc",
     .open = "TEMP",
     .close = "END",
     .expected = "N/A"},
    {.name = "MissingOpenLongerThanTheData",
     .data = "abc",
     .open = "TEMPERATURE",
     .close = "END",
     .units = " F",
     .expected = "N/A"},
    {.name = "NothingAtAllReadsZeroInAFormat",
     .data = "",
     .open = "TEMP",
     .close = "END",
     .units = " F",
     .format = "0.0",
     .expected = "0.0 F"},

    // A missing closing tag keeps everything and skips suffix and factor, not format and units.
    {.name = "MissingCloseKeepsAll",
     .data = "T 21 rest ",
     .open = "T",
     .close = "END",
     .units = " F",
     .expected = "21 rest F"},
    {.name = "MissingCloseSkipsSuffixAndFactor",
     .data = "T a=21",
     .open = "T",
     .close = "END",
     .suffix = "=",
     .factor = "N0",
     .expected = "a=21"},
    {.name = "MissingCloseStillFormats",
     .data = "T 21 rest",
     .open = "T",
     .close = "END",
     .units = " F",
     .factor = "*2",
     .format = "0.0",
     .expected = "21.0 F"},

    // Prefix.
    {.name = "PrefixIsSkipped",
     .data = "T wind at 12;",
     .open = "T",
     .close = ";",
     .prefix = "at",
     .expected = "12"},
    {.name = "AbsentPrefixKeepsTheText",
     .data = "T 12;",
     .open = "T",
     .close = ";",
     .prefix = "at",
     .expected = "12"},
    {.name = "PrefixIsSearchedBehindTheTagEverywhere",
     .data = "T 1; x at 2;",
     .open = "T",
     .close = ";",
     .prefix = "at",
     .expected = "2"},
    {.name = "CloseCountsBehindThePrefix",
     .data = "T; at 2;",
     .open = "T",
     .close = ";",
     .prefix = "at",
     .expected = "2"},

    // Suffix: drops everything up to its last occurrence, and one more character.
    {.name = "SuffixDropsOneMore",
     .data = "T speed=12 END",
     .open = "T",
     .close = "END",
     .suffix = "=",
     .expected = "2"},
    {.name = "TwoCharacterSuffixDropsItself",
     .data = "T 59 F (15 C)",
     .open = "T",
     .close = " C)",
     .suffix = " (",
     .expected = "15"},
    {.name = "LastSuffixCounts",
     .data = "T a==b==cd;",
     .open = "T",
     .close = ";",
     .suffix = "==",
     .expected = "cd"},
    {.name = "SuffixAtTheVeryEndCannotBeCut",
     .data = "T speed=;",
     .open = "T",
     .close = ";",
     .suffix = "=",
     .expected = "speed="},
    {.name = "SuffixAheadOfTheLastCharacterEmpties",
     .data = "T a:0;",
     .open = "T",
     .close = ";",
     .suffix = ":0",
     .units = " F",
     .expected = "N/A"},
    {.name = "WhatFollowsASuffixIsNotTrimmed",
     .data = "T a=x 5;",
     .open = "T",
     .close = ";",
     .suffix = "=",
     .expected = " 5"},
    {.name = "AbsentSuffixKeepsTheText",
     .data = "T 12;",
     .open = "T",
     .close = ";",
     .suffix = "=",
     .expected = "12"},

    // Factor.
    {.name = "CelsiusToFahrenheit",
     .data = "T 20 END",
     .open = "T",
     .close = "END",
     .factor = "*1.8,+32",
     .expected = "68"},
    {.name = "ResultsAreShortest",
     .data = "T 21.7 END",
     .open = "T",
     .close = "END",
     .factor = "*1.8,+32",
     .expected = "71.06"},
    {.name = "SubtractionIsAdditionOfANegative",
     .data = "T 50;",
     .open = "T",
     .close = ";",
     .factor = "+-32",
     .expected = "18"},
    {.name = "MinusIsNoOperation",
     .data = "T 50;",
     .open = "T",
     .close = ";",
     .factor = "-32",
     .expected = "50"},
    {.name = "ZeroFactorLeavesTheText",
     .data = "T abc;",
     .open = "T",
     .close = ";",
     .factor = "0",
     .expected = "abc"},
    {.name = "UnknownOperationIsIgnored",
     .data = "T 7 mph;",
     .open = "T",
     .close = ";",
     .factor = "Q5",
     .expected = "7 mph"},
    {.name = "EmptyItemsAreIgnored",
     .data = "T 7;",
     .open = "T",
     .close = ";",
     .factor = ",*2,,+1,",
     .expected = "15"},
    {.name = "TextUnderAnOperationCountsAsZero",
     .data = "T abc;",
     .open = "T",
     .close = ";",
     .factor = "+5",
     .expected = "5"},
    {.name = "ExponentTextsAreReadBack",
     .data = "T 1;",
     .open = "T",
     .close = ";",
     .factor = "*0.0166666666666667,*60",
     .expected = "1"},
    {.name = "OverflowingOperationIsSkipped",
     .data = "T 1e300;",
     .open = "T",
     .close = ";",
     .factor = "*1e300,+0",
     .expected = "1E+300"},
    {.name = "OperandBeyondADoubleIsSkipped",
     .data = "T 7;",
     .open = "T",
     .close = ";",
     .factor = "+1e999,*2",
     .expected = "14"},
    {.name = "TextBeyondADoubleIsSkipped",
     .data = "T 1e999;",
     .open = "T",
     .close = ";",
     .factor = "+1",
     .format = "0.0",
     .expected = "1e999"},
    {.name = "NumberPicture",
     .data = "T 6.5 mph;",
     .open = "T",
     .close = ";",
     .units = " mph",
     .factor = "N0",
     .expected = "7 mph"},
    {.name = "NumberPictureWithoutPictureIsTheNumber",
     .data = "T 6.50 mph;",
     .open = "T",
     .close = ";",
     .factor = "N",
     .expected = "6.5"},
    {.name = "CommaEndsAPictureInAFactor",
     .data = "T 12345;",
     .open = "T",
     .close = ";",
     .factor = "N#,##0",
     .expected = "12345"},
    {.name = "NothingForZeroMakesItNotAvailable",
     .data = "T abc;",
     .open = "T",
     .close = ";",
     .units = "%",
     .factor = "N#",
     .expected = "N/A"},
    {.name = "SuffixIsNotLookedForInTheClosingTag",
     .data = "T a=bc=;",
     .open = "T",
     .close = "=;",
     .suffix = "=",
     .expected = "c"},
    {.name = "FormatStringOperation",
     .data = "T 2026-09-18T06:14;",
     .open = "T",
     .close = ";",
     .factor = "F???????????XXXXX",
     .expected = "06:14"},
    {.name = "UtcToLocal",
     .data = "T 11/5/2019 2:30 AM;",
     .open = "T",
     .close = ";",
     .factor = "D",
     .expected = "11/4/2019 9:30:00 PM"},
    {.name = "UtcToLocalIgnoresItsOperand",
     .data = "T 2026-11-20 15:00;",
     .open = "T",
     .close = ";",
     .factor = "Dxyz",
     .expected = "11/20/2026 10:00:00 AM"},
    {.name = "LocalTimeInAYearThatCannotBeWrittenIsSkipped",
     .data = "T 1/1/0001 2:30 AM;",
     .open = "T",
     .close = ";",
     .factor = "D",
     .expected = "1/1/0001 2:30 AM"},
    {.name = "NoDateTimeStaysUnchanged",
     .data = "T 2019-11-05T21:07;",
     .open = "T",
     .close = ";",
     .factor = "D",
     .expected = "2019-11-05T21:07"},
    {.name = "OperationsFollowOneAnother",
     .data = "T 2019-11-05T21:07:33Z;",
     .open = "T",
     .close = ";",
     .factor = "FXXXXXXXXXX XXXXX,D",
     .expected = "11/5/2019 4:07:00 PM"},

    // Format and units.
    {.name = "FormatComesBehindTheFactor",
     .data = "T 20;",
     .open = "T",
     .close = ";",
     .factor = "*1.8,+32",
     .format = "0.0",
     .expected = "68.0"},
    {.name = "TextUnderAFormatCountsAsZero",
     .data = "T abc;",
     .open = "T",
     .close = ";",
     .units = " F",
     .format = "0.0",
     .expected = "0.0 F"},
    {.name = "EmptyTextGetsNoUnits",
     .data = "T ;",
     .open = "T",
     .close = ";",
     .units = " F",
     .expected = "N/A"},
    {.name = "UnitsFollow",
     .data = "T 21 ;",
     .open = "T",
     .close = ";",
     .units = " C",
     .expected = "21 C"},
    {.name = "TabsCountAsBlanks", .data = "T\t21\t;", .open = "T", .close = ";", .expected = "21"},
};

INSTANTIATE_TEST_SUITE_P(Table, NodeValue, testing::ValuesIn(kCases),
                         [](const auto &test) { return std::string(test.param.name); });

TEST(GetNodeValue, TurnsTabsIntoSpacesInTheCallersCopy)
{
    QString data = "a\tT\t5;\tb";
    QString close = ";";

    EXPECT_EQ(GetNodeValue(data, {.openTag = u"T", .closeTag = close}), "5");

    EXPECT_EQ(data, "a T 5; b");
}

TEST(GetNodeValue, LeavesTabsWhereItDoesNotSearch)
{
    QString data = "a\tb";
    QString close;

    EXPECT_EQ(GetNodeValue(data, {.closeTag = close}), "N/A");
    EXPECT_EQ(GetNodeValue(data, {.openTag = u"a", .closeTag = close, .units = u"?"}),
              "Not Available From Service");

    EXPECT_EQ(data, "a\tb");
    EXPECT_EQ(close, "");
}

TEST(GetNodeValue, ResolvesTheClosingTagInTheCallersCopy)
{
    QString data = "T 5";
    for (const auto &[tag, resolved] :
         {std::pair("", "\r\n"), {"%CRLF%", "\r\n"}, {"%CR%", "\r"}, {"%LF%", "\n"}, {"x", "x"}}) {
        QString close = tag;
        EXPECT_EQ(GetNodeValue(data, {.openTag = u"T", .closeTag = close}), "5");
        EXPECT_EQ(close, resolved);
    }
}

const QString kSearchingPrefix =
    "nodePrefixLen length is > 0 so I will search for the specified prefix in the text";
const QString kNoClose =
    "...since nodeClosePos = 0, so I must not have found the close so the string is empty";

TEST(GetNodeValue, TracesEachStep)
{
    QString data = "x\tT at speed=12 END";
    QString close = "END";
    const RecordedTrace trace;

    EXPECT_EQ(
        GetNodeValue(
            data,
            {.openTag = u"T", .closeTag = close, .prefix = u"at", .suffix = u"=", .factor = u"*2"}),
        "4");

    EXPECT_EQ(trace.lines, (QStringList{
                               "Looking for O:T P:at C:END in x T at speed=12 END",
                               "nodeOpenPos=3 nodeOpenLen=1",
                               "text is now at speed=12 END",
                               "nodePrefixLen=2",
                               kSearchingPrefix,
                               "nodePrefixPos=1",
                               "nodePrefixPos is > 0 so I must have found the prefix in the string",
                               "...so now the text is speed=12 END",
                               "nodeClosePos=10",
                               "...since nodeClosePos > 0 I must have found the close",
                               "...so now the string is speed=12",
                               "...found nodeSuffixPos, so string is now 2",
                           }));
}

TEST(GetNodeValue, TracesWhatIsMissing)
{
    QString data = "abcdef";
    QString close = "END";
    const RecordedTrace trace;

    EXPECT_EQ(GetNodeValue(data, {.openTag = u"TT", .closeTag = close, .prefix = u"at"}), "bcdef");

    EXPECT_EQ(trace.lines,
              (QStringList{
                  "Looking for O:TT P:at C:END in abcdef",
                  "nodeOpenPos=0 nodeOpenLen=2",
                  "text is now bcdef",
                  "nodePrefixLen=2",
                  kSearchingPrefix,
                  "nodePrefixPos=0",
                  "nodePrefixPos is = 0 so I must not have found the prefix in the string",
                  "nodeClosePos=0",
                  kNoClose,
              }));
}

TEST(FindNode, TellsWhereTheTagsStand)
{
    const QString data = "ab T at  21 END";
    QString close = "END";

    const NodePlace place = FindNode(data, {.openTag = u"T", .closeTag = close, .prefix = u"at"});

    EXPECT_EQ(place.open, 3);
    EXPECT_EQ(place.close, 12);
    EXPECT_EQ(place.text, u"21");
}

TEST(FindNode, TellsWhichTagIsMissing)
{
    const QString data = "ab T 21 END";
    QString end = "END";
    QString stop = "STOP";

    EXPECT_EQ(FindNode(data, {.openTag = u"X", .closeTag = end}).open, -1);
    EXPECT_EQ(FindNode(data, {.closeTag = end}).open, -1);
    const NodePlace place = FindNode(data, {.openTag = u"T", .closeTag = stop});
    EXPECT_EQ(place.open, 3);
    EXPECT_EQ(place.close, -1);
    EXPECT_TRUE(place.text.isEmpty());
}

} // namespace
