#include "SimulatedReceiver.h"

#include "rxio/Pipe.h"

#include <QEventLoop>
#include <QTimer>

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

void Spin(int ms) {
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace pell::test
