#include "app/frm_main.h"
#include "app/help_texts.h"
#include "controls/choice_list.h"
#include "controls/control.h"
#include "controls/covering_frame.h"
#include "controls/elided_label.h"
#include "controls/long_text_box.h"
#include "controls/value_box.h"
#include "core/text.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

// The frame "Settings" of the page "Current Weather": the choice of the profile and its locations.

void frmMain::FillProfileList()
{
    // The list would select its first entry, but nothing has been chosen yet.
    const QSignalBlocker silent(cboSelectedProfile);
    cboSelectedProfile->clear();
    for (const WeatherProfile &profile : m_station.Profiles().weather) {
        if (!profile.title.isEmpty())
            cboSelectedProfile->addItem(profile.title);
    }
    cboSelectedProfile->setCurrentIndex(-1);
}

void frmMain::ShowWeatherProfile()
{
    m_station.ShowWeatherProfile();
}

void frmMain::ReloadWeatherProfile()
{
    m_station.ReloadWeatherProfile();
}

void frmMain::ProfilesChanged()
{
    const WeatherProfile *profile = m_station.Profiles().Selected();
    txtProfileDescription->setPlaceholderText(
        profile == nullptr ? u"Profiles stand in TavrinWeatherProfiles.ini. None was found there."_s
                           : u"This profile has no description."_s);
    ShowLocations();
    if (profile != nullptr) {
        txtProfileDescription->SetText(profile->description);
        lblWeatherCopyright->setText(WithYear(profile->copyright, Year()));
        for (size_t i = 0; i < valueBoxes.size(); ++i)
            valueBoxes[i]->setToolTip(ValueHelp(RowOf(kBoxOrder[i]), *profile));
    }
    PlaceDescription(*this);
    WeatherChanged();
}

void frmMain::ShowLocations()
{
    const WeatherProfile *profile = m_station.Profiles().Selected();
    const std::array<QString, 4> texts = m_station.LocationTexts(); // a copy: each box sets its own
    for (size_t i = 0; i < frmLoc.size(); ++i) {
        txtLocation[i]->setText(texts[i]);
        frmLoc[i]->setHidden(!m_station.UsesLocation(i));
        if (profile == nullptr)
            continue;
        const QString &title = profile->locationTitle[i];
        txtLocation[i]->setAccessibleName(TrimSpaces(title).isEmpty() ? u"Location"_s : title);
        lblLocationTitle[i]->setText(title);
    }
}

void frmMain::cboSelectedProfile_Click()
{
    m_station.ChooseProfile(cboSelectedProfile->currentIndex(), Choice::Chosen);
}

void frmMain::cboSelectedProfile_Scroll()
{
    m_station.ChooseProfile(cboSelectedProfile->currentIndex(), Choice::ScrolledPast);
}

void frmMain::btnWeatherSettings_Click()
{
    frmWeatherSettings->Open(cboSelectedProfile);
}

void frmMain::btnWeatherDone_Click()
{
    if (!frmWeatherSettings->isHidden())
        m_station.LocationsDone();
    QPushButton *opener = frmWeatherRaw->isHidden() ? btnWeatherSettings : btnShowRaw;
    frmWeatherSettings->hide();
    frmWeatherRaw->hide();
    opener->setFocus();
}

QWidget *frmMain::FrameInFront() const
{
    if (frmWeatherRaw->isVisible())
        return frmWeatherRaw;
    return frmWeatherSettings->isVisible() ? frmWeatherSettings : nullptr;
}

bool frmMain::focusNextPrevChild(bool next)
{
    // While a frame covers controls, the Tab key stays among the controls of the frame.
    const QWidget *front = FrameInFront();
    if (front == nullptr)
        return QWidget::focusNextPrevChild(next);
    QWidget *const start = focusWidget() == nullptr ? this : focusWidget();
    const auto step = [next](QWidget *widget) {
        return next ? widget->nextInFocusChain() : widget->previousInFocusChain();
    };
    for (QWidget *widget = step(start); widget != start; widget = step(widget)) {
        const bool isStop = (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isEnabled()
                         && widget->isVisible() && front->isAncestorOf(widget);
        if (isStop) {
            widget->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return true;
        }
    }
    return true;
}
