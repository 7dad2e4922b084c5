#pragma once

#include "lib/PellPropertyPage.h"
#include "lib/pell_export.h"
#include "status/LiveSky.h"
#include "status/SkyPlot.h"

#include <memory>

class QCheckBox;
class QLabel;
class QPushButton;
class QSlider;

// The status sheet's sky plot: the receiver's satellites where it sees them, or where the
// almanac puts them up to twelve hours either way, with their tracks on request.
class PELL_EXPORT CStatusSatPlotPP : public CPellPropertyPage {
    Q_OBJECT
public:
    // Steps of the moment slider and how far it goes either way.
    static constexpr int kSlideStepMinutes = 10;
    static constexpr int kSlideRangeHours = 12;
    // How long the elevation mask and the almanacs may take to come; neither is waited for.
    static constexpr int kMaskTimeoutMs = 2000;
    static constexpr int kAlmanacTimeoutMs = 10000;

    CStatusSatPlotPP(std::shared_ptr<rxio::IReceiver> receiver, std::shared_ptr<CLiveSky> sky,
                     QWidget* parent = nullptr);

    CSkyPlot& Plot() { return *m_plot; }
    QSlider& MomentSlider() { return *m_moment; }
    QCheckBox& TracksBox() { return *m_tracks; }

protected:
    void OnInitDialog() override;

private:
    // Hands the plot the satellites of the present mode.
    void Refresh();
    void OnMomentChanged(int steps);
    // Asks the receiver for its elevation mask, unless it has shown it does not answer.
    void ReadElevationMask();
    void ReadAlmanacs();
    QWidget* BuildLegend();

    std::shared_ptr<CLiveSky> m_sky;
    CSkyPlot* m_plot;
    QSlider* m_moment;
    QPushButton* m_now;
    QCheckBox* m_tracks;
    QLabel* m_note;
    bool m_answers = true; // false once the receiver left a command unanswered
};
