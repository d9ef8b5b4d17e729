#include "store/private_profile.h"
#include "support/qt_printers.h"
#include "support/test_files.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct WriteCase
{
    const char *name;
    QByteArray before = {};
    QString section = QStringLiteral("S");
    QString key = QStringLiteral("k");
    QString value = QStringLiteral("v");
    QByteArray expected = {};
};

void PrintTo(const WriteCase &c, std::ostream *out)
{
    *out << c.name;
}

class WriteProfile : public testing::TestWithParam<WriteCase>
{
};

TEST_P(WriteProfile, GivesTheBytes)
{
    const WriteCase &c = GetParam();
    PrivateProfile profile(c.before, CodePage::Windows1252);

    profile.SetValue(c.section, c.key, c.value);

    EXPECT_EQ(profile.Bytes(), c.expected);
}

const WriteCase kCases[] = {
    {.name = "NewFile", .before = "", .expected = "[S]\r\nk=v\r\n"},
    {.name = "NewSectionAtTheEnd", .before = "[T]\nk=1\n", .expected = "[T]\nk=1\n[S]\r\nk=v\r\n"},
    {.name = "NewSectionEndsOpenLine",
     .before = "[T]\nk=1",
     .expected = "[T]\nk=1\r\n[S]\r\nk=v\r\n"},
    {.name = "NewSectionBehindCr", .before = "[T]\rk=1\r", .expected = "[T]\rk=1\r[S]\r\nk=v\r\n"},
    {.name = "NewSectionBehindCommentsAndEmptyLines",
     .before = "[T]\nk=1\n\n; end\n\n",
     .expected = "[T]\nk=1\n\n; end\n\n[S]\r\nk=v\r\n"},
    {.name = "NewSectionBehindUtf8Mark",
     .before = "\xEF\xBB\xBF",
     .expected = "\xEF\xBB\xBF\r\n[S]\r\nk=v\r\n"},
    {.name = "NewSectionBehindUtf16Mark",
     .before = "\xFF\xFE",
     .expected = "\xFF\xFE\r\0\n\0[\0S\0]\0\r\0\n\0k\0=\0v\0\r\0\n\0"_ba},
    {.name = "NewKeyBehindLastKey",
     .before = "[S]\na=1\nb=2\n\n; closes\n[T]\nk=0\n",
     .expected = "[S]\na=1\nb=2\nk=v\r\n\n; closes\n[T]\nk=0\n"},
    {.name = "NewKeyBehindBareLineIsBehindLastKey",
     .before = "[S]\na=1\nbare\n",
     .expected = "[S]\na=1\nk=v\r\nbare\n"},
    {.name = "NewKeyEndsOpenLine", .before = "[S]\na=1", .expected = "[S]\na=1\r\nk=v\r\n"},
    {.name = "NewKeyBehindHeader",
     .before = "[S]\n\n; note\n[T]\n",
     .expected = "[S]\nk=v\r\n\n; note\n[T]\n"},
    {.name = "NewKeyBehindOpenHeader", .before = "[S]", .expected = "[S]\r\nk=v\r\n"},
    {.name = "NewKeyInFirstSectionOfTheName",
     .before = "[S]\na=1\n[T]\n[s]\nk=2\n",
     .expected = "[S]\na=1\nk=v\r\n[T]\n[s]\nk=2\n"},
    {.name = "NewKeyBehindRepeatedKeys",
     .before = "[S]\na=1\nb=2\na=3\n",
     .expected = "[S]\na=1\nb=2\na=3\nk=v\r\n"},
    {.name = "ReplacesInPlace",
     .before = "; c\n[S]\na=1\nk=old\nb=2\n",
     .expected = "; c\n[S]\na=1\nk=v\r\nb=2\n"},
    {.name = "ReplacesLastOpenLine", .before = "[S]\nk=old", .expected = "[S]\nk=v\r\n"},
    {.name = "ReplacesRemarkWithTheValue",
     .before = "[S]\nk=1 ; old\n",
     .expected = "[S]\nk=v\r\n"},
    {.name = "ReplacesBlanksOfTheLine",
     .before = "[S]\n \tk \t= old \n",
     .expected = "[S]\nk=v\r\n"},
    {.name = "KeepsSpellingOfKey",
     .before = "[S]\nKEY=1\n",
     .key = "kEy",
     .expected = "[S]\nKEY=v\r\n"},
    {.name = "KeepsSpellingOfSection",
     .before = "[Alpha]\na=1\n",
     .section = "ALPHA",
     .expected = "[Alpha]\na=1\nk=v\r\n"},
    {.name = "WritesFirstOfEqualKeys",
     .before = "[S]\nk=1\nK=2\n",
     .expected = "[S]\nk=v\r\nK=2\n"},
    {.name = "WritesFirstOfEqualSections",
     .before = "[S]\nk=1\n[S]\nk=2\n",
     .expected = "[S]\nk=v\r\n[S]\nk=2\n"},
    {.name = "KeyAheadOfFirstHeaderStays", .before = "k=0\n[S]\n", .expected = "k=0\n[S]\nk=v\r\n"},
    {.name = "GivenNamesLoseSpaces",
     .before = "",
     .section = "  S ",
     .key = " k ",
     .expected = "[S]\r\nk=v\r\n"},
    {.name = "GivenNamesKeepTabs",
     .before = "",
     .section = "\tS",
     .key = "k\t",
     .expected = "[\tS]\r\nk\t=v\r\n"},
    {.name = "KeyWithSemicolonTurnsIntoComment",
     .before = "[S]\n;k=1\n",
     .key = ";k",
     .expected = "[S]\n;k=v\r\n;k=1\n"},
    {.name = "BracketInSectionNameIsWritten",
     .before = "",
     .section = "a]b",
     .expected = "[a]b]\r\nk=v\r\n"},
    {.name = "ValueKeepsBlanks", .before = "", .value = " v\t", .expected = "[S]\r\nk= v\t\r\n"},
    {.name = "ValueKeepsQuotes", .before = "", .value = "\"v\"", .expected = "[S]\r\nk=\"v\"\r\n"},
    {.name = "LineBreakStartsANewLine",
     .before = "",
     .value = "v\nx=1",
     .expected = "[S]\r\nk=v\nx=1\r\n"},
    {.name = "EmptyValueKeepsTheKey",
     .before = "[S]\nk=1\n",
     .value = "",
     .expected = "[S]\nk=\r\n"},
    {.name = "SameValueLeavesItsLine",
     .before = "[S]\n  K \t= v \n",
     .expected = "[S]\n  K \t= v \n"},
    {.name = "SameValueLeavesOpenLine", .before = "[S]\nk=v", .expected = "[S]\nk=v"},
    {.name = "SameEmptyValueLeavesItsLine",
     .before = "[S]\nk =\r",
     .value = "",
     .expected = "[S]\nk =\r"},
    {.name = "QuotedValueIsNotTheSame", .before = "[S]\nk=\"v\"\n", .expected = "[S]\nk=v\r\n"},
    {.name = "OtherCaseIsNotTheSame", .before = "[S]\nk=V\n", .expected = "[S]\nk=v\r\n"},
    {.name = "NulBytesAheadOfFirstHeaderStay",
     .before = "\0\0x\n[S]\nk=1\n"_ba,
     .expected = "\0\0x\n[S]\nk=v\r\n"_ba},
    {.name = "NulBehindLastLineStays",
     .before = "[S]\nk=1\n\0"_ba,
     .expected = "[S]\nk=v\r\n\0"_ba},
    {.name = "GivenTextsEndAtNul",
     .before = "",
     .section = u"S\0x"_s,
     .key = u"k\0x"_s,
     .value = u"v\0x"_s,
     .expected = "[S]\r\nk=v\r\n"},
    {.name = "CharactersThatAreLackingBecomeQuestionMarks",
     .before = "",
     .value = u"20\u00B0\u20AC\u0394\u0100\U0001F600\u0080."_s,
     .expected = "[S]\r\nk=20\xB0\x80????.\r\n"},
    {.name = "NamesAreFoundAsTheyWouldBeWritten",
     .before = "[?]\n?=1\n",
     .section = u"\u0394"_s,
     .key = u"\u0394"_s,
     .expected = "[?]\n?=v\r\n"},
};

INSTANTIATE_TEST_SUITE_P(Table, WriteProfile, testing::ValuesIn(kCases),
                         [](const auto &test) { return std::string(test.param.name); });

TEST(WriteProfileFile, HarbourGetsItsThreeValues)
{
    PrivateProfile profile(TestData("harbour.ini"), CodePage::Windows1252);

    profile.SetValue(u"Harbour", u"Wind", u"NW");
    profile.SetValue(u"harbour", u"TIDE", u"ebb");
    profile.SetValue(u"Pier", u"Open", u"True");

    EXPECT_EQ(profile.Bytes(), TestData("harbour_written.ini"));
}

TEST(WriteProfileFile, NewKeysStandInTheOrderOfWriting)
{
    PrivateProfile profile("[S]\nz=1\n; closes\n", CodePage::Windows1252);

    profile.SetValue(u"S", u"b", u"2");
    profile.SetValue(u"S", u"a", u"3");
    profile.SetValue(u"S", u"c", u"4");

    EXPECT_EQ(profile.Bytes(), QByteArray("[S]\nz=1\nb=2\r\na=3\r\nc=4\r\n; closes\n"));
}

TEST(WriteProfileFile, IsReadBackAtOnce)
{
    PrivateProfile profile("[S]\nk=1\n[T]\nk=2\n", CodePage::Windows1252);

    profile.SetValue(u"S", u"k", u"longer than before");
    profile.SetValue(u"S", u"new", u"3");
    profile.SetValue(u"U", u"k", u"4");

    EXPECT_EQ(profile.Value(u"S", u"k", u""), QString("longer than before"));
    EXPECT_EQ(profile.Value(u"S", u"new", u""), QString("3"));
    EXPECT_EQ(profile.Value(u"T", u"k", u""), QString("2"));
    EXPECT_EQ(profile.Value(u"U", u"k", u""), QString("4"));
}

TEST(WriteProfileFile, OuterBlanksAreLostOnTheNextRead)
{
    PrivateProfile profile("", CodePage::Windows1252);

    profile.SetValue(u"S", u"k", u"  v ");

    EXPECT_EQ(profile.Value(u"S", u"k", u""), QString("v"));
}

TEST(WriteProfileFile, LineBreakInAValueMakesAKeyOfItsOwn)
{
    PrivateProfile profile("", CodePage::Windows1252);

    profile.SetValue(u"S", u"k", u"v\r\n[T]\r\nx=1");

    EXPECT_EQ(profile.Value(u"S", u"k", u""), QString("v"));
    EXPECT_EQ(profile.Value(u"T", u"x", u""), QString("1"));
}

TEST(WriteProfileFile, KeyWithSemicolonIsNeverFound)
{
    PrivateProfile profile("", CodePage::Windows1252);

    profile.SetValue(u"S", u";k", u"v");

    EXPECT_EQ(profile.Value(u"S", u";k", u"dflt"), QString("dflt"));
}

TEST(WriteProfileFile, BracketCutsTheSectionNameWhenRead)
{
    PrivateProfile profile("", CodePage::Windows1252);

    profile.SetValue(u"a]b", u"k", u"v");

    EXPECT_EQ(profile.Value(u"a]b", u"k", u"dflt"), QString("dflt"));
    EXPECT_EQ(profile.Value(u"a", u"k", u"dflt"), QString("v"));
}

} // namespace
