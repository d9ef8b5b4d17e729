#include "profile_check/run_check.h"

#include "net/body_text.h"
#include "profile_check/checked_reply.h"
#include "profiles/profile_file.h"
#include "weather/weather_request.h"

#include <QFile>
#include <QFileInfo>

#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int kNotParsed = 1;
constexpr int kUnreadable = 2;

/// A reply and its source.
struct NamedReply
{
    QString name = {};
    QString text = {};
};

CheckResult Failed(int exitCode, const QString &problem)
{
    return {.exitCode = exitCode, .output = {}, .problem = problem};
}

/// The bytes of a file; nothing, with one line in `problem`, if it cannot be read.
std::optional<QByteArray> FileBytes(const QString &name, QString &problem)
{
    QFile file(name);
    if (QFileInfo(name).isDir()) {
        problem = u"cannot read %1: it is a folder"_s.arg(name);
    } else if (!file.open(QIODevice::ReadOnly)) {
        problem = u"cannot read %1: %2"_s.arg(name, file.errorString());
    } else {
        QByteArray bytes = file.readAll();
        if (file.error() == QFile::NoError)
            return bytes;
        problem = u"cannot read %1: %2"_s.arg(name, file.errorString());
    }
    return {};
}

std::optional<WeatherProfile> LoadProfile(const CheckOptions &options, const QString &file,
                                          QString &problem)
{
    if (!FileBytes(file, problem))
        return {};
    ProfileTable profiles;
    LoadWeatherProfiles(profiles, {file});
    WeatherProfile &profile = profiles.weather.at(options.profile);
    if (profile.title.isEmpty()) {
        problem = u"%1 has no profile %2"_s.arg(file).arg(options.profile);
        return {};
    }
    profile.location = options.location;
    return profile;
}

/// Reads all replies before anything is printed.
std::optional<std::vector<NamedReply>> ReadReplies(const QStringList &names, QString &problem)
{
    std::vector<NamedReply> replies;
    for (const QString &name : names) {
        const std::optional<QByteArray> bytes = FileBytes(name, problem);
        if (!bytes)
            return {};
        replies.push_back({.name = name, .text = BodyText(*bytes, {})});
    }
    return replies;
}

CheckResult CheckAll(const WeatherProfile &profile, const std::vector<NamedReply> &replies,
                     CheckFormat format, const QDateTime &now)
{
    CheckResult result;
    for (const NamedReply &reply : replies) {
        const CheckedReply checked = CheckReply(profile, reply.name, reply.text, now);
        if (!checked.parsed)
            result.exitCode = kNotParsed;
        result.output += format == CheckFormat::Ini ? IniText(checked) : TableText(checked);
    }
    return result;
}

CheckResult Fetch(const CheckOptions &options, const WeatherProfile &profile, HttpTransfers &http,
                  const QDateTime &now)
{
    const QString address = RequestAddress(profile, options.port);
    QString text;
    if (const int error = http.Net_HttpGetText(address, text); error != 0)
        return Failed(kNotParsed, u"no reply from %1: error %2"_s.arg(address).arg(error));
    return CheckAll(profile, {{.name = address, .text = text}}, options.format, now);
}

} // namespace

CheckResult RunCheck(const CheckOptions &options, const QString &profileFile, HttpTransfers &http,
                     const QDateTime &now)
{
    if (options.help)
        return {.exitCode = 0, .output = CheckHelp(), .problem = {}};

    QString problem;
    const QString file = options.profileFile.isEmpty() ? profileFile : options.profileFile;
    const std::optional<WeatherProfile> profile = LoadProfile(options, file, problem);
    if (!profile)
        return Failed(kUnreadable, problem);
    if (options.fetch)
        return Fetch(options, *profile, http, now);
    const std::optional<std::vector<NamedReply>> replies = ReadReplies(options.replies, problem);
    if (!replies)
        return Failed(kUnreadable, problem);
    return CheckAll(*profile, *replies, options.format, now);
}
