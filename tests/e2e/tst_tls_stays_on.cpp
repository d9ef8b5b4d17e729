#include "e2e/files.h"
#include "support/child_program.h"
#include "support/loopback_server.h"
#include "support/test_certificates.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

/// The built program beside a server that it must not trust: nothing around the program makes it
/// ask that server for anything.
class tst_tls_stays_on final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void whateverTheEnvironmentSays_data();
    void whateverTheEnvironmentSays();
    void whateverTheFilesSay();
    void whereverTheSourcesLook();

private:
    [[nodiscard]] QString Path(const QString &name) const { return m_folder->filePath(name); }
    [[nodiscard]] QProcessEnvironment Environment() const;
    void WriteFiles(const QByteArray &moreKeys) const;
    void ExpectRefusal(const QProcessEnvironment &environment);

    const TestCertificates m_certificates;
    std::unique_ptr<LoopbackServer> m_server;
    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_tls_stays_on::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_server = std::make_unique<LoopbackServer>(
        [](LoopbackConnection &connection, const std::string &) { connection.Reply("t=61;"); },
        m_certificates.ServerContext(ServerCertificate::SelfSigned));
}

void tst_tls_stays_on::cleanup()
{
    m_server.reset();
    m_folder.reset();
}

QProcessEnvironment tst_tls_stays_on::Environment() const
{
    QProcessEnvironment environment;
    const auto users = QProcessEnvironment::systemEnvironment();
    for (const QString &name : users.keys()) {
        if (!name.endsWith("_proxy", Qt::CaseInsensitive))
            environment.insert(name, users.value(name));
    }
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    environment.insert("TAVRIN_WEATHER_FOLDER", m_folder->path());
    environment.insert("XDG_RUNTIME_DIR", m_folder->path()); // Qt warns where there is none
    environment.insert("TAVRIN_TRACE", Path("trace.txt"));
    return environment;
}

/// @param moreKeys in the profile's section and in that of the settings.
void tst_tls_stays_on::WriteFiles(const QByteArray &moreKeys) const
{
    Write(Path("TavrinWeatherProfiles.ini"),
          "[Profile0]\r\ntitle=Service\r\nbaseURL=" + QByteArray::fromStdString(m_server->Url())
              + "\r\nlocation1Title=Place\r\nrequired=temperature\r\ntemperatureOpen=t=\r\n"
                "temperatureClose=;\r\n"
              + moreKeys);
    Write(Path("TavrinWeatherSettings.ini"),
          "[Profile0]\r\nlocation1=a\r\n[Settings]\r\nFirstRun=False\r\n" + moreKeys);
}

/// Starts the program, which asks for the weather at once.
void tst_tls_stays_on::ExpectRefusal(const QProcessEnvironment &environment)
{
    ChildProgram program(TAVRIN_PROGRAM, {}, environment);
    const QByteArray refusal = "Weather transfer failed: SSL certificate problem";
    QTRY_VERIFY_WITH_TIMEOUT(Bytes(Path("trace.txt")).contains(refusal), kPatience);
    program.Terminate();
    QCOMPARE(program.ExitCode(), 0);
    QVERIFY(m_server->Accepted() > 0); // it was there, and was not asked
    QVERIFY(m_server->Heads().empty());
    QVERIFY(!QFile::exists(Path("Weather.ini")));
}

void tst_tls_stays_on::whateverTheEnvironmentSays_data()
{
    using Variables = QMap<QString, QString>;
    QTest::addColumn<Variables>("variables"); // %1: the folder
    QTest::newRow("nothing") << Variables{};
    QTest::newRow("files of curl") << Variables{{"HOME", "%1"}, {"CURL_HOME", "%1"}};
    QTest::newRow("a configuration of OpenSSL") << Variables{{"OPENSSL_CONF", "%1/openssl.cnf"}};
    QTest::newRow("names that others listen to") << Variables{
        {"CURL_INSECURE", "1"},     {"CURL_SSL_VERIFY", "0"}, {"SSL_NO_VERIFY", "1"},
        {"SSL_VERIFY", "0"},        {"TAVRIN_INSECURE", "1"}, {"TAVRIN_NO_VERIFY", "1"},
        {"TAVRIN_SSL_VERIFY", "0"}, {"TAVRIN_TLS", "0"}};
}

void tst_tls_stays_on::whateverTheEnvironmentSays()
{
    using Variables = QMap<QString, QString>;
    QFETCH(Variables, variables);
    Write(Path(".curlrc"), "insecure\nproxy-insecure\n");
    Write(Path("openssl.cnf"), "openssl_conf = all\n[all]\nssl_conf = ssl\n[ssl]\n"
                               "system_default = relaxed\n[relaxed]\nVerifyMode = Request\n");
    WriteFiles({});
    auto environment = Environment();
    for (auto variable = variables.cbegin(); variable != variables.cend(); ++variable)
        environment.insert(variable.key(), QString(*variable).replace("%1", m_folder->path()));

    ExpectRefusal(environment);
}

void tst_tls_stays_on::whateverTheFilesSay()
{
    QByteArray keys;
    for (const char *name : {"verify", "verifyPeer", "verifyHost", "sslVerify", "checkCertificate"})
        keys += QByteArray(name) + "=FALSE\r\n";
    for (const char *name : {"insecure", "ignoreCertificates", "allowSelfSigned"})
        keys += QByteArray(name) + "=TRUE\r\n";
    WriteFiles(keys);

    ExpectRefusal(Environment());
}

/// A way that nobody has thought of yet would have to change one of these two lines.
void tst_tls_stays_on::whereverTheSourcesLook()
{
    QByteArrayList lines;
    QDirIterator files(TAVRIN_SOURCE_DIR "/src", {"*.cpp", "*.h"}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        for (const QByteArray &line : Bytes(files.next()).split('\n')) {
            if (line.contains("_VERIFY") || line.contains("CURLOPT_SSL_CTX")
                || line.contains("CURLOPT_SSL_OPTIONS"))
                lines.append(line.trimmed());
        }
    }

    QCOMPARE(lines, (QByteArrayList{"Set(CURLOPT_SSL_VERIFYPEER, 1L);",
                                    "Set(CURLOPT_SSL_VERIFYHOST, 2L);"}));
}

QTEST_GUILESS_MAIN(tst_tls_stays_on)
#include "tst_tls_stays_on.moc"
