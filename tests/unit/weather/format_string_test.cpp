#include "support/qt_printers.h"
#include "support/recorded_trace.h"
#include "weather/format_string.h"

#include <gtest/gtest.h>

namespace {

TEST(FormatString, LetsPictureCharactersTakeTheTextsPlace)
{
    EXPECT_EQ(FormatString(u"0612", u"##:##"), "06:2");
}

TEST(FormatString, DropsAtQuestionMarks)
{
    EXPECT_EQ(FormatString(u"12:45", u"XX?XX"), "1245");
}

TEST(FormatString, ShowsZeroWhereADigitIsWanted)
{
    EXPECT_EQ(FormatString(u"a1b2", u"#0#0"), "0102");
    EXPECT_EQ(FormatString(QString(QChar(0x0665)), u"#"), "0"); // a digit, but not 0 to 9
}

TEST(FormatString, CoversTheShorterOfTheTwo)
{
    EXPECT_EQ(FormatString(u"ab", u"XXXX"), "ab");
    EXPECT_EQ(FormatString(u"abcd", u"XX"), "ab");
    EXPECT_EQ(FormatString(u"", u"XX"), "");
    EXPECT_EQ(FormatString(u"ab", u""), "");
}

TEST(FormatString, TracesEachPosition)
{
    const RecordedTrace trace;

    EXPECT_EQ(FormatString(u"7b", u"#-"), "7-");

    EXPECT_EQ(trace.lines, (QStringList{
                               "FormatString(7b As String, #- As String)",
                               "Analyzing 7b at character 7 for format #",
                               "Analyzing 7b at character b for format -",
                               "returning 7-",
                           }));
}

} // namespace
