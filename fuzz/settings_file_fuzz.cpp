#include "core/windows1252.h"
#include "fuzz_input.h"
#include "store/ini_value.h"
#include "store/settings_file.h"

namespace {

/// True when a text comes back from a file unchanged.
bool Survives(const QString &text, CodePage codePage)
{
    constexpr qsizetype kLongest = 4095;
    QString stored = text;
    for (const char *blank : {" ", "\t", "\r", "\n"})
        stored.replace(blank, "[TAB]"); // no token is longer
    const bool quoted = stored.size() > 1 && stored.front() == stored.back()
                     && (stored.front() == '"' || stored.front() == '\'');
    const auto isCut = [](QChar c) { return c == '\v' || c == '\f'; };
    const bool trimmed = !text.isEmpty() && (isCut(text.front()) || isCut(text.back()));
    const bool known = codePage == CodePage::Utf8 || FromWindows1252(ToWindows1252(text)) == text;
    return stored.size() <= kLongest && !quoted && !trimmed && known;
}

bool Survive(const Settings &settings, CodePage codePage)
{
    bool survive = Survives(settings.HTTPPort, codePage)
                && Survives(settings.ForecastZone, codePage)
                && Survives(settings.ForecastState, codePage);
    for (const auto &profile : settings.location) {
        for (const QString &location : profile)
            survive = survive && Survives(location, codePage);
    }
    return survive;
}

/// `taken` is the file's text if `file` has the key, else what it was `before`.
void CheckText(const PrivateProfile &file, const QString &section, const QString &key,
               const QString &before, const QString &taken)
{
    const std::optional<QString> there = FindIniValue(file, section, key);
    Demand(taken == there.value_or(before), "a setting is the file's, or stays as it was");
}

void CheckTaken(const PrivateProfile &file, const Settings &before, const Settings &taken)
{
    for (std::size_t i = 0; i < before.location.size(); ++i) {
        for (std::size_t n = 0; n < before.location[i].size(); ++n) {
            CheckText(file, "Profile" + QString::number(i), "location" + QString::number(n + 1),
                      before.location[i][n], taken.location[i][n]);
        }
    }
    CheckText(file, "Settings", "ForecastZone", before.ForecastZone, taken.ForecastZone);
    CheckText(file, "Settings", "ForecastState", before.ForecastState, taken.ForecastState);
    CheckText(file, "Settings", "HTTPPort", before.HTTPPort, taken.HTTPPort);
    const auto box = [&](const QString &key) { return FindIniValue(file, u"Settings", key); };
    for (std::size_t n = 0; n < before.ForecastSched.size(); ++n) {
        const std::optional<QString> text = box("ForecastSched" + QString::number(n));
        Demand(taken.ForecastSched[n] == (text ? *text != "False" : before.ForecastSched[n]),
               "a schedule box is on unless its text is False");
    }
    const std::optional<QString> minimize = box("MinimizeOnStartup");
    Demand(taken.MinimizeOnStartupEnabled
               == (minimize ? *minimize == "True" : before.MinimizeOnStartupEnabled),
           "minimising is on for True alone");
    if (!box("CurrentProfile"))
        Demand(taken.currentWeatherProfile == before.currentWeatherProfile, "the profile stays");
    Demand(taken.IsFirstRun == before.IsFirstRun, "the first run is not its business");
}

void CheckPut(PrivateProfile &file, const Settings &settings, CodePage codePage)
{
    PutSettings(file, settings);
    Settings again = {.HTTPPort = "as before"};
    Demand(!ApplySettings(again, file), "a profile number that was put is one");
    Demand(again == settings || !Survive(settings, codePage), "what was put comes out again");
}

} // namespace

// The contract: a file's settings replace those before, one by one, and what it lacks stays to the
// last blank, for the settings file and for a recovery file after it. What was put into a file
// comes out of it again, whatever other lines it holds; that takes long, so it is done only if the
// first line says so.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    FuzzInput input(bytes, size);
    const QByteArray mode = input.Line();
    const auto codePage = mode.contains("1252") ? CodePage::Windows1252 : CodePage::Utf8;
    PrivateProfile file(input.UpTo("-- recovery --"), codePage);
    const PrivateProfile recovery(input.Rest(), codePage);

    Settings stored;
    ApplySettings(stored, file);
    CheckTaken(file, {}, stored);
    Settings recovered = stored;
    ApplySettings(recovered, recovery);
    CheckTaken(recovery, stored, recovered);
    if (mode.contains("put"))
        CheckPut(file, recovered, codePage);
    return 0;
}
