// Command round trips through the receiver mate over the in-process link and loopback TCP, and a
// paced run at 115200 baud compared with the time its bytes need on the wire.
#include "Model.h"
#include "Simulator.h"
#include "lib/Exceptions.h"
#include "receiver/VexReceiverMate.h"
#include "rxio/Framing.h"
#include "rxio/Pipe.h"
#include "rxio/ReceiverConnection.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTcpServer>
#include <QTcpSocket>
#include <benchmark/benchmark.h>

namespace {

std::shared_ptr<const rxsim::CModel> Model() {
    static const auto model =
        std::make_shared<const rxsim::CModel>(rxsim::CModel::Load(rxsim::CModel::DefaultFile()));
    return model;
}

struct InProcess {
    InProcess() : simulator(Model(), Model()->Profiles().front().name) {
        auto [mine, theirs] = rxio::CPipeEnd::CreatePair();
        end = std::move(theirs);
        simulator.Serve(end.get());
        connection = rxio::CReceiverConnection::Create(
            rxio::OpenInProcessLink(std::move(mine), QStringLiteral("sim")).link);
    }
    rxsim::CSimulator simulator;
    std::unique_ptr<QIODevice> end;
    std::shared_ptr<rxio::CReceiverConnection> connection;
};

struct Tcp {
    Tcp() : simulator(Model(), Model()->Profiles().front().name) {
        server.listen(QHostAddress::LocalHost);
        QObject::connect(&server, &QTcpServer::newConnection, [this] {
            socket.reset(server.nextPendingConnection());
            socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
            simulator.Serve(socket.get());
        });
        connection = rxio::CReceiverConnection::Create(
            rxio::OpenTcpLink(QStringLiteral("127.0.0.1"), server.serverPort(), 2000).link);
        while (!socket)
            QCoreApplication::processEvents();
    }
    rxsim::CSimulator simulator;
    QTcpServer server;
    std::unique_ptr<QTcpSocket> socket;
    std::shared_ptr<rxio::CReceiverConnection> connection;
};

template <class Link> void RoundTrip(benchmark::State& state) {
    Link link;
    const CVexReceiverMate mate(link.connection);
    try {
        for (auto _ : state)
            benchmark::DoNotOptimize(mate.Run(QStringLiteral("print,pos/elm")));
    } catch (const ulm_std::CException& e) {
        state.SkipWithError(e.what());
    }
    state.SetItemsProcessed(state.iterations());
}

void PacedAt115200(benchmark::State& state) {
    constexpr int kBaud = 115200;
    constexpr int kCommands = 1000;
    const QString command = QStringLiteral("print,pos/elm");
    for (auto _ : state) {
        InProcess link;
        link.simulator.GetFaults().baud = kBaud;
        const CVexReceiverMate mate(link.connection);
        qint64 wireBytes = 0;
        QElapsedTimer clock;
        clock.start();
        for (int i = 0; i < kCommands; ++i) {
            const QByteArray id = QByteArray::number(i + 1);
            const QString reply = mate.Run(command);
            // The bytes of the command and of its framed reply, both on the one line.
            wireBytes += rxio::EncodeCommand(id, command).size() + 8 + 2 + id.size() +
                         reply.toUtf8().size() + 1;
        }
        const double measured = clock.nsecsElapsed() / 1e9;
        const double wire = wireBytes * 10.0 / kBaud;
        state.counters["wire_s"] = wire;
        state.counters["measured_s"] = measured;
        state.counters["ratio"] = measured / wire;
    }
}

BENCHMARK(RoundTrip<InProcess>)->Name("RoundTrip/InProcess");
BENCHMARK(RoundTrip<Tcp>)->Name("RoundTrip/LoopbackTcp");
BENCHMARK(PacedAt115200)->Name("Paced1000At115200")->Iterations(1)->Unit(benchmark::kSecond);

} // namespace
