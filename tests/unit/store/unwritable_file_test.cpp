#include "store/replaced_file.h"
#include "support/qt_printers.h"
#include "support/test_files.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <functional>

namespace {

constexpr uid_t kNobody = 65534;

bool IsSuperuser()
{
    return ::geteuid() == 0;
}

/// Replaces `path` with "new" in a separate process, as an ordinary user: the one who runs the test
/// or, if that is the superuser, nobody.
WriteError ReplaceAsOrdinaryUser(const QString &path)
{
    std::array<int, 2> ends = {};
    if (::pipe(ends.data()) != 0)
        return {WriteError::Kind::Other, "no pipe"};
    const pid_t child = ::fork();
    if (child == 0) {
        const bool ordinary =
            !IsSuperuser()
            || (::setgroups(0, nullptr) == 0 && ::setresgid(kNobody, kNobody, kNobody) == 0
                && ::setresuid(kNobody, kNobody, kNobody) == 0);
        const WriteError error = ReplaceFile(path, {"new"});
        const QByteArray told = QByteArray::number(int(error.kind)) + ' ' + error.text.toUtf8();
        const bool done =
            ordinary && ::write(ends[1], told.data(), size_t(told.size())) == told.size();
        ::_exit(done ? 0 : 1);
    }
    ::close(ends[1]);
    QFile answer;
    const bool opened = answer.open(ends[0], QIODevice::ReadOnly, QFileDevice::AutoCloseHandle);
    const QByteArray told = opened ? answer.readAll() : QByteArray();
    int status = 0;
    if (::waitpid(child, &status, 0) != child || status != 0)
        return {WriteError::Kind::Other, "no answer"};
    const qsizetype blank = told.indexOf(' ');
    return {WriteError::Kind(told.first(blank).toInt()), told.mid(blank + 1)};
}

const WriteError kNoRight{WriteError::Kind::NoRight, "Permission denied"};
const WriteError kNotAFile{WriteError::Kind::NotAFile, "a pipe, socket or device is in its place"};

/// In a folder where everybody may make files.
class UnwritableFile : public testing::Test
{
protected:
    void SetUp() override { SetMode(".", 0777); }

    [[nodiscard]] QString Path() const { return folder.Path("Weather.ini"); }
    [[nodiscard]] QByteArray Name(const QString &name) const
    {
        return QFile::encodeName(folder.Path(name));
    }

    void SetMode(const QString &name, mode_t mode) const
    {
        ASSERT_EQ(::chmod(Name(name).constData(), mode), 0);
    }

    /// Puts a file there that belongs to the user of ReplaceAsOrdinaryUser().
    void WriteOwn(mode_t mode) const
    {
        folder.Write("Weather.ini", "old");
        const uid_t owner = IsSuperuser() ? kNobody : ::geteuid();
        ASSERT_EQ(::chown(Name("Weather.ini").constData(), owner, ::getegid()), 0);
        SetMode("Weather.ini", mode);
    }

    [[nodiscard]] QStringList Files() const
    {
        return QDir(folder.Path({}))
            .entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot,
                       QDir::Name);
    }

    TestFolder folder;
};

TEST_F(UnwritableFile, IsNotReplaced)
{
    for (const mode_t mode : {0444U, 0400U, 0000U}) {
        WriteOwn(mode);

        EXPECT_EQ(ReplaceAsOrdinaryUser(Path()), kNoRight);

        SetMode("Weather.ini", 0644);
        EXPECT_EQ(folder.Bytes("Weather.ini"), "old");
        EXPECT_EQ(Files(), QStringList("Weather.ini"));
    }
}

TEST_F(UnwritableFile, IsReplacedOnceItIsWritable)
{
    WriteOwn(0444);
    EXPECT_EQ(ReplaceAsOrdinaryUser(Path()), kNoRight);
    SetMode("Weather.ini", 0644);

    EXPECT_EQ(ReplaceAsOrdinaryUser(Path()), WriteError());

    EXPECT_EQ(folder.Bytes("Weather.ini"), "new");
}

TEST_F(UnwritableFile, IsNotReplacedBehindALink)
{
    WriteOwn(0444);
    ASSERT_TRUE(QFile::link("Weather.ini", folder.Path("link.ini")));

    EXPECT_EQ(ReplaceAsOrdinaryUser(folder.Path("link.ini")), kNoRight);

    EXPECT_TRUE(QFileInfo(folder.Path("link.ini")).isSymLink());
    EXPECT_EQ(folder.Bytes("Weather.ini"), "old");
}

TEST_F(UnwritableFile, OfSomebodyElseIsNotReplaced)
{
    folder.Write("Weather.ini", "old");
    SetMode("Weather.ini", IsSuperuser() ? 0644 : 0444); // only the superuser can be somebody else

    EXPECT_EQ(ReplaceAsOrdinaryUser(Path()), kNoRight);

    EXPECT_EQ(folder.Bytes("Weather.ini"), "old");
}

TEST_F(UnwritableFile, IsReplacedByTheSuperuser)
{
    folder.Write("Weather.ini", "old");
    SetMode("Weather.ini", 0444);

    // Run by an ordinary user, the test shows that only the superuser may.
    EXPECT_EQ(ReplaceFile(Path(), {"new"}), IsSuperuser() ? WriteError() : kNoRight);

    EXPECT_EQ(folder.Bytes("Weather.ini"), IsSuperuser() ? "new" : "old");
}

TEST_F(UnwritableFile, ThatIsMissingIsMade)
{
    EXPECT_EQ(ReplaceAsOrdinaryUser(Path()), WriteError());
    EXPECT_EQ(folder.Bytes("Weather.ini"), "new");
}

TEST_F(UnwritableFile, IsNotMadeInAFolderThatIsNotWritable)
{
    ASSERT_TRUE(QDir().mkdir(folder.Path("locked")));
    SetMode("locked", 0555);

    EXPECT_EQ(ReplaceAsOrdinaryUser(folder.Path("locked/Weather.ini")), kNoRight);
    SetMode("locked", 0000);
    EXPECT_EQ(ReplaceAsOrdinaryUser(folder.Path("locked/Weather.ini")), kNoRight);

    SetMode("locked", 0755);
    EXPECT_FALSE(QFile::exists(folder.Path("locked/Weather.ini")));
}

/// Rights that the mode alone does not show. Only the superuser can give them to somebody else, and
/// not every file system has them; without them there is nothing to see here.
class AccessList : public UnwritableFile
{
protected:
    /// Makes a file of the superuser's with the rights `nobody` for that user and `others` for the
    /// rest.
    [[nodiscard]] bool Lay(char nobody, char others) const
    {
        // Version 2; owner rw, user 65534, group, mask rw, others. The numbers are the kernel's:
        // tag, rights, id.
        const QByteArray rest = QByteArray("0") + others + "00ffffffff";
        const QByteArray list = QByteArray::fromHex(
            "0200000001000600ffffffff" + ("02000" + QByteArray(1, nobody)) + "00feff0000" + "0400"
            + rest + "10000600ffffffff" + "2000" + rest);
        folder.Write("Weather.ini", "old");
        return IsSuperuser()
            && ::setxattr(Name("Weather.ini").constData(), "system.posix_acl_access",
                          list.constData(), size_t(list.size()), 0)
                   == 0;
    }
};

TEST_F(AccessList, CanForbidWhatTheModeAllows)
{
    if (!Lay('4', '6'))
        return;
    EXPECT_EQ(ReplaceAsOrdinaryUser(Path()), kNoRight);
    EXPECT_EQ(folder.Bytes("Weather.ini"), "old");
}

TEST_F(AccessList, CanAllowWhatTheModeForbids)
{
    if (!Lay('6', '0'))
        return;
    EXPECT_EQ(ReplaceAsOrdinaryUser(Path()), WriteError());
    EXPECT_EQ(folder.Bytes("Weather.ini"), "new");
}

/// What a path can name that is no plain file.
class NoPlainFile : public UnwritableFile
{
protected:
    /// Whether something of the kind `kind` (S_IFIFO and the like) is still there.
    [[nodiscard]] bool IsStill(mode_t kind) const
    {
        struct stat there = {};
        return ::lstat(Name("Weather.ini").constData(), &there) == 0
            && (there.st_mode & S_IFMT) == kind;
    }
};

TEST_F(NoPlainFile, IsNotReplaced)
{
    for (const mode_t kind : {mode_t(S_IFIFO), mode_t(S_IFSOCK)}) {
        ASSERT_EQ(::mknod(Name("Weather.ini").constData(), kind | 0666U, 0), 0);
        SetMode("Weather.ini", 0666);

        EXPECT_EQ(ReplaceAsOrdinaryUser(Path()), kNotAFile);
        EXPECT_EQ(ReplaceFile(Path(), {"new"}), kNotAFile);

        EXPECT_TRUE(IsStill(kind));
        EXPECT_EQ(Files(), QStringList("Weather.ini"));
        ASSERT_TRUE(QFile::remove(Path()));
    }
}

TEST_F(NoPlainFile, IsNotReplacedBehindALink)
{
    ASSERT_EQ(::mkfifo(Name("Weather.ini").constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(Path(), folder.Path("middle.ini")));
    ASSERT_TRUE(QFile::link("middle.ini", folder.Path("link.ini")));

    EXPECT_EQ(ReplaceFile(folder.Path("link.ini"), {"new"}), kNotAFile);

    EXPECT_TRUE(IsStill(S_IFIFO));
    EXPECT_EQ(Files(), QStringList({"Weather.ini", "link.ini", "middle.ini"}));
}

TEST_F(NoPlainFile, IsNotReplacedWhereItIsADevice)
{
    ASSERT_TRUE(QFile::link("/dev/null", Path()));

    // Not as the superuser, who could do it.
    EXPECT_EQ(ReplaceAsOrdinaryUser(Path()), kNotAFile);

    EXPECT_TRUE(IsStill(S_IFLNK));
}

TEST_F(NoPlainFile, IsAFolder)
{
    ASSERT_TRUE(QDir().mkdir(Path()));

    const WriteError isFolder{WriteError::Kind::NotAFile, "Is a directory"};
    EXPECT_EQ(ReplaceFile(Path(), {"new"}), isFolder);
    SetMode("Weather.ini", 0555);
    EXPECT_EQ(ReplaceAsOrdinaryUser(Path()), isFolder);

    EXPECT_EQ(Files(), QStringList("Weather.ini"));
}

TEST_F(NoPlainFile, IsAFileInPlaceOfTheFolder)
{
    folder.Write("a", "theirs");

    EXPECT_EQ(ReplaceFile(folder.Path("a/Weather.ini"), {"new"}),
              (WriteError{WriteError::Kind::Gone, "Not a directory"}));

    EXPECT_EQ(folder.Bytes("a"), "theirs");
}

} // namespace
