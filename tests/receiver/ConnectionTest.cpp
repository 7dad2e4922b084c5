#include "receiver/Connection.h"

#include "InProcess.h"
#include "Pty.h"
#include "SimulatedReceiver.h"
#include "TestSupport.h"
#include "lib/ControllerHardware.h"
#include "lib/PellGlobalSettings.h"
#include "lib/PellLib.h"

#include <QCoreApplication>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <functional>
#include <gtest/gtest.h>

namespace {

using pell::Connection;
using pell::ReceiverTarget;
using EState = Connection::EState;
using pell::CSimulatedControllerHardware;
using pell::EDevice;

using pell::test::SmallModel;

// Everything a connection can meet: a controller whose internal receiver is a pseudo-terminal,
// a simulated receiver behind a TCP port, and the library's hooks counted on their way.
struct Rig {
    Rig() {
        hardware =
            std::make_shared<CSimulatedControllerHardware>(true, false, pty.SlavePath(), QString());
        pell::SetControllerHardware(hardware);
        CPellGlobalSettings::Ref().SetTorvelSettings(
            {Torvel_Settings::ReceiverOnBeforeOpen | Torvel_Settings::ReceiverOffAfterClose});
        server.listen(QHostAddress::LocalHost);
        QObject::connect(&server, &QTcpServer::newConnection, [this] {
            served.reset(server.nextPendingConnection());
            simulator.Serve(served.get());
        });
        connection = std::make_unique<Connection>(
            rxsim::InProcessReceivers(SmallModel()),
            pell::PortHooks{[this](std::shared_ptr<const rxio::IPortAddr> port) {
                                ++opens;
                                opened = port->GetName();
                                return PreOpenPort(port);
                            },
                            [this](std::shared_ptr<const rxio::IPortAddr> port) {
                                // Closes follow the open of the same port.
                                ++closes;
                                EXPECT_EQ(closes, opens);
                                EXPECT_EQ(port->GetName(), opened);
                                return PostClosePort(port);
                            }});
    }
    ~Rig() { pell::SetControllerHardware(nullptr); }

    bool Identified() {
        return QTest::qWaitFor([this] { return !connection->Identity().model.isEmpty(); });
    }
    // Connected over TCP and identified, the receiver's side drops the connection.
    void LoseTcp() {
        connection->Open(Tcp());
        EXPECT_EQ(connection->State(), EState::Connecting);
        EXPECT_TRUE(Identified());
        served->abort();
        EXPECT_TRUE(QTest::qWaitFor([this] { return connection->State() == EState::Lost; }));
    }
    ReceiverTarget Tcp() const { return {ReceiverTarget::Tcp, "127.0.0.1", server.serverPort()}; }
    ReceiverTarget InternalSerial() const {
        return {ReceiverTarget::Serial, pty.SlavePath(), 115200};
    }

    rxsim::CPty pty;
    std::shared_ptr<CSimulatedControllerHardware> hardware;
    rxsim::CSimulator simulator{SmallModel(), QStringLiteral("alpha")};
    QTcpServer server;
    std::unique_ptr<QTcpSocket> served;
    int opens = 0;
    int closes = 0;
    QString opened;
    std::unique_ptr<Connection> connection;
};

TEST(ConnectionTest, EveryOpenedPortIsClosedOnce) {
    const ReceiverTarget simulator{ReceiverTarget::Simulator, "alpha"};
    struct Case {
        const char* name;
        std::function<void(Rig&)> steps;
        EState state;
        bool message;
        int opens;
        int closes;
        int internalSwitches; // the real hooks switching the controller's internal receiver
    };
    const Case cases[] = {
        {"simulator, closed",
         [&](Rig& rig) {
             rig.connection->Open(simulator);
             EXPECT_TRUE(rig.Identified());
             rig.connection->Close();
         },
         EState::Closed, false, 1, 1, 0},
        {"unknown simulator profile",
         [](Rig& rig) {
             rig.connection->Open({ReceiverTarget::Simulator, "nope"});
         },
         EState::Closed, true, 1, 1, 0},
        {"reopened while connected",
         [&](Rig& rig) {
             rig.connection->Open(simulator);
             rig.connection->Open({ReceiverTarget::Simulator, "beta"});
         },
         EState::Connected, false, 2, 1, 0},
        {"internal serial port, closed",
         [](Rig& rig) {
             rig.connection->Open(rig.InternalSerial());
             EXPECT_EQ(rig.connection->State(), EState::Connected);
             rig.connection->Close();
         },
         EState::Closed, false, 1, 1, 2},
        {"serial port that cannot be opened",
         [](Rig& rig) {
             rig.connection->Open({ReceiverTarget::Serial, "/nonexistent/ttyX", 9600, true});
         },
         EState::Closed, true, 1, 1, 0},
        {"internal receiver the hooks may not switch on",
         [](Rig& rig) {
             const pell::test::ScopedPresenter boxes;
             CPellGlobalSettings::Ref().SetTorvelSettings({0});
             rig.connection->Open(rig.InternalSerial());
             EXPECT_EQ(boxes.Boxes().size(), 1u);
         },
         EState::Closed, true, 1, 0, 0},
        {"tcp, lost",
         [](Rig& rig) {
             rig.LoseTcp();
             // The receiver that was there is still shown, as such.
             EXPECT_EQ(rig.connection->Identity().model, QStringLiteral("Ostrel Q"));
         },
         EState::Lost, true, 1, 1, 0},
        {"tcp, lost, then closed",
         [](Rig& rig) {
             rig.LoseTcp();
             rig.connection->Close();
         },
         EState::Closed, false, 1, 1, 0},
        {"tcp, refused",
         [](Rig& rig) {
             const ReceiverTarget target = rig.Tcp();
             rig.server.close();
             rig.connection->Open(target);
             EXPECT_TRUE(
                 QTest::qWaitFor([&] { return rig.connection->State() != EState::Connecting; }));
         },
         EState::Closed, true, 1, 1, 0},
        {"tcp, cancelled",
         [](Rig& rig) {
             rig.connection->Open(rig.Tcp());
             // The socket is on its way before it is cancelled.
             QCoreApplication::processEvents();
             rig.connection->Close();
             // Nothing of the cancelled attempt comes back.
             QTest::qWait(200);
         },
         EState::Closed, false, 1, 1, 0},
        {"tcp, window closed while connecting",
         [](Rig& rig) {
             rig.connection->Open(rig.Tcp());
             rig.connection.reset();
         },
         EState::Closed, false, 1, 1, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Rig rig;
        c.steps(rig);
        if (rig.connection) {
            EXPECT_EQ(rig.connection->State(), c.state);
            EXPECT_EQ(rig.connection->Message().isEmpty(), !c.message)
                << rig.connection->Message().toStdString();
        }
        EXPECT_EQ(rig.opens, c.opens);
        EXPECT_EQ(rig.closes, c.closes);
        EXPECT_EQ(rig.hardware->Switches().size(), static_cast<size_t>(c.internalSwitches));
        EXPECT_FALSE(rig.hardware->IsPowered(EDevice::Receiver));
    }
}

} // namespace
