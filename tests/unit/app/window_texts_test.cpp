#include "app/window_texts.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace {

TEST(WindowCaption, NamesTheSession)
{
    EXPECT_EQ(WindowCaption(""), "Tavrin Weather Utility");
    EXPECT_EQ(WindowCaption("2"), "Tavrin Weather Utility - Session 2");
}

TEST(VersionText, CarriesVersionAndYear)
{
    EXPECT_EQ(VersionText(2026), "Version 1.0.1 - (c) 2026 Tavrin Weather Utility");
}

} // namespace
