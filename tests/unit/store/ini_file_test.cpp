#include "store/ini_file.h"
#include "support/qt_printers.h"
#include "support/recorded_trace.h"
#include "support/test_files.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <optional>

namespace {

class IniFileAccess : public testing::Test
{
protected:
    [[nodiscard]] IniPath Ini(const QString &name = "a.ini") const
    {
        return {.path = folder.Path(name)};
    }

    /// Writes one value as a group of its own.
    [[nodiscard]] bool WriteOne(const QString &name, QStringView value, bool encode = true) const
    {
        IniFile file(Ini(name));
        WriteIniValue(file, u"S", u"k", value, encode);
        return !file.Commit().IsError();
    }

    [[nodiscard]] QString ReadOne(const QString &name = "a.ini", QStringView fallback = {}) const
    {
        return ReadIniValue(IniFile(Ini(name)), u"S", u"k", fallback);
    }

    [[nodiscard]] struct stat Stat(const QString &name) const
    {
        struct stat result = {};
        EXPECT_EQ(::stat(folder.Path(name).toUtf8().constData(), &result), 0);
        return result;
    }

    void SetMode(const QString &name, mode_t mode) const
    {
        ASSERT_EQ(::chmod(folder.Path(name).toUtf8().constData(), mode), 0);
    }

    TestFolder folder;
};

/// While it lives, this process cannot open a file, as if it had reached its limit.
class NoMoreFiles
{
public:
    NoMoreFiles()
    {
        ::getrlimit(RLIMIT_NOFILE, &m_before);
        const rlimit none{0, m_before.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &none);
    }
    ~NoMoreFiles() { ::setrlimit(RLIMIT_NOFILE, &m_before); }
    Q_DISABLE_COPY_MOVE(NoMoreFiles)

private:
    rlimit m_before = {};
};

/// Sets the file mode mask while it lives.
class Umask
{
public:
    explicit Umask(mode_t mask) : m_before(::umask(mask)) {}
    ~Umask() { ::umask(m_before); }
    Q_DISABLE_COPY_MOVE(Umask)

private:
    mode_t m_before;
};

TEST_F(IniFileAccess, EncodedSpaceIsStoredAsToken)
{
    ASSERT_TRUE(WriteOne("a.ini", u"New York"));

    EXPECT_EQ(folder.Bytes("a.ini"), QByteArray("[S]\r\nk=New[SP]York\r\n"));
    EXPECT_EQ(ReadOne(), QString("New York"));
}

TEST_F(IniFileAccess, EncodedTextComesBackWhole)
{
    const QString text = " \t two\r\nlines\rand\nmore \t";

    ASSERT_TRUE(WriteOne("a.ini", text));

    EXPECT_EQ(folder.Bytes("a.ini"),
              QByteArray("[S]\r\nk=[SP][TAB][SP]two[CR][LF]lines[CR]and[LF]more[SP][TAB]\r\n"));
    EXPECT_EQ(ReadOne(), text);
}

TEST_F(IniFileAccess, PlainTextLosesOuterSpacesOnly)
{
    ASSERT_TRUE(WriteOne("a.ini", u"  a  b ", false));

    EXPECT_EQ(folder.Bytes("a.ini"), QByteArray("[S]\r\nk=a  b\r\n"));
}

TEST_F(IniFileAccess, PlainLineBreakBreaksTheLine)
{
    ASSERT_TRUE(WriteOne("a.ini", u"a\r\nb=c", false));

    EXPECT_EQ(folder.Bytes("a.ini"), QByteArray("[S]\r\nk=a\r\nb=c\r\n"));
    EXPECT_EQ(ReadOne(), QString("a"));
}

struct DecodeCase
{
    const char *name;
    QByteArray stored;
    QString expected;
};

void PrintTo(const DecodeCase &c, std::ostream *out)
{
    *out << c.name;
}

class DecodeIniValue : public IniFileAccess, public testing::WithParamInterface<DecodeCase>
{
};

TEST_P(DecodeIniValue, GivesTheText)
{
    folder.Write("a.ini", "[S]\r\nk=" + GetParam().stored + "\r\n");

    EXPECT_EQ(ReadOne(), GetParam().expected);
}

const DecodeCase kDecodeCases[] = {
    {"SpacesAtBothEdges", "[SP]x[SP]", " x "},
    {"LiteralTokenReadsAsTab", "a[TAB]b", "a\tb"},
    {"AllTokens", "[CR][LF][TAB][SP]", "\r\n\t "},
    {"OtherCaseIsNoToken", "[sp][Cr][lf][tab]", "[sp][Cr][lf][tab]"},
    {"LineBreakPairIsNoToken", "a[CRLF]b", "a[CRLF]b"},
    {"RepeatedTokens", "[SP][SP]x", "  x"},
    {"SpaceDecodedFirstDoesNotJoinOthers", "[[SP]TAB]", "[ TAB]"},
    {"QuotesProtectBlanksOnlyUpToTheTrim", "\"  x  \"", "x"},
    {"QuotesProtectTabs", "\"\tx\t\"", "\tx\t"},
    {"QuotesRoundTokens", "\"[SP]x\"", " x"},
};

INSTANTIATE_TEST_SUITE_P(Table, DecodeIniValue, testing::ValuesIn(kDecodeCases),
                         [](const auto &test) { return std::string(test.param.name); });

TEST_F(IniFileAccess, ValueIsCutBeforeItsTokensAreDecoded)
{
    folder.Write("a.ini", "[S]\nk=" + QByteArray(4093, 'x') + "[SP]y\n");

    EXPECT_EQ(ReadOne(), QString(4093, 'x') + "[S");
}

TEST_F(IniFileAccess, TokenThatJustFitsIsDecoded)
{
    folder.Write("a.ini", "[S]\nk=" + QByteArray(4091, 'x') + "[SP]y\n");

    EXPECT_EQ(ReadOne(), QString(4091, 'x') + " ");
}

TEST_F(IniFileAccess, MissingFileGivesTheDefault)
{
    EXPECT_EQ(ReadOne("none.ini", u"dflt"), QString("dflt"));
    EXPECT_EQ(ReadOne("none.ini"), QString());
}

TEST_F(IniFileAccess, DefaultIsTrimmedAndDecodedLikeAValue)
{
    EXPECT_EQ(ReadOne("none.ini", u"  a[SP]b[TAB] "), QString("a b\t"));
}

TEST_F(IniFileAccess, FolderInPlaceOfTheFileReadsAsMissing)
{
    ASSERT_TRUE(QDir().mkdir(folder.Path("a.ini")));

    EXPECT_EQ(ReadOne("a.ini", u"dflt"), QString("dflt"));
}

TEST_F(IniFileAccess, PipeInPlaceOfTheFileReadsAsMissing)
{
    ASSERT_EQ(::mkfifo(folder.Path("a.ini").toUtf8().constData(), 0600), 0);

    EXPECT_EQ(ReadOne("a.ini", u"dflt"), QString("dflt"));
}

TEST_F(IniFileAccess, NothingReachesTheDiskBeforeCommit)
{
    folder.Write("a.ini", "[S]\nk=old\n");
    IniFile file(Ini());

    WriteIniValue(file, u"S", u"k", u"new", true);
    EXPECT_EQ(folder.Bytes("a.ini"), QByteArray("[S]\nk=old\n"));

    EXPECT_EQ(file.Commit(), WriteError());
    EXPECT_EQ(folder.Bytes("a.ini"), QByteArray("[S]\nk=new\r\n"));
}

TEST_F(IniFileAccess, CommitLeavesNoOtherFileBehind)
{
    ASSERT_TRUE(WriteOne("a.ini", u"1"));
    ASSERT_TRUE(WriteOne("a.ini", u"2"));

    EXPECT_EQ(
        QDir(folder.Path("")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
        QStringList{"a.ini"});
}

TEST_F(IniFileAccess, CommitReplacesTheFileAtOnce)
{
    ASSERT_TRUE(WriteOne("a.ini", u"old"));
    QFile reader(folder.Path("a.ini")); // a reader with the file open still sees all of the old one
    ASSERT_TRUE(reader.open(QIODevice::ReadOnly));

    ASSERT_TRUE(WriteOne("a.ini", u"new"));

    EXPECT_EQ(reader.readAll(), QByteArray("[S]\r\nk=old\r\n"));
    EXPECT_EQ(folder.Bytes("a.ini"), QByteArray("[S]\r\nk=new\r\n"));
}

TEST_F(IniFileAccess, CommitWithoutAChangeStillWrites)
{
    ASSERT_TRUE(WriteOne("a.ini", u"v"));
    const ino_t before = Stat("a.ini").st_ino;
    QFile keepsTheNumber(folder.Path("a.ini")); // keeps the old file's number in use
    ASSERT_TRUE(keepsTheNumber.open(QIODevice::ReadOnly));

    ASSERT_TRUE(WriteOne("a.ini", u"v"));

    EXPECT_NE(Stat("a.ini").st_ino, before);
    EXPECT_EQ(folder.Bytes("a.ini"), QByteArray("[S]\r\nk=v\r\n"));
}

TEST_F(IniFileAccess, FailedCommitLeavesTheFileAndTracesOnce)
{
    ASSERT_TRUE(QDir().mkdir(folder.Path("a.ini")));
    folder.Write("a.ini/inside", "x");
    const RecordedTrace trace;

    EXPECT_FALSE(WriteOne("a.ini", u"v"));

    EXPECT_EQ(folder.Bytes("a.ini/inside"), QByteArray("x"));
    ASSERT_EQ(trace.lines.size(), 1);
    EXPECT_TRUE(trace.lines[0].startsWith("Unable to write " + folder.Path("a.ini") + ": "));
}

TEST_F(IniFileAccess, FoldersAreNeverCreated)
{
    const RecordedTrace trace;

    EXPECT_FALSE(WriteOne("none/a.ini", u"v"));

    EXPECT_FALSE(QFileInfo::exists(folder.Path("none")));
    EXPECT_EQ(trace.lines.size(), 1);
}

TEST_F(IniFileAccess, FailedCommitCanBeTriedAgain)
{
    ASSERT_TRUE(QDir().mkdir(folder.Path("a.ini")));
    ASSERT_FALSE(WriteOne("a.ini", u"v"));
    ASSERT_TRUE(QDir().rmdir(folder.Path("a.ini")));

    EXPECT_TRUE(WriteOne("a.ini", u"v"));
    EXPECT_EQ(ReadOne(), QString("v"));
}

TEST_F(IniFileAccess, FileThatCannotBeReadJustNowIsNotReplaced)
{
    folder.Write("a.ini", "[S]\r\nforeign=1\r\n");
    std::optional<IniFile> file;
    {
        const NoMoreFiles full;
        file.emplace(Ini());
    }
    const RecordedTrace trace;

    EXPECT_EQ(ReadIniValue(*file, u"S", u"foreign", u"none"), "none");
    WriteIniValue(*file, u"S", u"k", u"x", true);
    EXPECT_EQ(file->Commit(),
              (WriteError{WriteError::Kind::Unreadable, "it could not be read before"}));

    EXPECT_EQ(folder.Bytes("a.ini"), "[S]\r\nforeign=1\r\n");
    EXPECT_EQ(trace.lines, QStringList("Unable to write " + folder.Path("a.ini")
                                       + ": it could not be read before"));
    EXPECT_TRUE(WriteOne("a.ini", u"x"));
    EXPECT_EQ(folder.Bytes("a.ini"), "[S]\r\nforeign=1\r\nk=x\r\n");
}

TEST_F(IniFileAccess, NewFileFollowsTheModeMask)
{
    {
        const Umask mask(022);
        ASSERT_TRUE(WriteOne("a.ini", u"v"));
    }
    {
        const Umask mask(007);
        ASSERT_TRUE(WriteOne("b.ini", u"v"));
    }

    EXPECT_EQ(Stat("a.ini").st_mode & 07777U, 0644U);
    EXPECT_EQ(Stat("b.ini").st_mode & 07777U, 0660U);
}

TEST_F(IniFileAccess, ModeOfTheFileSurvives)
{
    for (const mode_t mode : {0664U, 0600U, 0646U, 0755U}) {
        folder.Write("a.ini", "[S]\n");
        SetMode("a.ini", mode);

        ASSERT_TRUE(WriteOne("a.ini", u"v"));

        EXPECT_EQ(Stat("a.ini").st_mode & 07777U, mode);
    }
}

TEST_F(IniFileAccess, OwnerAndGroupOfTheFileSurvive)
{
    // Only the superuser can give a file away; anyone else owns it themselves, which stays so too.
    folder.Write("a.ini", "[S]\n");
    SetMode("a.ini", 0664);
    const bool superuser = ::geteuid() == 0;
    const uid_t owner = superuser ? 12345 : ::geteuid();
    const gid_t group = superuser ? 23456 : ::getegid();
    ASSERT_EQ(::chown(folder.Path("a.ini").toUtf8().constData(), owner, group), 0);

    ASSERT_TRUE(WriteOne("a.ini", u"v"));

    EXPECT_EQ(Stat("a.ini").st_uid, owner);
    EXPECT_EQ(Stat("a.ini").st_gid, group);
    EXPECT_EQ(Stat("a.ini").st_mode & 07777U, 0664U);
}

TEST_F(IniFileAccess, SymbolicLinksAreFollowed)
{
    ASSERT_TRUE(QDir().mkdir(folder.Path("deep")));
    folder.Write("deep/real.ini", "[S]\nk=old\n");
    ASSERT_TRUE(QFile::link("deep/real.ini", folder.Path("middle.ini")));
    ASSERT_TRUE(QFile::link(folder.Path("middle.ini"), folder.Path("a.ini")));

    ASSERT_TRUE(WriteOne("a.ini", u"new"));

    EXPECT_TRUE(QFileInfo(folder.Path("a.ini")).isSymLink());
    EXPECT_TRUE(QFileInfo(folder.Path("middle.ini")).isSymLink());
    EXPECT_EQ(folder.Bytes("deep/real.ini"), QByteArray("[S]\nk=new\r\n"));
}

TEST_F(IniFileAccess, LinkToNothingMakesItsTarget)
{
    ASSERT_TRUE(QFile::link("real.ini", folder.Path("a.ini")));

    ASSERT_TRUE(WriteOne("a.ini", u"v"));

    EXPECT_TRUE(QFileInfo(folder.Path("a.ini")).isSymLink());
    EXPECT_EQ(folder.Bytes("real.ini"), QByteArray("[S]\r\nk=v\r\n"));
}

TEST_F(IniFileAccess, LinkToItselfFails)
{
    ASSERT_TRUE(QFile::link("a.ini", folder.Path("a.ini")));
    const RecordedTrace trace;

    EXPECT_FALSE(WriteOne("a.ini", u"v"));
    EXPECT_TRUE(QFileInfo(folder.Path("a.ini")).isSymLink());
}

TEST_F(IniFileAccess, ForeignKeysAddedBetweenTwoGroupsSurvive)
{
    ASSERT_TRUE(WriteOne("a.ini", u"1"));
    folder.Write("a.ini", folder.Bytes("a.ini") + "theirs=2\n; note\n[Other]\nx=3\n");

    ASSERT_TRUE(WriteOne("a.ini", u"4"));

    EXPECT_EQ(folder.Bytes("a.ini"), QByteArray("[S]\r\nk=4\r\ntheirs=2\n; note\n[Other]\nx=3\n"));
}

} // namespace
