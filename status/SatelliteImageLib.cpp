#include "status/SatelliteImageLib.h"

#include "lib/Drawing.h"
#include "status/SatelliteInfoEx.h"

#include <QPainter>
#include <array>

namespace {

using EConstellation = CSatelliteImageLib::EConstellation;

constexpr int kConstellations = 10; // Unused..Reserved
constexpr QRgb kWhite = qRgb(255, 255, 255);
constexpr QRgb kGrey = qRgb(128, 128, 128);
constexpr QRgb kMagenta = qRgb(255, 0, 255);
constexpr std::array<int, 3> kIconSizes{16, 24, 32};

// GPS to Reserved (1..9). Unused and any other value have no colour of their own: a white
// background, a grey icon.
constexpr std::array<QRgb, kConstellations - 1> kColours{
    qRgb(0, 215, 0),     // GPS
    qRgb(255, 191, 20),  // GLONASS
    qRgb(0, 255, 255),   // Galileo
    qRgb(254, 0, 254),   // BeiDou
    qRgb(128, 0, 128),   // SBAS
    qRgb(128, 0, 128),   // SAIF
    qRgb(0, 0, 255),     // QZSS
    qRgb(128, 128, 128), // IRNSS
    kWhite,              // Reserved
};

QRgb TableColour(EConstellation constellation, bool icon) {
    if (constellation >= 1 && constellation < kConstellations)
        return kColours[static_cast<std::size_t>(constellation) - 1];
    return icon ? kGrey : kWhite;
}

QRgb Scaled(QRgb colour, double factor) {
    if (!(factor > 0.0)) // NaN too
        factor = 0.0;
    if (factor >= 1.0)
        return colour;
    const auto scale = [factor](int channel) {
        return static_cast<int>(channel * factor);
    };
    return qRgb(scale(qRed(colour)), scale(qGreen(colour)), scale(qBlue(colour)));
}

// Template artwork (status/icons, drawn by status/icons/draw_icons.py): two frames side by side,
// used on the left, not used on the right.
int TemplateId(int size, bool alternate) {
    switch (size) {
    case 24:
        return alternate ? 3843 : 3842;
    case 32:
        return alternate ? 3796 : 3448;
    default:
        return alternate ? 3795 : 3114;
    }
}

std::uint32_t KeyOf(EConstellation constellation, bool used, bool alternate) {
    return (static_cast<std::uint32_t>(constellation) & 0xFFFFu) |
           (static_cast<std::uint32_t>(used) << 16) | (static_cast<std::uint32_t>(alternate) << 24);
}

} // namespace

CSatelliteImageLib::CSatelliteImageLib() = default;

QSize CSatelliteImageLib::GetImageSize() {
    const int side =
        pell::FindAppropriateIconSize(kIconSizes, 16 * static_cast<int>(pell::GetScaleFactor()));
    return {side, side};
}

QRgb CSatelliteImageLib::GetBkColor(EConstellation constellation, double factor) {
    return Scaled(TableColour(constellation, false), factor);
}

QRgb CSatelliteImageLib::GetIconColor(EConstellation constellation, double factor) {
    return Scaled(TableColour(constellation, true), factor);
}

const std::vector<QImage>& CSatelliteImageLib::GetImageList() {
    Initialize();
    return m_images;
}

int CSatelliteImageLib::GetImageIndx(EConstellation constellation, std::uint8_t status,
                                     bool alternate) {
    if (!Initialize())
        return -1;
    const auto it =
        m_index.find(KeyOf(constellation, CSatelliteInfoEx::IsSatelliteUsed(status), alternate));
    return it == m_index.end() ? -1 : it->second;
}

void CSatelliteImageLib::Draw(QPainter& painter, QPoint topLeft, EConstellation constellation,
                              std::uint8_t status, bool alternate) {
    const int index = GetImageIndx(constellation, status, alternate);
    if (index >= 0)
        painter.drawImage(topLeft, m_images[static_cast<std::size_t>(index)]);
}

bool CSatelliteImageLib::Initialize() {
    if (m_built)
        return true;
    m_built = true;
    m_size = GetImageSize();
    // On a high-DPI screen the icons come from the template drawn for its pixels (a 16 pixel
    // icon from the 32 pixel art at a ratio of 2), so they stay crisp instead of being stretched.
    m_artSize = pell::FindAppropriateIconSize(kIconSizes,
                                              qRound(m_size.width() * pell::GetDevicePixelRatio()));
    for (int value = 0; value < kConstellations; ++value) {
        const auto constellation = static_cast<EConstellation>(value);
        for (const bool used : {false, true}) {
            for (const bool alternate : {false, true}) {
                const int index = AddBitmap(m_images, constellation, used, alternate);
                if (index >= 0)
                    m_index[KeyOf(constellation, used, alternate)] = index;
            }
        }
    }
    return true;
}

int CSatelliteImageLib::AddBitmap(std::vector<QImage>& list, EConstellation constellation,
                                  bool used, bool alternate) const {
    const QImage artwork(
        QStringLiteral(":/pell/status/%1.png").arg(TemplateId(m_artSize, alternate)));
    if (artwork.isNull())
        return -1;
    const int width = artwork.width() / 2;
    QImage icon = artwork.copy(used ? 0 : m_artSize, 0, width, artwork.height())
                      .convertToFormat(QImage::Format_ARGB32);
    if (icon.isNull())
        return -1;
    for (int y = 0; y < icon.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(icon.scanLine(y));
        for (int x = 0; x < icon.width(); ++x) {
            QRgb pixel = qRgb(qRed(line[x]), qGreen(line[x]), qBlue(line[x]));
            if (qRed(pixel) == 0 && qBlue(pixel) == 0 && qGreen(pixel) > 0) {
                pixel = GetIconColor(constellation, qGreen(pixel) / 255.0);
                // A coloured pixel must never turn into the transparent magenta.
                if (qRed(pixel) >= 248 && qBlue(pixel) >= 248 && qGreen(pixel) == 0)
                    pixel = qRgb(240, 0, 240);
                line[x] = pixel;
            } else {
                line[x] = pixel == kMagenta ? qRgba(0, 0, 0, 0) : pixel;
            }
        }
    }
    icon.setDevicePixelRatio(static_cast<double>(m_artSize) / m_size.width());
    list.push_back(std::move(icon));
    return static_cast<int>(list.size()) - 1;
}
