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
