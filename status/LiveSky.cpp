#include "status/LiveSky.h"

CLiveSky::CLiveSky(QObject* parent) : QObject(parent) {
    m_ageing.setInterval(kAgeingPeriodMs);
    connect(&m_ageing, &QTimer::timeout, this, &CLiveSky::Age);
    m_ageing.start();
}

void CLiveSky::OnSatellites(const std::vector<SatelliteInfo>& sky) {
    for (const SatelliteInfo& satellite : sky) {
        // 0 is an empty slot and 255 no satellite: nothing to show, nothing to key.
        if (satellite.USI == 0 || satellite.USI == 255)
            continue;
        const auto found = m_records.find(satellite.USI);
        if (found == m_records.end())
            m_records.emplace(satellite.USI, CSatelliteInfoEx(satellite));
        else
            found->second.Update(satellite);
    }
    Prune();
    emit changed();
}

void CLiveSky::OnPosition(const Position& position) {
    if (position.solution != rxio::ESolutionType::None)
        m_observer = position.geo;
}

std::vector<CSatelliteInfoEx> CLiveSky::Satellites() const {
    std::vector<CSatelliteInfoEx> satellites;
    satellites.reserve(m_records.size());
    for (const auto& [usi, record] : m_records)
        satellites.push_back(record);
    return satellites;
}

void CLiveSky::Age() {
    if (Prune())
        emit changed();
}

bool CLiveSky::Prune() {
    bool fading = false;
    bool dropped = false;
    for (auto it = m_records.begin(); it != m_records.end();) {
        const int age = it->second.GetAge();
        if (age > kDropAfterMs) {
            it = m_records.erase(it);
            dropped = true;
            continue;
        }
        fading = fading || age > 1000;
        ++it;
    }
    return dropped || fading;
}
