#include "support/qt_printers.h"
#include "weather/raw_data_text.h"

#include <gtest/gtest.h>

namespace {

TEST(RawDataText, HasCrLfLineEndsAndSpacesForTabs)
{
    EXPECT_EQ(RawDataText(u"a\r\nb\nc\rd\te"), "a\r\nb\r\ncd     e");
    EXPECT_EQ(RawDataText(u""), "");
}

} // namespace
