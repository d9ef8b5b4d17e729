#include "core/countdown_text.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace {

TEST(CountdownText, ShowsHoursFromOneHourOn)
{
    EXPECT_EQ(CountdownText(0), "0:00");
    EXPECT_EQ(CountdownText(5), "0:05");
    EXPECT_EQ(CountdownText(192), "3:12");
    EXPECT_EQ(CountdownText(899), "14:59");
    EXPECT_EQ(CountdownText(3599), "59:59");
    EXPECT_EQ(CountdownText(3600), "1:00:00");
    EXPECT_EQ(CountdownText(10799), "2:59:59");
}

} // namespace
