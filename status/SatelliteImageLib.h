#pragma once

#include "lib/pell_export.h"
#include "rxio/Listeners.h"

#include <QImage>
#include <QPoint>
#include <QRgb>
#include <QSize>
#include <cstdint>
#include <map>
#include <vector>

class QPainter;

// The constellations' colours and their satellite icons: one icon per constellation, use in the
// position solution and style (the alternate style marks ionospheric scintillation), recoloured
// from green template artwork on first use. One instance serves a page or sheet; use it on the
// user-interface thread. See docs/satellites.md.
class PELL_EXPORT CSatelliteImageLib {
public:
    using EConstellation = rxio::ISatListListener::SatelliteInfo::EConstellation;

    CSatelliteImageLib();

    // The side of every icon in the painter's pixels: 16, 24 or 32, by the display scale.
    static QSize GetImageSize();
    // The constellation's colour for backgrounds and marks, each channel scaled by `factor`
    // (clamped to 0..1).
    static QRgb GetBkColor(EConstellation constellation, double factor);
    // The constellation's icon colour, scaled the same way.
    static QRgb GetIconColor(EConstellation constellation, double factor);

    // Every icon (transparent where the template is magenta), built on first use.
    const std::vector<QImage>& GetImageList();
    // Index of the icon for a satellite of `constellation` with status code `status` (used or
    // not by the status registry), in the alternate style or not; -1 when there is none.
    int GetImageIndx(EConstellation constellation, std::uint8_t status, bool alternate);
    // Draws that icon with its top-left corner at `topLeft`; nothing when there is none.
    void Draw(QPainter& painter, QPoint topLeft, EConstellation constellation, std::uint8_t status,
              bool alternate);

private:
    bool Initialize();
    int AddBitmap(std::vector<QImage>& list, EConstellation constellation, bool used,
                  bool alternate) const;

    bool m_built = false;
    QSize m_size;       // painter pixels
    int m_artSize = 16; // device pixels: the template drawn for the screen
    std::vector<QImage> m_images;
    // Constellation in bits 0..15, used in bits 16..23, alternate style in bits 24..31.
    std::map<std::uint32_t, int> m_index;
};
