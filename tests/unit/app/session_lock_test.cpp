#include "app/session_lock.h"
#include "app/start_up.h"
#include "support/qt_printers.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSysInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using Outcome = SessionLock::Outcome;

class SessionLockFile : public testing::Test
{
protected:
    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath("Program.lock");

    /// What a holder writes, without holding it.
    void WriteHolder(const QByteArray &process, const QByteArray &program = "TavrinWeatherUtility")
    {
        QFile file(m_path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(process + "\n" + program + "\n" + QSysInfo::machineHostName().toLocal8Bit()
                   + "\n");
    }
};

TEST_F(SessionLockFile, IsTakenByOneAtATime)
{
    SessionLock first(m_path);
    EXPECT_EQ(first.Take(), Outcome::Taken);
    {
        SessionLock second(m_path);
        EXPECT_EQ(second.Take(), Outcome::Held);
    }
    SessionLock third(m_path);
    EXPECT_EQ(third.Take(), Outcome::Held);
    EXPECT_TRUE(QFile::exists(m_path));
}

TEST_F(SessionLockFile, GoesWithItsHolder)
{
    {
        SessionLock first(m_path);
        EXPECT_EQ(first.Take(), Outcome::Taken);
    }
    EXPECT_FALSE(QFile::exists(m_path));
    SessionLock second(m_path);
    EXPECT_EQ(second.Take(), Outcome::Taken);
}

TEST_F(SessionLockFile, OfADeadProcessDoesNotCount)
{
    WriteHolder("2147483647"); // more than the system gives away

    SessionLock lock(m_path);
    EXPECT_EQ(lock.Take(), Outcome::Taken);
}

TEST_F(SessionLockFile, WhoseNumberAnotherProgramHasNowDoesNotCount)
{
    WriteHolder("1"); // there is always one, and it does not hold the file

    SessionLock lock(m_path);
    EXPECT_EQ(lock.Take(), Outcome::Taken);
}

TEST_F(SessionLockFile, ThatItsProcessDoesNotHoldDoesNotCount)
{
    // As after a power cut, when a later copy happened to get the number of the one before.
    WriteHolder(QByteArray::number(QCoreApplication::applicationPid()), "core_tests");

    SessionLock lock(m_path);
    EXPECT_EQ(lock.Take(), Outcome::Taken);
}

TEST_F(SessionLockFile, WithoutANumberDoesNotCount)
{
    WriteHolder("");

    SessionLock lock(m_path);
    EXPECT_EQ(lock.Take(), Outcome::Taken);
}

TEST_F(SessionLockFile, IsNotPossibleWithoutTheFolder)
{
    SessionLock lock(m_folder.filePath("missing/Program.lock"));
    EXPECT_EQ(lock.Take(), Outcome::NotPossible);
}

TEST_F(SessionLockFile, IsNotPossibleWithAFolderInItsPlace)
{
    ASSERT_TRUE(QDir().mkpath(m_path + "/inside"));

    SessionLock lock(m_path);
    EXPECT_EQ(lock.Take(), Outcome::NotPossible);
    EXPECT_TRUE(QDir(m_path + "/inside").exists());
}

TEST_F(SessionLockFile, CallsNobodyWithoutAHolder)
{
    const SessionLock lock(m_path);
    lock.CallHolder();
    WriteHolder("1");
    lock.CallHolder(); // not a copy of ours: this test would end it otherwise, if it could
    EXPECT_TRUE(QFile::exists(m_path));
}

TEST(SessionOf, IsTheOneThatTheProgramTakes)
{
    EXPECT_EQ(SessionOf("/SESSION=4"), "4");
    EXPECT_EQ(SessionOf("/codepage=1252 /session=9"), "9");
    EXPECT_EQ(SessionOf(""), "");
    EXPECT_EQ(SessionOf("/SESSION=1"), "");
    EXPECT_EQ(SessionOf("/SESSION=12"), "");
    EXPECT_EQ(SessionOf("/SESSION="), "");
    EXPECT_EQ(SessionOf("/SESSION=5 /X"), "");
}

} // namespace
