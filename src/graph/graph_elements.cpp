#include "graph/graph_elements.h"

namespace {

void Create(GraphElements &elements, ElementArray array)
{
    switch (array) {
    case ElementArray::cirTemp:
        elements.cirTemp.emplace_back();
        break;
    case ElementArray::linHour:
        elements.linHour.emplace_back();
        break;
    case ElementArray::linTemp:
        elements.linTemp.emplace_back();
        break;
    case ElementArray::linTempLabel:
        elements.linTempLabel.emplace_back();
        break;
    case ElementArray::lblTempLabel:
        elements.lblTempLabel.emplace_back();
        break;
    }
}

} // namespace

std::vector<NewElement> ElementsToCreate(int lastTemp, int lastLabel)
{
    std::vector<NewElement> created;
    for (int i = 1; i < lastTemp; ++i) {
        created.push_back({ElementArray::cirTemp, i});
        created.push_back({ElementArray::linHour, i});
    }
    for (int i = 1; i <= lastTemp; ++i)
        created.push_back({ElementArray::linTemp, i});
    for (int i = 1; i <= lastLabel; ++i) {
        created.push_back({ElementArray::linTempLabel, i});
        created.push_back({ElementArray::lblTempLabel, i});
    }
    return created;
}

void CreateElements(GraphElements &elements, int lastTemp, int lastLabel)
{
    for (const NewElement &element : ElementsToCreate(lastTemp, lastLabel))
        Create(elements, element.array);
}
