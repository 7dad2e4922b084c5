#pragma once

#include "Pty.h"
#include "Simulator.h"
#include "rxio/ReceiverConnection.h"

#include <QIODevice>
#include <QString>
#include <QTcpServer>
#include <QTcpSocket>
#include <gtest/gtest.h>
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

// A simulator and the library's connection to it through one of the three links.
class LinkedSimulator {
public:
    enum ELink { InProcess, Tcp, Pty };

    explicit LinkedSimulator(ELink kind, std::shared_ptr<const rxsim::CModel> model = SmallModel(),
                             const QString& profile = QStringLiteral("alpha"));
    ~LinkedSimulator();
    LinkedSimulator(const LinkedSimulator&) = delete;
    LinkedSimulator& operator=(const LinkedSimulator&) = delete;

    rxsim::CSimulator simulator;
    std::unique_ptr<QIODevice> receiverEnd;
    QTcpServer server;
    std::unique_ptr<QTcpSocket> socket;
    std::unique_ptr<rxsim::CPty> pty;
    std::shared_ptr<rxio::CReceiverConnection> connection;
};

// The link's name in a parameterised test's name.
std::string LinkName(const testing::TestParamInfo<LinkedSimulator::ELink>& link);

// Runs one command to its end with the event loop turning.
rxio::CommandResult Exec(rxio::IReceiver& receiver, const QString& command, int timeoutMs = 2000);

// Turns the event loop for `ms` milliseconds.
void Spin(int ms);

} // namespace pell::test
