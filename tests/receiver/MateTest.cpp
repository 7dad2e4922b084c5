#include "SimulatedReceiver.h"
#include "TestSupport.h"
#include "lib/Common.h"
#include "lib/Exceptions.h"
#include "receiver/VexReceiverMate.h"

#include <QTimer>
#include <gtest/gtest.h>
#include <thread>

namespace {

using rxio::CommandResult;
using Mate = CVexReceiverMate;

// Answers every command with one scripted result, from the event loop as a real receiver does.
class ScriptedReceiver final : public rxio::IReceiver {
public:
    explicit ScriptedReceiver(CommandResult answer) : m_answer(std::move(answer)) {}
    CommandId StartCommand(const QString&, int, Completion done) override {
        const CommandId id = ++m_last;
        QTimer::singleShot(0, [this, id, done = std::move(done)] {
            if (id != m_abandoned)
                done(m_answer);
        });
        return id;
    }
    void Abandon(CommandId id) override { m_abandoned = id; }
    bool Post(const QString&) override { return true; }
    bool IsConnected() const override { return true; }
    void RegisterNotice(const std::shared_ptr<rxio::INotice>&, rxio::ENotification) override {}
    void RegisterSatListListener(const std::shared_ptr<rxio::ISatListListener>&) override {}
    void RegisterPositionListener(const std::shared_ptr<rxio::IPositionListener>&) override {}
    rxio::CAlmanacStorage& Almanacs() override { std::abort(); }
    rxio::IPort& Port() override { std::abort(); }
    void SuspendPort() override {}
    void ResumePort() override {}
    rxio::ReceiverIdentity Identity() const override { return {}; }

private:
    CommandResult m_answer;
    CommandId m_last = 0;
    CommandId m_abandoned = 0;
};

QString Code(unsigned long code) {
    return QStringLiteral("code %1").arg(code);
}

// What Run comes to: the reply, "ER <reply>" for the receiver's error, "code <n>" for a failure
// of the wait. Either exception names the command.
QString Outcome(const Mate& mate, const QString& command, Mate::EQuotes quotes = Mate::KeepQuotes,
                const Mate::Validator& validator = {}) {
    try {
        return mate.Run(command, quotes, validator);
    } catch (const ulm_std::CCommException& e) {
        EXPECT_EQ(e.GetDevice(), QStringLiteral("Receiver"));
        EXPECT_EQ(e.GetCommand(), command);
        return QStringLiteral("ER ") + e.GetReply();
    } catch (const ulm_std::CWinException& e) {
        EXPECT_EQ(e.GetOperation(), command);
        return Code(e.GetErrorCode());
    }
}

TEST(Mate, RepliesAreClassified) {
    using enum CommandResult::EStatus;
    const auto keep = Mate::KeepQuotes;
    const auto remove = Mate::RemoveQuotes;
    const struct {
        CommandResult answer;
        const char* command;
        Mate::EQuotes quotes;
        QString outcome;
    } cases[] = {
        {{Completed, false, " 115200 \t"}, "print,a", keep, "115200"},
        {{Completed, false, "\"ab\""}, "print,a", keep, "\"ab\""},
        {{Completed, false, " \"a\\\"b\\\\c\" "}, "print,a", remove, "a\"b\\c"},
        {{Completed, false, "\"a\",\"b\""}, "print,a", remove, "\"a\",\"b\""},
        {{Completed, true, "{3,,bad syntax}"}, "set,a,9", keep, "ER {3,,bad syntax}"},
        {{Completed, true, "{2,,access denied}"}, "set,a,9", keep, "ER {2,,access denied}"},
        // A port that takes no output is no failure of em or out.
        {{Completed, true, "{2,,access denied}"}, "em,b,nmea", keep, "{2,,access denied}"},
        {{Completed, true, "{2,,Access Denied}"}, "out,b,\"x\"", keep, "{2,,Access Denied}"},
        {{Completed, true, "{1,,unknown path}"}, "em,x,nmea", keep, "ER {1,,unknown path}"},
        {{Completed, true, "{2,,access denied}"}, "dm,b", keep, "ER {2,,access denied}"},
        {{TimedOut, false, {}}, "print,a", keep, Code(pell::ERROR_TIMEOUT)},
        {{Disconnected, false, {}}, "print,a", keep, Code(pell::ERROR_DEV_NOT_EXIST)},
        {{Refused, false, {}}, "print,a", keep, Code(pell::ERROR_INVALID_PARAMETER)},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.command + (' ' + c.answer.reply.toStdString()));
        const Mate mate(std::make_shared<ScriptedReceiver>(c.answer));
        EXPECT_EQ(Outcome(mate, QString::fromUtf8(c.command), c.quotes), c.outcome);
    }
    const Mate mate(std::make_shared<ScriptedReceiver>(CommandResult{Completed, false, "abc"}));
    EXPECT_EQ(Outcome(mate, "print,a", keep, [](const QString& r) { return r == "1"; }), "ER abc");
}

// The simulated receiver's refusal of output is the one the mate lets pass.
TEST(Mate, PortsWithoutOutputOverTheWire) {
    pell::test::SimulatedReceiver sim;
    const Mate mate(sim.Receiver());
    EXPECT_EQ(Outcome(mate, "em,/dev/ble/a,nmea"), "{2,,access denied}");
    EXPECT_EQ(Outcome(mate, "out,/dev/ntrip/a,\"x\""), "{2,,access denied}");
}

TEST(Mate, AKeyedListThatFailsNamesTheOperation) {
    try {
        Mate::SplitKeyedList(QStringLiteral("{0=a,300=b}"),
                             QStringLiteral("Ntrip_Caster_GetUsers"));
        ADD_FAILURE() << "accepted";
    } catch (const ulm_std::CWinException& e) {
        EXPECT_EQ(e.GetOperation(), QStringLiteral("Ntrip_Caster_GetUsers"));
    }
}

// Failures of the wait over the wire, and what the next command meets afterwards.
TEST(Mate, WaitFailures) {
    const struct {
        const char* name;
        std::function<void(rxsim::CSimulator&)> fault; // null: no receiver at all
        QString outcome;
        QString next;
    } cases[] = {
        {"time-out",
         [](rxsim::CSimulator& s) { s.GetFaults().silentPaths.insert(QStringLiteral("pos/elm")); },
         Code(pell::ERROR_TIMEOUT), "0"},
        {"connection lost",
         [](rxsim::CSimulator& s) {
             s.GetFaults().latencyMs = 300;
             s.DropAfter(20);
         },
         Code(pell::ERROR_DEV_NOT_EXIST), Code(pell::ERROR_DEV_NOT_EXIST)},
        {"no receiver", nullptr, Code(pell::ERROR_DEV_NOT_EXIST), Code(pell::ERROR_DEV_NOT_EXIST)},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        pell::test::SimulatedReceiver sim;
        Mate mate(c.fault ? sim.Receiver() : nullptr);
        if (c.fault)
            c.fault(sim.Simulator());
        mate.SetTimeout(100);
        EXPECT_EQ(Outcome(mate, "print,pos/elm"), c.outcome);
        EXPECT_EQ(Outcome(mate, "print,rcv/uptime"), c.next);
    }
}

// A cancel from the window's own thread (its Cancel button) or from a worker ends the wait and
// abandons the command: its late reply is not taken for the next one's, and the mate sends
// nothing more.
TEST(Mate, CancelDuringTheWaitAbandonsTheCommand) {
    for (const bool fromWorker : {false, true}) {
        SCOPED_TRACE(fromWorker ? "from a worker" : "from the window");
        pell::test::SimulatedReceiver sim;
        sim.Simulator().GetFaults().latencyMs = 200;
        std::stop_source cancel;
        Mate mate(sim.Receiver());
        mate.SetCancel(cancel.get_token());
        std::jthread worker;
        if (fromWorker)
            worker = std::jthread([&] {
                std::this_thread::sleep_for(std::chrono::milliseconds(20));
                cancel.request_stop();
            });
        else
            QTimer::singleShot(20, [&] { cancel.request_stop(); });
        EXPECT_EQ(Outcome(mate, "print,pos/elm"), Code(pell::ERROR_CANCELLED));

        sim.Simulator().GetFaults().latencyMs = 0;
        pell::test::Spin(300);
        EXPECT_EQ(Outcome(Mate(sim.Receiver()), "print,rcv/uptime"), "0");
        EXPECT_EQ(sim.Receiver()->UnmatchedReplies(), 1u);
        const qsizetype sent = sim.Simulator().ReceivedCommands().size();
        EXPECT_EQ(Outcome(mate, "print,pos/elm"), Code(pell::ERROR_CANCELLED));
        EXPECT_EQ(sim.Simulator().ReceivedCommands().size(), sent);
    }
}

// A timer firing during the wait (the window stays alive) must not put a second command on
// the wire while the first one waits.
TEST(Mate, ASecondCommandDuringTheWaitIsRefused) {
    pell::test::SimulatedReceiver sim;
    sim.Simulator().GetFaults().latencyMs = 150;
    Mate mate(sim.Receiver());
    QString nested;
    bool sawPending = false;
    QTimer::singleShot(20, [&] {
        sawPending = Mate::IsPending(sim.Receiver().get());
        nested = Outcome(mate, "set,pos/elm,7");
    });
    const qsizetype before = sim.Simulator().ReceivedCommands().size();
    EXPECT_EQ(mate.Run(QStringLiteral("print,pos/elm")), QStringLiteral("5"));
    EXPECT_TRUE(sawPending);
    EXPECT_EQ(nested, Code(pell::ERROR_BUSY));
    EXPECT_EQ(sim.Simulator().ReceivedCommands().mid(before), QStringList{"print,pos/elm"});
    EXPECT_FALSE(Mate::IsPending(sim.Receiver().get()));
}

// A worker that talks to the receiver itself is stopped at once, before anything is sent.
TEST(MateDeathTest, RunFromAnotherThreadStopsADebugBuild) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(
        {
            pell::test::SimulatedReceiver sim;
            const Mate mate(sim.Receiver());
            std::thread([&] { mate.Run(QStringLiteral("print,pos/elm")); }).join();
        },
        "IsOwnerThread");
}

} // namespace
