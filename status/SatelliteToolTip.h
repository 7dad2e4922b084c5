#pragma once

#include "lib/pell_export.h"
#include "status/SatelliteImageLib.h"
#include "status/SatelliteInfoEx.h"

#include <QFrame>

class QLabel;

// What the sky plot tells about the satellite under the pointer: its icon, system and number,
// elevation, azimuth, status with its meaning, the GLONASS frequency channel, and a warning in
// red while it is under ionospheric scintillation.
class PELL_EXPORT CSatelliteToolTip final : public QFrame {
    Q_OBJECT
public:
    explicit CSatelliteToolTip(QWidget* parent = nullptr);

    // Fills the tip for `satellite` without showing it.
    void SetSatellite(const CSatelliteInfoEx& satellite, CSatelliteImageLib& images);
    // Shows it near `globalPos`, inside the screen.
    void ShowAt(const QPoint& globalPos);

    QString Text() const;
    // The satellite shown.
    std::uint8_t Usi() const { return m_usi; }

private:
    std::uint8_t m_usi = 255;
    QLabel* m_icon;
    QLabel* m_title;
    QLabel* m_details;
    QLabel* m_warning;
};
