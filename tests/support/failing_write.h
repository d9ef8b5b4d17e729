#pragma once

#include <QtGlobal>

/// While it lives, no file of this process takes more than `bytes`: from there on write() fails
/// with the error `number`, as on a disk that is full. The standard channels go on. One at a time.
///
/// It works by standing in front of the C library's write() in the test program.
class FailingWrite
{
public:
    FailingWrite(int number, qint64 bytes);
    ~FailingWrite();
    Q_DISABLE_COPY_MOVE(FailingWrite)
};
