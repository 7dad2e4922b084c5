#pragma once

#include "rxio/Listeners.h"

#include <QByteArray>
#include <functional>
#include <optional>
#include <vector>

namespace pellctl {

// What the receiver said about one epoch: its sky, and its position when it gave one.
struct Epoch {
    std::vector<rxio::ISatListListener::SatelliteInfo> sky;
    std::optional<rxio::IPositionListener::Position> position;
};

// Puts an epoch's sky and position back together. The receiver connection hands out a sky and
// then, from the same call, the position of the same epoch; an epoch without a position ends
// at the next sky or at Flush().
class CEpochCollector final : public rxio::ISatListListener, public rxio::IPositionListener {
public:
    // `held` is told when a sky waits for a position that may not come: the caller flushes it
    // once the receiver's call is over.
    explicit CEpochCollector(std::function<void(const Epoch&)> sink,
                             std::function<void()> held = {})
        : m_sink(std::move(sink)), m_held(std::move(held)) {}

    void OnSatellites(const std::vector<SatelliteInfo>& sky) override;
    void OnPosition(const Position& position) override;
    // Hands out a sky still held; nothing when there is none.
    void Flush();

private:
    std::function<void(const Epoch&)> m_sink;
    std::function<void()> m_held;
    std::optional<std::vector<SatelliteInfo>> m_sky;
};

// Header line, then one aligned row per satellite, as UTF-8 lines ending in '\n'.
QByteArray EpochText(const Epoch& epoch);
// One compact JSON object on one line, ending in '\n' (fields in docs/pellctl.md).
QByteArray EpochJson(const Epoch& epoch);

} // namespace pellctl
