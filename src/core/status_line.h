#pragma once

#include <QString>

/// Takes a routine's reports on what it is doing, in words for the user. The main window shows them
/// in `lblStatus`.
class StatusLine
{
public:
    StatusLine() = default;
    virtual ~StatusLine() = default;
    Q_DISABLE_COPY_MOVE(StatusLine)

    virtual void SetStatus(const QString &text) = 0;
};
