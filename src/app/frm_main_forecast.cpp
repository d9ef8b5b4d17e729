#include "app/frm_main.h"
#include "app/long_text_box.h"
#include "controls/elided_label.h"
#include "forecast/forecast_location.h"
#include "forecast/forecast_output.h"
#include "forecast/forecast_schedule.h"
#include "zones/frm_find_noaa_zones.h"
#include "zones/zone_code_transfer.h"

#include <QCheckBox>
#include <QLineEdit>

using namespace Qt::StringLiterals;

// The page "Forecast": request, schedule and reception.

namespace {

const QString kInvalidLocation = u"Invalid Location"_s;
constexpr qint16 kNewZoneDelay = 5000; // milliseconds

} // namespace

void frmMain::StartForecastRequest()
{
    m_state.ForecastRequestCountdown = 0;
    const QString port = txtHTTPPort->text();
    const ForecastAddress address{.host = m_state.profiles.forecast.host,
                                  .port = port,
                                  .state = txtStateCode->text(),
                                  .zoneCode = txtZoneCode->text()};
    const bool started = RequestForecast(address, m_state.forecast, m_state.ForecastThreadHandle,
                                         m_platform.http, *this);
    if (started)
        SetStatus(u"Requesting Forecast..."_s);
    else
        SetStatus(u"Unable to open HTTP handle on port "_s + port + u" for forecast request"_s);
}

void frmMain::btnGetForecast_Click()
{
    if (IsForecastLocationThere())
        StartForecastRequest();
    else
        lblNextForecastCheck->setText(kInvalidLocation);
    txtFocus->setFocus();
}

bool frmMain::IsForecastLocationThere() const
{
    return IsForecastLocationGiven(txtStateCode->text(), txtZoneCode->text());
}

void frmMain::CountDownToForecast()
{
    qint16 &countdown = m_state.ForecastRequestCountdown;
    if (countdown <= 0)
        return;
    countdown = qint16(qMax(0, countdown - tmrMain.interval()));
    if (countdown > 0)
        return;
    if (IsForecastLocationThere())
        StartForecastRequest();
    else
        lblNextForecastCheck->setText(kInvalidLocation);
}

void frmMain::CheckForecastSchedule()
{
    const QString zoneCode = txtZoneCode->text();
    const QString stateCode = txtStateCode->text();
    ScheduleInput input{.now = m_platform.clock.Now().time().msecsSinceStartOfDay() / 1000,
                        .zoneCode = zoneCode,
                        .stateCode = stateCode,
                        .countdown = m_state.ForecastRequestCountdown};
    for (size_t i = 0; i < input.slotChecked.size(); ++i)
        input.slotChecked[i] = chkForecastTime[i]->isChecked();

    const ScheduleOutcome outcome = ::CheckForecastSchedule(m_state.ScheduleFired, input);
    if (outcome.startRequest)
        StartForecastRequest();
    lblNextForecastCheck->setText(outcome.text);
}

void frmMain::PollForecastTransfer()
{
    const ForecastPoll poll = PollForecast(m_state.forecast, m_state.profiles.forecast,
                                           m_state.ForecastThreadHandle, m_platform.http, *this);
    switch (poll) {
    case ForecastPoll::Waiting:
        break;
    case ForecastPoll::ShowAndSave:
        txtForecast->SetText(m_state.profiles.forecast.forecastText);
        SaveForecastData();
        break;
    case ForecastPoll::RequestAgain:
        m_state.ForecastRequestCountdown = kForecastRetryMilliseconds;
        break;
    }
}

void frmMain::SaveForecastData()
{
    ::SaveForecastData(m_state.files.Forecast(), m_state.profiles.forecast, Year());
}

void frmMain::PollZoneCodeTransfer()
{
    const std::optional<QString> text =
        CheckZoneCodeTransfer(m_state.ZoneCodeThreadHandle, m_platform.http, *this);
    if (text && m_zoneFinder != nullptr)
        m_zoneFinder->SetZonesTest(*text);
}

void frmMain::btnSelectNOAAZone_Click()
{
    if (!m_state.ZoneFinderOpen) { // one that was just closed may not be gone yet
        m_zoneFinder =
            new frmFindNOAAZones(m_platform.http, m_platform.clock, m_state.profiles.forecast.host,
                                 m_state.ZoneFinderOpen, m_state.SelectedStateIndex, this);
        connect(m_zoneFinder, &frmFindNOAAZones::ZoneSelected, this, &frmMain::TakeZone);
        m_zoneFinder->Form_Load();
    }
    m_zoneFinder->showNormal(); // also when it has been minimised
    m_zoneFinder->raise();
    m_zoneFinder->activateWindow();
}

void frmMain::TakeZone(const QString &zone, const QString &stateCode)
{
    const bool differs = zone != txtZoneCode->text();
    txtZoneCode->setText(zone);
    txtStateCode->setText(stateCode);
    if (differs)
        m_state.ForecastRequestCountdown = kNewZoneDelay;
}

void frmMain::UnloadZoneFinder()
{
    if (!m_state.ZoneFinderOpen || m_zoneFinder == nullptr)
        return;
    m_zoneFinder->Form_Unload();
    delete m_zoneFinder; // at once, with the transfers that it may still have
}
