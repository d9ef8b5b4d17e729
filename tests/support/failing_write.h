#pragma once

#include <QtGlobal>

/// While it lives, no file of this process takes more than `bytes`: beyond that, write() fails with
/// the error `number`, as on a full disk. The standard streams still work. One at a time.
///
/// It intercepts the C library's write() in the test program.
class FailingWrite
{
public:
    FailingWrite(int number, qint64 bytes);
    ~FailingWrite();
    Q_DISABLE_COPY_MOVE(FailingWrite)
};
