#include "start/session_lock.h"
#include "support/forked_copy.h"
#include "support/qt_printers.h"
#include "support/session_lock_file.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <memory>
#include <optional>
#include <string>

namespace {

using Outcome = SessionLock::Outcome;

/// Somebody else who has the file open, and may have locked it.
class OpenedFile
{
public:
    OpenedFile(const QString &path, int mode)
        : m_handle(::open(QFile::encodeName(path).constData(), mode | O_CLOEXEC))
    {}
    ~OpenedFile() { ::close(m_handle); }
    Q_DISABLE_COPY_MOVE(OpenedFile)

    [[nodiscard]] bool LockWhole() const { return ::flock(m_handle, LOCK_EX | LOCK_NB) == 0; }

    /// The kind of lock that anyone who can read the file can take.
    [[nodiscard]] bool LockForReading() const
    {
        struct flock all = {};
        all.l_type = F_RDLCK;
        all.l_whence = SEEK_SET;
        return ::fcntl(m_handle, F_OFD_SETLK, &all) == 0;
    }

private:
    int m_handle;
};

/// A lock file that a copy of the program left behind, and somebody who may only read it.
class ForeignLock : public SessionLockFile
{
protected:
    void SetUp() override
    {
        WriteHolder("2147483647"); // higher than any that the system assigns
        LeaveOthers(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther,
                    0755);
        const AsAnotherUser reader;
        m_reader.emplace(m_path, O_RDONLY);
    }

    /// The session is taken in this process's name, and everyone sees that it is held.
    void ExpectTaken() const
    {
        SessionLock lock(m_path);
        EXPECT_EQ(lock.Take(), Outcome::Taken);
        EXPECT_TRUE(
            Written().startsWith(QByteArray::number(QCoreApplication::applicationPid()) + "\n"));
        SessionLock second(m_path);
        EXPECT_EQ(second.Take(), Outcome::Held);
        const AsAnotherUser other;
        SessionLock third(m_path);
        EXPECT_EQ(third.Take(), Outcome::Held);
    }

    std::optional<OpenedFile> m_reader;
};

TEST_F(ForeignLock, OfAReaderDoesNotCount)
{
    ASSERT_TRUE(m_reader->LockWhole());

    ExpectTaken();
}

TEST_F(ForeignLock, OfAReaderForReadingDoesNotCount)
{
    ASSERT_TRUE(m_reader->LockForReading());

    ExpectTaken();
}

TEST_F(ForeignLock, OfAReaderOfBothKindsDoesNotCount)
{
    ASSERT_TRUE(m_reader->LockWhole());
    ASSERT_TRUE(m_reader->LockForReading());

    ExpectTaken();
}

TEST_F(ForeignLock, OfAReaderThatGoesLeavesTheLockHeld)
{
    ASSERT_TRUE(m_reader->LockWhole());
    SessionLock lock(m_path);
    ASSERT_EQ(lock.Take(), Outcome::Taken);

    m_reader.reset();

    SessionLock second(m_path);
    EXPECT_EQ(second.Take(), Outcome::Held);
    const AsAnotherUser other;
    SessionLock third(m_path);
    EXPECT_EQ(third.Take(), Outcome::Held);
}

TEST_F(ForeignLock, OfAnOlderCopyCountsWhileThatRuns)
{
    const OpenedFile older(m_path, O_RDWR);
    ASSERT_TRUE(older.LockWhole()); // an older copy does no more
    std::optional<ForkedCopy> copy(ForkedCopy::Start::Finished);
    WriteHolder(QByteArray::number(copy->ProcessId()));

    SessionLock beside(m_path);
    EXPECT_EQ(beside.Take(), Outcome::Held);

    copy.reset();
    SessionLock after(m_path);
    EXPECT_EQ(after.Take(), Outcome::Taken);
}

/// A copy that the system shows under that name.
std::unique_ptr<ForkedCopy> CopyNamed(const char *name)
{
    std::array<char, 16> own = {};
    ::prctl(PR_GET_NAME, own.data());
    ::prctl(PR_SET_NAME, name); // the fork inherits its thread's name
    auto copy = std::make_unique<ForkedCopy>(ForkedCopy::Start::Finished);
    ::prctl(PR_SET_NAME, own.data());
    return copy;
}

TEST_F(ForeignLock, OfEitherProgramCountsAndNoOther)
{
    const OpenedFile older(m_path, O_RDWR);
    ASSERT_TRUE(older.LockWhole());
    const auto takenBeside = [this](const char *name) {
        const auto copy = CopyNamed(name);
        WriteHolder(QByteArray::number(copy->ProcessId()));
        return SessionLock(m_path).Take();
    };

    EXPECT_EQ(takenBeside("TavrinWeatherUt"), Outcome::Held);
    EXPECT_EQ(takenBeside("TavrinWeatherSe"), Outcome::Held);
    EXPECT_EQ(takenBeside("TavrinWeather"), Outcome::Taken);
}

TEST_F(ForeignLock, OfAnotherHostCounts)
{
    const OpenedFile older(m_path, O_RDWR);
    ASSERT_TRUE(older.LockWhole());
    m_folder.Write("Program.lock", "2147483647\nTavrinWeatherUtility\nsomewhere-else\n");

    SessionLock lock(m_path);
    EXPECT_EQ(lock.Take(), Outcome::Held);
}

/// A second start beside a lock that is held and names `copy`.
void CallBeside(const QString &path, const ForkedCopy &copy)
{
    SessionLock running(path);
    ASSERT_EQ(running.Take(), Outcome::Taken);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray::number(copy.ProcessId()) + "\nTavrinWeatherUtility\n"
               + QSysInfo::machineHostName().toUtf8() + '\n');
    file.close();
    SessionLock second(path);
    ASSERT_EQ(second.Take(), Outcome::Held);

    second.CallHolder();
}

/// Who holds a lock whose file names that program and that copy.
std::optional<LockHolder> HolderNamed(const QString &path, const char *program,
                                      const ForkedCopy &copy,
                                      const QByteArray &host = QSysInfo::machineHostName().toUtf8())
{
    SessionLock running(path);
    EXPECT_EQ(running.Take(), Outcome::Taken);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray::number(copy.ProcessId()) + '\n' + program + '\n' + host + '\n');
    file.close();
    SessionLock second(path);
    EXPECT_EQ(second.Take(), Outcome::Held);
    return second.Holder();
}

TEST_F(SessionLockFile, TellsWhichProgramHoldsIt)
{
    const auto copy = CopyNamed("TavrinWeatherSe");
    const std::string process = std::to_string(copy->ProcessId());

    const auto service = HolderNamed(m_path, "TavrinWeatherService", *copy);
    ASSERT_TRUE(service);
    EXPECT_TRUE(IsService(*service));
    EXPECT_EQ(HeldByText(*service).toStdString(),
              "this session is held by TavrinWeatherService (process " + process + ")");

    const auto window = CopyNamed("TavrinWeatherUt");
    const auto held = HolderNamed(m_path, "TavrinWeatherUtility", *window);
    ASSERT_TRUE(held);
    EXPECT_FALSE(IsService(*held));

    const auto elsewhere = HolderNamed(m_path, "TavrinWeatherService", *copy, "studio-2");
    ASSERT_TRUE(elsewhere);
    EXPECT_EQ(HeldByText(*elsewhere).toStdString(),
              "this session is held by TavrinWeatherService (process " + process + " on studio-2)");
}

TEST_F(SessionLockFile, TellsNoProgramThatHasLeftItsNameThere)
{
    const auto window = CopyNamed("TavrinWeatherUt");
    EXPECT_FALSE(HolderNamed(m_path, "TavrinWeatherService", *window));
    EXPECT_FALSE(HolderNamed(m_path, "", *window));
    ASSERT_TRUE(window->End() == ForkedCopy::kEnded);
    EXPECT_FALSE(SessionLock(m_path).Holder()); // nobody holds it
}

TEST_F(SessionLockFile, CallsACopyThatListens)
{
    ForkedCopy copy(ForkedCopy::Start::Finished);

    CallBeside(m_path, copy);

    EXPECT_EQ(copy.End(), ForkedCopy::kCalled);
}

TEST_F(SessionLockFile, DoesNotKillACopyThatHasOnlyBegunToStart)
{
    // Left by a holder that was killed. The next one has not written its own name yet, and the
    // number now belongs to a third copy.
    ForkedCopy copy(ForkedCopy::Start::JustBegun);

    CallBeside(m_path, copy);

    EXPECT_EQ(copy.End(), ForkedCopy::kEnded);
}

TEST_F(SessionLockFile, CallsNobodyThatDoesNotHoldIt)
{
    ForkedCopy copy(ForkedCopy::Start::Finished);
    WriteHolder(QByteArray::number(copy.ProcessId()));

    SessionLock lock(m_path);
    lock.CallHolder();
    ASSERT_EQ(lock.Take(), Outcome::Taken);
    WriteHolder(QByteArray::number(copy.ProcessId()));
    lock.CallHolder();

    EXPECT_EQ(copy.End(), ForkedCopy::kEnded);
}

TEST_F(SessionLockFile, CallsNoOtherProgram)
{
    SessionLock running(m_path);
    ASSERT_EQ(running.Take(), Outcome::Taken);
    SessionLock second(m_path);
    ASSERT_EQ(second.Take(), Outcome::Held);

    WriteHolder("1");
    second.CallHolder(); // would kill process 1 but for its name
    WriteHolder("0");
    second.CallHolder(); // would reach all of this process group
    WriteHolder("-1");
    second.CallHolder(); // would reach everyone
    ASSERT_TRUE(QFile::remove(m_path));
    second.CallHolder();

    EXPECT_FALSE(QFile::exists(m_path));
}

} // namespace
