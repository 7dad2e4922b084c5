#include "SimulatedReceiver.h"
#include "rxio/Pipe.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QPointer>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>
#include <thread>

namespace {

using pell::test::Spin;
using rxio::CommandResult;
using rxio::CReceiverConnection;

using pell::test::Exec;
using pell::test::LinkName;
using Bench = pell::test::LinkedSimulator;

class EveryLink : public testing::TestWithParam<Bench::ELink> {};

// Replies, error replies and payloads full of quotes, braces and '%' cross each link intact,
// after garbage on the line; so does the receiver's identity.
TEST_P(EveryLink, CarriesRepliesAndTheIdentity) {
    Bench bench(GetParam());
    bench.simulator.InjectGarbage(QByteArray("\x00\xffRE0001zz}{%%\n$", 17));
    const struct {
        const char* command;
        bool error;
        const char* reply;
    } cases[] = {
        {"print,/par/pos/elm", false, "10"},
        {"set,pos/elm,300", true, "{2,,value out of range}"},
        {"set,net/wifi/ssid,\"a%b{c}\\\"d\"", false, ""},
        {"print,net/wifi/ssid", false, "\"a%b{c}\\\"d\""},
        {"print,dev/ser/a/rate;print,dev/ser/b/rate", false, "115200;9600"},
    };
    for (const auto& c : cases) {
        const CommandResult r = Exec(*bench.connection, QString::fromUtf8(c.command));
        EXPECT_EQ(r.status, CommandResult::Completed) << c.command;
        EXPECT_EQ(r.error, c.error) << c.command;
        EXPECT_EQ(r.reply, QString::fromUtf8(c.reply)) << c.command;
    }
    EXPECT_GT(bench.connection->GarbageBytes(), 0u);

    QSignalSpy identified(bench.connection.get(), &CReceiverConnection::identified);
    bench.connection->Identify();
    ASSERT_TRUE(identified.wait(3000));
    const rxio::ReceiverIdentity id = bench.connection->Identity();
    EXPECT_EQ((QStringList{id.model, id.firmware, id.board, id.serialNumber}),
              (QStringList{"Ostrel Q", "4.2.1", "B-7", "SN-0042A"}));
}

INSTANTIATE_TEST_SUITE_P(Links, EveryLink,
                         testing::Values(Bench::InProcess, Bench::Tcp, Bench::Pty), LinkName);

// The late reply to a timed-out command and the reply to an abandoned one are dropped, never
// taken for the next command's; an abandoned command never completes.
TEST(ConnectionTest, RepliesNobodyWaitsForAreDropped) {
    Bench bench(Bench::InProcess);
    bench.simulator.GetFaults().latencyMs = 30;
    EXPECT_EQ(Exec(*bench.connection, QStringLiteral("print,pos/elm"), 10).status,
              CommandResult::TimedOut);
    bool called = false;
    bench.connection->Abandon(bench.connection->StartCommand(
        QStringLiteral("print,pos/elm"), 1000, [&](const CommandResult&) { called = true; }));
    EXPECT_EQ(Exec(*bench.connection, QStringLiteral("print,pos/pdop")).reply,
              QStringLiteral("30"));
    Spin(50);
    EXPECT_FALSE(called);
    EXPECT_EQ(bench.connection->UnmatchedReplies(), 2u);
}

// A posted line goes out at once, even past a command in flight; its answer is nobody's and
// counts as no stray reply. It is refused like a command when it would not stay one line.
TEST(ConnectionTest, APostedLineGoesOutAtOnceAndItsAnswerIsDropped) {
    Bench bench(Bench::InProcess);
    bench.simulator.GetFaults().latencyMs = 30;
    bool posted = false;
    const auto reply = [&] {
        bench.connection->StartCommand(QStringLiteral("print,pos/elm"), 1000, {});
        posted = bench.connection->Post(QStringLiteral("print,pos/pdop"));
        return Exec(*bench.connection, QStringLiteral("print,dev/ser/b/rate")).reply;
    }();
    EXPECT_TRUE(posted);
    EXPECT_EQ(reply, QStringLiteral("9600"));
    Spin(50);
    EXPECT_EQ(bench.connection->UnmatchedReplies(), 0u);
    EXPECT_EQ(bench.simulator.ReceivedCommands(),
              (QStringList{"print,pos/elm", "print,pos/pdop", "print,dev/ser/b/rate"}));
    EXPECT_FALSE(bench.connection->Post(QStringLiteral("print,pos/elm\nreset,yes")));
    bench.connection->Disconnect();
    EXPECT_FALSE(bench.connection->Post(QStringLiteral("print,pos/elm")));
}

TEST(ConnectionTest, CommandsThatWouldSplitIntoTwoAreRefusedUnsent) {
    Bench bench(Bench::InProcess);
    for (const char* command :
         {"set,pos/elm,1\r\nset,pos/elm,2", "print,pos/elm\nreset,yes", "print,x\rpower,off"})
        EXPECT_EQ(Exec(*bench.connection, QString::fromUtf8(command)).status,
                  CommandResult::Refused)
            << command;
    Spin(20);
    EXPECT_TRUE(bench.simulator.ReceivedCommands().isEmpty());

    // Refused at once, then abandoned before the answer came round: never answered.
    bool called = false;
    bench.connection->Abandon(bench.connection->StartCommand(
        QStringLiteral("print,x\nreset,yes"), 1000, [&](const CommandResult&) { called = true; }));
    Spin(20);
    EXPECT_FALSE(called);
}

// Commands queued at once go out one at a time, each answered in order; a session ended with
// several pending ends each one once. Completions never run inside the caller's own call.
TEST(ConnectionTest, QueuedCommandsAreAnsweredInOrderAndAnEndedSessionEndsEachOnce) {
    Bench bench(Bench::InProcess);
    QStringList results;
    const auto start = [&](const char* command) {
        return bench.connection->StartCommand(
            QString::fromUtf8(command), 2000, [&results, command](const CommandResult& r) {
                results << QString::fromUtf8(command) + QStringLiteral(": ") +
                               (r.status == CommandResult::Disconnected ? QStringLiteral("ended")
                                                                        : r.reply);
            });
    };
    start("print,pos/elm");
    start("set,pos/elm,300");
    start("print,dev/ser/b/rate");
    EXPECT_TRUE(results.empty());
    EXPECT_TRUE(QTest::qWaitFor([&] { return results.size() == 3; }, 1000));
    EXPECT_EQ(results, (QStringList{"print,pos/elm: 10", "set,pos/elm,300: {2,,value out of range}",
                                    "print,dev/ser/b/rate: 9600"}));

    results.clear();
    bench.simulator.GetFaults().latencyMs = 100;
    start("print,pos/elm");
    bench.connection->Abandon(start("print,pos/pdop"));
    start("print,dev/ser/b/rate");
    bench.connection->Disconnect();
    EXPECT_TRUE(results.empty());
    Spin(200);
    EXPECT_EQ(results, (QStringList{"print,pos/elm: ended", "print,dev/ser/b/rate: ended"}));
}

TEST(ConnectionTest, ALinkThatCannotOpenSaysWhy) {
    const auto serial =
        rxio::OpenSerialLink(QStringLiteral("/dev/pell-no-such-port"), 115200, false);
    EXPECT_FALSE(serial.link);
    EXPECT_TRUE(serial.error.contains(QStringLiteral("/dev/pell-no-such-port")))
        << serial.error.toStdString();

    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    const quint16 port = server.serverPort();
    server.close();
    const auto tcp = rxio::OpenTcpLink(QStringLiteral("127.0.0.1"), port, 2000);
    EXPECT_FALSE(tcp.link);
    EXPECT_TRUE(tcp.error.contains(QString::number(port))) << tcp.error.toStdString();
}

TEST(ConnectionTest, ASerialPortThatFailsIsALostConnection) {
    Bench bench(Bench::Pty);
    ASSERT_EQ(Exec(*bench.connection, QStringLiteral("print,pos/elm")).reply, QStringLiteral("10"));
    QSignalSpy lost(bench.connection.get(), &CReceiverConnection::connectionLost);
    bench.pty.reset(); // the device behind the serial port goes away
    EXPECT_TRUE(lost.wait(2000));
    EXPECT_FALSE(bench.connection->IsConnected());
}

// Whichever thread lets go of the last handle, the connection dies on its own thread.
TEST(ConnectionTest, TheLastHandleLetGoOnAWorkerDestroysTheConnectionOnItsThread) {
    Bench bench(Bench::InProcess);
    const QPointer<CReceiverConnection> watch(bench.connection.get());
    std::thread([handle = std::move(bench.connection)]() mutable { handle.reset(); }).join();
    EXPECT_TRUE(watch);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(watch);
}

TEST(ConnectionDeathTest, AForeignThreadCannotUseTheConnection) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(
        {
            Bench bench(Bench::InProcess);
            std::thread([&] {
                bench.connection->StartCommand(QStringLiteral("print,pos/elm"), 100, {});
            }).join();
        },
        "thread that created it");
}

// An announced reset or power-off raises "receiver gone"; a dropped link raises "connection lost"
// and ends the command waiting on it. Each notice hears its own kind only, and only while it lives.
TEST(ConnectionTest, AnnouncementsAndADroppedLinkRaiseTheirNotices) {
    Bench bench(Bench::InProcess);
    std::vector<rxio::ENotification> seen;
    auto lost = rxio::INotice::CreateInstance([&](rxio::ENotification k) { seen.push_back(k); });
    auto gone = rxio::INotice::CreateInstance([&](rxio::ENotification k) { seen.push_back(k); });
    bench.connection->RegisterNotice(lost, rxio::NotifyConnectionLost);
    bench.connection->RegisterNotice(gone, rxio::NotifyReceiverGone);
    bench.simulator.AnnounceReset();
    EXPECT_FALSE(Exec(*bench.connection, QStringLiteral("power,off")).error);
    Spin(20);
    gone.reset();
    bench.simulator.AnnounceReset();
    bench.simulator.GetFaults().latencyMs = 200;
    QTimer::singleShot(20, [&] { bench.simulator.DropConnection(); });
    EXPECT_EQ(Exec(*bench.connection, QStringLiteral("print,pos/elm")).status,
              CommandResult::Disconnected);
    EXPECT_EQ(seen,
              (std::vector<rxio::ENotification>{rxio::NotifyReceiverGone, rxio::NotifyReceiverGone,
                                                rxio::NotifyConnectionLost}));
}

TEST(ConnectionTest, PassThroughCarriesBytesBothWaysUntilItsTerminator) {
    Bench bench(Bench::InProcess);
    auto [moduleSide, portSide] = rxio::CPipeEnd::CreatePair();
    bench.simulator.AttachPortDevice(QStringLiteral("/dev/ser/b"), portSide.get());

    ASSERT_FALSE(Exec(*bench.connection,
                      QStringLiteral("set,cur/term/eoff,\"#OFF#\";set,cur/term/echo,/dev/ser/b;"
                                     "set,cur/term/imode,echo"))
                     .error);
    rxio::IPort& port = bench.connection->Port();
    bench.connection->SuspendPort();

    // Controller → module, untouched, frames and all.
    static const char raw[] = "ATI\r\n%9%print,pos/elm\r\n\x00\xff#OF";
    const QByteArray toModule(raw, sizeof raw - 1);
    port.Write(toModule);
    QByteArray atModule;
    // "#OF" could still become the terminator: it waits for the next bytes.
    const QByteArray passed = toModule.chopped(3);
    for (int i = 0; i < 100 && atModule.size() < passed.size(); ++i) {
        Spin(2);
        atModule += moduleSide->readAll();
    }
    EXPECT_EQ(atModule, passed);

    // Module → controller, untouched, even bytes that look like a frame.
    const QByteArray fromModule = "RE000003%1%x\nOK\r\n";
    moduleSide->write(fromModule);
    QByteArray atController;
    for (int i = 0; i < 100 && atController.size() < fromModule.size(); ++i)
        if (const std::size_t n = port.BytesWaiting())
            atController += port.Read(n);
    EXPECT_EQ(atController, fromModule);
    EXPECT_EQ(bench.connection->UnmatchedReplies(), 0u);

    port.Write("tail#OFF#\r\n");
    Spin(20);
    EXPECT_FALSE(bench.simulator.InPassThrough());
    EXPECT_EQ(moduleSide->readAll(), "#OFtail");
    EXPECT_EQ(bench.simulator.ReceivedCount(), 1); // nothing that passed was run as a command
    bench.connection->ResumePort();
    EXPECT_EQ(Exec(*bench.connection, QStringLiteral("print,cur/term/imode")).reply,
              QStringLiteral("cmd"));
}

} // namespace
