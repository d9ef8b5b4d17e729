#include "store/replaced_file.h"
#include "support/failing_write.h"
#include "support/qt_printers.h"
#include "support/recorded_trace.h"
#include "support/test_files.h"
#include "support/watched_open.h"

#include <QDir>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/xattr.h>

#include <cerrno>
#include <functional>

namespace {

class ReplacedFile : public testing::Test
{
protected:
    [[nodiscard]] QString Path() const { return folder.Path("Weather.ini"); }

    [[nodiscard]] QStringList Files() const
    {
        return QDir(folder.Path({}))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }

    TestFolder folder;
};

TEST_F(ReplacedFile, HasAllPieces)
{
    EXPECT_EQ(ReplaceFile(Path(), {"one\n", "", "two\n"}), WriteError());
    EXPECT_EQ(folder.Bytes("Weather.ini"), "one\ntwo\n");
    EXPECT_EQ(ReplaceFile(Path(), {}), WriteError());
    EXPECT_EQ(folder.Bytes("Weather.ini"), "");
    EXPECT_EQ(Files(), QStringList("Weather.ini"));
}

TEST_F(ReplacedFile, OnAFullDiskTheOldOneStays)
{
    const QByteArrayList small = {QByteArray(5000, 'x')};
    const QByteArrayList large = {"begin", QByteArray(100'000, 'x'), "end"};
    folder.Write("Weather.ini", "old");
    for (const int number : {ENOSPC, EDQUOT}) {
        for (const qint64 room : {0, 1000, 50'000}) {
            const FailingWrite full(number, room);
            const WriteError error = ReplaceFile(Path(), room < 5000 ? small : large);
            EXPECT_EQ(error.kind, WriteError::Kind::DiskFull) << room;
            EXPECT_NE(error.text, "");
            EXPECT_EQ(folder.Bytes("Weather.ini"), "old");
            EXPECT_EQ(Files(), QStringList("Weather.ini"));
        }
    }
    EXPECT_EQ(ReplaceFile(Path(), {"new"}), WriteError());
    EXPECT_EQ(folder.Bytes("Weather.ini"), "new");
}

TEST_F(ReplacedFile, OnABadDiskTheOldOneStays)
{
    folder.Write("Weather.ini", "old");
    const FailingWrite bad(EIO, 0);
    EXPECT_EQ(ReplaceFile(Path(), {"new"}),
              (WriteError{WriteError::Kind::Other, "Input/output error"}));
    EXPECT_EQ(folder.Bytes("Weather.ini"), "old");
    EXPECT_EQ(Files(), QStringList("Weather.ini"));
}

TEST_F(ReplacedFile, ProblemIsTheSystems)
{
    EXPECT_EQ(ReplaceFile(folder.Path("none/Weather.ini"), {"x"}),
              (WriteError{WriteError::Kind::Gone, "No such file or directory"}));
    ASSERT_TRUE(QDir().mkdir(Path()));
    EXPECT_EQ(ReplaceFile(Path(), {"x"}),
              (WriteError{WriteError::Kind::NotAFile, "Is a directory"}));
    EXPECT_EQ(Files(), QStringList("Weather.ini"));
}

TEST_F(ReplacedFile, KeepsItsAccessList)
{
    // Version 2; owner rw, user 1234 r, group r, mask r, others nothing. The numbers are the
    // kernel's: tag, rights, id.
    const QByteArray list = QByteArray::fromHex("02000000"
                                                "01000600ffffffff"
                                                "02000400d2040000"
                                                "04000400ffffffff"
                                                "10000400ffffffff"
                                                "20000000ffffffff");
    folder.Write("Weather.ini", "old");
    const QByteArray name = QFile::encodeName(Path());
    const char *const kind = "system.posix_acl_access";
    if (::setxattr(name.constData(), kind, list.constData(), size_t(list.size()), 0) != 0) {
        EXPECT_EQ(errno, EOPNOTSUPP); // a file system without access lists has none to keep
        return;
    }

    EXPECT_EQ(ReplaceFile(Path(), {"new"}), WriteError());

    QByteArray kept(100, '\0');
    kept.resize(qMax(0, int(::getxattr(name.constData(), kind, kept.data(), size_t(kept.size())))));
    EXPECT_EQ(kept.toHex(), list.toHex());
    EXPECT_EQ(folder.Bytes("Weather.ini"), "new");
}

TEST_F(ReplacedFile, LeftoversAreRemovedAndNothingElse)
{
    const QStringList others = {"TavrinWeather-1.tmp",
                                "Weather.ini",
                                "Weather.ini.TavrinWeather-.tmp",
                                "Weather.ini.TavrinWeather-00000000000000000.tmp",
                                "Weather.ini.TavrinWeather-1.tmp.old",
                                "Weather.ini.TavrinWeather-xyz.tmp",
                                "Weather.ini.abcdef",
                                "Weather.ini.backup",
                                "Weather3.ini.TavrinWeather-1.tmp",
                                "WeatherXini.TavrinWeather-1.tmp",
                                "my Weather.ini.TavrinWeather-1.tmp"};
    for (const QString &name : others)
        folder.Write(name, "theirs");
    folder.Write("Weather.ini.TavrinWeather-1.tmp", "ours");
    folder.Write("Weather.ini.TavrinWeather-0123456789abcdef.tmp", "ours");
    ASSERT_TRUE(QDir().mkdir(folder.Path("Weather.ini.TavrinWeather-2.tmp"))); // never ours
    const RecordedTrace trace;

    RemoveLeftovers(Path());

    QStringList left = others + QStringList("Weather.ini.TavrinWeather-2.tmp");
    left.sort();
    QStringList found = Files();
    found.sort();
    EXPECT_EQ(found, left);
    EXPECT_EQ(trace.lines.size(), 2);
}

TEST_F(ReplacedFile, WithoutAFolderThereAreNoLeftovers)
{
    RemoveLeftovers(folder.Path("none/Weather.ini"));
    EXPECT_EQ(Files(), QStringList());
}

/// Somebody else in the folder who knows the temporary file's name and gets there first.
class PlantedFile : public ReplacedFile
{
protected:
    void SetUp() override
    {
        folder.Write("Weather.ini", "old");
        folder.Write("victim", "theirs");
    }

    /// Stores "new" while `plant` puts something under the first name that is tried.
    WriteError ReplaceOver(const std::function<void(const char *name)> &plant)
    {
        const WatchedOpen watch([&](const char *path, mode_t /*mode*/) {
            if (names.isEmpty())
                plant(path);
            names.append(QFile::decodeName(path));
        });
        return ReplaceFile(Path(), {"new"});
    }

    void ExpectAnotherName()
    {
        ASSERT_EQ(names.size(), 2);
        EXPECT_NE(names[0], names[1]);
        EXPECT_EQ(folder.Bytes("Weather.ini"), "new");
        EXPECT_FALSE(QFile::exists(names[1])) << "renamed";
    }

    QStringList names; ///< Of the temporary files that were tried.
};

TEST_F(PlantedFile, IsNotOverwritten)
{
    EXPECT_EQ(ReplaceOver([](const char *name) {
                  QFile file(QFile::decodeName(name));
                  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
                  file.write("planted");
              }),
              WriteError());

    ExpectAnotherName();
    QFile planted(names[0]);
    ASSERT_TRUE(planted.open(QIODevice::ReadOnly));
    EXPECT_EQ(planted.readAll(), "planted");
}

TEST_F(PlantedFile, IsNotFollowedWhereItIsALink)
{
    const QString victim = folder.Path("victim");
    EXPECT_EQ(ReplaceOver([&](const char *name) {
                  ASSERT_TRUE(QFile::link(victim, QFile::decodeName(name)));
              }),
              WriteError());

    ExpectAnotherName();
    EXPECT_TRUE(QFileInfo(names[0]).isSymLink());
    EXPECT_EQ(folder.Bytes("victim"), "theirs");
}

TEST_F(PlantedFile, IsNotFollowedWhereItIsALinkToNothing)
{
    const QString nothing = folder.Path("nothing");
    EXPECT_EQ(ReplaceOver([&](const char *name) {
                  ASSERT_TRUE(QFile::link(nothing, QFile::decodeName(name)));
              }),
              WriteError());

    ExpectAnotherName();
    EXPECT_FALSE(QFile::exists(nothing));
}

TEST_F(ReplacedFile, IsNeverOpenToMoreThanTheOldOneWas)
{
    folder.Write("Weather.ini", "old");
    ASSERT_TRUE(QFile::setPermissions(Path(), QFile::ReadOwner | QFile::WriteOwner));
    mode_t begun = 0;
    const WatchedOpen watch([&begun](const char * /*path*/, mode_t mode) { begun = mode; });

    EXPECT_EQ(ReplaceFile(Path(), {"new"}), WriteError());

    // Anyone who opens the file before its mode is set can read what is written to it later.
    EXPECT_EQ(begun & 0077U, 0U);
    struct stat now = {};
    ASSERT_EQ(::stat(QFile::encodeName(Path()).constData(), &now), 0);
    EXPECT_EQ(now.st_mode & 07777U, 0600U);
}

} // namespace
