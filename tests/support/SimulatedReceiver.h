#pragma once

#include "Simulator.h"
#include "rxio/ReceiverConnection.h"

#include <QIODevice>
#include <QString>
#include <memory>

namespace pell::test {

// The shipped simulator model, loaded once.
std::shared_ptr<const rxsim::CModel> ShippedModel();
// The tests' small model (tests/data/model-small.json), loaded once.
std::shared_ptr<const rxsim::CModel> SmallModel();

// A simulated receiver with the library's connection to it over the in-process link.
class SimulatedReceiver {
public:
    explicit SimulatedReceiver(const QString& profile = QStringLiteral("ostrel-q"));
    ~SimulatedReceiver();
    SimulatedReceiver(const SimulatedReceiver&) = delete;
    SimulatedReceiver& operator=(const SimulatedReceiver&) = delete;

    rxsim::CSimulator& Simulator() { return m_simulator; }
    std::shared_ptr<rxio::CReceiverConnection> Receiver() const { return m_receiver; }
    // The receiver's current value of `path` as it would print it; empty when unknown.
    QString Value(const QString& path);

private:
    rxsim::CSimulator m_simulator;
    std::unique_ptr<QIODevice> m_receiverEnd;
    std::shared_ptr<rxio::CReceiverConnection> m_receiver;
};

// Turns the event loop for `ms` milliseconds.
void Spin(int ms);

} // namespace pell::test
