#pragma once

#include "lib/pell_export.h"
#include "rxio/Listeners.h"
#include "status/SatelliteInfoEx.h"

#include <QObject>
#include <QTimer>
#include <map>
#include <optional>
#include <vector>

// The receiver's sky as the status pages show it: one record per satellite, keyed by its
// USI, updated from each epoch. A satellite that is no longer reported keeps its record while
// its row fades out (CSatelliteInfoEx::GetBkColor: ten seconds after one second of grace) and
// is dropped once it has faded, so no page ever draws it with the colour that follows.
class PELL_EXPORT CLiveSky final : public QObject,
                                   public rxio::ISatListListener,
                                   public rxio::IPositionListener {
    Q_OBJECT
public:
    // Age (ms) from which a silent satellite is dropped: its row has faded into the background.
    static constexpr int kDropAfterMs = 11000;
    // How often ageing records are looked at, so that a fading row moves on without new data.
    static constexpr int kAgeingPeriodMs = 500;

    explicit CLiveSky(QObject* parent = nullptr);

    void OnSatellites(const std::vector<SatelliteInfo>& sky) override;
    void OnPosition(const Position& position) override;

    // Satellites by USI (constellations grouped, numbers ascending within each).
    std::vector<CSatelliteInfoEx> Satellites() const;
    const std::map<std::uint8_t, CSatelliteInfoEx>& Records() const { return m_records; }
    // The latest position with a fix: the observer of the almanac's tracks and predictions.
    const std::optional<vex::POS_GEO>& Observer() const { return m_observer; }

    // Drops the records that have faded; emits changed() when one went or one is fading.
    void Age();

signals:
    void changed();

private:
    // Drops the records that have faded; whether any went or any is fading.
    bool Prune();

    std::map<std::uint8_t, CSatelliteInfoEx> m_records;
    std::optional<vex::POS_GEO> m_observer;
    QTimer m_ageing;
};
