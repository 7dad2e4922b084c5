#include "SimulatedReceiver.h"

#include "rxio/Pipe.h"

#include <QEventLoop>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace pell::test {

std::shared_ptr<const rxsim::CModel> ShippedModel() {
    static const auto model =
        std::make_shared<const rxsim::CModel>(rxsim::CModel::Load(rxsim::CModel::DefaultFile()));
    return model;
}

std::shared_ptr<const rxsim::CModel> SmallModel() {
    static const auto model = std::make_shared<const rxsim::CModel>(
        rxsim::CModel::Load(QStringLiteral(TEST_DATA_DIR "/model-small.json")));
    return model;
}

SimulatedReceiver::SimulatedReceiver(const QString& profile)
    : m_simulator(ShippedModel(), profile) {
    auto [mine, theirs] = rxio::CPipeEnd::CreatePair();
    m_receiverEnd = std::move(theirs);
    m_simulator.Serve(m_receiverEnd.get());
    m_receiver = rxio::CReceiverConnection::Create(
        rxio::OpenInProcessLink(std::move(mine), QStringLiteral("simulator")).link);
}

SimulatedReceiver::~SimulatedReceiver() {
    m_receiver->Disconnect();
}

QString SimulatedReceiver::Value(const QString& path) {
    return m_simulator.State().Value(path).value_or(QString());
}

LinkedSimulator::LinkedSimulator(ELink kind, std::shared_ptr<const rxsim::CModel> model,
                                 const QString& profile)
    : simulator(std::move(model), profile) {
    std::unique_ptr<rxio::CLink> link;
    if (kind == InProcess) {
        auto [mine, theirs] = rxio::CPipeEnd::CreatePair();
        receiverEnd = std::move(theirs);
        simulator.Serve(receiverEnd.get());
        link = rxio::OpenInProcessLink(std::move(mine), QStringLiteral("sim")).link;
    } else if (kind == Tcp) {
        server.listen(QHostAddress::LocalHost);
        QObject::connect(&server, &QTcpServer::newConnection, [this] {
            socket.reset(server.nextPendingConnection());
            simulator.Serve(socket.get());
        });
        link = rxio::OpenTcpLink(QStringLiteral("127.0.0.1"), server.serverPort(), 2000).link;
        EXPECT_TRUE(QTest::qWaitFor([this] { return socket != nullptr; }, 1000));
    } else {
        pty = std::make_unique<rxsim::CPty>();
        simulator.Serve(pty.get());
        auto opened = rxio::OpenSerialLink(pty->SlavePath(), 115200, false);
        EXPECT_TRUE(opened.link) << opened.error.toStdString();
        link = std::move(opened.link);
    }
    connection = rxio::CReceiverConnection::Create(std::move(link));
}

LinkedSimulator::~LinkedSimulator() = default;

std::string LinkName(const testing::TestParamInfo<LinkedSimulator::ELink>& link) {
    const char* names[] = {"InProcess", "Tcp", "Pty"};
    return names[link.param];
}

rxio::CommandResult Exec(rxio::IReceiver& receiver, const QString& command, int timeoutMs) {
    rxio::CommandResult result;
    bool done = false;
    QEventLoop loop;
    receiver.StartCommand(command, timeoutMs, [&](const rxio::CommandResult& r) {
        result = r;
        done = true;
        loop.quit();
    });
    if (!done)
        loop.exec();
    return result;
}

void Spin(int ms) {
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace pell::test
