// Makes a picture of every state of the windows, light and dark, at the scale of QT_SCALE_FACTOR.
//
//     window_pictures FOLDER [FONT]      FONT: size of the font in percent of the usual one
//     window_pictures --sheet FOLDER     all pictures of the folder in its contact-sheet.png

#include "gui/window_states.h"
#include "pictures/contact_sheet.h"

#include <QApplication>
#include <QDir>
#include <QPainter>

#include <cstdio>

namespace {

constexpr int kTitleHeight = 24; // logical pixels
constexpr int kFrame = 1;

/// The window in a plain frame with its title, like that of no particular desktop.
QImage Framed(QWidget &window)
{
    const QPixmap client = window.grab();
    const bool hasTitle = window.windowType() != Qt::Popup;
    const int top = hasTitle ? kTitleHeight : kFrame;
    const QSize size(window.width() + 2 * kFrame, window.height() + top + kFrame);
    const qreal ratio = client.devicePixelRatio();
    QImage image(size * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    const QPalette palette = QApplication::palette();
    image.fill(palette.color(QPalette::Mid));
    QPainter painter(&image);
    painter.setFont(QApplication::font());
    painter.setPen(palette.color(QPalette::WindowText));
    if (hasTitle)
        painter.drawText(QRect(0, 0, size.width(), kTitleHeight), int(Qt::AlignCenter),
                         window.windowTitle());
    painter.drawPixmap(kFrame, top, client);
    return image;
}

/// Makes the pictures of one palette.
/// @return false when one could not be written.
bool MakePictures(const QDir &folder, const QString &paletteName)
{
    const int percent = qRound(qApp->devicePixelRatio() * 100);
    bool written = true;
    VisitWindowStates([&](const ShownState &state, QWidget &window) {
        const QString name = PictureName(state.name, paletteName, percent);
        written = SaveSmall(Framed(window), folder.filePath(name)) && written;
    });
    return written;
}

int MakeSheet(const QDir &folder)
{
    const QImage sheet = ContactSheet(folder);
    if (!sheet.isNull() && SaveSmall(sheet, folder.filePath("contact-sheet.png")))
        return 0;
    std::fputs("A picture is missing, or the sheet could not be written\n", stderr);
    return 1;
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication app(argc, argv);
    QStringList arguments = QApplication::arguments().sliced(1);
    if (arguments.size() == 2 && arguments[0] == "--sheet")
        return MakeSheet(arguments[1]);
    if (arguments.isEmpty() || arguments.size() > 2 || !QDir().mkpath(arguments[0])) {
        std::fputs("Usage: window_pictures FOLDER [FONT] | --sheet FOLDER\n", stderr);
        return 2;
    }
    QApplication::setStyle("Fusion"); // the same pictures on every desktop
    QApplication::setCursorFlashTime(0);
    QFont font = QApplication::font();
    if (arguments.size() > 1)
        font.setPointSizeF(font.pointSizeF() * arguments[1].toDouble() / 100);
    QApplication::setFont(font);

    QApplication::setPalette(LightPalette());
    const bool light = MakePictures(arguments[0], "light");
    QApplication::setPalette(DarkPalette());
    const bool dark = MakePictures(arguments[0], "dark");
    return light && dark ? 0 : 1;
}
