#include "net/port_text.h"
#include "net/user_agent.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace {

TEST(PortText, IsAWholeNumberFromOneTo65535)
{
    for (const char *port : {"1", "80", "443", "08080", "65535", "000000000000000000001"})
        EXPECT_TRUE(IsPort(QString(port))) << port;
}

TEST(PortText, IsNothingElse)
{
    for (const char *port :
         {"", "0", "00000", "65536", "100000", "4294967376", "18446744073709551696", "-1", "+80",
          " 80", "80 ", "8 0", "80.0", "8e1", "0x50", "abc", "80\n"})
        EXPECT_FALSE(IsPort(QString(port))) << port;
    EXPECT_FALSE(IsPort(u"\u0668\u0660")); // ARABIC-INDIC DIGITS 8 and 0
    EXPECT_FALSE(IsPort(u"\uFF18\uFF10")); // FULLWIDTH DIGITS 8 and 0
    EXPECT_FALSE(IsPort(QString::fromLatin1("80\0", 3)));
}

TEST(PortSuffix, IsEmptyForExactlyEighty)
{
    EXPECT_EQ(PortSuffix("80"), "");
    EXPECT_EQ(PortSuffix("8080"), ":8080");
    EXPECT_EQ(PortSuffix("080"), ":080");
    EXPECT_EQ(PortSuffix(" 80"), ": 80");
    EXPECT_EQ(PortSuffix(""), ":");
}

TEST(UserAgent, NamesProgramAndVersion)
{
    EXPECT_EQ(UserAgent(u""), "TavrinWeatherUtility/1.0.1");
    EXPECT_EQ(UserAgent(u"  "), "TavrinWeatherUtility/1.0.1");
}

TEST(UserAgent, AddsTheContact)
{
    EXPECT_EQ(UserAgent(u" radio@example.org "), "TavrinWeatherUtility/1.0.1 (radio@example.org)");
    EXPECT_EQ(UserAgent(u"Radio M\u00FCnchen"),
              "TavrinWeatherUtility/1.0.1 (Radio M\xC3\xBCnchen)");
}

TEST(UserAgent, CannotBeginAnotherHeader)
{
    EXPECT_EQ(UserAgent(u"a\r\nX: y\t\x7F\u0085z"), "TavrinWeatherUtility/1.0.1 (aX: yz)");
    EXPECT_EQ(UserAgent(QString::fromLatin1("a\0b", 3)), "TavrinWeatherUtility/1.0.1 (ab)");
    EXPECT_EQ(UserAgent(u"\r\n \r\n"), "TavrinWeatherUtility/1.0.1");
}

} // namespace
