#include "graph/graph_elements.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace {

TEST(ElementsToCreate, GoesIndexByIndexInTheOrderOfTheArrays)
{
    using enum ElementArray;

    const std::vector<NewElement> expected = {
        {cirTemp, 1},      {linHour, 1},                                            // up to 2 - 1
        {linTemp, 1},      {linTemp, 2},                                            // up to 2
        {linTempLabel, 1}, {lblTempLabel, 1}, {linTempLabel, 2}, {lblTempLabel, 2}, // up to 2
    };
    EXPECT_EQ(ElementsToCreate(2, 2), expected);
}

TEST(CreateElements, GivesTheArraysOfADay)
{
    GraphElements elements;

    CreateElements(elements, 24, 4);

    EXPECT_EQ(elements.cirTemp.size(), 24U);
    EXPECT_EQ(elements.linHour.size(), 24U);
    EXPECT_EQ(elements.linTemp.size(), 25U);
    EXPECT_EQ(elements.linTempLabel.size(), 5U);
    EXPECT_EQ(elements.lblTempLabel.size(), 5U);
}

TEST(GraphElements, HasOneOfEachAndTheDateToBeginWith)
{
    const GraphElements elements;

    EXPECT_EQ(elements.cirTemp.size(), 1U);
    EXPECT_EQ(elements.linHour.size(), 1U);
    EXPECT_EQ(elements.linTemp.size(), 1U);
    EXPECT_EQ(elements.linTempLabel.size(), 1U);
    EXPECT_EQ(elements.lblTempLabel.size(), 1U);
    EXPECT_EQ(elements.lblDate.caption, "Date");
    EXPECT_TRUE(elements.lblDate.visible);
}

} // namespace
