#include "store/private_profile.h"
#include "support/qt_printers.h"
#include "support/test_files.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// What a reader gets under Windows-1252, with "dflt" as the default.
QString Read(const QByteArray &bytes, QStringView section, QStringView key)
{
    return PrivateProfile(bytes, CodePage::Windows1252).Value(section, key, u"dflt");
}

struct LineCase
{
    const char *name;
    QByteArray bytes = {};
    QString section = QStringLiteral("S");
    QString key = QStringLiteral("k");
    QString expected = {};
};

void PrintTo(const LineCase &c, std::ostream *out)
{
    *out << c.name;
}

class ReadProfile : public testing::TestWithParam<LineCase>
{
};

TEST_P(ReadProfile, GivesTheValue)
{
    const LineCase &c = GetParam();

    EXPECT_EQ(Read(c.bytes, c.section, c.key), c.expected);
}

std::string CaseName(const testing::TestParamInfo<LineCase> &test)
{
    return test.param.name;
}

// How a file is split up.
const LineCase kLineCases[] = {
    {.name = "LineEndCrLf", .bytes = "[S]\r\na=1\r\nk=v\r\n", .expected = "v"},
    {.name = "LineEndLf", .bytes = "[S]\na=1\nk=v\n", .expected = "v"},
    {.name = "LineEndCr", .bytes = "[S]\ra=1\rk=v\r", .expected = "v"},
    {.name = "LineEndsMixed", .bytes = "[S]\ra=1\n\r\nb=2\r\r\nk=v\rc=3", .expected = "v"},
    {.name = "LastLineNeedsNoEnd", .bytes = "[S]\r\nk=v", .expected = "v"},
    {.name = "HeaderOnlyWithoutEnd", .bytes = "[S]", .expected = "dflt"},
    {.name = "EmptyFile", .bytes = "", .expected = "dflt"},
    {.name = "BlanksAroundAllParts", .bytes = " \t[S]\n \v\fk \t=\f\v v \t\v\f\n", .expected = "v"},
    {.name = "InnerBlanksStay", .bytes = "[S]\nk=a \t b\n", .expected = "a \t b"},
    {.name = "NonBreakingSpaceIsNoBlank",
     .bytes = "[S]\nk=\xA0v\xA0\n",
     .expected = u"\u00A0v\u00A0"_s},
    {.name = "EmptyLinesMeanNothing", .bytes = "\n\n[S]\n\n \t\nk=v\n", .expected = "v"},
    {.name = "CommentHidesItsLine", .bytes = "[S]\n;k=no\nk=v\n", .expected = "v"},
    {.name = "IndentedCommentHidesItsLine", .bytes = "[S]\n \t;k=no\nk=v\n", .expected = "v"},
    {.name = "CommentedHeaderIsNone", .bytes = "[S]\n;[T]\nk=v\n", .expected = "v"},
    {.name = "HashIsNoComment", .bytes = "[S]\n#k=v\n", .key = "#k", .expected = "v"},
    {.name = "SlashesAreNoComment", .bytes = "[S]\n//k=v\n", .key = "//k", .expected = "v"},
    {.name = "ApostropheIsNoComment", .bytes = "[S]\n'k=v\n", .key = "'k", .expected = "v"},
    {.name = "HeaderEndsAtFirstBracket", .bytes = "[S]T]\nk=v\n", .expected = "v"},
    {.name = "HeaderWithoutBracketRunsToLineEnd", .bytes = "[S\nk=v\n", .expected = "v"},
    {.name = "HeaderNameLosesBlanks", .bytes = "[ \tS\t ]\nk=v\n", .expected = "v"},
    {.name = "OpenHeaderNameLosesBlanks", .bytes = "[ S \nk=v\n", .expected = "v"},
    {.name = "TextBehindHeaderIsIgnored", .bytes = "[S] k=no\nk=v\n", .expected = "v"},
    {.name = "KeyBehindHeaderIsNoKey", .bytes = "[S]k=no\n", .expected = "dflt"},
    {.name = "SecondBracketBelongsToName",
     .bytes = "[[S]\nk=v\n",
     .section = "[S",
     .expected = "v"},
    {.name = "QuotesBelongToSectionName", .bytes = "[\"S\"]\nk=v\n", .expected = "dflt"},
    {.name = "QuotedSectionNameIsAskedWithQuotes",
     .bytes = "[\"S\"]\nk=v\n",
     .section = "\"S\"",
     .expected = "v"},
    {.name = "KeyEndsAtFirstEqualSign", .bytes = "[S]\nk=a=b=\n", .expected = "a=b="},
    {.name = "BareLineIsNoKey", .bytes = "[S]\nk\n", .expected = "dflt"},
    {.name = "BareLineDoesNotHideTheKey", .bytes = "[S]\nk\nk=v\n", .expected = "v"},
    {.name = "NoTrailingComments", .bytes = "[S]\nk=1 ; x\n", .expected = "1 ; x"},
    {.name = "ValueBeginsWithSemicolon", .bytes = "[S]\nk=;x\n", .expected = ";x"},
    {.name = "ValueBeginsWithHash", .bytes = "[S]\nk=#x\n", .expected = "#x"},
    {.name = "ValueBeginsWithBracket", .bytes = "[S]\nk=[x]\n", .expected = "[x]"},
    {.name = "ValueBeginsWithEqualSign", .bytes = "[S]\nk==x\n", .expected = "=x"},
    {.name = "LinesAheadOfFirstHeaderAreOut", .bytes = "k=v\n[S]\n", .expected = "dflt"},
    {.name = "LinesAheadOfFirstHeaderHaveNoName",
     .bytes = "k=v\n[S]\n",
     .section = "",
     .expected = "dflt"},
    {.name = "NulBehindLastLine", .bytes = "[S]\nk=v\n\0"_ba, .expected = "v"},
    {.name = "NulBehindLastOpenLine", .bytes = "[S]\nk=v\0"_ba, .expected = "v"},
    {.name = "NulAheadOfFirstHeader", .bytes = "\0a\0\n[S]\nk=v\n"_ba, .expected = "v"},
    {.name = "Utf8MarkHidesHeaderOnItsLine", .bytes = "\xEF\xBB\xBF[S]\nk=v\n", .expected = "dflt"},
    {.name = "Utf8MarkSparesLaterLines", .bytes = "\xEF\xBB\xBF\n[S]\nk=v\n", .expected = "v"},
    {.name = "BigEndianMarkIsNotUnderstood",
     .bytes = "\xFE\xFF\0[\0S\0]\0\n\0k\0=\0v"_ba,
     .expected = "dflt"},
};

INSTANTIATE_TEST_SUITE_P(Lines, ReadProfile, testing::ValuesIn(kLineCases), CaseName);

// How a value is found and cleaned up.
const LineCase kValueCases[] = {
    {.name = "SectionInAnyCase", .bytes = "[Alpha]\nk=v\n", .section = "aLPHA", .expected = "v"},
    {.name = "KeyInAnyCase", .bytes = "[S]\nDepth=v\n", .key = "dEPTH", .expected = "v"},
    {.name = "FoldsOtherLettersToo",
     .bytes = "[\xC4]\n\x8A=v\n",
     .section = u"\u00E4"_s,
     .key = u"\u0161"_s,
     .expected = "v"},
    {.name = "OneLetterIsNotTwo",
     .bytes = "[S]\nstra\xDF"
              "e=v\n",
     .key = "strasse",
     .expected = "dflt"},
    {.name = "KeyPrefixIsNoMatch", .bytes = "[S]\nkey=v\n", .expected = "dflt"},
    {.name = "LongerKeyIsNoMatch", .bytes = "[S]\nk=v\n", .key = "key", .expected = "dflt"},
    {.name = "SpacesOfAskedNamesAreDropped",
     .bytes = "[S]\nk=v\n",
     .section = "  S ",
     .key = " k  ",
     .expected = "v"},
    {.name = "TabsOfAskedNamesStay", .bytes = "[S]\nk=v\n", .key = "k\t", .expected = "dflt"},
    {.name = "AskedNamesEndAtNul",
     .bytes = "[S]\nk=v\n",
     .section = u"S\0x"_s,
     .key = u"k\0x"_s,
     .expected = "v"},
    {.name = "FirstKeyCounts", .bytes = "[S]\nk=v\nK=w\n", .expected = "v"},
    {.name = "FirstSectionCounts", .bytes = "[S]\nk=v\n[s]\nk=w\n", .expected = "v"},
    {.name = "KeyOfSecondSectionIsNotFound",
     .bytes = "[S]\na=1\n[T]\n[s]\nk=w\n",
     .expected = "dflt"},
    {.name = "EmptyValueIsNotTheDefault", .bytes = "[S]\nk=\n", .expected = ""},
    {.name = "BlankValueIsNotTheDefault", .bytes = "[S]\nk= \t\n", .expected = ""},
    {.name = "EmptyFirstValueHidesSecond", .bytes = "[S]\nk=\nk=v\n", .expected = ""},
    {.name = "DoubleQuotesGo", .bytes = "[S]\nk=\"  x \"\n", .expected = "  x "},
    {.name = "SingleQuotesGo", .bytes = "[S]\nk=' x'\n", .expected = " x"},
    {.name = "OnlyOnePairGoes", .bytes = "[S]\nk=\"\"x\"\"\n", .expected = "\"x\""},
    {.name = "OnlyTheOuterKindGoes", .bytes = "[S]\nk=\"'x'\"\n", .expected = "'x'"},
    {.name = "UnequalQuotesStay", .bytes = "[S]\nk=\"x'\n", .expected = "\"x'"},
    {.name = "QuoteInFrontStays", .bytes = "[S]\nk=\"x\n", .expected = "\"x"},
    {.name = "QuoteAtEndStays", .bytes = "[S]\nk=x\"\n", .expected = "x\""},
    {.name = "EmptyQuotesAreEmpty", .bytes = "[S]\nk=\"\"\n", .expected = ""},
    {.name = "TwoQuotedWordsLoseOuterPair", .bytes = "[S]\nk=\"a\" \"b\"\n", .expected = "a\" \"b"},
    {.name = "LoneQuoteStays", .bytes = "[S]\nk=\"\n", .expected = "\""},
    {.name = "QuotesOfKeysStay", .bytes = "[S]\n\"k\"=v\n", .expected = "dflt"},
    {.name = "MissingSectionGivesDefault", .bytes = "[T]\nk=v\n", .expected = "dflt"},
    {.name = "MissingKeyGivesDefault", .bytes = "[S]\na=v\n", .expected = "dflt"},
};

INSTANTIATE_TEST_SUITE_P(Values, ReadProfile, testing::ValuesIn(kValueCases), CaseName);

TEST(ReadProfileDefault, LosesTrailingSpacesOnly)
{
    const PrivateProfile profile("", CodePage::Windows1252);

    EXPECT_EQ(profile.Value(u"S", u"k", u"  \t d \t  "), QString("  \t d \t"));
    EXPECT_EQ(profile.Value(u"S", u"k", u"\"d\""), QString("\"d\"")); // quotes stay
    EXPECT_EQ(profile.Value(u"S", u"k", u""), QString());
    EXPECT_EQ(profile.Value(u"S", u"k", u"d\0x"_s), QString("d"));
}

TEST(ReadProfileDefault, IsCutAt4095Characters)
{
    const PrivateProfile profile("", CodePage::Windows1252);

    EXPECT_EQ(profile.Value(u"S", u"k", QString(4095, 'x')), QString(4095, 'x'));
    EXPECT_EQ(profile.Value(u"S", u"k", QString(4096, 'x')), QString(4095, 'x'));
}

TEST(ReadProfileLength, IsCutAt4095Characters)
{
    const QByteArray longest(4095, 'x');

    EXPECT_EQ(Read("[S]\nk=" + longest + "\n", u"S", u"k"), QString(longest));
    EXPECT_EQ(Read("[S]\nk=" + longest + "y\n", u"S", u"k"), QString(longest));
}

TEST(ReadProfileLength, CountsWithoutBlanksAndQuotes)
{
    const QByteArray longest(4095, 'x');

    EXPECT_EQ(Read("[S]\nk=   \"" + longest + "\"  \n", u"S", u"k"), QString(longest));
}

TEST(ReadProfileLength, HasNoEndAt65536)
{
    const QByteArray value(70000, 'x');

    EXPECT_EQ(Read("[S]\nk=" + value + "\na=1\n", u"S", u"k"), QString(4095, 'x'));
    EXPECT_EQ(Read("[S]\nk=" + value + "\na=1\n", u"S", u"a"), QString("1"));
}

TEST(ReadProfileLength, NamesAndSectionsHaveNoLimit)
{
    const QByteArray name(10000, 'n');
    QByteArray bytes;
    for (int i = 0; i < 5000; ++i)
        bytes += "[S" + QByteArray::number(i) + "]\nk=" + QByteArray::number(i) + "\n";
    bytes += "[" + name + "]\n" + name + "=v\n";

    EXPECT_EQ(Read(bytes, u"s4999", u"k"), QString("4999"));
    EXPECT_EQ(Read(bytes, QString(name), QString(name)), QString("v"));
}

TEST(ReadProfileBytes, AllPassUnderWindows1252)
{
    QByteArray value; // all but NUL and line ends; "<" and ">" keep blanks off its ends
    for (int i = 1; i < 256; ++i) {
        if (i != '\r' && i != '\n')
            value.append(static_cast<char>(i));
    }
    const QByteArray bytes = "[S]\r\nk=<" + value + ">\r\n";
    PrivateProfile profile(bytes, CodePage::Windows1252);

    const QString text = profile.Value(u"S", u"k", u"");
    profile.SetValue(u"T", u"k", text);

    EXPECT_EQ(profile.Bytes(), bytes + "[T]\r\nk=<" + value + ">\r\n");
}

TEST(ReadProfileBytes, Windows1252GivesItsCharacters)
{
    EXPECT_EQ(Read("[S]\nk=20\xB0\x80\x9F\n", u"S", u"k"), u"20\u00B0\u20AC\u0178"_s);
    EXPECT_EQ(Read("[S]\nk=\x81\x8D\x8F\x90\x9D\n", u"S", u"k"),
              u"\u0081\u008D\u008F\u0090\u009D"_s);
}

struct HarbourCase
{
    const char *name;
    QString section;
    QString key;
    QString expected;
};

void PrintTo(const HarbourCase &c, std::ostream *out)
{
    *out << c.name;
}

class ReadHarbour : public testing::TestWithParam<HarbourCase>
{
};

TEST_P(ReadHarbour, GivesTheValue)
{
    const HarbourCase &c = GetParam();

    EXPECT_EQ(Read(TestData("harbour.ini"), c.section, c.key), c.expected);
}

const HarbourCase kHarbourCases[] = {
    {"RemarkBelongsToValue", "Harbour", "depth", "12 m ; at pier"},
    {"QuotesProtectBlanks", "HARBOUR", "tide", "  low  "},
    {"HashBelongsToKey", "Harbour", "#FLAG", "1"},
    {"QuotesBelongToKey", "Harbour", "name", "dflt"},
    {"BareLine", "Harbour", "lonely", "dflt"},
    {"SecondSectionOfTheName", "Harbour", "Extra", "dflt"},
    {"HeaderWithoutBracket", "Broken", "key", "yes"},
};

INSTANTIATE_TEST_SUITE_P(Table, ReadHarbour, testing::ValuesIn(kHarbourCases),
                         [](const auto &test) { return std::string(test.param.name); });

} // namespace
