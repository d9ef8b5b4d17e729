#include "app/frm_main.h"
#include "app/long_text_box.h"
#include "controls/elided_label.h"
#include "forecast/forecast_location.h"
#include "forecast/forecast_output.h"
#include "forecast/forecast_schedule.h"
#include "zones/zone_code_transfer.h"

#include <QCheckBox>
#include <QLineEdit>

using namespace Qt::StringLiterals;

// The page "Forecast": request, schedule and reception.

namespace {

const QString kInvalidLocation = u"Invalid Location"_s;

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
    // The text is for the zone finder alone, and only while that is open.
    static_cast<void>(CheckZoneCodeTransfer(m_state.ZoneCodeThreadHandle, m_platform.http, *this));
}
