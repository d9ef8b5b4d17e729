#pragma once

#include <QString>

#include <fuzzer/FuzzedDataProvider.h>

/// A text of at most `most` bytes of UTF-8 from the input.
inline QString TakeText(FuzzedDataProvider &input, std::size_t most)
{
    return QString::fromStdString(input.ConsumeRandomLengthString(most));
}
