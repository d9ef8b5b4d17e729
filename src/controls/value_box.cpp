#include "controls/value_box.h"

#include "controls/muted_color.h"
#include "core/text.h"
#include "core/value_texts.h"

#include <QApplication>
#include <QEvent>
#include <QStyleOptionFrame>
#include <QStylePainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int kFrame = 5;      // above and below the text together
constexpr int kTextMargin = 2; // as in a line edit
constexpr int kMinWidth = 40;  // narrower is no use to anyone

} // namespace

ValueBox::ValueBox(QWidget *parent) : QLineEdit(parent)
{
    setReadOnly(true);
    ShowToolTipLiterally(this);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Maximum); // lower where room is short
    ApplyColors();
}

void ValueBox::SetValue(const QString &value)
{
    const bool wasMissing = IsMissing();
    m_value = WithoutLoneSurrogates(value);
    setText(FirstCharacters(m_value, kShownLength).toString());
    setCursorPosition(0); // a long value shows its beginning
    if (IsMissing() != wasMissing)
        ApplyColors();
}

bool ValueBox::IsMissing() const
{
    return m_value == kNotAvailable || m_value == kNotAvailableFromService;
}

// Only what differs from the palette of the desktop is set, so that all else follows it.
void ValueBox::ApplyColors()
{
    const QPalette palette = QApplication::palette(this);
    QPalette own;
    own.setColor(QPalette::Base, palette.color(QPalette::Window)); // nothing can be typed here
    if (IsMissing())
        own.setColor(QPalette::Text, MutedColor(palette, QPalette::Text, QPalette::Window));
    setPalette(own);
}

QSize ValueBox::minimumSizeHint() const
{
    return {kMinWidth, fontMetrics().height() + kFrame};
}

QRect ValueBox::Room() const
{
    QStyleOptionFrame option;
    initStyleOption(&option);
    return style()
        ->subElementRect(QStyle::SE_LineEditContents, &option, this)
        .adjusted(kTextMargin, 0, -kTextMargin, 0);
}

bool ValueBox::IsShownWhole() const
{
    return m_value.size() <= kShownLength
        && fontMetrics().horizontalAdvance(m_value) <= Room().width();
}

QString ValueBox::ToolTipText() const
{
    QStringList parts;
    if (!IsShownWhole())
        parts.append(m_value);
    parts.append(toolTip());
    if (m_value == kNotAvailable)
        parts.append(u"N/A: no value could be obtained."_s);
    parts.removeAll({});
    return parts.join(u'\n');
}

void ValueBox::changeEvent(QEvent *event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        ApplyColors(); // which ends here: the second time they are the same
}

void ValueBox::paintEvent(QPaintEvent *event)
{
    // With the focus it is a line edit that can be scrolled and copied from.
    if (hasFocus() || IsShownWhole()) {
        QLineEdit::paintEvent(event);
        return;
    }
    QStyleOptionFrame option;
    initStyleOption(&option);
    const QRect room = Room();
    QStylePainter painter(this);
    painter.drawPrimitive(QStyle::PE_PanelLineEdit, option);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(room, int(Qt::AlignLeft | Qt::AlignVCenter),
                     fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
}
