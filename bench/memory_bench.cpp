// The program's window beside a plain window with the same number of stock controls that links the
// same libraries: processor time from the process's start to the first paint, and resident memory,
// idle and shown, when both have made one transfer; and what is left of a reply of 16 MiB after a
// small one has followed it.
//
// The measuring process serves the replies; each window runs in a process of its own, since what
// one has used would flatter the other.

#include "app/frm_main.h"
#include "core/clock.h"
#include "net/curl_transfers.h"
#include "support/loopback_server.h"
#include "tray/panel_icon.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <functional>

#include "medians.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto kLongest = std::chrono::seconds(30);
constexpr auto kIdle = std::chrono::seconds(2);

/// A panel that takes each picture in two sizes, as one on a screen of twice the resolution does.
class TakingPanelIcon final : public PanelIcon
{
public:
    [[nodiscard]] bool IsShown() const override { return true; }
    void Add(const QIcon &icon, const QString & /*tip*/) override { Take(icon); }
    [[nodiscard]] bool Modify(const QIcon &icon) override
    {
        Take(icon);
        return true;
    }
    void Remove() override {}

private:
    void Take(const QIcon &icon)
    {
        m_small = icon.pixmap(QSize(24, 24), 1);
        m_large = icon.pixmap(QSize(24, 24), 2);
    }

    QPixmap m_small;
    QPixmap m_large;
};

/// Resident memory of this process in KiB; 0 when the system does not tell.
long ResidentKiB()
{
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').front().toLong();
    }
    return 0;
}

/// Runs the message loop until `condition` holds; false when it does not in time.
bool RunUntil(const std::function<bool()> &condition)
{
    const auto end = std::chrono::steady_clock::now() + kLongest;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        QApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    }
    return true;
}

void RunIdle()
{
    const auto end = std::chrono::steady_clock::now() + kIdle;
    while (std::chrono::steady_clock::now() < end)
        QApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
}

void Print(const char *what, double figure)
{
    std::printf("%s %f\n", what, figure);
    std::fflush(stdout);
}

/// Prints the processor time that this process had taken when a window was first painted.
class FirstPaint final : public QObject
{
public:
    explicit FirstPaint(QWidget *window) : m_window(window)
    {
        // Behind the paint itself, which the filter is asked ahead of.
        m_painted.setSingleShot(true);
        m_painted.callOnTimeout([] { Print("paint", ProcessorMilliseconds(RUSAGE_SELF)); });
        window->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            m_painted.start(0);
            m_window->removeEventFilter(this);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QWidget *m_window;
    QTimer m_painted;
};

/// The program's window: one small reply, then a large one, then a small one again.
int RunProgram(const QString &url)
{
    const QTemporaryDir folder;
    QFile profiles(folder.filePath(u"TavrinWeatherProfiles.ini"_s));
    if (!profiles.open(QIODevice::WriteOnly))
        return 1;
    profiles.write("[Profile0]\ntitle=Service\nbaseURL=" + url.toUtf8()
                   + "%LOC1%\nlocation1Title=Page\nmainNodeOpen=<o>\nmainNodeClose=</o>\n"
                     "temperatureOpen=<t>\ntemperatureClose=<\n");
    profiles.close();
    CurlTransfers http;
    const SystemClock clock;
    ProgramState state;
    state.files.folder = folder.path();
    TakingPanelIcon panelIcon;
    frmMain window(state, {clock, http, panelIcon}, [](auto &&...) { return true; });
    const FirstPaint firstPaint(&window);
    if (window.Form_Load({}))
        return 1;
    window.show();
    const auto request = [&](const QString &page) {
        window.findChild<QLineEdit *>(u"txtLocation1"_s)->setText(page);
        window.StartWeatherRequest();
        return RunUntil([&] { return state.WeatherThreadHandle == 0; });
    };
    if (!request(u"small"_s))
        return 1;
    RunIdle();
    Print("idle", double(ResidentKiB()));
    if (!request(u"large"_s) || !request(u"small"_s))
        return 1;
    RunIdle();
    Print("after", double(ResidentKiB()));
    window.Form_Unload();
    return 0;
}

template <typename Control>
void Add(QWidget *window, int count)
{
    for (int i = 0; i < count; ++i)
        (new Control(window))->setGeometry(i % 4 * 90, i / 4 * 24, 88, 22);
}

/// A plain window with as many controls of each kind as `counts` says.
int RunStock(const QString &url, const QStringList &counts)
{
    CurlTransfers http;
    QWidget window;
    window.setFixedSize(frmMain::kClientSize);
    Add<QLineEdit>(&window, counts.value(0).toInt());
    Add<QLabel>(&window, counts.value(1).toInt());
    Add<QPushButton>(&window, counts.value(2).toInt());
    Add<QPlainTextEdit>(&window, counts.value(3).toInt());
    Add<QCheckBox>(&window, counts.value(4).toInt());
    Add<QRadioButton>(&window, counts.value(5).toInt());
    Add<QComboBox>(&window, counts.value(6).toInt());
    Add<QGroupBox>(&window, counts.value(7).toInt());
    const FirstPaint firstPaint(&window);
    window.show();
    const TransferHandle handle = http.Net_HTTPThreadOpen(u"80"_s);
    http.Net_HTTPThreadGet(handle, url + u"small"_s);
    if (!RunUntil([&] { return http.Net_HTTPThreadIsDone(handle); }))
        return 1;
    http.Net_HTTPThreadClose(handle);
    RunIdle();
    Print("idle", double(ResidentKiB()));
    return 0;
}

/// How many controls of each stock kind the program's window has, in the order of RunStock().
QStringList CountControls()
{
    CurlTransfers http;
    const SystemClock clock;
    ProgramState state;
    TakingPanelIcon panelIcon;
    const frmMain window(state, {clock, http, panelIcon}, [](auto &&...) { return true; });
    QStringList counts;
    const auto add = [&](auto *kind) {
        using Control = std::remove_pointer_t<decltype(kind)>;
        counts.append(QString::number(window.findChildren<Control *>().size()));
    };
    add(static_cast<QLineEdit *>(nullptr));
    add(static_cast<QLabel *>(nullptr));
    add(static_cast<QPushButton *>(nullptr));
    add(static_cast<QPlainTextEdit *>(nullptr));
    add(static_cast<QCheckBox *>(nullptr));
    add(static_cast<QRadioButton *>(nullptr));
    add(static_cast<QComboBox *>(nullptr));
    add(static_cast<QGroupBox *>(nullptr));
    return counts;
}

std::string Page(const std::string &head)
{
    constexpr std::size_t kLarge = std::size_t{16} * 1024 * 1024;
    std::string small = "<o><t>61.5<x></o>";
    if (head.find("GET /large") == std::string::npos)
        return small;
    std::string page;
    page.reserve(kLarge);
    while (page.size() + 100 < kLarge)
        page += "a line of the page around the observation, with nothing in it\r\n";
    return page + small;
}

/// Runs this program in the given part and reads what it printed under `names`.
QList<double> Measure(const QStringList &arguments, const QStringList &names)
{
    QProcess part;
    part.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    part.start(QCoreApplication::applicationFilePath(), arguments);
    if (!part.waitForFinished(120'000) || part.exitCode() != 0)
        return {};
    const QString output = QString::fromUtf8(part.readAllStandardOutput());
    QList<double> figures;
    for (const QString &name : names)
        figures.append(output.section(name + u' ', 1, 1).section(u'\n', 0, 0).toDouble());
    return figures;
}

int RunAll()
{
    const LoopbackServer server([](LoopbackConnection &connection, const std::string &head) {
        connection.Reply(Page(head));
    });
    const QString url = QString::fromStdString(server.Url());
    const QStringList counts = CountControls();
    std::vector<double> paint;
    std::vector<double> idle;
    std::vector<double> left;
    std::vector<double> stockPaint;
    std::vector<double> stockIdle;
    for (int run = 0; run < kRuns; ++run) {
        const QList<double> window =
            Measure({u"--part"_s, u"program"_s, url}, {u"paint"_s, u"idle"_s, u"after"_s});
        const QList<double> stock =
            Measure(QStringList{u"--part"_s, u"stock"_s, url} + counts, {u"paint"_s, u"idle"_s});
        if (window.isEmpty() || stock.isEmpty()) {
            std::fprintf(stderr, "A part did not run to its end.\n");
            return 1;
        }
        paint.push_back(window[0]);
        idle.push_back(window[1]);
        left.push_back(window[2] - window[1]);
        stockPaint.push_back(stock[0]);
        stockIdle.push_back(stock[1]);
    }
    std::printf("%-34s %11s %11s %8s\n", "the window", "own", "stock", "ratio");
    std::printf("%-34s %8.1f ms %8.1f ms %8.3f\n", "start to first paint", Median(paint),
                Median(stockPaint), Median(paint) / Median(stockPaint));
    std::printf("%-34s %7.0f KiB %7.0f KiB %8.3f\n", "resident memory", Median(idle),
                Median(stockIdle), Median(idle) / Median(stockIdle));
    std::printf("%-34s %+7.0f KiB\n", "after 16 MiB and a small reply", Median(left));
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) != "--part"_L1)
        return RunAll();
    return arguments.value(2) == "program"_L1 ? RunProgram(arguments.value(3))
                                              : RunStock(arguments.value(3), arguments.mid(4));
}
