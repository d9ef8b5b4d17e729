#include "store/ini_file.h"
#include "store/replaced_file.h"
#include "support/qt_printers.h"
#include "support/test_files.h"

#include <QDir>

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <random>

namespace {

constexpr int kKills = 60;
constexpr int kCycles = 2000; ///< At least this many files are written in all.
constexpr QStringView kSection = u"Weather";

/// Writes one cycle: every key holds the cycle's number, and the file has some length.
void WriteCycle(const IniPath &path, int cycle)
{
    IniFile file(path);
    for (int key = 0; key < 17; ++key) {
        const QString value = QString(cycle % 200, u'x') + QString::number(cycle);
        WriteIniValue(file, kSection, "KEY" + QString::number(key), value, true);
    }
    file.Commit();
}

/// Writes cycles from `cycle` on until it is killed.
[[noreturn]] void WriteForEver(const IniPath &path, int cycle)
{
    for (;; ++cycle)
        WriteCycle(path, cycle);
}

/// The number of the cycle that the bytes belong to; -1 if they are not one complete cycle.
int CycleOf(const QByteArray &bytes)
{
    const QByteArrayList lines = bytes.split('\n');
    if (lines.size() != 19 || lines.front() != "[Weather]\r" || !lines.back().isEmpty())
        return -1;
    const QByteArray value = lines[1].mid(lines[1].indexOf('='));
    for (int key = 0; key < 17; ++key) {
        if (lines[key + 1] != "KEY" + QByteArray::number(key) + value)
            return -1;
    }
    const QByteArray number = value.mid(value.lastIndexOf('x') + 1).trimmed();
    return number.startsWith('=') ? number.mid(1).toInt() : number.toInt();
}

} // namespace

TEST(KilledWriter, NeverLeavesATornFile)
{
    const TestFolder folder;
    const IniPath path{folder.Path("Weather.ini"), CodePage::Utf8};
    folder.Write("Weather.ini.backup", "theirs");
    WriteCycle(path, 1);
    std::mt19937 random(20261121); // the same moments each time, as far as the machine allows
    int last = 1;
    for (int kill = 0; kill < kKills || last < kCycles; ++kill) {
        const pid_t writer = ::fork();
        ASSERT_GE(writer, 0);
        if (writer == 0)
            WriteForEver(path, last + 1);
        // Reads flat out until some cycles have been written, and then a moment longer.
        const int enough = last + kCycles / kKills;
        int moment = int(random() % 200);
        while (last < enough || --moment > 0) {
            const int cycle = CycleOf(folder.Bytes("Weather.ini"));
            if (cycle < last) { // torn, or older than what was there before
                ::kill(writer, SIGKILL);
                FAIL() << cycle << " behind " << last << ": "
                       << folder.Bytes("Weather.ini").toStdString();
            }
            last = cycle;
        }
        ::kill(writer, SIGKILL);
        ASSERT_EQ(::waitpid(writer, nullptr, 0), writer);
        // What it wrote after the last look counts too: the next one continues from there.
        const int left = CycleOf(folder.Bytes("Weather.ini"));
        ASSERT_GE(left, last);
        last = left;
    }

    RemoveLeftovers(path.path);
    EXPECT_EQ(QDir(folder.Path({})).entryList(QDir::Files | QDir::Hidden, QDir::Name),
              QStringList({"Weather.ini", "Weather.ini.backup"}));
    WriteCycle(path, 1);
    EXPECT_EQ(CycleOf(folder.Bytes("Weather.ini")), 1);
}
