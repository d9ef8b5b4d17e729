// Saves one picture with all frames of the tray icon, in the sizes of the usual panels and on
// panels of several shades: TrayIconSheet FILE
#include "graph/frm_graphics.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// A strip of panel under the frames.
struct Panel
{
    QColor background;
    QColor text;
};

constexpr std::array kPanels = {
    Panel{QColor(255, 255, 255), QColor(90, 90, 90)},
    Panel{QColor(222, 224, 227), QColor(70, 70, 70)},
    Panel{QColor(128, 128, 128), QColor(20, 20, 20)},
    Panel{QColor(49, 54, 59), QColor(200, 200, 200)},
    Panel{QColor(0, 0, 0), QColor(180, 180, 180)},
};
constexpr std::array kPanelSizes = {16, 22, 24, 48}; // pixels

constexpr int kFrames = 11;
constexpr int kColumn = 56;    // one frame
constexpr int kSizeWidth = 40; // the sizes on the left
constexpr int kSetGap = 24;
constexpr int kSetWidth = kFrames * kColumn;
constexpr int kCaption = 26;
constexpr int kRowGap = 10;
constexpr int kFontSize = 12;

int PanelHeight()
{
    int height = kCaption + kRowGap;
    for (const int size : kPanelSizes)
        height += size + kRowGap;
    return height;
}

void DrawSizes(QPainter &painter, int top)
{
    for (const int size : kPanelSizes) {
        painter.drawText(QRect(0, top, kSizeWidth, size), Qt::AlignCenter, QString::number(size));
        top += size + kRowGap;
    }
}

/// The frames of one set in all sizes, under their names.
void DrawSet(QPainter &painter, const std::array<QIcon, kFrames> &icons, const QString &name,
             QPoint corner)
{
    int x = corner.x();
    int frame = 0;
    for (const QIcon &icon : icons) {
        const QString caption = frame == 0 ? name + u" 0"_s : QString::number(frame);
        painter.drawText(QRect(x, corner.y(), kColumn, kCaption), Qt::AlignCenter, caption);
        int y = corner.y() + kCaption;
        for (const int size : kPanelSizes) {
            painter.drawPixmap(x + (kColumn - size) / 2, y, icon.pixmap(QSize(size, size)));
            y += size + kRowGap;
        }
        x += kColumn;
        ++frame;
    }
}

QImage Sheet(const frmGraphics &form)
{
    constexpr int kActiveLeft = kSizeWidth + kSetWidth + kSetGap;
    QImage sheet(kActiveLeft + kSetWidth + kSetGap, int(kPanels.size()) * PanelHeight(),
                 QImage::Format_RGB32);
    QPainter painter(&sheet);
    QFont font = painter.font();
    font.setPixelSize(kFontSize);
    painter.setFont(font);
    int top = 0;
    for (const Panel &panel : kPanels) {
        painter.fillRect(0, top, sheet.width(), PanelHeight(), panel.background);
        painter.setPen(panel.text);
        DrawSizes(painter, top + kCaption);
        DrawSet(painter, form.taskBarIcon, u"idle"_s, {kSizeWidth, top});
        DrawSet(painter, form.taskBarActiveIcon, u"active"_s, {kActiveLeft, top});
        top += PanelHeight();
    }
    return sheet;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 2) {
        std::fputs("usage: TrayIconSheet FILE\n", stderr);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen"); // the picture is the same on every desktop
    const QString file = QString::fromLocal8Bit(argv[1]);
    const QApplication app(argc, argv);

    bool loaded = false;
    const frmGraphics form(loaded);
    if (!Sheet(form).save(file)) {
        std::fprintf(stderr, "TrayIconSheet: cannot write %s\n", qUtf8Printable(file));
        return 1;
    }
    return 0;
}
