#include "pictures/contact_sheet.h"

#include "gui/window_states.h"

#include <QFont>
#include <QHash>
#include <QList>
#include <QPainter>

#include <algorithm>
#include <array>

namespace {

constexpr int kGap = 24;
constexpr int kCaption = 40;
constexpr int kCaptionPixels = 24; // height of its type
constexpr int kSheetWidth = 3920;
constexpr qsizetype kColors = 64;

/// The four pictures of one state: at 100 percent one above the other, beside them those at 200.
struct Card
{
    QString title = {};
    std::array<QImage, 4> pictures = {};

    [[nodiscard]] QSize Size() const
    {
        const QSize small = pictures[0].size();
        const QSize large = pictures[2].size();
        return {small.width() + 2 * (large.width() + kGap),
                kCaption + std::max(2 * small.height() + kGap, large.height())};
    }
};

QImage Picture(const QDir &folder, const ShownState &state, const QString &palette, int percent)
{
    QImage image(folder.filePath(PictureName(state.name, palette, percent)));
    image.setDevicePixelRatio(1);
    return image;
}

void Paint(QPainter &painter, const Card &card, QPoint place)
{
    painter.drawText(QRect(place, QSize(card.Size().width(), kCaption)),
                     int(Qt::AlignLeft) | int(Qt::AlignTop), card.title);
    const auto &[lightSmall, darkSmall, light, dark] = card.pictures;
    const QPoint top = place + QPoint(0, kCaption);
    painter.drawImage(top, lightSmall);
    painter.drawImage(top + QPoint(0, lightSmall.height() + kGap), darkSmall);
    painter.drawImage(top + QPoint(lightSmall.width() + kGap, 0), light);
    painter.drawImage(top + QPoint(lightSmall.width() + light.width() + 2 * kGap, 0), dark);
}

/// Where each card goes, in rows of the sheet's width, and then the sheet's height.
std::pair<QList<QPoint>, int> Places(const QList<Card> &cards)
{
    QList<QPoint> places;
    QPoint next(kGap, kGap);
    int rowHeight = 0;
    for (const Card &card : cards) {
        const QSize size = card.Size();
        if (next.x() > kGap && next.x() + size.width() + kGap > kSheetWidth) {
            next = {kGap, next.y() + rowHeight + kGap};
            rowHeight = 0;
        }
        places.append(next);
        next.rx() += size.width() + 2 * kGap;
        rowHeight = std::max(rowHeight, size.height());
    }
    return {places, next.y() + rowHeight + kGap};
}

} // namespace

QString PictureName(const QString &state, const QString &palette, int percent)
{
    return QStringLiteral("%1-%2-%3.png").arg(state, palette).arg(percent);
}

QImage ContactSheet(const QDir &folder)
{
    QList<Card> cards;
    for (const ShownState &state : WindowStates()) {
        if (!state.isOnSheet)
            continue;
        Card card{state.title,
                  {Picture(folder, state, "light", 100), Picture(folder, state, "dark", 100),
                   Picture(folder, state, "light", 200), Picture(folder, state, "dark", 200)}};
        const auto isMissing = [](const QImage &image) { return image.isNull(); };
        if (std::any_of(std::begin(card.pictures), std::end(card.pictures), isMissing))
            return {};
        cards.append(std::move(card));
    }
    const auto [places, height] = Places(cards);
    QImage sheet(kSheetWidth, height, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    QFont font;
    font.setPixelSize(kCaptionPixels);
    painter.setFont(font);
    for (qsizetype i = 0; i < cards.size(); ++i)
        Paint(painter, cards[i], places[i]);
    return sheet;
}

bool SaveSmall(const QImage &image, const QString &path)
{
    const QImage source = image.convertToFormat(QImage::Format_RGB32);
    QHash<QRgb, qsizetype> uses;
    for (int y = 0; y < source.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(source.constScanLine(y));
        const auto *end = line + source.width();
        for (const auto *run = line; run != end;) { // most neighbours are alike
            const auto *next = std::find_if(run, end, [run](QRgb color) { return color != *run; });
            uses[*run] += next - run;
            run = next;
        }
    }
    QList<QRgb> colors = uses.keys();
    std::sort(colors.begin(), colors.end(), [&uses](QRgb one, QRgb other) {
        return std::pair(uses[one], one) > std::pair(uses[other], other);
    });
    colors.resize(std::min(colors.size(), kColors));
    return source.convertToFormat(QImage::Format_Indexed8, colors, Qt::AvoidDither)
        .save(path, "PNG", 0); // the smallest file
}
