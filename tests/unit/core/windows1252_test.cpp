#include "core/windows1252.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace {

QByteArray AllBytes()
{
    QByteArray bytes;
    for (int i = 0; i < 256; ++i)
        bytes.append(static_cast<char>(i));
    return bytes;
}

TEST(Windows1252, EveryByteComesBack)
{
    bool lossy = false;

    EXPECT_EQ(ToWindows1252(FromWindows1252(AllBytes()), &lossy), AllBytes());
    EXPECT_FALSE(lossy);
}

TEST(Windows1252, ReadsTheBytesThatDifferFromLatin1)
{
    const QString text = FromWindows1252("\x80\x82\x83\x85\x8A\x8E\x91\x92\x95\x96\x99\x9C\x9F");

    EXPECT_EQ(text, QStringView(u"\u20AC\u201A\u0192\u2026\u0160\u017D\u2018\u2019\u2022\u2013"
                                u"\u2122\u0153\u0178"));
}

TEST(Windows1252, ReadsTheUndefinedBytesAsControlCharacters)
{
    const char16_t expected[] = {0x81, 0x8D, 0x8F, 0x90, 0x9D};

    EXPECT_EQ(FromWindows1252("\x81\x8D\x8F\x90\x9D"), QStringView(expected));
}

TEST(Windows1252, KeepsAsciiNulAndLatin1)
{
    const QByteArray bytes("a\0\x7F\xA0\xB0\xE9\xFF", 7);
    const char16_t units[] = {u'a', 0, 0x7F, 0xA0, 0xB0, 0xE9, 0xFF};
    const QStringView expected(units, 7); // with a length, so the NUL does not end it

    EXPECT_EQ(FromWindows1252(bytes), expected);
    EXPECT_EQ(ToWindows1252(expected), bytes);
}

TEST(Windows1252, PutsAQuestionMarkForWhatItLacks)
{
    bool lossy = false;

    EXPECT_EQ(ToWindows1252(u"\u0141\u00F3d\u017A 5\u20AC", &lossy), QByteArray("?\xF3"
                                                                                "d? 5\x80"));
    EXPECT_TRUE(lossy);
}

TEST(Windows1252, LacksTheCharactersBehindItsOwnBytes)
{
    // U+0080 is not in the code page: its byte is the euro sign.
    const char16_t text[] = {0x80, 0x9F};

    EXPECT_EQ(ToWindows1252(QStringView(text)), QByteArray("??"));
}

TEST(Windows1252, TakesASurrogatePairAsOneCharacter)
{
    const char16_t text[] = {u'a', 0xD83C, 0xDF27, u'b', 0xD83C, u'c', 0xDF27};

    EXPECT_EQ(ToWindows1252(QStringView(text)), QByteArray("a?b?c?"));
}

TEST(Windows1252, GivesNothingForNothing)
{
    EXPECT_TRUE(FromWindows1252({}).isEmpty());
    EXPECT_TRUE(ToWindows1252({}).isEmpty());
}

} // namespace
