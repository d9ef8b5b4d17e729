#include "store/ini_value.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

PrivateProfile Image(const QByteArray &lines)
{
    return {"[S]\r\n" + lines, CodePage::Utf8};
}

TEST(FindIniValue, KnowsNoValueFromAnEmptyOne)
{
    const PrivateProfile file = Image("a=\r\nb=x\r\n");

    EXPECT_EQ(FindIniValue(file, u"S", u"a"), std::optional(QString()));
    EXPECT_EQ(FindIniValue(file, u"S", u"b"), std::optional(u"x"_s));
    EXPECT_EQ(FindIniValue(file, u"S", u"c"), std::nullopt);
    EXPECT_EQ(FindIniValue(file, u"T", u"a"), std::nullopt);
}

TEST(FindIniValue, DecodesTokensBehindTheTrim)
{
    const PrivateProfile file = Image("a=\"  [SP]x[TAB]y[CR][LF] \"\r\n");

    EXPECT_EQ(FindIniValue(file, u"S", u"a"), std::optional(u" x\ty\r\n"_s));
}

TEST(WriteIniValue, ChangesTheImageAlone)
{
    PrivateProfile file = Image("; kept\r\nk=old");

    WriteIniValue(file, u"s", u"K", u" a\tb ", true);
    EXPECT_EQ(file.Bytes(), "[S]\r\n; kept\r\nk=[SP]a[TAB]b[SP]\r\n");

    WriteIniValue(file, u"s", u"K", u" a b ", false);
    EXPECT_EQ(file.Bytes(), "[S]\r\n; kept\r\nk=a b\r\n");
}

} // namespace
