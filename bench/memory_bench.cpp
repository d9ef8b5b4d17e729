// The program's window compared with a plain window that has the same number of stock controls and
// links the same libraries: processor time from the process's start to the first paint, and
// resident memory, idle and shown, after both have made one transfer; and what remains of a reply
// of 16 MiB after a small one has followed it. The stock controls have the program's texts; those
// of a third window have none, so no letters are shaped and drawn there.
//
// The measuring process serves the replies; each window runs in its own process, because memory
// that one has used would flatter the other.

#include "core/clock.h"
#include "medians.h"
#include "net/curl_transfers.h"
#include "support/loopback_server.h"
#include "support/whole_program.h"
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
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <functional>
#include <type_traits>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kLongest = std::chrono::seconds(30);
constexpr auto kIdle = std::chrono::seconds(2);

/// A panel that takes each picture in two sizes, as one on a screen of twice the resolution does.
/// A panel is another program: it requests a picture some time after it was told of it.
class TakingPanelIcon final : public PanelIcon
{
public:
    TakingPanelIcon()
    {
        m_asks.setSingleShot(true);
        m_asks.setInterval(50);
        m_asks.callOnTimeout([this] {
            m_small = m_icon.pixmap(QSize(24, 24), 1);
            m_large = m_icon.pixmap(QSize(24, 24), 2);
        });
    }

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
        m_icon = icon;
        m_asks.start();
    }

    QTimer m_asks;
    QIcon m_icon;
    QPixmap m_small;
    QPixmap m_large;
};

/// Resident memory of this process in KiB; 0 if the system does not tell.
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

/// Runs the event loop until `condition` holds; false if it does not in time.
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

/// Prints the processor time that this process had used when a window was first painted.
class FirstPaint final : public QObject
{
public:
    explicit FirstPaint(QWidget *window) : m_window(window)
    {
        // After the paint itself, because the filter is called before it.
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
    TakingPanelIcon panelIcon;
    WholeProgram program({.folder = folder.path()}, {clock, http, panelIcon});
    frmMain &window = program.window;
    const FirstPaint firstPaint(&window);
    if (window.Form_Load({}))
        return 1;
    window.show();
    const auto request = [&](const QString &page) {
        window.findChild<QLineEdit *>(u"txtLocation1"_s)->setText(page);
        window.StartWeatherRequest();
        return RunUntil([&] { return program.station.WeatherThreadHandle() == 0; });
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

/// Calls `use` with each stock kind of control (a null pointer of its type) and its name, until
/// that returns true.
template <typename Use>
bool AnyKind(Use use)
{
    return use(static_cast<QLineEdit *>(nullptr), u"line"_s)
        || use(static_cast<QLabel *>(nullptr), u"label"_s)
        || use(static_cast<QPushButton *>(nullptr), u"button"_s)
        || use(static_cast<QPlainTextEdit *>(nullptr), u"text"_s)
        || use(static_cast<QCheckBox *>(nullptr), u"check"_s)
        || use(static_cast<QRadioButton *>(nullptr), u"radio"_s)
        || use(static_cast<QComboBox *>(nullptr), u"list"_s)
        || use(static_cast<QGroupBox *>(nullptr), u"group"_s);
}

/// The name of the property that holds a control's text.
template <typename Control>
constexpr const char *TextProperty()
{
    if constexpr (std::is_same_v<Control, QGroupBox>)
        return "title";
    else if constexpr (std::is_same_v<Control, QPlainTextEdit>)
        return "plainText";
    else
        return "text";
}

/// A plain window with the controls in `names` (name and, after a blank, text), in rows.
int RunStock(const QString &url, const QStringList &names)
{
    CurlTransfers http;
    QWidget window;
    window.setFixedSize(frmMain::kClientSize);
    constexpr int kColumns = 5; // so that all are visible
    constexpr int kWidth = frmMain::kClientSize.width() / kColumns;
    constexpr int kHeight = 22;
    for (int i = 0; i < names.size(); ++i) {
        AnyKind([&](auto *kind, const QString &name) {
            using Control = std::remove_pointer_t<decltype(kind)>;
            if (names[i].section(u' ', 0, 0) != name)
                return false;
            auto *control = new Control(&window);
            control->setGeometry(i % kColumns * kWidth, i / kColumns * kHeight, kWidth, kHeight);
            control->setProperty(TextProperty<Control>(), names[i].section(u' ', 1));
            return true;
        });
    }
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

/// The controls of stock kinds in the program's window, in the form that RunStock() takes.
QStringList ControlNames()
{
    CurlTransfers http;
    const SystemClock clock;
    TakingPanelIcon panelIcon;
    const WholeProgram program({}, {clock, http, panelIcon});
    const frmMain &window = program.window;
    QStringList names;
    AnyKind([&](auto *kind, const QString &name) {
        using Control = std::remove_pointer_t<decltype(kind)>;
        for (const Control *control : window.findChildren<Control *>())
            names.append(name + u' ' + control->property(TextProperty<Control>()).toString());
        return false;
    });
    return names;
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

/// Runs this program in the given role and reads what it printed under `names`.
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

/// What was measured in the runs of one window.
struct Figures
{
    std::vector<double> paint; ///< Milliseconds.
    std::vector<double> idle;  ///< KiB.
    std::vector<double> left;  ///< KiB; of the program's window.
};

/// Runs one window one more time.
bool Add(Figures &figures, const QStringList &arguments)
{
    const bool isProgram = arguments.value(1) == "program"_L1;
    QStringList names{u"paint"_s, u"idle"_s};
    if (isProgram)
        names.append(u"after"_s);
    const QList<double> run = Measure(arguments, names);
    if (run.isEmpty())
        return false;
    figures.paint.push_back(run[0]);
    figures.idle.push_back(run[1]);
    if (isProgram)
        figures.left.push_back(run[2] - run[1]);
    return true;
}

void PrintRow(const char *what, const Figures &figures, const Figures &own)
{
    std::printf("%-30s %8.1f ms %8.3f %9.0f KiB %8.3f\n", what, Median(figures.paint),
                Median(own.paint) / Median(figures.paint), Median(figures.idle),
                Median(own.idle) / Median(figures.idle));
}

int RunAll()
{
    const LoopbackServer server([](LoopbackConnection &connection, const std::string &head) {
        connection.Reply(Page(head));
    });
    const QString url = QString::fromStdString(server.Url());
    const QStringList stock = QStringList{u"--part"_s, u"stock"_s, url} + ControlNames();
    QStringList bare = stock;
    bare.replaceInStrings(QRegularExpression(u" [\\s\\S]*"_s), {});
    Figures ownFigures;
    Figures stockFigures;
    Figures bareFigures;
    for (int run = 0; run < kRuns; ++run) {
        if (!Add(ownFigures, {u"--part"_s, u"program"_s, url}) || !Add(stockFigures, stock)
            || !Add(bareFigures, bare)) {
            std::fprintf(stderr, "A part did not run to its end.\n");
            return 1;
        }
    }
    std::printf("%-30s %11s %8s %13s %8s\n", "the window", "first paint", "own is", "memory",
                "own is");
    PrintRow("the program's", ownFigures, ownFigures);
    PrintRow("stock controls, its texts", stockFigures, ownFigures);
    PrintRow("stock controls without texts", bareFigures, ownFigures);
    std::printf("after 16 MiB and a small reply %+.0f KiB\n", Median(ownFigures.left));
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
