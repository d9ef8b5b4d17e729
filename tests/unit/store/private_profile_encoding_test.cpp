#include "store/private_profile.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr CodePage kUtf8 = CodePage::Utf8;
constexpr CodePage kAnsi = CodePage::Windows1252;

const QString kEuro = u"5 \u20AC"_s;     // in both code pages
const QString kDelta = u"\u0394T"_s;     // in UTF-8 only
const QString kSmile = u"\U0001F600!"_s; // a surrogate pair

QByteArray Utf16(QStringView text)
{
    QByteArray bytes = "\xFF\xFE";
    for (const QChar c : text) {
        bytes.append(static_cast<char>(c.unicode() & 0xFF));
        bytes.append(static_cast<char>(c.unicode() >> 8));
    }
    return bytes;
}

TEST(ProfileUtf8, ReadsAndWritesAllCharacters)
{
    PrivateProfile profile("[S]\na=\xCE\x94T\n", kUtf8);

    profile.SetValue(u"S", u"b", kSmile);

    EXPECT_EQ(profile.Value(u"S", u"a", u""), kDelta);
    EXPECT_EQ(profile.Value(u"S", u"b", u""), kSmile);
    EXPECT_EQ(profile.Bytes(), QByteArray("[S]\na=\xCE\x94T\nb=\xF0\x9F\x98\x80!\r\n"));
}

TEST(ProfileUtf8, NewFileIsUtf8WithoutMark)
{
    PrivateProfile profile("", kUtf8);

    profile.SetValue(u"S", u"k", kEuro);

    EXPECT_EQ(profile.Bytes(), QByteArray("[S]\r\nk=5 \xE2\x82\xAC\r\n"));
}

TEST(ProfileUtf8, NamesOutsideAsciiAreFoundInAnyCase)
{
    PrivateProfile profile("[\xC3\x84rger]\n\xCE\x94=1\n", kUtf8);

    profile.SetValue(u"\u00E4RGER"_s, u"\u03B4"_s, u"2");

    EXPECT_EQ(profile.Bytes(), QByteArray("[\xC3\x84rger]\n\xCE\x94=2\r\n"));
}

TEST(ProfileUtf8, HalfASurrogatePairBecomesTheReplacementCharacter)
{
    PrivateProfile profile("", kUtf8);
    const QString halves = QString("a") + QChar(0xD83D) + "b" + QChar(0xDE00) + QChar(0xD83D);

    profile.SetValue(u"S", u"k", halves);

    EXPECT_EQ(profile.Bytes(), QByteArray("[S]\r\nk=a\xEF\xBF\xBD"
                                          "b\xEF\xBF\xBD\xEF\xBF\xBD\r\n"));
}

TEST(ProfileUtf8, MarkIsSkippedAndKept)
{
    PrivateProfile profile("\xEF\xBB\xBF[S]\nk=1\n", kUtf8);
    EXPECT_EQ(profile.Value(u"S", u"k", u""), QString("1"));

    profile.SetValue(u"S", u"k", u"2");

    EXPECT_EQ(profile.Bytes(), QByteArray("\xEF\xBB\xBF[S]\nk=2\r\n"));
}

TEST(ProfileUtf8, FileOfNothingButAMarkGetsALineEndFirst)
{
    PrivateProfile profile("\xEF\xBB\xBF", kUtf8);

    profile.SetValue(u"S", u"k", u"v");

    EXPECT_EQ(profile.Bytes(), QByteArray("\xEF\xBB\xBF\r\n[S]\r\nk=v\r\n"));
}

TEST(ProfileUtf8, MarkInsideAValueIsACharacter)
{
    const PrivateProfile profile("[S]\nk=\xEF\xBB\xBFv\n", kUtf8);

    EXPECT_EQ(profile.Value(u"S", u"k", u""), u"\uFEFFv"_s);
}

TEST(ProfileUtf8, InvalidFileIsWindows1252AndStaysSo)
{
    PrivateProfile profile("[S]\na=20\xB0\n", kUtf8);
    EXPECT_EQ(profile.Value(u"S", u"a", u""), u"20\u00B0"_s);

    profile.SetValue(u"S", u"b", kEuro);
    profile.SetValue(u"S", u"c", kDelta);

    EXPECT_EQ(profile.Value(u"S", u"b", u""), kEuro);
    EXPECT_EQ(profile.Bytes(), QByteArray("[S]\na=20\xB0\nb=5 \x80\r\nc=?T\r\n"));
}

TEST(ProfileUtf8, OneInvalidByteDecidesForTheWholeFile)
{
    const PrivateProfile profile("[S]\na=\xCE\x94\n; \xFF\n", kUtf8);

    EXPECT_EQ(profile.Value(u"S", u"a", u""), u"\u00CE\u201D"_s);
}

TEST(ProfileUtf8, InvalidFileKeepsItsMark)
{
    PrivateProfile profile("\xEF\xBB\xBF[S]\na=\xB0\n", kUtf8);
    EXPECT_EQ(profile.Value(u"S", u"a", u""), u"\u00B0"_s);

    profile.SetValue(u"S", u"a", u"x");

    EXPECT_EQ(profile.Bytes(), QByteArray("\xEF\xBB\xBF[S]\na=x\r\n"));
}

TEST(ProfileUtf8, CutCountsCharactersNotBytes)
{
    const QString longest(4095, QChar(0x0394));
    const PrivateProfile profile("[S]\nk=" + (longest + "x").toUtf8() + "\n", kUtf8);

    EXPECT_EQ(profile.Value(u"S", u"k", u""), longest);
}

TEST(ProfileUtf8, CutLeavesNoHalfCharacter)
{
    const QString before(4094, 'x');
    const PrivateProfile profile("[S]\nk=" + (before + kSmile).toUtf8() + "\n", kUtf8);

    EXPECT_EQ(profile.Value(u"S", u"k", u""), before);
    EXPECT_EQ(profile.Value(u"S", u"none", before + kSmile), before);
}

TEST(ProfileUtf8, PairThatJustFitsStays)
{
    const QString fits = QString(4093, 'x') + u"\U0001F600"_s;
    const PrivateProfile profile("[S]\nk=" + (fits + "y").toUtf8() + "\n", kUtf8);

    EXPECT_EQ(profile.Value(u"S", u"k", u""), fits);
}

TEST(ProfileWindows1252, ValidUtf8IsStillReadByteForByte)
{
    PrivateProfile profile("[S]\nk=\xC2\xB0\n", kAnsi);
    EXPECT_EQ(profile.Value(u"S", u"k", u""), u"\u00C2\u00B0"_s);

    profile.SetValue(u"S", u"z", u"\u00B0");

    EXPECT_EQ(profile.Bytes(), QByteArray("[S]\nk=\xC2\xB0\nz=\xB0\r\n"));
}

TEST(ProfileWindows1252, UndefinedCodesPassBothWays)
{
    PrivateProfile profile("", kAnsi);
    const QString controls = u"\u0081\u008D\u008F\u0090\u009D"_s;

    profile.SetValue(u"S", u"k", controls);

    EXPECT_EQ(profile.Bytes(), QByteArray("[S]\r\nk=\x81\x8D\x8F\x90\x9D\r\n"));
    EXPECT_EQ(profile.Value(u"S", u"k", u""), controls);
}

class ProfileUtf16 : public testing::TestWithParam<CodePage>
{
};

TEST_P(ProfileUtf16, IsReadAndKept)
{
    PrivateProfile profile(Utf16(u"; n\n[S]\r\na=1\nb=\u20AC\n"), GetParam());
    EXPECT_EQ(profile.Value(u"s", u"B", u""), u"\u20AC"_s);

    profile.SetValue(u"S", u"A", kEuro);
    profile.SetValue(u"T", u"k", u"v");

    EXPECT_EQ(profile.Bytes(), Utf16(u"; n\n[S]\r\na=5 \u20AC\r\nb=\u20AC\n[T]\r\nk=v\r\n"));
}

TEST_P(ProfileUtf16, StrayLastByteIsKept)
{
    PrivateProfile profile(Utf16(u"[S]\nk=1\n") + "x", GetParam());

    profile.SetValue(u"S", u"k", u"2");

    EXPECT_EQ(profile.Bytes(), Utf16(u"[S]\nk=2\r\n") + "x");
}

TEST_P(ProfileUtf16, HalfASurrogatePairIsReadAndWrittenAsTheReplacementCharacter)
{
    const bool ansi = GetParam() == kAnsi; // which shows "?" instead
    const QString replaced = ansi ? u"?"_s : u"\uFFFD"_s;
    const QString half(QChar(0xD83D));
    PrivateProfile profile(Utf16("[S]\r\na=x" + half + "\r\n"), GetParam());
    EXPECT_EQ(profile.Value(u"S", u"a", u""), "x" + replaced);

    profile.SetValue(u"S", u"b", half + "y");

    EXPECT_EQ(profile.Bytes(), Utf16("[S]\r\na=x" + half + "\r\nb=" + replaced + "y\r\n"));
}

TEST_P(ProfileUtf16, EveryUnitComesOutAsItWentIn)
{
    QString comment; // with halves of surrogate pairs, alone and the wrong way round
    for (const char16_t first : {u'\x7F', u'\x80', u'\x7FF', u'\x800', u'\xD800', u'\xDFFF',
                                 u'\xFEFF', u'\xFFFF', u'\xDC00', u'\xD800', u'\xDC00'})
        comment += QChar(first);
    const QString text = "; " + comment + "\n[S]\nk=" + comment + "\n";
    PrivateProfile profile(Utf16(text), GetParam());

    EXPECT_EQ(profile.Bytes(), Utf16(text));
    profile.SetValue(u"S", u"z", u"1");
    EXPECT_EQ(profile.Bytes(), Utf16(QString(text + "z=1\r\n")));
}

TEST_P(ProfileUtf16, CharacterWithALineEndByteIsNoLineEnd)
{
    const PrivateProfile profile(Utf16(u"[S]\na=\u0A0D\u0D0A\nk=v\n"), GetParam());

    EXPECT_EQ(profile.Value(u"S", u"k", u""), QString("v"));
}

INSTANTIATE_TEST_SUITE_P(BothCodePages, ProfileUtf16, testing::Values(kUtf8, kAnsi),
                         [](const auto &test) {
                             return std::string(test.param == kUtf8 ? "Utf8" : "Windows1252");
                         });

TEST(ProfileUtf16CodePage, Utf8LetsAllCharactersPass)
{
    PrivateProfile profile(Utf16(u"[S]\na=\u0394T\n"), kUtf8);

    profile.SetValue(u"S", u"b", kDelta);

    EXPECT_EQ(profile.Value(u"S", u"a", u""), kDelta);
    EXPECT_EQ(profile.Bytes(), Utf16(u"[S]\na=\u0394T\nb=\u0394T\r\n"));
}

TEST(ProfileUtf16CodePage, Windows1252LetsOnlyItsOwnPass)
{
    PrivateProfile profile(Utf16(u"[S]\na=\u0394T\n"), kAnsi);

    profile.SetValue(u"S", u"b", kDelta);

    EXPECT_EQ(profile.Value(u"S", u"a", u""), QString("?T"));
    EXPECT_EQ(profile.Bytes(), Utf16(u"[S]\na=\u0394T\nb=?T\r\n"));
}

} // namespace
