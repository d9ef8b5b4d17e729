#include "graph/frm_graphics.h"
#include "graph/svg_icon.h"
#include "gui/contrast.h"
#include "support/recorded_trace.h"

#include <QImage>
#include <QPainter>
#include <QTemporaryFile>
#include <QTest>

/// The hidden form with the tray icon's pictures.
class tst_frmGraphics final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void flagIsSetFromLoadToUnload();
    void formIsHidden();
    void everyFrameComesInAllSizes();
    void picturesAreDrawnOnceInEachSize();
    void programHasTheRestingPicture();
    void framesAreSharpDrawings();
    void idleFramesMove();
    void idleCycleBeginsAsItRests();
    void activityEndsInTheRestingPicture();
    void activityLooksLikeNoIdleFrame();
    void framesShowOnEveryPanel_data();
    void framesShowOnEveryPanel();
    void unreadableDrawingGivesADisc_data();
    void unreadableDrawingGivesADisc();
};

namespace {

constexpr int kFrames = 11;
constexpr int kRestingFrame = 10;

QImage Picture(const QIcon &icon, int size)
{
    return icon.pixmap(QSize(size, size)).toImage().convertToFormat(QImage::Format_ARGB32);
}

/// Number of pixels that plainly differ between two pictures of one size.
int Differences(const QImage &one, const QImage &other)
{
    constexpr int kPlainly = 48;
    int count = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QColor a = one.pixelColor(x, y);
            const QColor b = other.pixelColor(x, y);
            const int most =
                std::max({std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                          std::abs(a.blue() - b.blue()), std::abs(a.alpha() - b.alpha())});
            count += most > kPlainly ? 1 : 0;
        }
    }
    return count;
}

/// Number of the icon's pixels that stand out from the panel behind it.
int PixelsInSight(const QIcon &icon, int size, const QColor &panel)
{
    constexpr double kShapes = 3;
    QImage image(size, size, QImage::Format_RGB32);
    image.fill(panel);
    QPainter(&image).drawPixmap(0, 0, icon.pixmap(QSize(size, size)));
    int count = 0;
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x)
            count += ContrastRatio(image.pixelColor(x, y), panel) >= kShapes ? 1 : 0;
    }
    return count;
}

} // namespace

void tst_frmGraphics::flagIsSetFromLoadToUnload()
{
    bool loaded = false;
    {
        const frmGraphics form(loaded);
        QVERIFY(loaded);
    }
    QVERIFY(!loaded);
}

void tst_frmGraphics::formIsHidden()
{
    bool loaded = false;
    const frmGraphics form(loaded);

    QVERIFY(form.isHidden());
    QCOMPARE(form.objectName(), "frmGraphics");
}

void tst_frmGraphics::everyFrameComesInAllSizes()
{
    bool loaded = false;
    const frmGraphics form(loaded);
    const QList<QSize> expected = {{16, 16}, {22, 22}, {24, 24}, {32, 32}, {48, 48}};

    for (int i = 0; i < kFrames; ++i) {
        QCOMPARE(form.taskBarIcon[size_t(i)].availableSizes(), expected);
        QCOMPARE(form.taskBarActiveIcon[size_t(i)].availableSizes(), expected);
    }
}

void tst_frmGraphics::picturesAreDrawnOnceInEachSize()
{
    bool loaded = false;
    const frmGraphics form(loaded);
    const QIcon &icon = form.taskBarIcon[kRestingFrame];

    for (const int size : {16, 20, 48, 96}) { // also sizes that the icon does not offer
        const QPixmap picture = icon.pixmap(QSize(size, size), 1);
        QCOMPARE(picture.size(), QSize(size, size));
        QCOMPARE(icon.pixmap(QSize(size, size), 1).cacheKey(), picture.cacheKey());
    }

    const QPixmap sharp = icon.pixmap(QSize(24, 24), 2);
    QCOMPARE(sharp.size(), QSize(48, 48));
    QCOMPARE(sharp.toImage(), [&] {
        QPixmap same = icon.pixmap(QSize(48, 48), 1);
        same.setDevicePixelRatio(2);
        return same.toImage();
    }());
}

void tst_frmGraphics::programHasTheRestingPicture()
{
    bool loaded = false;
    const frmGraphics form(loaded);

    QCOMPARE(Picture(ProgramIcon(), 48), Picture(form.taskBarIcon[kRestingFrame], 48));
}

void tst_frmGraphics::framesAreSharpDrawings()
{
    const RecordedTrace trace; // "Unable to read icon" would be here
    bool loaded = false;
    const frmGraphics form(loaded);

    QCOMPARE(trace.lines, QStringList());
    // The cloud's base fills one row of the smallest picture from pixel edge to pixel edge.
    const QImage picture = Picture(form.taskBarIcon[kRestingFrame], 16);
    QCOMPARE(picture.pixelColor(7, 13), QColor(0xf3, 0xf7, 0xfc));
    QCOMPARE(picture.pixelColor(7, 14), QColor(0x1b, 0x33, 0x50));
    QCOMPARE(picture.pixelColor(7, 15).alpha(), 0);
}

void tst_frmGraphics::idleFramesMove()
{
    bool loaded = false;
    const frmGraphics form(loaded);

    int moved = 0;
    for (int i = 1; i < kFrames; ++i) {
        const QImage before = Picture(form.taskBarIcon[size_t(i - 1)], 22);
        moved += Differences(before, Picture(form.taskBarIcon[size_t(i)], 22)) > 0 ? 1 : 0;
    }
    QVERIFY2(moved >= 8, qPrintable(QString::number(moved))); // slow at both ends
}

void tst_frmGraphics::idleCycleBeginsAsItRests()
{
    bool loaded = false;
    const frmGraphics form(loaded);
    const QImage resting = Picture(form.taskBarIcon[kRestingFrame], 48);

    const int step = Differences(resting, Picture(form.taskBarIcon[0], 48));
    const int middle = Differences(resting, Picture(form.taskBarIcon[5], 48));

    QVERIFY2(step * 3 < middle, qPrintable(QString("%1, %2").arg(step).arg(middle)));
}

void tst_frmGraphics::activityEndsInTheRestingPicture()
{
    bool loaded = false;
    const frmGraphics form(loaded);

    for (const int size : kIconSizes)
        QCOMPARE(Picture(form.taskBarActiveIcon[kRestingFrame], size),
                 Picture(form.taskBarIcon[kRestingFrame], size));
}

void tst_frmGraphics::activityLooksLikeNoIdleFrame()
{
    bool loaded = false;
    const frmGraphics form(loaded);

    for (int active = 1; active <= 8; ++active) { // those with the arrow
        const QImage picture = Picture(form.taskBarActiveIcon[size_t(active)], 16);
        for (int idle = 0; idle < kFrames; ++idle) {
            const int found = Differences(picture, Picture(form.taskBarIcon[size_t(idle)], 16));
            QVERIFY2(found > 60, qPrintable(QString("%1 of 256 pixels").arg(found)));
        }
    }
}

void tst_frmGraphics::framesShowOnEveryPanel_data()
{
    QTest::addColumn<QColor>("panel");
    QTest::newRow("white") << QColor(255, 255, 255);
    QTest::newRow("light") << QColor(222, 224, 227);
    QTest::newRow("mid grey") << QColor(128, 128, 128);
    QTest::newRow("dark") << QColor(49, 54, 59);
    QTest::newRow("black") << QColor(0, 0, 0);
}

void tst_frmGraphics::framesShowOnEveryPanel()
{
    QFETCH(QColor, panel);
    constexpr int kEnough = 16 * 16 / 10;
    bool loaded = false;
    const frmGraphics form(loaded);

    for (int i = 0; i < kFrames; ++i) {
        for (const auto *set : {&form.taskBarIcon, &form.taskBarActiveIcon}) {
            const int inSight = PixelsInSight((*set)[size_t(i)], 16, panel);
            QVERIFY2(inSight >= kEnough, qPrintable(QString("frame %1: %2").arg(i).arg(inSight)));
        }
    }
}

void tst_frmGraphics::unreadableDrawingGivesADisc_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no drawing") << QByteArray("\x89PNG\r\n\x1a\n");
    QTest::newRow("broken off") << QByteArray("<svg xmlns=\"http://www.w3.org/2000/svg\"><circle");
}

void tst_frmGraphics::unreadableDrawingGivesADisc()
{
    QFETCH(QByteArray, content);
    QTemporaryFile file;
    QVERIFY(file.open());
    file.write(content);
    file.flush();
    const RecordedTrace trace;

    for (const QString &name : {file.fileName(), QString(":/icons/none.svg"), QString()}) {
        const QIcon icon = IconFromSvg(name);

        QCOMPARE(icon.availableSizes().size(), qsizetype(kIconSizes.size()));
        const QImage picture = Picture(icon, 16);
        QCOMPARE(picture.pixelColor(8, 8), QColor(245, 165, 36));
        QCOMPARE(picture.pixelColor(0, 0).alpha(), 0);
        QVERIFY(trace.lines.contains("Unable to read icon " + name));
    }
}

QTEST_MAIN(tst_frmGraphics)
#include "tst_frm_graphics.moc"
