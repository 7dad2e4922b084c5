#include "InProcess.h"

#include "Simulator.h"

namespace rxsim {

namespace {

class SimulatedPeer final : public rxio::IInProcessPeer {
public:
    SimulatedPeer(std::shared_ptr<const CModel> model, const QString& profile,
                  std::unique_ptr<QIODevice> farEnd)
        : m_simulator(std::move(model), profile), m_farEnd(std::move(farEnd)) {
        m_simulator.Serve(m_farEnd.get());
    }

private:
    // Declared first, so the far end goes before the simulator that serves it.
    CSimulator m_simulator;
    std::unique_ptr<QIODevice> m_farEnd;
};

} // namespace

rxio::InProcessPeerFactory InProcessReceivers(std::shared_ptr<const CModel> model) {
    return [model = std::move(model)](
               const QString& name,
               std::unique_ptr<QIODevice> farEnd) -> std::unique_ptr<rxio::IInProcessPeer> {
        const QString profile = name.isEmpty() ? model->Profiles().front().name : name;
        return std::make_unique<SimulatedPeer>(model, profile, std::move(farEnd));
    };
}

} // namespace rxsim
