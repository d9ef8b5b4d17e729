#include "app/covering_frame.h"
#include "app/frm_main.h"
#include "app/help_texts.h"
#include "app/long_text_box.h"
#include "app/profile_list.h"
#include "app/update_cycle.h"
#include "app/value_box.h"
#include "controls/control.h"
#include "controls/elided_label.h"
#include "core/text.h"
#include "profiles/profile_file.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

// The frame "Settings" of the page "Current Weather": the choice of the profile and its locations.

namespace {

constexpr qint16 kSecondsToNewProfile = 5;

bool IsEmptiedByNewProfile(QStringView name)
{
    return name == u"txtCurrentConditions" || name == u"txtDewPoint" || name == u"txtHeatIndex"
        || name == u"txtHumidity" || name == u"txtAtmosPress";
}

} // namespace

void frmMain::FillProfileList()
{
    // The list selects its first entry by itself; nothing has been chosen yet.
    const QSignalBlocker silent(cboSelectedProfile);
    cboSelectedProfile->clear();
    for (const WeatherProfile &profile : m_state.profiles.weather) {
        if (!profile.title.isEmpty())
            cboSelectedProfile->addItem(profile.title);
    }
    cboSelectedProfile->setCurrentIndex(-1);
}

void frmMain::ShowWeatherProfile()
{
    qint16 &current = m_state.profiles.currentWeatherProfile;
    current = UsableProfileIndex(current, cboSelectedProfile->count());
    for (size_t i = 1; i < frmLoc.size(); ++i)
        frmLoc[i]->hide();
    for (size_t i = 0; i < valueBoxes.size(); ++i) {
        if (IsEmptiedByNewProfile(kValueBoxFields[i].name))
            valueBoxes[i]->SetValue({});
    }
    for (QLineEdit *box : txtLocation)
        box->clear();

    txtProfileDescription->setPlaceholderText(
        current < 0 ? u"Profiles stand in TavrinWeatherProfiles.ini. None was found there."_s
                    : u"This profile has no description."_s);
    if (const WeatherProfile *profile = m_state.profiles.Selected()) {
        txtProfileDescription->SetText(profile->description);
        lblWeatherCopyright->setText(WithYear(profile->copyright, Year()));
        ShowLocations(*profile);
        for (size_t i = 0; i < valueBoxes.size(); ++i)
            valueBoxes[i]->setToolTip(ValueHelp(kValueBoxFields[i], *profile));
    }
    PlaceDescription(*this);
    DisplayWeatherData();
}

void frmMain::ShowLocations(const WeatherProfile &profile)
{
    for (size_t i = 0; i < frmLoc.size(); ++i) {
        const QString &title = profile.locationTitle[i];
        const bool hasTitle = !TrimSpaces(title).isEmpty();
        txtLocation[i]->setText(profile.location[i]);
        txtLocation[i]->setAccessibleName(hasTitle ? title : u"Location"_s);
        lblLocationTitle[i]->setText(title);
        if (i > 0 && hasTitle)
            frmLoc[i]->show();
    }
}

void frmMain::ReloadWeatherProfile()
{
    if (WeatherProfile *profile = m_state.profiles.Selected())
        ClearWeatherProfile(*profile);
    ShowWeatherProfile();
}

void frmMain::StoreLocations()
{
    WeatherProfile *profile = m_state.profiles.Selected();
    if (profile == nullptr)
        return;
    for (size_t i = 0; i < txtLocation.size(); ++i)
        profile->location[i] = txtLocation[i]->text();
}

void frmMain::cboSelectedProfile_Click()
{
    StoreLocations(); // those of the profile that was current so far
    const auto chosen = qint16(cboSelectedProfile->currentIndex());
    if (chosen == m_state.profiles.currentWeatherProfile)
        return;
    // The list's index is the record's, gaps between the profiles or not.
    m_state.profiles.currentWeatherProfile = chosen;
    SecondsToWeatherCheck = kSecondsToNewProfile;
    ShowWeatherProfile();
    // The new service may measure another place.
    ResetTodayMinMax(m_state.minMax, m_state.files.MinMax());
}

void frmMain::cboSelectedProfile_Scroll()
{
    m_state.profiles.currentWeatherProfile = qint16(cboSelectedProfile->currentIndex());
    ShowWeatherProfile();
}

void frmMain::btnWeatherSettings_Click()
{
    frmWeatherSettings->move(0, 0);
    frmWeatherSettings->raise();
    frmWeatherSettings->show();
    cboSelectedProfile->setFocus();
}

void frmMain::btnWeatherDone_Click()
{
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
    // A frame that covers controls keeps the Tab key among its own.
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
