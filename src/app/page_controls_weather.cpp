#include "app/page_controls.h"
#include "controls/choice_list.h"
#include "controls/control.h"
#include "controls/covering_frame.h"
#include "controls/elided_label.h"
#include "controls/grid.h"
#include "controls/long_text_box.h"
#include "controls/value_box.h"
#include "core/twips.h"
#include "weather/raw_data_text.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kColumns = 4;  // title, box, title, box
constexpr int kWideRows = 4; // location, time, conditions and wind need the whole width
constexpr int kBelowLocations = Twips(75);
constexpr int kRawInset = Twips(60); // as far from the window's edges as the pages

/// Makes the button that closes `frame`; the Escape key presses it.
QPushButton *MakeDoneButton(CoveringFrame *frame)
{
    auto *done = MakeButton(frame, u"btnWeatherDone"_s, u"&Done"_s);
    QObject::connect(frame, &CoveringFrame::Escaped, done, &QPushButton::click);
    return done;
}

} // namespace

void PageControls::BuildWeatherPage(QGroupBox *page)
{
    auto *rows = new QGridLayout;
    rows->setVerticalSpacing(kRowGap);
    rows->setHorizontalSpacing(kGap);
    auto *status = new QVBoxLayout;
    status->setSpacing(kGap);
    BuildValueBoxes(page, rows);
    BuildStatus(page, status);

    lblDisclaimer1 =
        MakeNotice(page, u"lblDisclaimer1"_s,
                   u"This weather display is intended for configuration verification and "
                   "is not ideal for on-air reading."_s);
    lblWeatherCopyright = MakeNotice(page, u"lblWeatherCopyright"_s,
                                     u"Weather data is provided by the selected service."_s);
    lblWeatherCopyright->hide();

    auto *layout = new QVBoxLayout(page); // owned by the page
    layout->setContentsMargins(kPageMargins);
    layout->setSpacing(kGap);
    layout->addLayout(rows);
    layout->addStretch();
    layout->addLayout(status);
    layout->addStretch();
    layout->addLayout(InOnePlace(lblDisclaimer1, lblWeatherCopyright));
}

void PageControls::BuildStatus(QGroupBox *page, QVBoxLayout *rows)
{
    lblStatus = MakeControl<ElidedLabel>(page, u"lblStatus"_s, 2);
    lblStatus->setText(u"Loading..."_s);
    lblNextWeatherCheck = MakeControl<ElidedLabel>(page, u"lblNextWeatherCheck"_s, 1);
    lblNextWeatherCheck->setText(u"Loading..."_s);
    lblNextWeatherCheck->SetRoomFor(u"Next Update in 0:00:00"_s);
    btnGetWeather = MakeButton(page, u"btnGetWeather"_s, u"&Get Weather Now"_s);
    btnWeatherSettings = MakeButton(page, u"btnWeatherSettings"_s, u"&Weather Settings"_s);
    btnShowRaw = MakeButton(page, u"btnShowRaw"_s, u"Show &Raw Received Data"_s);

    auto *update = new QHBoxLayout;
    update->setSpacing(kGap);
    update->addWidget(lblNextWeatherCheck, 1);
    update->addWidget(btnGetWeather, 1);
    auto *frames = new QHBoxLayout;
    frames->setSpacing(kGap);
    frames->addWidget(btnWeatherSettings, 1);
    frames->addWidget(btnShowRaw, 1);
    rows->addWidget(lblStatus);
    rows->addLayout(update);
    rows->addLayout(frames);
}

void PageControls::BuildValueBoxes(QGroupBox *page, QGridLayout *rows)
{
    int titleWidth = 0;
    for (int i = 0; i < int(kBoxOrder.size()); ++i) {
        const QuantityRow &quantity = RowOf(kBoxOrder[size_t(i)]);
        auto *box = MakeControl<ValueBox>(page, quantity.box.toString());
        box->setToolTip(quantity.meaning.toString());
        QLabel *title = MakeTitle(page, u"lbl%1Title"_s.arg(quantity.box.sliced(3)),
                                  quantity.caption.toString(), box);
        const bool isWide = i < kWideRows;
        const int row = isWide ? i : kWideRows + (i - kWideRows) / 2;
        const int column = isWide ? 0 : (i - kWideRows) % 2 * 2;
        rows->addWidget(title, row, column);
        rows->addWidget(box, row, column + 1, 1, isWide ? kColumns - 1 : 1);
        titleWidth = std::max(titleWidth, title->sizeHint().width());
        valueBoxes[size_t(i)] = box;
    }
    for (const int column : {0, 2}) {
        rows->setColumnMinimumWidth(column, titleWidth); // equally wide boxes
        rows->setColumnStretch(column + 1, 1);
    }
}

void PageControls::BuildWeatherSettings(QGroupBox *page)
{
    frmWeatherSettings =
        MakeControl<CoveringFrame>(page, u"frmWeatherSettings"_s, 0, u"Settings"_s);
    frmWeatherSettings->resize(page->size());
    frmWeatherSettings->hide();

    cboSelectedProfile = MakeControl<ChoiceList>(frmWeatherSettings, u"cboSelectedProfile"_s);
    cboSelectedProfile->setPlaceholderText(u"No profiles found"_s);
    auto *layout = new QVBoxLayout(frmWeatherSettings); // owned by the frame
    layout->setContentsMargins(kPageMargins);
    layout->setSpacing(0); // the description goes directly below a location frame
    layout->addWidget(MakeTitle(frmWeatherSettings, u"Label1"_s,
                                u"Weather &Information Service Profile"_s, cboSelectedProfile));
    layout->addSpacing(kTitleGap);
    layout->addWidget(cboSelectedProfile);
    layout->addSpacing(kBlockGap);
    BuildLocations(frmWeatherSettings, layout);

    txtProfileDescription = MakeControl<LongTextBox>(frmWeatherSettings, u"txtProfileDescription"_s,
                                                     LongTextBox::LayOut::Always, nullptr);
    lblProfileDescription = MakeTitle(frmWeatherSettings, u"lblProfileDescription"_s,
                                      u"Weather Profile D&escription"_s, txtProfileDescription);
    lblProfileDescription->setContentsMargins(0, 0, 0, kTitleGap);
    btnWeatherDone[0] = MakeDoneButton(frmWeatherSettings);
    layout->addSpacing(kBelowLocations);
    layout->addWidget(lblProfileDescription);
    layout->addWidget(txtProfileDescription, 1);
    layout->addSpacing(kBlockGap);
    layout->addWidget(btnWeatherDone[0], 0, Qt::AlignRight);
}

void PageControls::BuildLocations(QGroupBox *frame, QVBoxLayout *rows)
{
    for (int i = 0; i < int(frmLoc.size()); ++i) {
        const QString number = QString::number(i + 1);
        auto *location = MakeControl<QFrame>(frame, u"frmLoc"_s + number);
        auto *title = MakeControl<ElidedLabel>(location, u"lblLocation%1Title"_s.arg(number), 1);
        title->setText(u"FieldTitle "_s + number);
        auto *box = MakeControl<QLineEdit>(location, u"txtLocation"_s + number);
        box->setAccessibleName(u"Location"_s);
        auto *layout = new QVBoxLayout(location); // owned by the frame
        layout->setContentsMargins(0, 0, 0, kGap);
        layout->setSpacing(kTitleGap);
        layout->addWidget(title);
        layout->addWidget(box);
        rows->addWidget(location);
        frmLoc[size_t(i)] = location;
        lblLocationTitle[size_t(i)] = title;
        txtLocation[size_t(i)] = box;
    }
}

void PageControls::BuildRawFrame(QWidget *window)
{
    frmWeatherRaw =
        MakeControl<CoveringFrame>(window, u"frmWeatherRaw"_s, kRawInset, u"Raw Received Data"_s);
    frmWeatherRaw->hide();
    txtWeatherInfo = MakeControl<LongTextBox>(frmWeatherRaw, u"txtWeatherInfo"_s,
                                              LongTextBox::LayOut::WhileShown, &RawDataText);
    txtWeatherInfo->setAccessibleName(frmWeatherRaw->title());
    txtWeatherInfo->setPlaceholderText(u"Nothing has been received yet."_s);
    btnWeatherDone[1] = MakeDoneButton(frmWeatherRaw);

    auto *layout = new QVBoxLayout(frmWeatherRaw); // owned by the frame
    layout->setContentsMargins(kPageMargins + kRawInset);
    layout->setSpacing(kBlockGap);
    layout->addWidget(txtWeatherInfo);
    layout->addWidget(btnWeatherDone[1], 0, Qt::AlignRight);
}

void PlaceDescription(const PageControls &controls)
{
    QLayout *layout = controls.frmWeatherSettings->layout();
    layout->invalidate();
    layout->activate(); // at once, even while hidden
}
