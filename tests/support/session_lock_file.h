#pragma once

#include "start/session_lock.h"
#include "support/test_files.h"

#include <QFile>
#include <QSysInfo>

#include <gtest/gtest.h>

#include <sys/fsuid.h>
#include <sys/stat.h>
#include <unistd.h>

/// The file of a session's lock, in a folder of its own.
class SessionLockFile : public testing::Test
{
protected:
    TestFolder m_folder;
    QString m_path = m_folder.Path("Program.lock");

    /// What a holder writes, without holding it.
    void WriteHolder(const QByteArray &process,
                     const QByteArray &program = "TavrinWeatherUtility") const
    {
        m_folder.Write("Program.lock", process + "\n" + program + "\n"
                                           + QSysInfo::machineHostName().toLocal8Bit() + "\n");
    }

    [[nodiscard]] QByteArray Written() const { return m_folder.Bytes("Program.lock"); }

    /// Gives everyone the same rights to the file, and those of `folderMode` to its folder.
    void LeaveOthers(QFile::Permissions rights, mode_t folderMode = 0777) const
    {
        ASSERT_TRUE(QFile::setPermissions(m_path, rights));
        ASSERT_EQ(::chmod(QFile::encodeName(m_folder.Path(".")).constData(), folderMode), 0);
    }

    void TearDown() override
    {
        // Otherwise its contents could not be removed with the folder.
        EXPECT_EQ(::chmod(QFile::encodeName(m_folder.Path(".")).constData(), 0700), 0);
    }
};

/// While it lives, the thread uses files as a user who is neither the superuser nor, if the test
/// runs as the superuser, the owner of the test's files.
class AsAnotherUser
{
public:
    AsAnotherUser() { ::setfsuid(kNobody); }
    ~AsAnotherUser() { ::setfsuid(::geteuid()); }
    Q_DISABLE_COPY_MOVE(AsAnotherUser)

private:
    static constexpr uid_t kNobody = 65534;
};
