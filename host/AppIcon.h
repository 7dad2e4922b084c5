#pragma once

#include <QIcon>
#include <QPixmap>

namespace dorrit {

// The application's mark: a globe with a satellite on its orbit, drawn at `size` pixels.
QPixmap AppMark(int size);
QIcon AppIcon();

} // namespace dorrit
