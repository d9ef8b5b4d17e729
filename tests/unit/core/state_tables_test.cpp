#include "core/state_tables.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

TEST(StateTables, AreAlphabeticalAndMatch)
{
    EXPECT_TRUE(std::is_sorted(StateNames.begin(), StateNames.end()));
    const auto codeOf = [](QStringView name) {
        const auto found = std::find(StateNames.begin(), StateNames.end(), name);
        return StateCodes[static_cast<std::size_t>(found - StateNames.begin())];
    };
    EXPECT_EQ(codeOf(u"ALABAMA"), u"AL");
    EXPECT_EQ(codeOf(u"MISSOURI"), u"MO");
    EXPECT_EQ(codeOf(u"MONTANA"), u"MT");
    EXPECT_EQ(codeOf(u"NORTH CAROLINA"), u"NC");
    EXPECT_EQ(codeOf(u"OREGON"), u"OR");
    EXPECT_EQ(codeOf(u"VIRGINIA"), u"VA");
    for (const QStringView code : StateCodes)
        EXPECT_EQ(std::count(StateCodes.begin(), StateCodes.end(), code), 1);
}

} // namespace
