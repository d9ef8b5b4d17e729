#include "core/text.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace {

/// A text of `size` dots with `needle` at `at`.
QString WithNeedle(qsizetype size, qsizetype at, QStringView needle)
{
    return QString(size, u'.').replace(at, needle.size(), needle.toString());
}

TEST(IsDigit, KnowsTheTenOfThem)
{
    for (const QChar c : QString("0123456789"))
        EXPECT_TRUE(IsDigit(c));
    for (const QChar c : QString("/:aA+-. ") + QChar(0x0664) + QChar(0xFF14) + QChar(0x00B2))
        EXPECT_FALSE(IsDigit(c)) << int(c.unicode());
}

TEST(IndexOf, FindsEveryPlaceInTextsOfEveryLength)
{
    for (const QStringView needle :
         {QStringView(u"<"), QStringView(u"<a"), QStringView(u"<a>"), QStringView(u"<tag>"),
          QStringView(u"<a tag that is longer than what is looked at in one go>")}) {
        for (const qsizetype size : {needle.size(), qsizetype(70), qsizetype(200)}) {
            for (qsizetype at = 0; at + needle.size() <= size; ++at) {
                const QString text = WithNeedle(size, at, needle);
                ASSERT_EQ(IndexOf(text, needle), at) << size;
                ASSERT_EQ(IndexOf(text, needle, at), at) << size;
                ASSERT_EQ(IndexOf(text, needle, at + 1), -1) << size;
            }
        }
    }
}

TEST(IndexOf, TakesTheFirstOfSeveral)
{
    const QString text = WithNeedle(200, 150, u"<tag>").replace(40, 5, QString("<tag>"));
    EXPECT_EQ(IndexOf(text, u"<tag>"), 40);
    EXPECT_EQ(IndexOf(text, u"<tag>", 41), 150);
}

TEST(IndexOf, IsNotDeceivedByItsMarks)
{
    // The needle's second and last but one characters, with others between and around them.
    const QString text = QString(100, u'x') + QString("<taggt <t-g> tag> tg <TAG> <ta g>");
    EXPECT_EQ(IndexOf(text, u"<tag>"), -1);
    EXPECT_EQ(IndexOf(text + QString("<tag>"), u"<tag>"), text.size());
}

TEST(IndexOf, HasAnAnswerAtTheEnds)
{
    EXPECT_EQ(IndexOf({}, u"a"), -1);
    EXPECT_EQ(IndexOf(u"abc", {}), 0);
    EXPECT_EQ(IndexOf(u"abc", {}, 3), 3);
    EXPECT_EQ(IndexOf(u"abc", u"abcd"), -1);
    EXPECT_EQ(IndexOf(u"abc", u"c", 9), -1);
    EXPECT_EQ(IndexOf(QString(100, u'a'), u"aa", 99), -1);
}

TEST(TrimSpaces, RemovesSpacesAtTheEndsOnly)
{
    EXPECT_EQ(TrimSpaces(u"  a b  "), u"a b");
    EXPECT_EQ(TrimSpaces(u"\t a \r\n"), u"\t a \r\n");
    EXPECT_EQ(TrimSpaces(u"\u00a0a"), u"\u00a0a");
    EXPECT_TRUE(TrimSpaces(u"   ").isEmpty());
    EXPECT_TRUE(TrimSpaces(u"").isEmpty());
}

TEST(WithYear, FillsEveryTokenOfThisCase)
{
    EXPECT_EQ(WithYear("(c) %YEAR%, %YEAR%, %year%", 2026), "(c) 2026, 2026, %year%");
    EXPECT_EQ(WithYear("no token", 2026), "no token");
}

TEST(ReplaceAll, TakesWhatItFindsFromTheFront)
{
    EXPECT_EQ(ReplaceAll(u"a...b....c", u"...", u". "), "a. b. .c");
    EXPECT_EQ(ReplaceAll(u"aaaaa", u"aa", u"a"), "aaa");
    EXPECT_EQ(ReplaceAll(u"\n\nx\n", u"\n", u"\r\n"), "\r\n\r\nx\r\n");
    EXPECT_EQ(ReplaceAll(u"x", u"x", u""), "");
    EXPECT_EQ(ReplaceAll(u"none", u"X", u"y"), "none");
    EXPECT_EQ(ReplaceAll(u"", u"x", u"y"), "");
}

TEST(WithoutLoneSurrogates, ReplacesHalvesAndKeepsPairs)
{
    const QChar high(0xD83D);
    const QChar low(0xDE00);
    const QString pair = QString(high) + low;
    const QString replaced(QChar(0xFFFD));

    EXPECT_EQ(WithoutLoneSurrogates("a" + pair + "b"), "a" + pair + "b");
    EXPECT_EQ(WithoutLoneSurrogates(QString("a") + high), "a" + replaced);
    EXPECT_EQ(WithoutLoneSurrogates(low + QString("a")), replaced + "a");
    EXPECT_EQ(WithoutLoneSurrogates(low + pair + high), replaced + pair + replaced);
    EXPECT_EQ(WithoutLoneSurrogates(QString(low) + high), replaced + replaced);
    EXPECT_EQ(WithoutLoneSurrogates(""), "");
}

TEST(FirstCharacters, NeverCutsAPairInTwo)
{
    const QString text = QString("a") + QChar(0xD83D) + QChar(0xDE00) + "b";

    EXPECT_EQ(FirstCharacters(text, 0), u"");
    EXPECT_EQ(FirstCharacters(text, 1), u"a");
    EXPECT_EQ(FirstCharacters(text, 2), u"a");
    EXPECT_EQ(FirstCharacters(text, 3), text.first(3));
    EXPECT_EQ(FirstCharacters(text, 4), text);
    EXPECT_EQ(FirstCharacters(text, 5), text);
}

} // namespace
