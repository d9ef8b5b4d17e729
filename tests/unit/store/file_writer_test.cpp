#include "store/file_writer.h"
#include "support/qt_printers.h"
#include "support/recorded_trace.h"
#include "support/test_files.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

class WritingDirectly : public testing::Test
{
protected:
    [[nodiscard]] IniPatch Patch(const QString &name, const QString &value) const
    {
        return {.file = {.path = folder.Path(name)}, .values = {{"S", "k", value}}};
    }

    TestFolder folder;
    DirectFileWriter writer;
};

TEST_F(WritingDirectly, StoresAtOnce)
{
    writer.Put(Patch("a.ini", "1"));

    EXPECT_EQ(folder.Bytes("a.ini"), "[S]\r\nk=1\r\n");
}

TEST_F(WritingDirectly, KeepsWhatThePatchDoesNotName)
{
    folder.Write("a.ini", "; note\n[S]\ntheirs=1\nk=old\n[T]\nx=2\n");

    writer.Put({.file = {.path = folder.Path("a.ini")},
                .values = {{"S", "k", "new"}, {"S", "n", "3"}, {"U", "y", "4"}}});

    EXPECT_EQ(folder.Bytes("a.ini"),
              "; note\n[S]\ntheirs=1\nk=new\r\nn=3\r\n[T]\nx=2\n[U]\r\ny=4\r\n");
}

TEST_F(WritingDirectly, WritesInTheOrderOfThePatch)
{
    writer.Put({.file = {.path = folder.Path("a.ini")},
                .values = {{"T", "b", "1"}, {"S", "z", "2"}, {"T", "a", "3"}, {"T", "b", "4"}}});

    EXPECT_EQ(folder.Bytes("a.ini"), "[T]\r\nb=4\r\na=3\r\n[S]\r\nz=2\r\n");
}

TEST_F(WritingDirectly, EscapesItsValues)
{
    writer.Put(Patch("a.ini", " 70 °F\r\n[T]\tx "));

    EXPECT_EQ(folder.Bytes("a.ini"), QByteArray("[S]\r\nk=[SP]70[SP]°F[CR][LF][T][TAB]x[SP]\r\n"));
}

TEST_F(WritingDirectly, WritesTheBytesOfTheFilesCodePage)
{
    writer.Put({.file = {.path = folder.Path("a.ini"), .codePage = CodePage::Windows1252},
                .values = {{"S", "k", "70°"}}});

    EXPECT_EQ(folder.Bytes("a.ini"), "[S]\r\nk=70\xB0\r\n");
}

TEST_F(WritingDirectly, StoresAPatchWithoutValuesAsWell)
{
    writer.Put({.file = {.path = folder.Path("a.ini")}});

    EXPECT_TRUE(QFile::exists(folder.Path("a.ini")));
    EXPECT_EQ(folder.Bytes("a.ini"), "");
}

TEST_F(WritingDirectly, TellsWhatHasEndedInItsOrder)
{
    EXPECT_EQ(writer.Put(Patch("b.ini", "1")), 1U);
    EXPECT_EQ(writer.Put(Patch("a.ini", "2")), 2U);

    const QList<Written> ended = writer.Poll();

    ASSERT_EQ(ended.size(), 2);
    EXPECT_EQ(ended[0].file, folder.Path("b.ini"));
    EXPECT_EQ(ended[0].error, WriteError());
    EXPECT_EQ(ended[0].ticket, 1U);
    EXPECT_EQ(ended[1].file, folder.Path("a.ini"));
    EXPECT_EQ(ended[1].error, WriteError());
    EXPECT_EQ(ended[1].ticket, 2U);
}

TEST_F(WritingDirectly, TellsItOnce)
{
    EXPECT_TRUE(writer.Poll().isEmpty());
    writer.Put(Patch("a.ini", "1"));
    EXPECT_EQ(writer.Poll().size(), 1);
    EXPECT_TRUE(writer.Poll().isEmpty());

    EXPECT_EQ(writer.Put(Patch("a.ini", "2")), 2U);

    const QList<Written> ended = writer.Poll();
    ASSERT_EQ(ended.size(), 1);
    EXPECT_EQ(ended[0].ticket, 2U);
}

TEST_F(WritingDirectly, TellsWhatWentWrongAndGoesOn)
{
    ASSERT_TRUE(QDir().mkdir(folder.Path("a.ini")));
    const RecordedTrace trace;

    writer.Put(Patch("a.ini", "1"));
    writer.Put(Patch("none/a.ini", "2"));
    writer.Put(Patch("b.ini", "3"));

    const QList<Written> ended = writer.Poll();
    ASSERT_EQ(ended.size(), 3);
    EXPECT_EQ(ended[0].error, (WriteError{WriteError::Kind::NotAFile, "Is a directory"}));
    EXPECT_EQ(ended[1].error, (WriteError{WriteError::Kind::Gone, "No such file or directory"}));
    EXPECT_EQ(ended[2].error, WriteError());
    EXPECT_EQ(folder.Bytes("b.ini"), "[S]\r\nk=3\r\n");
    EXPECT_EQ(trace.lines,
              QStringList({"Unable to write " + folder.Path("a.ini") + ": Is a directory",
                           "Unable to write " + folder.Path("none/a.ini")
                               + ": No such file or directory"}));
}

TEST_F(WritingDirectly, HasNothingToWaitFor)
{
    EXPECT_TRUE(writer.Flush(0ms));
    writer.Put(Patch("a.ini", "1"));

    EXPECT_TRUE(writer.Flush(0ms));

    EXPECT_EQ(writer.Poll().size(), 1) << "flushed away";
}

} // namespace
