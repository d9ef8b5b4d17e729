#include "app/frm_main.h"
#include "controls/covering_frame.h"
#include "controls/elided_label.h"
#include "controls/long_text_box.h"
#include "controls/value_box.h"

#include <QLineEdit>
#include <QPushButton>

// The timers and the page "Current Weather".

void frmMain::tmrMain_Timer()
{
    if (m_station.Weather().WeatherThreadHandle() == 0)
        btnGetWeather->setEnabled(true);
    m_station.Poll();
}

void frmMain::tmrWeatherCheck_Timer()
{
    m_station.TickSecond();
}

void frmMain::CountdownsChanged()
{
    lblNextWeatherCheck->setText(m_station.NextWeatherCheck());
    lblNextForecastCheck->setText(m_station.NextForecastCheck());
}

void frmMain::StartWeatherRequest()
{
    m_station.StartWeatherRequest();
}

void frmMain::RequestStarted()
{
    StartIconAnimation();
}

void frmMain::btnGetWeather_Click()
{
    m_station.RequestWeather();
    txtFocus->setFocus();
}

void frmMain::tmrDisclamer_Timer()
{
    const bool showDisclaimers = lblDisclaimer1->isHidden();
    lblDisclaimer1->setVisible(showDisclaimers);
    lblDisclaimer2->setVisible(showDisclaimers);
    lblWeatherCopyright->setVisible(!showDisclaimers);
    lblForecastCopyright->setVisible(!showDisclaimers);
}

void frmMain::DisplayWeatherData()
{
    m_station.DisplayWeatherData();
}

void frmMain::ClearWeatherFields()
{
    m_station.ClearWeatherFields();
}

void frmMain::SaveWeatherData()
{
    m_station.SaveWeatherData();
}

void frmMain::WeatherChanged()
{
    const WeatherValues &shown = m_station.ShownWeather();
    for (size_t i = 0; i < valueBoxes.size(); ++i)
        valueBoxes[i]->SetValue(shown[kBoxOrder[i]]);
}

void frmMain::btnShowRaw_Click()
{
    frmWeatherRaw->Open(btnWeatherDone[1]);
}

void frmMain::SetStatus(const QString &text)
{
    lblStatus->setText(text);
}

void frmMain::RawReply(const QString &text)
{
    txtWeatherInfo->SetText(text);
}
