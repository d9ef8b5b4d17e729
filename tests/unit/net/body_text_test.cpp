#include "net/body_text.h"
#include "net/declared_charset.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Bytes of a literal with NULs in it.
template <size_t N>
QByteArray Bytes(const char (&literal)[N])
{
    return QByteArray(literal, qsizetype(N) - 1);
}

/// A text of a literal with NULs in it.
template <size_t N>
QString Text(const char16_t (&literal)[N])
{
    return QStringView(literal, qsizetype(N) - 1).toString();
}

// --- the charset of the header

TEST(BodyText, FollowsTheHeaderFirst)
{
    const QByteArray degree = "\xC2\xB0"; // U+00B0 as UTF-8, two characters as Windows-1252

    EXPECT_EQ(BodyText(degree, "text/plain; charset=utf-8"), u"\u00B0"_s);
    EXPECT_EQ(BodyText(degree, "text/plain; charset=UTF8"), u"\u00B0"_s);
    EXPECT_EQ(BodyText(degree, "text/plain; charset=windows-1252"), u"\u00C2\u00B0"_s);
    EXPECT_EQ(BodyText("<meta charset=utf-8>" + degree, "text/html; charset=cp1252"),
              u"<meta charset=utf-8>\u00C2\u00B0"_s);
}

TEST(BodyText, ReadsLatin1AndAsciiAsWindows1252)
{
    for (const char *charset : {"ISO-8859-1", "iso8859-1", "latin1", "us-ascii", "ASCII"}) {
        const QByteArray type = QByteArray("text/plain;charset=") + charset;
        EXPECT_EQ(BodyText("\x80 \xB0 \x81", type), u"\u20AC \u00B0 \u0081"_s) << charset;
    }
}

TEST(BodyText, ReadsUtf16)
{
    EXPECT_EQ(BodyText(Bytes("2\0\xB0\0"), "text/plain; charset=utf-16le"), u"2\u00B0"_s);
    EXPECT_EQ(BodyText(Bytes("\0"
                             "2\0\xB0"),
                       "text/plain; charset=UTF-16BE"),
              u"2\u00B0"_s);
    EXPECT_EQ(BodyText(Bytes("2\0\xB0\0"), "text/plain; charset=utf-16"), u"2\u00B0"_s);
    EXPECT_EQ(BodyText(Bytes("\xFE\xFF\0\xB0"), "text/plain; charset=utf-16"), u"\u00B0"_s);
    EXPECT_EQ(BodyText(Bytes("\xFF\xFE\xB0\0"), "text/plain; charset=utf-16"), u"\u00B0"_s);
}

TEST(BodyText, ShowsWhatIsNoCharacterAsReplacement)
{
    EXPECT_EQ(BodyText("a\xFF"
                       "b\xC2",
                       "text/plain; charset=utf-8"),
              u"a\uFFFDb\uFFFD"_s);
    EXPECT_EQ(BodyText(Bytes("a\0b"), "text/plain; charset=utf-16le"), u"a\uFFFD"_s);
}

TEST(BodyText, ReplacesHalfASurrogatePair)
{
    EXPECT_EQ(BodyText(Bytes("\x3D\xD8"
                             "a\0"),
                       "text/plain; charset=utf-16le"),
              u"\uFFFDa"_s);
    EXPECT_EQ(BodyText(Bytes("\xFE\xFF\xDE\0\0a"), ""), u"\uFFFDa"_s);
    EXPECT_EQ(BodyText(Bytes("\x3D\xD8\0\xDE"), "text/plain; charset=utf-16le"), u"\U0001F600"_s);
}

TEST(BodyText, PassesOverACharsetThatNobodyKnows)
{
    for (const char *charset : {"x-martian", "locale", "system", "\"\""}) {
        const QByteArray type = QByteArray("text/plain; charset=") + charset;
        EXPECT_EQ(BodyText("\xC2\xB0", type), u"\u00B0"_s) << charset;
        EXPECT_EQ(BodyText("\xB0", type), u"\u00B0"_s) << charset;
    }
    EXPECT_EQ(BodyText("<?xml version='1.0' encoding='cp1252'?>\xC2\xB0", "a/b; charset=x-martian"),
              u"<?xml version='1.0' encoding='cp1252'?>\u00C2\u00B0"_s);
}

// --- byte order marks

TEST(BodyText, FollowsAByteOrderMark)
{
    EXPECT_EQ(BodyText("\xEF\xBB\xBF\xC2\xB0", ""), u"\u00B0"_s);
    EXPECT_EQ(BodyText(Bytes("\xFF\xFE\xB0\0"), "text/plain"), u"\u00B0"_s);
    EXPECT_EQ(BodyText(Bytes("\xFE\xFF\0\xB0"), "text/plain"), u"\u00B0"_s);
    EXPECT_EQ(BodyText("\xEF\xBB\xBF", ""), QString());
    EXPECT_EQ(BodyText("\xEF\xBB\xBF\xC2\xB0", "text/plain; charset=utf-8"), u"\u00B0"_s);
}

TEST(BodyText, TakesAMarkBeforeWhatTheHeadDeclares)
{
    EXPECT_EQ(BodyText("\xEF\xBB\xBF<meta charset=windows-1252>\xC2\xB0", ""),
              u"<meta charset=windows-1252>\u00B0"_s);
}

// --- heads

TEST(BodyText, FollowsAnXmlDeclaration)
{
    EXPECT_EQ(
        BodyText("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><t>\xC2\xB0</t>", "text/xml"),
        u"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><t>\u00C2\u00B0</t>"_s);
    EXPECT_EQ(BodyText("<?xml encoding = 'Windows-1252' ?>\xC2\xB0", ""),
              u"<?xml encoding = 'Windows-1252' ?>\u00C2\u00B0"_s);
}

TEST(BodyText, FollowsAnHtmlMetaTag)
{
    const QString twoCharacters = u"\u00C2\u00B0"_s;
    for (const char *head :
         {"<html><META Charset=\"ISO-8859-1\">", "<meta charset=windows-1252>",
          "<meta charset=latin1/>", "<meta name=x><meta charset='cp1252'>",
          R"(<meta http-equiv="Content-Type" content="text/html; charset=iso-8859-1">)",
          "<meta content='text/html;charset=iso-8859-1' http-equiv=content-type>"})
        EXPECT_EQ(BodyText(QByteArray(head) + "\xC2\xB0", "text/html"), head + twoCharacters)
            << head;
}

TEST(BodyText, TakesUtf16InAReadableHeadForUtf8)
{
    EXPECT_EQ(BodyText("<meta charset=utf-16>\xC2\xB0", ""), u"<meta charset=utf-16>\u00B0"_s);
}

TEST(BodyText, LooksAtTheFirst1024BytesOnly)
{
    const QByteArray meta = "<meta charset=cp1252>"; // 21 bytes
    const QByteArray degree = "\xC2\xB0";

    EXPECT_EQ(BodyText(QByteArray(1003, ' ') + meta + degree, "").last(2), u"\u00C2\u00B0"_s);
    EXPECT_EQ(BodyText(QByteArray(1024, ' ') + meta + degree, "").last(1), u"\u00B0"_s);
    EXPECT_EQ(BodyText(QByteArray(1024, ' ') + meta + degree, "").size(), 1024 + 21 + 1);
}

TEST(BodyText, IgnoresWhatIsNoDeclaration)
{
    for (const char *body :
         {"<!-- <meta charset=cp1252> -->", "<!-- <meta charset=cp1252>",
          "<metadata charset=cp1252>", "<meta data-charset=cp1252>", "<p>charset=cp1252</p>",
          " <?xml encoding='cp1252'?>", "<?xml version='1.0'?><a encoding='cp1252'/>",
          "<meta charset>", "<meta charset=\"cp1252>"})
        EXPECT_EQ(BodyText(QByteArray(body) + "\xC2\xB0", ""), body + u"\u00B0"_s) << body;
}

// --- nothing declared

TEST(BodyText, TakesUtf8WhenItIsValidElseWindows1252)
{
    EXPECT_EQ(BodyText("21 \xC2\xB0 \xE2\x82\xAC", ""), u"21 \u00B0 \u20AC"_s);
    EXPECT_EQ(BodyText("21 \xB0 \x80", ""), u"21 \u00B0 \u20AC"_s);
    EXPECT_EQ(BodyText("\xC2\xB0 \xB0", ""), u"\u00C2\u00B0 \u00B0"_s);
    EXPECT_EQ(BodyText("plain", "text/plain"), QString("plain"));
    EXPECT_EQ(BodyText("", ""), QString());
}

TEST(BodyText, KeepsEveryNul)
{
    EXPECT_EQ(BodyText(Bytes("a\0b\0"), ""), Text(u"a\0b\0"));
    EXPECT_EQ(BodyText(Bytes("a\0\xB0\0"), ""), Text(u"a\0\u00B0\0"));
    EXPECT_EQ(BodyText(Bytes("\0"), "text/plain; charset=iso-8859-1"), Text(u"\0"));
}

// --- the header's value

TEST(CharsetOfContentType, FindsTheParameter)
{
    EXPECT_EQ(CharsetOfContentType("text/html; charset=UTF-8"), "utf-8");
    EXPECT_EQ(CharsetOfContentType("text/html;CHARSET=\"UTF-8\""), "utf-8");
    EXPECT_EQ(CharsetOfContentType("text/html; charset='utf-8'"), "utf-8");
    EXPECT_EQ(CharsetOfContentType("text/html; format=flowed; charset = utf-8 ; x=y"), "utf-8");
    EXPECT_EQ(CharsetOfContentType("text/html;charset=utf-8;x=y"), "utf-8");
}

TEST(CharsetOfContentType, IsEmptyWithoutIt)
{
    for (const char *type : {"", "text/html", "text/html;", "text/html; charset",
                             "text/html; charset=", "text/html; xcharset=utf-8", "charset=utf-8",
                             "text/html; charset=\"utf-8"})
        EXPECT_EQ(CharsetOfContentType(type), "") << type;
}

} // namespace
