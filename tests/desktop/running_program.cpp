#include "desktop/running_program.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QString NextTraceFile(const Desktop &desktop)
{
    static int number = 0;
    return desktop.PathBeside(u"trace-%1.txt"_s.arg(++number));
}

QProcessEnvironment ProgramEnvironment(const Desktop &desktop, const QString &traceFile)
{
    QProcessEnvironment environment = desktop.Environment();
    environment.insert("QT_QPA_PLATFORM", "xcb");
    environment.insert("TAVRIN_WEATHER_FOLDER", desktop.Path({}));
    environment.insert("TAVRIN_WEATHER_NAMES", "1");
    environment.insert("TAVRIN_TRACE", traceFile);
    return environment;
}

bool CanBeClicked(const Accessible &object)
{
    return object.Is(Accessible::State::Showing) && object.Is(Accessible::State::Enabled)
        && !object.OnScreen().isEmpty();
}

} // namespace

RunningProgram::RunningProgram(Desktop &desktop, const QStringList &arguments)
    : m_desktop(desktop)
    , m_traceFile(NextTraceFile(desktop))
    , m_process(TAVRIN_PROGRAM, arguments, ProgramEnvironment(desktop, m_traceFile))
{}

RunningProgram::~RunningProgram()
{
    if (!QTest::currentTestFailed())
        return;
    qInfo() << "The program" << (m_process.IsRunning() ? "runs." : "has ended.");
    qInfo().noquote() << "Errors:" << m_process.Errors();
    qInfo().noquote() << "Trace:" << Trace().right(2000);
    for (const ListedWindow &window : m_desktop.windows.Windows())
        qInfo() << "Window:" << window.title << window.processId
                << "minimised:" << window.isMinimised;
}

QList<Accessible> RunningProgram::AllObjects() const
{
    const auto root = m_desktop.registry.Program(m_process.ProcessId());
    QList<Accessible> objects;
    QList<Accessible> open;
    if (root)
        open.append(*root);
    while (!open.isEmpty()) {
        objects.append(open.takeLast());
        open.append(objects.last().Children());
    }
    return objects;
}

std::optional<Accessible> RunningProgram::Control(const QString &name)
{
    if (!m_controls.contains(name)) {
        for (const Accessible &object : AllObjects())
            m_controls.insert(object.Description(), object);
    }
    const auto found = m_controls.find(name);
    return found == m_controls.end() ? std::nullopt : std::optional(*found);
}

std::optional<Accessible> RunningProgram::Titled(const QString &title) const
{
    for (const Accessible &object : AllObjects()) {
        if (object.Name().remove('&') == title && CanBeClicked(object))
            return object;
    }
    return std::nullopt;
}

ListedWindow RunningProgram::Window() const
{
    for (const ListedWindow &window : m_desktop.windows.Windows()) {
        if (window.processId == m_process.ProcessId()
            && window.title.startsWith("Tavrin Weather Utility"))
            return window;
    }
    return {};
}

bool RunningProgram::IsShown()
{
    const auto standsStill = [this] {
        const ListedWindow window = Window();
        const auto main = Control(u"frmMain"_s);
        // The program can say where a control is only once it has heard where its window was put.
        return !window.id.isEmpty() && !window.isMinimised && main && main->Is(State::Showing)
            && main->OnScreen().topLeft() == m_desktop.windows.ClientCorner(window.id);
    };
    return QTest::qWaitFor(standsStill, kPatience);
}

bool RunningProgram::IsMinimised() const
{
    return QTest::qWaitFor([this] { return Window().isMinimised; }, kPatience);
}

bool RunningProgram::IsHidden() const
{
    const auto isHidden = [this] {
        return m_desktop.registry.Program(m_process.ProcessId()) && Window().id.isEmpty();
    };
    return QTest::qWaitFor(isHidden, kPatience);
}

bool RunningProgram::IsActive() const
{
    const auto isActive = [this] {
        const QString window = Window().id;
        return !window.isEmpty() && m_desktop.windows.ActiveWindow() == window;
    };
    return QTest::qWaitFor(isActive, kPatience);
}

QString RunningProgram::Text(const QString &control)
{
    const auto found = Control(control);
    return found ? found->Text() : u"(no such control)"_s;
}

bool RunningProgram::Is(const QString &control, State state)
{
    const auto found = Control(control);
    return found && found->Is(state);
}

bool RunningProgram::Click(const QString &control, Screen::Button button, int times)
{
    const auto isReady = [&] {
        const auto found = Control(control);
        return found && CanBeClicked(*found);
    };
    if (!QTest::qWaitFor(isReady, kPatience))
        return false;
    m_desktop.screen.Click(Control(control)->OnScreen().center(), button, times);
    return true;
}

bool RunningProgram::IsTitledShown(const QString &title) const
{
    return QTest::qWaitFor([&] { return Titled(title).has_value(); }, kPatience);
}

bool RunningProgram::ClickTitled(const QString &title)
{
    std::optional<Accessible> found;
    const auto isReady = [&] {
        found = Titled(title);
        return found.has_value();
    };
    if (!QTest::qWaitFor(isReady, kPatience))
        return false;
    m_desktop.screen.Click(found->OnScreen().center());
    return true;
}

bool RunningProgram::TypeInto(const QString &box, const QString &text)
{
    if (!Click(box) || !QTest::qWaitFor([&] { return Is(box, State::Focused); }, kPatience))
        return false;
    m_desktop.screen.Press(u"ctrl+a"_s);
    if (text.isEmpty())
        m_desktop.screen.Press(u"Delete"_s);
    else
        m_desktop.screen.Type(text);
    return QTest::qWaitFor([&] { return Text(box) == text; }, kPatience);
}

QByteArray RunningProgram::Trace() const
{
    QFile file(m_traceFile);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
