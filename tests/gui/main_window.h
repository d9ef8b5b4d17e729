#pragma once

#include "app/frm_main.h"
#include "start/command_line.h"
#include "support/fake_panel_icon.h"
#include "support/fake_transfers.h"
#include "support/fixed_clock.h"
#include "support/open_station.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>

#include <memory>

/// The main window in a folder of its own, with transfers and a clock that the test moves.
class MainWindow
{
public:
    MainWindow() = default;

    /// With the test's own transfers instead.
    explicit MainWindow(HttpTransfers &transfers) : platform{clock, transfers, panelIcon} {}

    /// Makes the program and brings it up.
    std::optional<QString> Start(const QString &command = {})
    {
        const CommandLine commandLine = ReadCommandLine(command.split(' '));
        const ProgramFiles files{.folder = m_folder.path(),
                                 .codePage = commandLine.codePage,
                                 .SessionId = commandLine.sessionId};
        window.reset(); // it still uses the previous station
        station = std::make_unique<OpenStation>(files, clock, platform.http, writer, Owner::Window);
        window = std::make_unique<frmMain>(*station, state, platform, ask);
        return window->Form_Load(commandLine);
    }

    /// Ends the program and starts it again in the same folder.
    std::optional<QString> Restart(const QString &command = {})
    {
        window->Unload(UnloadMode::Code);
        window.reset();
        state = {};
        return Start(command);
    }

    /// Lets this much time pass for the timers that drive the station, in their order.
    void PassSeconds(int seconds)
    {
        for (int i = 0; i < seconds; ++i) {
            clock.AdvanceSeconds(1);
            for (int poll = 0; poll < 4; ++poll)
                window->tmrMain_Timer();
            window->tmrWeatherCheck_Timer();
        }
    }

    void Write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(Path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", qUtf8Printable(name));
    }

    [[nodiscard]] QByteArray Read(const QString &name) const
    {
        QFile file(Path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
    }

    /// The value of `key` as the program reads it.
    [[nodiscard]] QString Value(const QString &name, QStringView section, QStringView key) const
    {
        return ReadIniValue(IniFile({Path(name), station->files.codePage}), section, key,
                            u"missing");
    }

    [[nodiscard]] bool Exists(const QString &name) const { return QFile::exists(Path(name)); }
    [[nodiscard]] QString Path(const QString &name) const { return m_folder.filePath(name); }

    template <typename Control = QWidget>
    [[nodiscard]] Control *Find(const QString &name) const
    {
        auto *control = window->findChild<Control *>(name);
        if (control == nullptr)
            qFatal("no control %s", qUtf8Printable(name));
        return control;
    }

    /// What a label or a box shows.
    [[nodiscard]] QString Text(const QString &name) const
    {
        const auto *label = window->findChild<QLabel *>(name);
        return label != nullptr ? label->text() : Find<QLineEdit>(name)->text();
    }

    void Type(const QString &name, const QString &text) const
    {
        Find<QLineEdit>(name)->setText(text);
    }

    [[nodiscard]] bool IsShown(const QString &name) const { return !Find(name)->isHidden(); }

    FixedClock clock{QDateTime(QDate(2026, 7, 4), QTime(10, 0))};
    FakeTransfers http;
    FakePanelIcon panelIcon;
    DirectFileWriter writer;
    WindowMemory state;
    Platform platform{clock, http, panelIcon};
    QStringList questions;
    bool answer = true;
    YesNoQuestion ask = [this](QWidget *, const QString &title, const QString &text) {
        questions.append(title + ": " + text);
        return answer;
    };
    std::unique_ptr<OpenStation> station;
    std::unique_ptr<frmMain> window;

private:
    QTemporaryDir m_folder;
};
