#pragma once

#include "store/ini_file.h"
#include "store/write_error.h"

#include <QList>
#include <QString>

#include <chrono>
#include <utility>

/// One value of an INI file: what it is meant to be. It is escaped when it is stored, so that any
/// text stays one line.
struct SectionKeyValue
{
    QString section = {};
    QString key = {};
    QString value = {};
};

/// What is to be changed in one INI file, all of it or nothing. The rest of the file stays.
struct IniPatch
{
    IniPath file = {};
    QList<SectionKeyValue> values = {}; ///< Written in this order.
};

/// What has become of a patch.
struct Written
{
    QString file = {}; ///< The path of the patch.
    WriteError error = {};
    quint64 ticket = 0; ///< What Put() returned for it.
};

/// Who stores the files that other programs read, and nobody else does: reads the file, changes it
/// and replaces it, at once or later. Belongs to one thread, its owner's.
class FileWriter
{
public:
    FileWriter() = default;
    virtual ~FileWriter() = default;
    Q_DISABLE_COPY_MOVE(FileWriter)

    /// Takes a patch. One that still waits for the same path is dropped: it never ends, so each
    /// patch has to hold everything that its file is to have.
    /// @return the patch's ticket: 1 for the first, one more for each.
    virtual quint64 Put(IniPatch patch) = 0;

    /// What has ended since the last call, well or badly, in the order in which it ended. A failed
    /// patch is not tried again.
    [[nodiscard]] virtual QList<Written> Poll() = 0;

    /// Waits until every patch has ended, but no longer than `patience`. What has ended is handed
    /// out by Poll() as ever.
    /// @return true when none waits or is being stored any more.
    [[nodiscard]] virtual bool Flush(std::chrono::milliseconds patience) = 0;
};

/// Stores each patch within Put(), so that nothing ever waits.
class DirectFileWriter final : public FileWriter
{
public:
    quint64 Put(IniPatch patch) override;
    [[nodiscard]] QList<Written> Poll() override { return std::exchange(m_ended, {}); }
    [[nodiscard]] bool Flush(std::chrono::milliseconds patience) override;

private:
    QList<Written> m_ended;
    quint64 m_lastTicket = 0;
};
