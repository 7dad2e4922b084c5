#include "lib/Drawing.h"
#include "lib/PellGlobalSettings.h"
#include "status/SatelliteImageLib.h"
#include "status/SatelliteInfoEx.h"

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

namespace {

using Lib = CSatelliteImageLib;
using Sat = CSatelliteInfoEx;

constexpr std::uint8_t kUsed = 0;    // in the shipped status registry
constexpr std::uint8_t kNotUsed = 6; // likewise

TEST(SatelliteImageLib, ColourTables) {
    struct Case {
        int constellation;
        double factor;
        QRgb background, icon;
    };
    const Case cases[] = {
        {Sat::GLONASS, 0.8, qRgb(204, 152, 16), qRgb(204, 152, 16)},
        {Sat::GLONASS, 1.5, qRgb(255, 191, 20), qRgb(255, 191, 20)},
        {Sat::GLONASS, -0.5, qRgb(0, 0, 0), qRgb(0, 0, 0)},
        {Sat::GPS, 1.0, qRgb(0, 215, 0), qRgb(0, 215, 0)},
        {Sat::Galileo, 1.0, qRgb(0, 255, 255), qRgb(0, 255, 255)},
        {Sat::BeiDou, 1.0, qRgb(254, 0, 254), qRgb(254, 0, 254)},
        {Sat::SBAS, 1.0, qRgb(128, 0, 128), qRgb(128, 0, 128)},
        {Sat::SAIF, 1.0, qRgb(128, 0, 128), qRgb(128, 0, 128)},
        {Sat::QZSS, 0.5, qRgb(0, 0, 127), qRgb(0, 0, 127)},
        {Sat::IRNSS, 1.0, qRgb(128, 128, 128), qRgb(128, 128, 128)},
        {Sat::Unused, 1.0, qRgb(255, 255, 255), qRgb(128, 128, 128)},
        {Sat::Reserved, 1.0, qRgb(255, 255, 255), qRgb(255, 255, 255)},
        {10, 1.0, qRgb(255, 255, 255), qRgb(128, 128, 128)},
        {-1, 1.0, qRgb(255, 255, 255), qRgb(128, 128, 128)},
    };
    for (const auto& c : cases) {
        const auto constellation = static_cast<Lib::EConstellation>(c.constellation);
        EXPECT_EQ(Lib::GetBkColor(constellation, c.factor), c.background) << c.constellation;
        EXPECT_EQ(Lib::GetIconColor(constellation, c.factor), c.icon) << c.constellation;
    }
}

// The user's own scaling ratio, truncated, picks the nearest icon size.
TEST(SatelliteImageLib, IconSizeFollowsManualScaling) {
    CPellGlobalSettings& settings = CPellGlobalSettings::Ref();
    const std::pair<double, int> cases[] = {{1.0, 16}, {1.9, 16}, {2.0, 32}, {3.0, 32}, {0.5, 16}};
    settings.EnableAutoScaling(false);
    for (const auto& [ratio, side] : cases) {
        settings.SetManualScalingRatio(ratio);
        EXPECT_EQ(Lib::GetImageSize(), QSize(side, side)) << ratio;
    }
    settings.SetManualScalingRatio(1.0);
    settings.EnableAutoScaling(true);
}

// What one template pixel becomes in a constellation's icon.
QRgb Expected(QRgb artwork, Lib::EConstellation constellation) {
    if (qRed(artwork) == 0 && qBlue(artwork) == 0 && qGreen(artwork) > 0) {
        const QRgb coloured = Lib::GetIconColor(constellation, qGreen(artwork) / 255.0);
        const bool magentaLike =
            qRed(coloured) >= 248 && qBlue(coloured) >= 248 && qGreen(coloured) == 0;
        return magentaLike ? qRgb(240, 0, 240) : coloured;
    }
    return artwork == qRgb(255, 0, 255) ? qRgba(0, 0, 0, 0) : artwork;
}

TEST(SatelliteImageLib, IconsAreTheTemplatesRecoloured) {
    Lib lib;
    EXPECT_EQ(Lib::GetImageSize(), QSize(16, 16)); // 96 dpi offscreen
    EXPECT_EQ(lib.GetImageList().size(), 40u);
    for (const bool alternate : {false, true}) {
        const QImage artwork = QImage(alternate ? QStringLiteral(":/pell/status/3795.png")
                                                : QStringLiteral(":/pell/status/3114.png"))
                                   .convertToFormat(QImage::Format_RGB32);
        ASSERT_EQ(artwork.size(), QSize(32, 16));
        for (const int constellation : {Sat::GPS, Sat::BeiDou, Sat::SBAS, Sat::Unused}) {
            const auto c = static_cast<Lib::EConstellation>(constellation);
            for (const auto& [status, left] : {std::pair{kUsed, 0}, std::pair{kNotUsed, 16}}) {
                const int index = lib.GetImageIndx(c, status, alternate);
                ASSERT_GE(index, 0);
                const QImage& icon = lib.GetImageList()[static_cast<std::size_t>(index)];
                ASSERT_EQ(icon.size(), QSize(16, 16));
                int coloured = 0;
                for (int y = 0; y < 16; ++y) {
                    for (int x = 0; x < 16; ++x) {
                        const QRgb source = artwork.pixel(left + x, y);
                        coloured += qGreen(source) == 255 && qRed(source) == 0;
                        ASSERT_EQ(icon.pixel(x, y), Expected(source, c))
                            << constellation << " " << int(status) << " " << x << "," << y;
                    }
                }
                EXPECT_GT(coloured, 0) << "every frame has pixels of the full colour";
            }
        }
    }
    // Full green: BeiDou's magenta-like colour is moved off the transparent one, SBAS is not.
    EXPECT_EQ(Expected(qRgb(0, 255, 0), Sat::BeiDou), qRgb(240, 0, 240));
    EXPECT_EQ(Expected(qRgb(0, 255, 0), Sat::SBAS), qRgb(128, 0, 128));
}

TEST(SatelliteImageLib, IndicesAndDrawing) {
    Lib lib;
    const int used = lib.GetImageIndx(Sat::GPS, kUsed, false);
    const int notUsed = lib.GetImageIndx(Sat::GPS, kNotUsed, false);
    EXPECT_NE(used, notUsed);
    EXPECT_NE(lib.GetImageIndx(Sat::GPS, kUsed, true), used);
    EXPECT_EQ(lib.GetImageIndx(Sat::GPS, 200, false), notUsed); // a code the registry lacks
    EXPECT_EQ(lib.GetImageIndx(Sat::GPS, 255, false), notUsed);
    EXPECT_GE(lib.GetImageIndx(Sat::Reserved, kUsed, true), 0);
    EXPECT_EQ(lib.GetImageIndx(static_cast<Lib::EConstellation>(10), kUsed, false), -1);

    auto drawn = [&lib](int constellation, std::uint8_t status) {
        QImage canvas(20, 20, QImage::Format_ARGB32);
        canvas.fill(qRgb(1, 2, 3));
        QPainter painter(&canvas);
        lib.Draw(painter, QPoint(2, 3), static_cast<Lib::EConstellation>(constellation), status,
                 false);
        return canvas;
    };
    const QImage blank = drawn(10, kUsed);
    EXPECT_EQ(blank.pixel(10, 10), qRgb(1, 2, 3));
    EXPECT_EQ(blank, drawn(11, kNotUsed)); // nothing drawn for either
    const QImage unknown = drawn(Sat::GPS, 200);
    EXPECT_EQ(unknown, drawn(Sat::GPS, kNotUsed));
    EXPECT_NE(unknown, drawn(Sat::GPS, kUsed));
    // Transparent where the template is magenta; the icon starts at the point.
    const QImage& icon = lib.GetImageList()[static_cast<std::size_t>(notUsed)];
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 16; ++x)
            ASSERT_EQ(unknown.pixel(x + 2, y + 3),
                      qAlpha(icon.pixel(x, y)) == 0 ? qRgb(1, 2, 3) : icon.pixel(x, y));
}

// ctest runs this once more with QT_SCALE_FACTOR=2 (tests/status/CMakeLists.txt).
TEST(SatelliteImageLib, HighDpiIconsComeFromTheLargerArt) {
    if (pell::GetDevicePixelRatio() != 2.0)
        GTEST_SKIP() << "needs a device pixel ratio of 2";
    Lib lib;
    EXPECT_EQ(Lib::GetImageSize(), QSize(16, 16));
    const int index = lib.GetImageIndx(Sat::QZSS, kNotUsed, true);
    ASSERT_GE(index, 0);
    const QImage& icon = lib.GetImageList()[static_cast<std::size_t>(index)];
    EXPECT_EQ(icon.size(), QSize(32, 32));
    EXPECT_EQ(icon.devicePixelRatio(), 2.0);
    const QImage artwork =
        QImage(QStringLiteral(":/pell/status/3796.png")).convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 32; ++x)
            ASSERT_EQ(icon.pixel(x, y), Expected(artwork.pixel(32 + x, y), Sat::QZSS));
}

} // namespace
