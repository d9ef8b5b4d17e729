#include "support/qt_printers.h"
#include "weather/main_node.h"

#include <gtest/gtest.h>

namespace {

WeatherProfile WithMainNode(const QString &open, const QString &close)
{
    WeatherProfile profile;
    profile.mainNodeOpen = open;
    profile.mainNodeClose = close;
    return profile;
}

TEST(WorkingText, LosesLineEndsAndTabs)
{
    EXPECT_EQ(WorkingText("a\r\nb\n\tc d\r"), "abc d");
    EXPECT_EQ(WorkingText(""), "");
}

TEST(WorkingText, LosesThemAtEachPlaceOfALongText)
{
    const QString kept = "0123456789abcdefghijklmnopq"; // three blocks and three characters
    for (qsizetype at = 0; at <= kept.size(); ++at) {
        for (const char *control : {"\r", "\n", "\t", "\r\n\t"})
            EXPECT_EQ(WorkingText(QString(kept).insert(at, QLatin1String(control))), kept) << at;
    }
}

TEST(WorkingText, KeepsAllOtherCharacters)
{
    const QString others = QString(QChar(0)) + "\x01\b\v\f\x0E" // the neighbours of the three
                         + QString(QChar(0x0109)) + QChar(0x010A) + QChar(0x010D) + QChar(0x0A00)
                         + QChar(0xFFFF);
    EXPECT_EQ(WorkingText(others), others);
    EXPECT_EQ(WorkingText(others + "\n" + others), others + others);
}

TEST(CutToMainNode, BeginsOnTheTagsLastCharacterAndLosesTheLastOne)
{
    QString text = "head<w>12345</w>tail";

    EXPECT_EQ(CutToMainNode(text, WithMainNode("<w>", "</w>")), MainNode::Found);

    EXPECT_EQ(text, ">1234");
}

TEST(CutToMainNode, KeepsTheTextWithoutBothTagsInTheProfile)
{
    for (const WeatherProfile &profile :
         {WithMainNode("", ""), WithMainNode("<w>", ""), WithMainNode("", "</w>")}) {
        QString text = "head<w>12345</w>tail";
        EXPECT_EQ(CutToMainNode(text, profile), MainNode::Found);
        EXPECT_EQ(text, "head<w>12345</w>tail");
    }
}

TEST(CutToMainNode, TellsWhatIsMissing)
{
    QString text = "head<w>12345</w>tail";

    EXPECT_EQ(CutToMainNode(text, WithMainNode("<W>", "</w>")), MainNode::NoOpening);
    EXPECT_EQ(CutToMainNode(text, WithMainNode("<w>", "</W>")), MainNode::NoClosing);

    EXPECT_EQ(text, "head<w>12345</w>tail");
}

TEST(CutToMainNode, LooksForTheClosingTagBehindTheOpeningOne)
{
    QString text = "</w>head<w>12345";

    EXPECT_EQ(CutToMainNode(text, WithMainNode("<w>", "</w>")), MainNode::NoClosing);
}

TEST(CutToMainNode, CutsNothingWhereTheTagsOverlap)
{
    QString text = "a==b";

    EXPECT_EQ(CutToMainNode(text, WithMainNode("==", "==")), MainNode::Found);

    EXPECT_EQ(text, "a==b");
}

TEST(CutToMainNode, IsEmptyBetweenTouchingTags)
{
    QString text = "a<w></w>b";

    EXPECT_EQ(CutToMainNode(text, WithMainNode("<w>", "</w>")), MainNode::Found);

    EXPECT_EQ(text, "");
}

} // namespace
