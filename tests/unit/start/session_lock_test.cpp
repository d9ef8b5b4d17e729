#include "start/session_lock.h"
#include "support/qt_printers.h"
#include "support/session_lock_file.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSysInfo>

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <algorithm>
#include <atomic>
#include <optional>
#include <thread>
#include <vector>

namespace {

using Outcome = SessionLock::Outcome;

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
    WriteHolder("2147483647"); // higher than any that the system assigns

    SessionLock lock(m_path);
    EXPECT_EQ(lock.Take(), Outcome::Taken);
}

TEST_F(SessionLockFile, WhoseNumberAnotherProgramHasNowDoesNotCount)
{
    WriteHolder("1"); // always runs, and does not hold the file

    SessionLock lock(m_path);
    EXPECT_EQ(lock.Take(), Outcome::Taken);
}

TEST_F(SessionLockFile, ThatItsProcessDoesNotHoldDoesNotCount)
{
    // As after a power cut, if a later copy happens to get the earlier one's number.
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

TEST_F(SessionLockFile, HasOneHolderWhileCopiesStartAndEnd)
{
    constexpr int kCopies = 4;
    constexpr int kStarts = 2'000;
    std::atomic_int holders = 0;
    std::atomic_int holdersTooMany = 0;
    std::atomic_int turns = 0;
    const auto startAndEnd = [&] {
        for (int i = 0; i < kStarts; ++i) {
            SessionLock lock(m_path);
            if (lock.Take() != Outcome::Taken)
                continue;
            holdersTooMany += holders++;
            ++turns;
            std::this_thread::yield();
            --holders;
        }
    };

    std::vector<std::thread> copies(kCopies);
    std::ranges::generate(copies, [&] { return std::thread(startAndEnd); });
    for (std::thread &copy : copies)
        copy.join();

    EXPECT_EQ(holdersTooMany, 0);
    EXPECT_GT(turns, 0);
    EXPECT_FALSE(QFile::exists(m_path));
}

TEST_F(SessionLockFile, NamesItsHolder)
{
    WriteHolder("a longer text than the one that is to stand there, left behind by who knows whom");

    SessionLock lock(m_path);
    EXPECT_EQ(lock.Take(), Outcome::Taken);

    EXPECT_EQ(Written(), QByteArray::number(QCoreApplication::applicationPid()) + "\n"
                             + QCoreApplication::applicationName().toUtf8() + "\n"
                             + QSysInfo::machineHostName().toUtf8() + "\n");
}

TEST_F(SessionLockFile, OfACopyIsNotTakenAwayWithOneThatLostIt)
{
    std::optional<SessionLock> first(m_path);
    EXPECT_EQ(first->Take(), Outcome::Taken);
    ASSERT_TRUE(QFile::remove(m_path)); // by hand
    SessionLock second(m_path);
    EXPECT_EQ(second.Take(), Outcome::Taken);

    first.reset();

    EXPECT_TRUE(QFile::exists(m_path));
    SessionLock third(m_path);
    EXPECT_EQ(third.Take(), Outcome::Held);
}

TEST_F(SessionLockFile, ThatAnotherUserLeftBehindIsMadeAnew)
{
    WriteHolder("2147483647");
    LeaveOthers(QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
    const AsAnotherUser other;

    SessionLock lock(m_path);
    EXPECT_EQ(lock.Take(), Outcome::Taken);

    EXPECT_TRUE(
        Written().startsWith(QByteArray::number(QCoreApplication::applicationPid()) + "\n"));
    SessionLock second(m_path);
    EXPECT_EQ(second.Take(), Outcome::Held);
}

TEST_F(SessionLockFile, ThatCanNeitherBeWrittenNorRemovedIsTakenAsItIs)
{
    WriteHolder("2147483647");
    const QByteArray before = Written();
    LeaveOthers(QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther, 0555);
    const AsAnotherUser other;

    SessionLock lock(m_path);
    EXPECT_EQ(lock.Take(), Outcome::Taken);
    SessionLock second(m_path);
    EXPECT_EQ(second.Take(), Outcome::Held);

    EXPECT_EQ(Written(), before);
}

TEST_F(SessionLockFile, ThatAnotherUserHoldsIsHeld)
{
    SessionLock first(m_path);
    EXPECT_EQ(first.Take(), Outcome::Taken);
    LeaveOthers(QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
    const AsAnotherUser other;

    SessionLock lock(m_path);
    EXPECT_EQ(lock.Take(), Outcome::Held);
    EXPECT_TRUE(QFile::exists(m_path));
}

TEST_F(SessionLockFile, ThatCannotBeReadIsHeld)
{
    WriteHolder("2147483647");
    LeaveOthers({});
    const AsAnotherUser other;

    SessionLock lock(m_path);
    EXPECT_EQ(lock.Take(), Outcome::Held);
}

TEST_F(SessionLockFile, IsNotPossibleWithALinkInItsPlace)
{
    const QString target = m_folder.Path("target");
    const QString missing = m_folder.Path("missing");
    ASSERT_TRUE(QFile::link(missing, m_path));
    {
        SessionLock lock(m_path);
        EXPECT_EQ(lock.Take(), Outcome::NotPossible);
    }
    EXPECT_FALSE(QFile::exists(missing));

    m_folder.Write("target", "someone's");
    ASSERT_TRUE(QFile::remove(m_path));
    ASSERT_TRUE(QFile::link(target, m_path));
    {
        SessionLock lock(m_path);
        EXPECT_EQ(lock.Take(), Outcome::NotPossible);
    }
    EXPECT_EQ(m_folder.Bytes("target"), "someone's");
    EXPECT_TRUE(QFileInfo(m_path).isSymLink());
}

TEST_F(SessionLockFile, IsNotPossibleWithAPipeInItsPlace)
{
    ASSERT_EQ(::mkfifo(QFile::encodeName(m_path).constData(), 0666), 0);

    SessionLock lock(m_path);
    EXPECT_EQ(lock.Take(), Outcome::NotPossible);
}

TEST_F(SessionLockFile, IsNotPossibleWithoutTheFolder)
{
    SessionLock lock(m_folder.Path("missing/Program.lock"));
    EXPECT_EQ(lock.Take(), Outcome::NotPossible);
}

TEST_F(SessionLockFile, IsNotPossibleWithAFolderInItsPlace)
{
    ASSERT_TRUE(QDir().mkpath(m_path + "/inside"));

    SessionLock lock(m_path);
    EXPECT_EQ(lock.Take(), Outcome::NotPossible);
    EXPECT_TRUE(QDir(m_path + "/inside").exists());
}

} // namespace
