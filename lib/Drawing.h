#pragma once

#include "lib/pell_export.h"

#include <QRgb>
#include <span>

class QLineEdit;

namespace pell {

// Per channel, `a` weighted by weight/255 and `b` by the rest: 255 gives `a`, 0 gives `b`.
// The result is opaque.
PELL_EXPORT QRgb MixColors(QRgb a, QRgb b, unsigned char weight);

// How many times larger than at 96 dpi the user interface is drawn: the primary screen's
// logical dots per inch over 96, or the user's own ratio when automatic scaling is off
// (CPellGlobalSettings). At least 1.
PELL_EXPORT double GetScaleFactor();

// Device pixels per painter pixel on the primary screen (Qt's own high-DPI scaling); 1 without
// a screen.
PELL_EXPORT double GetDevicePixelRatio();

// The candidate nearest to `requested`; of two equally near, the smaller, which stays crisp.
// `requested` itself when there are no candidates.
PELL_EXPORT int FindAppropriateIconSize(std::span<const int> candidates, int requested);

// Makes `edit` read-only and paints it on the window's background, so it does not invite typing
// while its text can still be selected and copied.
PELL_EXPORT void ShowReadOnly(QLineEdit* edit);

} // namespace pell
