#include "lib/Drawing.h"

#include "lib/PellGlobalSettings.h"

#include <QGuiApplication>
#include <QLineEdit>
#include <QPalette>
#include <QScreen>
#include <algorithm>
#include <cstdlib>

namespace pell {

QRgb MixColors(QRgb a, QRgb b, unsigned char weight) {
    const auto mix = [weight](int x, int y) {
        return (x * weight + y * (255 - weight)) / 255;
    };
    return qRgb(mix(qRed(a), qRed(b)), mix(qGreen(a), qGreen(b)), mix(qBlue(a), qBlue(b)));
}

double GetScaleFactor() {
    constexpr double kBaseDpi = 96.0;
    const CPellGlobalSettings& settings = CPellGlobalSettings::Ref();
    double factor = settings.GetManualScalingRatio();
    if (settings.IsAutoScalingEnabled()) {
        const QScreen* screen = QGuiApplication::primaryScreen();
        factor = screen ? screen->logicalDotsPerInch() / kBaseDpi : 1.0;
    }
    return std::max(factor, 1.0);
}

double GetDevicePixelRatio() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->devicePixelRatio() : 1.0;
}

int FindAppropriateIconSize(std::span<const int> candidates, int requested) {
    int best = requested;
    int bestDistance = -1;
    for (const int size : candidates) {
        const int distance = std::abs(size - requested);
        if (bestDistance < 0 || distance < bestDistance ||
            (distance == bestDistance && size < best)) {
            best = size;
            bestDistance = distance;
        }
    }
    return best;
}

void ShowReadOnly(QLineEdit* edit) {
    edit->setReadOnly(true);
    QPalette palette = edit->palette();
    palette.setColor(QPalette::Base, palette.color(QPalette::Window));
    edit->setPalette(palette);
}

} // namespace pell
