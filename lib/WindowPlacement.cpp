#include "lib/WindowPlacement.h"

#include "lib/PellGlobalSettings.h"
#include "lib/SettingsStore.h"

#include <QGuiApplication>
#include <QRect>
#include <QScreen>
#include <QStringList>
#include <QWidget>
#include <algorithm>
#include <optional>

namespace pell {

namespace {

struct Placement {
    QRect normal;
    bool maximized = false;
};

QString ValueName(const QWidget& window) {
    return QString::fromLatin1(window.metaObject()->className());
}

std::optional<Placement> Parse(const QString& text) {
    const QStringList parts = text.split(QLatin1Char(','));
    if (parts.size() != 5)
        return std::nullopt;
    int numbers[5] = {};
    for (int i = 0; i < 5; ++i) {
        bool ok = false;
        numbers[i] = parts[i].trimmed().toInt(&ok);
        if (!ok)
            return std::nullopt;
    }
    const auto [x, y, width, height, maximized] = numbers;
    if (width <= 0 || height <= 0 || (maximized != 0 && maximized != 1))
        return std::nullopt;
    return Placement{QRect(x, y, width, height), maximized == 1};
}

// A placement from another screen layout (a monitor since unplugged) would open the window where
// nobody can see it.
bool FitsAScreen(const QRect& rect) {
    const auto screens = QGuiApplication::screens();
    return std::any_of(screens.begin(), screens.end(), [&rect](const QScreen* screen) {
        return screen->availableGeometry().contains(rect);
    });
}

} // namespace

void RestoreWindowPlacement(QWidget& window) {
    const std::optional<QString> text = CQSettingsStore().ReadString(
        CPellGlobalSettings::Ref().GetWindowPlacementKey(), ValueName(window));
    const std::optional<Placement> placement = text ? Parse(*text) : std::nullopt;
    if (!placement || !FitsAScreen(placement->normal))
        return;
    window.setGeometry(placement->normal);
    if (placement->maximized)
        window.setWindowState(window.windowState() | Qt::WindowMaximized);
}

void SaveWindowPlacement(const QWidget& window) {
    const QRect normal = window.normalGeometry();
    const QString text = QStringLiteral("%1,%2,%3,%4,%5")
                             .arg(normal.x())
                             .arg(normal.y())
                             .arg(normal.width())
                             .arg(normal.height())
                             .arg(window.isMaximized() ? 1 : 0);
    CQSettingsStore().WriteString(CPellGlobalSettings::Ref().GetWindowPlacementKey(),
                                  ValueName(window), text);
}

} // namespace pell
