#include "profile_check/run_check.h"
#include "support/fake_transfers.h"
#include "support/qt_printers.h"
#include "support/test_files.h"

#include <gtest/gtest.h>

namespace {

const QDateTime kNow(QDate(2026, 3, 5), QTime(6, 7, 8));
const QString kData = TAVRIN_TEST_DATA "/profile_check/";

CheckOptions WithReply(const QString &reply)
{
    CheckOptions options;
    options.profileFile = kData + "harbour.ini";
    options.replies = {reply};
    return options;
}

TEST(RunCheck, EndsWithZeroWhenEveryReplyParsed)
{
    FakeTransfers http;

    const CheckResult result = RunCheck(WithReply(kData + "board.txt"), {}, http, kNow);

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(result.output.contains("21.0 C"));
    EXPECT_EQ(result.problem, QString());
}

TEST(RunCheck, EndsWithOneWhenAReplyDidNotParse)
{
    FakeTransfers http;
    CheckOptions options = WithReply(kData + "error_page.txt");
    options.replies.append(kData + "board.txt");

    const CheckResult result = RunCheck(options, {}, http, kNow);

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.output.contains("parsed: False"));
    EXPECT_TRUE(result.output.contains("parsed: True"));
}

TEST(RunCheck, TakesTheGivenProfileFileUnlessTheOptionsNameOne)
{
    FakeTransfers http;
    CheckOptions options = WithReply(kData + "board.txt");
    options.profileFile.clear();

    EXPECT_EQ(RunCheck(options, kData + "harbour.ini", http, kNow).exitCode, 0);
    EXPECT_EQ(RunCheck(options, kData + "missing.ini", http, kNow).exitCode, 2);
}

TEST(RunCheck, EndsWithTwoAndOneLineWhenAFileCannotBeRead)
{
    FakeTransfers http;
    CheckOptions options = WithReply(kData + "board.txt");
    options.replies.append(kData + "missing.txt");

    const CheckResult result = RunCheck(options, {}, http, kNow);

    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.output, QString());
    EXPECT_EQ(result.problem, "cannot read " + kData + "missing.txt: No such file or directory");
    EXPECT_EQ(RunCheck(WithReply(kData), {}, http, kNow).problem,
              "cannot read " + kData + ": it is a folder");
}

TEST(RunCheck, EndsWithTwoForAProfileThatIsNotThere)
{
    FakeTransfers http;
    CheckOptions options = WithReply(kData + "board.txt");
    options.profile = 4;

    const CheckResult result = RunCheck(options, {}, http, kNow);

    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.problem, kData + "harbour.ini has no profile 4");
}

TEST(RunCheck, FetchesTheAddressThatTheProgramWouldAsk)
{
    FakeTransfers http;
    const QString address = "http://harbour.example:8080/board/New%20York/a b";
    http.pages[address] = "Air 7;";
    CheckOptions options;
    options.profileFile = kData + "harbour.ini";
    options.profile = 3;
    options.location = {"New York", "a b", {}, {}};
    options.port = "8080";
    options.fetch = true;
    options.format = CheckFormat::Ini;

    const CheckResult result = RunCheck(options, {}, http, kNow);

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(result.output.startsWith('[' + address + "]\ntemperatureValue=7.0\n"));
}

TEST(RunCheck, SaysThatNoReplyCame)
{
    FakeTransfers http;
    CheckOptions options;
    options.profileFile = kData + "harbour.ini";
    options.profile = 3;
    options.fetch = true;

    const CheckResult result = RunCheck(options, {}, http, kNow);

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output, QString());
    EXPECT_EQ(result.problem, QString("no reply from http://harbour.example/board//: error 1"));
}

TEST(RunCheck, ReadsRepliesInTheirOwnEncoding)
{
    const TestFolder folder;
    folder.Write("latin1.txt", "<board>Air 21; Sky n\xe9"
                               "bul; end</board>");
    FakeTransfers http;

    const CheckResult result = RunCheck(WithReply(folder.Path("latin1.txt")), {}, http, kNow);

    EXPECT_TRUE(result.output.contains(QString::fromUtf8("n\xc3\xa9"
                                                         "bul")));
}

TEST(RunCheck, PrintsHelp)
{
    FakeTransfers http;
    CheckOptions options;
    options.help = true;

    EXPECT_EQ(RunCheck(options, {}, http, kNow).output, CheckHelp());
}

} // namespace
