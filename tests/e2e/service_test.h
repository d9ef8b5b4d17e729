#pragma once

#include "e2e/files.h"
#include "support/child_program.h"
#include "support/loopback_server.h"
#include "support/one_place.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <memory>

inline const QByteArray kSettings = "; of the station\r\n[Profile0]\r\nlocation1=Salem\r\n"
                                    "[Settings]\r\nForecastZone=MDZ011\r\nForecastState=MD\r\n";
inline const QByteArray kNoLocation = "[Settings]\r\nForecastZone=MDZ011\r\nForecastState=MD\r\n";
inline const QByteArray kNoZone = "[Profile0]\r\nlocation1=Salem\r\n";

/// A weather service and a forecast service, on the loopback.
class Host
{
public:
    Host()
        : m_server([this](LoopbackConnection &connection, const std::string &head) {
            const bool isForecast = head.starts_with("GET /data/forecasts/zone/");
            if (isForecast ? failsForecast : failsWeather)
                connection.Reply("gone", {}, "404 Not Found");
            else
                connection.Reply(isForecast ? "MDZ011-222100-\nTODAY. Sunny.\n$$"
                                            : kOnePlaceReply.toStdString());
        })
    {}

    [[nodiscard]] QByteArray Address() const
    {
        return "http://127.0.0.1:" + QByteArray::number(m_server.Port());
    }

    [[nodiscard]] QByteArray Profiles() const
    {
        return QByteArray(kOnePlaceProfile).replace("http://weather.test%PORT%", Address())
             + "[ForecastProfile0]\r\nhost=" + Address() + "\r\n";
    }

    /// Whether somebody has asked for the path.
    [[nodiscard]] bool WasAskedFor(const std::string &path) const
    {
        return std::ranges::any_of(m_server.Heads(), [&](const std::string &head) {
            return head.starts_with("GET " + path + ' ');
        });
    }

    std::atomic_bool failsWeather = false;
    std::atomic_bool failsForecast = false;

private:
    LoopbackServer m_server;
};

/// The built program without a window in a folder of its own, beside services on the loopback.
class ServiceTest : public QObject
{
protected:
    void Begin()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
        m_host = std::make_unique<Host>();
        Write("TavrinWeatherProfiles.ini", m_host->Profiles());
        Write("TavrinWeatherSettings.ini", kSettings);
        m_errors.clear();
    }

    void Finish()
    {
        m_service.reset();
        m_host.reset();
        m_folder.reset();
    }

    [[nodiscard]] QString Path(const QString &name) const { return m_folder->filePath(name); }

    void Write(const QString &name, const QByteArray &bytes) const { ::Write(Path(name), bytes); }

    [[nodiscard]] std::unique_ptr<ChildProgram> Start(const QString &program,
                                                      const QStringList &arguments = {}) const
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        for (const char *proxy : {"http_proxy", "HTTP_PROXY", "all_proxy", "ALL_PROXY"})
            environment.remove(proxy);
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        environment.insert("TAVRIN_WEATHER_FOLDER", m_folder->path());
        environment.insert("XDG_RUNTIME_DIR", m_folder->path()); // Qt warns where there is none
        return std::make_unique<ChildProgram>(program, arguments, environment);
    }

    void StartService(const QStringList &arguments = {})
    {
        m_service = Start(TAVRIN_SERVICE, arguments);
    }

    void WaitForRequests() const
    {
        QTRY_VERIFY_WITH_TIMEOUT(m_host->WasAskedFor("/now?q=Salem"), kPatience);
    }

    /// Runs the service to its end.
    void Run(const QStringList &arguments)
    {
        const auto service = Start(TAVRIN_SERVICE, arguments);
        m_exitCode = service->ExitCode();
        m_output = service->Output();
        m_errors = service->Errors().replace(m_folder->path().toUtf8(), "~");
    }

    void Signal(int number) const { QCOMPARE(::kill(pid_t(m_service->ProcessId()), number), 0); }

    void WaitForErrors(const QByteArray &expected)
    {
        const auto complete = [&] {
            m_errors += m_service->Errors().replace(m_folder->path().toUtf8(), "~");
            return m_errors.size() >= expected.size();
        };
        QTRY_VERIFY_WITH_TIMEOUT(complete(), kPatience);
        QCOMPARE(m_errors, expected);
    }

    /// The files in the folder, in alphabetical order.
    [[nodiscard]] QStringList Files() const
    {
        return QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Host> m_host;
    std::unique_ptr<ChildProgram> m_service;
    int m_exitCode = 0; ///< Of Run(), and so are the next.
    QByteArray m_output;
    QByteArray m_errors;
};
