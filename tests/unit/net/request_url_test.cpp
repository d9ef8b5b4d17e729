#include "net/request_url.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace {

QByteArray Sent(QStringView url)
{
    return RequestUrl(url).value_or("refused");
}

TEST(RequestUrl, LeavesAPlainAddressAsItIs)
{
    const char *url = "http://user:pw@host.example:8080/a/b;c?d=e&f=%20%2b%zz#g~[]{}|\\^`\"<>'";

    EXPECT_EQ(Sent(QString(url)), QByteArray(url));
}

TEST(RequestUrl, EncodesBlanksAndControlCharacters)
{
    EXPECT_EQ(Sent(u"http://h/a b\tc\x7F"), "http://h/a%20b%09c%7F");
    EXPECT_EQ(Sent(QString::fromLatin1("http://h/a\0b", 12)), "http://h/a%00b");
}

TEST(RequestUrl, CannotSplitTheRequest)
{
    EXPECT_EQ(Sent(u"http://h/ HTTP/1.1\r\nHost: evil\r\n\r\n"),
              "http://h/%20HTTP/1.1%0D%0AHost:%20evil%0D%0A%0D%0A");
    EXPECT_EQ(Sent(u"http://h\r\nX: y/"), "http://h%0D%0AX:%20y/");
}

TEST(RequestUrl, EncodesWhatIsOutsideAsciiAsUtf8)
{
    EXPECT_EQ(Sent(u"http://h/S\u00E3o/\u20AC"), "http://h/S%C3%A3o/%E2%82%AC");
    EXPECT_EQ(Sent(QStringView(u"http://h/\U0001F327")), "http://h/%F0%9F%8C%A7");
    EXPECT_EQ(Sent(u"http://h/\u0085"), "http://h/%C2%85");
}

TEST(RequestUrl, EncodesALoneSurrogateAsReplacement)
{
    const QString url = QStringLiteral("http://h/") + QChar(0xD83C) + QLatin1Char('x');

    EXPECT_EQ(Sent(url), "http://h/%EF%BF%BDx");
}

TEST(RequestUrl, KeepsThePairsBesideALoneSurrogate)
{
    const QString url =
        QStringLiteral("http://h/") + QChar(0xD83C) + QString::fromUtf8("\xF0\x9F\x8C\xA7");

    EXPECT_EQ(Sent(url), "http://h/%EF%BF%BD%F0%9F%8C%A7");
}

TEST(RequestUrl, EncodesTheBytesOfARedirectAsTheyAre)
{
    EXPECT_EQ(*RequestUrl(QByteArrayView("http://h/\xE9 \xC3\xA9")), "http://h/%E9%20%C3%A9");
}

TEST(RequestUrl, TakesBothSchemesInAnyCase)
{
    EXPECT_EQ(Sent(u"http://h"), "http://h");
    EXPECT_EQ(Sent(u"https://h"), "https://h");
    EXPECT_EQ(Sent(u"HTTP://h/"), "HTTP://h/");
    EXPECT_EQ(Sent(u"HttpS://h/"), "HttpS://h/");
}

TEST(RequestUrl, RefusesEverythingElse)
{
    for (const char *url : {"",
                            " ",
                            "h",
                            "h/p",
                            "//h/",
                            "http:",
                            "http:/",
                            "http:/h",
                            "http://",
                            "https://",
                            "http:///p",
                            "https://?q",
                            "http://#f",
                            "ftp://h/",
                            "file:///etc/passwd",
                            "gopher://h/",
                            "httpx://h/",
                            " http://h/",
                            "xhttp://h/",
                            "javascript:alert(1)",
                            "h://http://h/"})
        EXPECT_FALSE(RequestUrl(QStringView(QString(url))).has_value()) << url;
}

TEST(RequestUrl, KnowsWhatIsHttps)
{
    EXPECT_TRUE(IsHttps("https://h/"));
    EXPECT_TRUE(IsHttps("HTTPS://h/"));
    EXPECT_FALSE(IsHttps("http://h/"));
    EXPECT_FALSE(IsHttps("http://https://"));
}

} // namespace
