#include "core/text.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace {

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

} // namespace
