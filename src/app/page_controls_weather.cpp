#include "app/long_text_box.h"
#include "app/page_controls.h"
#include "app/profile_list.h"
#include "app/value_box.h"
#include "controls/control.h"
#include "controls/elided_label.h"
#include "weather/weather_data.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int kMargin = 6;
constexpr int kGap = 3;
constexpr int kRowGap = 4;
constexpr int kColumns = 4;  // title, box, title, box
constexpr int kWideRows = 4; // location, time, conditions and wind need the whole width

// The settings frame: its parts down to the location frames have fixed places, since the
// description moves up to the last location frame that is shown.
constexpr int kInset = Twips(120);
constexpr int kListTitleTop = Twips(330);
constexpr int kTitleHeight = Twips(285);
constexpr int kListTop = Twips(615);
constexpr int kListHeight = Twips(405);
constexpr int kLocationsTop = Twips(1095);
constexpr int kLocationHeight = Twips(735);
constexpr int kBelowLocations = Twips(75);
constexpr int kDoneHeight = Twips(420);

} // namespace

void PageControls::BuildWeatherPage(QGroupBox *page)
{
    auto *rows = new QGridLayout;
    rows->setVerticalSpacing(kRowGap);
    rows->setHorizontalSpacing(kMargin);
    btnGetWeather = MakeControl<QPushButton>(page, u"btnGetWeather"_s, u"&Get Weather Now"_s);
    btnWeatherSettings =
        MakeControl<QPushButton>(page, u"btnWeatherSettings"_s, u"&Weather Settings"_s);
    btnShowRaw = MakeControl<QPushButton>(page, u"btnShowRaw"_s, u"Show &Raw Received Data"_s);
    BuildValueBoxes(page, rows);

    lblDisclaimer1 = MakeControl<ElidedLabel>(page, u"lblDisclaimer1"_s, 2);
    lblDisclaimer1->setText(u"This weather display is intended for configuration verification and "
                            "is not ideal for on-air reading."_s);
    lblWeatherCopyright = MakeControl<ElidedLabel>(page, u"lblWeatherCopyright"_s, 2);
    lblWeatherCopyright->setText(u"Weather data is provided by the selected service."_s);
    lblWeatherCopyright->hide();
    lblStatus = MakeControl<ElidedLabel>(page, u"lblStatus"_s, 2);
    lblStatus->setText(u"Loading..."_s);
    lblNextWeatherCheck = MakeControl<ElidedLabel>(page, u"lblNextWeatherCheck"_s, 1);
    lblNextWeatherCheck->setText(u"Loading..."_s);

    auto *notices = new QGridLayout; // the two take turns in one place
    notices->addWidget(lblDisclaimer1, 0, 0);
    notices->addWidget(lblWeatherCopyright, 0, 0);
    auto *buttons = new QGridLayout;
    buttons->setSpacing(kGap);
    buttons->addWidget(lblNextWeatherCheck, 0, 0);
    buttons->addWidget(btnGetWeather, 0, 1);
    buttons->addWidget(btnWeatherSettings, 1, 0);
    buttons->addWidget(btnShowRaw, 1, 1);
    buttons->setColumnStretch(0, 1);
    buttons->setColumnStretch(1, 1);

    auto *layout = new QVBoxLayout(page); // owned by the page
    layout->setContentsMargins(kMargin, kGap, kMargin, kMargin);
    layout->setSpacing(kMargin);
    layout->addLayout(rows);
    layout->addStretch();
    layout->addLayout(notices);
    layout->addWidget(lblStatus);
    layout->addLayout(buttons);
}

void PageControls::BuildValueBoxes(QGroupBox *page, QGridLayout *rows)
{
    for (int i = 0; i < int(kValueBoxFields.size()); ++i) {
        const ValueBoxField &field = kValueBoxFields[size_t(i)];
        auto *box = MakeControl<ValueBox>(page, field.name.toString());
        auto *title = MakeControl<QLabel>(page, u"lbl%1Title"_s.arg(field.name.sliced(3)),
                                          field.caption.toString());
        title->setBuddy(box);
        if (i < kWideRows) {
            rows->addWidget(title, i, 0);
            rows->addWidget(box, i, 1, 1, kColumns - 1);
        } else {
            const int row = kWideRows + (i - kWideRows) / 2;
            const int column = (i - kWideRows) % 2 * 2;
            rows->addWidget(title, row, column);
            rows->addWidget(box, row, column + 1);
        }
        valueBoxes[size_t(i)] = box;
    }
    rows->setColumnStretch(1, 1);
    rows->setColumnStretch(3, 1);
}

void PageControls::BuildWeatherSettings(QGroupBox *page)
{
    frmWeatherSettings = MakeControl<QGroupBox>(page, u"frmWeatherSettings"_s, u"Settings"_s);
    frmWeatherSettings->setAutoFillBackground(true); // it covers the page
    frmWeatherSettings->resize(page->size());
    frmWeatherSettings->hide();
    const int width = frmWeatherSettings->width() - 2 * kInset;

    auto *listTitle = MakeControl<QLabel>(frmWeatherSettings, u"Label1"_s,
                                          u"Weather &Information Service Profile"_s);
    listTitle->setGeometry(kInset, kListTitleTop, width, kTitleHeight);
    cboSelectedProfile = MakeControl<ProfileList>(frmWeatherSettings, u"cboSelectedProfile"_s);
    cboSelectedProfile->setGeometry(kInset, kListTop, width, kListHeight);
    listTitle->setBuddy(cboSelectedProfile);
    BuildLocations(frmWeatherSettings);

    lblProfileDescription = MakeControl<QLabel>(frmWeatherSettings, u"lblProfileDescription"_s,
                                                u"Weather Profile D&escription"_s);
    lblProfileDescription->resize(width, kTitleHeight);
    txtProfileDescription =
        MakeControl<QPlainTextEdit>(frmWeatherSettings, u"txtProfileDescription"_s);
    txtProfileDescription->setReadOnly(true);
    txtProfileDescription->setTabChangesFocus(true);
    lblProfileDescription->setBuddy(txtProfileDescription);

    auto *done = MakeControl<QPushButton>(frmWeatherSettings, u"btnWeatherDone"_s, u"&Done"_s);
    const int doneWidth = width / 3;
    done->setGeometry(kInset + width - doneWidth, page->height() - kDoneHeight - kInset, doneWidth,
                      kDoneHeight);
    btnWeatherDone[0] = done;
    PlaceDescription(*this, *frmLoc.back());
}

void PageControls::BuildLocations(QGroupBox *frame)
{
    const int width = frame->width() - 2 * kInset;
    for (int i = 0; i < int(frmLoc.size()); ++i) {
        const QString number = QString::number(i + 1);
        auto *location = MakeControl<QFrame>(frame, u"frmLoc"_s + number);
        location->setGeometry(kInset, kLocationsTop + i * kLocationHeight, width, kLocationHeight);
        auto *title = MakeControl<ElidedLabel>(location, u"lblLocation%1Title"_s.arg(number), 1);
        title->setText(u"FieldTitle "_s + number);
        auto *box = MakeControl<QLineEdit>(location, u"txtLocation"_s + number);
        auto *layout = new QVBoxLayout(location); // owned by the frame
        layout->setContentsMargins(0, 0, 0, kGap);
        layout->setSpacing(0);
        layout->addWidget(title);
        layout->addWidget(box);
        frmLoc[size_t(i)] = location;
        lblLocationTitle[size_t(i)] = title;
        txtLocation[size_t(i)] = box;
    }
}

void PageControls::BuildRawFrame(QWidget *window)
{
    frmWeatherRaw = MakeControl<QGroupBox>(window, u"frmWeatherRaw"_s, u"Raw Received Data"_s);
    frmWeatherRaw->setAutoFillBackground(true); // it covers the pages
    frmWeatherRaw->hide();
    txtWeatherInfo = MakeControl<LongTextBox>(frmWeatherRaw, u"txtWeatherInfo"_s,
                                              LongTextBox::LayOut::WhileShown, &RawDataText);
    txtWeatherInfo->setAccessibleName(frmWeatherRaw->title());
    btnWeatherDone[1] = MakeControl<QPushButton>(frmWeatherRaw, u"btnWeatherDone"_s, u"&Done"_s);

    auto *layout = new QVBoxLayout(frmWeatherRaw); // owned by the frame
    layout->addWidget(txtWeatherInfo);
    layout->addWidget(btnWeatherDone[1], 0, Qt::AlignRight);
}

void PlaceDescription(const PageControls &controls, const QFrame &lastFrame)
{
    const QRect frame = lastFrame.geometry();
    const int top = frame.top() + frame.height() + kBelowLocations;
    controls.lblProfileDescription->move(kInset, top);
    const int boxTop = top + controls.lblProfileDescription->height();
    const int bottom = controls.btnWeatherDone[0]->y() - kMargin;
    controls.txtProfileDescription->setGeometry(kInset, boxTop, frame.width(), bottom - boxTop);
}
