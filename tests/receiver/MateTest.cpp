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
    bool IsConnected() const override { return true; }
    void RegisterNotice(const std::shared_ptr<rxio::INotice>&, rxio::ENotification) override {}
    rxio::IPort& Port() override { std::abort(); }
    void SuspendPort() override {}
    void ResumePort() override {}
    rxio::ReceiverIdentity Identity() const override { return {}; }

private:
    CommandResult m_answer;
    CommandId m_last = 0;
    CommandId m_abandoned = 0;
};

enum EOutcome { Returns, CommError, WinError };

struct ReplyCase {
    const char* name;
    CommandResult answer;
    const char* command;
    Mate::EQuotes quotes;
    EOutcome outcome;
    const char* value; // the returned text, or the reply carried by a communication error
    unsigned long code = 0;
};

class ReplyClasses : public testing::TestWithParam<ReplyCase> {};

TEST_P(ReplyClasses, AreClassified) {
    const ReplyCase& c = GetParam();
    Mate mate(std::make_shared<ScriptedReceiver>(c.answer));
    try {
        const QString reply = mate.Run(QString::fromUtf8(c.command), c.quotes);
        EXPECT_EQ(c.outcome, Returns);
        EXPECT_EQ(reply, QString::fromUtf8(c.value));
    } catch (const ulm_std::CCommException& e) {
        EXPECT_EQ(c.outcome, CommError);
        EXPECT_EQ(e.GetReply(), QString::fromUtf8(c.value));
        EXPECT_EQ(e.GetDevice(), QStringLiteral("Receiver"));
        EXPECT_EQ(e.GetCommand(), QString::fromUtf8(c.command));
    } catch (const ulm_std::CWinException& e) {
        EXPECT_EQ(c.outcome, WinError);
        EXPECT_EQ(e.GetErrorCode(), c.code);
        EXPECT_EQ(e.GetOperation(), QString::fromUtf8(c.command));
    }
}

const CommandResult::EStatus kDone = CommandResult::Completed;

INSTANTIATE_TEST_SUITE_P(
    Mate, ReplyClasses,
    testing::Values(
        ReplyCase{
            "plain", {kDone, false, " 115200 \t"}, "print,a", Mate::KeepQuotes, Returns, "115200"},
        ReplyCase{
            "quotedKept", {kDone, false, "\"ab\""}, "print,a", Mate::KeepQuotes, Returns, "\"ab\""},
        ReplyCase{"quotedRemoved",
                  {kDone, false, " \"a\\\"b\\\\c\" "},
                  "print,a",
                  Mate::RemoveQuotes,
                  Returns,
                  "a\"b\\c"},
        ReplyCase{"twoQuotedTextsStay",
                  {kDone, false, "\"a\",\"b\""},
                  "print,a",
                  Mate::RemoveQuotes,
                  Returns,
                  "\"a\",\"b\""},
        ReplyCase{
            "emptyQuoted", {kDone, false, "\"\""}, "print,a", Mate::RemoveQuotes, Returns, ""},
        ReplyCase{"errorReply",
                  {kDone, true, "{2,,value out of range}"},
                  "set,a,9",
                  Mate::KeepQuotes,
                  CommError,
                  "{2,,value out of range}"},
        ReplyCase{"deniedForSet",
                  {kDone, true, "{2,,access denied}"},
                  "set,a,9",
                  Mate::KeepQuotes,
                  CommError,
                  "{2,,access denied}"},
        ReplyCase{"deniedForEm",
                  {kDone, true, "{2,,access denied}"},
                  "em,/dev/ble/a,nmea",
                  Mate::KeepQuotes,
                  Returns,
                  "{2,,access denied}"},
        ReplyCase{"deniedForOutAnyCase",
                  {kDone, true, "{2,,Access Denied}"},
                  "out,/dev/ble/a,\"x\"",
                  Mate::KeepQuotes,
                  Returns,
                  "{2,,Access Denied}"},
        ReplyCase{"otherErrorForEm",
                  {kDone, true, "{1,,unknown path}"},
                  "em,/dev/x,nmea",
                  Mate::KeepQuotes,
                  CommError,
                  "{1,,unknown path}"},
        ReplyCase{"deniedForDm",
                  {kDone, true, "{2,,access denied}"},
                  "dm,/dev/ble/a",
                  Mate::KeepQuotes,
                  CommError,
                  "{2,,access denied}"},
        ReplyCase{"timedOut",
                  {CommandResult::TimedOut, false, ""},
                  "print,a",
                  Mate::KeepQuotes,
                  WinError,
                  "",
                  pell::ERROR_TIMEOUT},
        ReplyCase{"disconnected",
                  {CommandResult::Disconnected, false, ""},
                  "print,a",
                  Mate::KeepQuotes,
                  WinError,
                  "",
                  pell::ERROR_DEV_NOT_EXIST},
        ReplyCase{"refusedUnsent",
                  {CommandResult::Refused, false, ""},
                  "print,a",
                  Mate::KeepQuotes,
                  WinError,
                  "",
                  pell::ERROR_INVALID_PARAMETER}),
    [](const testing::TestParamInfo<ReplyCase>& param) { return std::string(param.param.name); });

TEST(Mate, ValidatorRejectsAReplyAsAReceiverError) {
    Mate mate(std::make_shared<ScriptedReceiver>(CommandResult{kDone, false, "abc"}));
    const auto isNumber = [](const QString& reply) {
        bool ok = false;
        reply.toInt(&ok);
        return ok;
    };
    try {
        mate.Run(QStringLiteral("print,a"), Mate::KeepQuotes, isNumber);
        ADD_FAILURE() << "accepted";
    } catch (const ulm_std::CCommException& e) {
        EXPECT_EQ(e.GetReply(), QStringLiteral("abc"));
    }
}

// The same classes over the wire, from the simulated receiver's own replies.
TEST(Mate, SimulatedReceiverReplies) {
    pell::test::SimulatedReceiver sim;
    Mate mate(sim.Receiver());
    EXPECT_EQ(mate.Run(QStringLiteral("print,rcv/id"), Mate::RemoveQuotes),
              QStringLiteral("SN-0042A"));
    EXPECT_EQ(mate.Run(QStringLiteral("em,/dev/ble/a,nmea")), QStringLiteral("{2,,access denied}"));
    EXPECT_EQ(mate.Run(QStringLiteral("out,/dev/ntrip/a,\"x\"")),
              QStringLiteral("{2,,access denied}"));
    EXPECT_THROW(mate.Run(QStringLiteral("set,rcv/uptime,0")), ulm_std::CCommException);
    EXPECT_THROW(mate.Run(QStringLiteral("print,/par/none")), ulm_std::CCommException);
}

TEST(Mate, KeyedListWithIndexAbove255FailsOverTheWire) {
    pell::test::SimulatedReceiver sim;
    Mate mate(sim.Receiver());
    mate.Run(QStringLiteral("set,ref/avg/list/curpnt/fill,{0={name=\"a\"},300={name=\"b\"}}"));
    const QString reply = mate.Run(QStringLiteral("print,ref/avg/list/curpnt/fill"));
    try {
        Mate::SplitKeyedList(reply, QStringLiteral("Ntrip_Caster_GetUsers"));
        ADD_FAILURE() << "accepted " << reply.toStdString();
    } catch (const ulm_std::CWinException& e) {
        EXPECT_EQ(e.GetErrorCode(), pell::ERROR_INVALID_PARAMETER);
        EXPECT_EQ(e.GetOperation(), QStringLiteral("Ntrip_Caster_GetUsers"));
    }
}

// Failures of the wait over the wire, and what the next command meets afterwards.
TEST(Mate, WaitFailures) {
    struct Case {
        const char* name;
        std::function<void(rxsim::CSimulator&)> fault; // null: no receiver at all
        unsigned long code;
        unsigned long next; // 0: the next command is answered
    };
    const Case cases[] = {
        {"time-out",
         [](rxsim::CSimulator& s) { s.GetFaults().silentPaths.insert(QStringLiteral("pos/elm")); },
         pell::ERROR_TIMEOUT, 0},
        {"connection lost",
         [](rxsim::CSimulator& s) {
             s.GetFaults().latencyMs = 300;
             s.DropAfter(20);
         },
         pell::ERROR_DEV_NOT_EXIST, pell::ERROR_DEV_NOT_EXIST},
        {"no receiver", nullptr, pell::ERROR_DEV_NOT_EXIST, pell::ERROR_DEV_NOT_EXIST},
    };
    for (const Case& c : cases) {
        pell::test::SimulatedReceiver sim;
        Mate mate(c.fault ? sim.Receiver() : nullptr);
        if (c.fault)
            c.fault(sim.Simulator());
        mate.SetTimeout(100);
        EXPECT_EQ(pell::test::ErrorCodeOf([&] { mate.Run(QStringLiteral("print,pos/elm")); }),
                  c.code)
            << c.name;
        EXPECT_EQ(pell::test::ErrorCodeOf([&] { mate.Run(QStringLiteral("print,rcv/uptime")); }),
                  c.next)
            << c.name;
    }
}

TEST(Mate, CancelDuringTheWaitAbandonsTheCommand) {
    pell::test::SimulatedReceiver sim;
    sim.Simulator().GetFaults().latencyMs = 200;
    std::stop_source cancel;
    Mate mate(sim.Receiver());
    mate.SetCancel(cancel.get_token());
    QTimer::singleShot(20, [&] { cancel.request_stop(); });
    EXPECT_EQ(pell::test::ErrorCodeOf([&] { mate.Run(QStringLiteral("print,pos/elm")); }),
              pell::ERROR_CANCELLED);

    // The late reply to the abandoned command is not taken for the next one's.
    sim.Simulator().GetFaults().latencyMs = 0;
    pell::test::Spin(300);
    Mate fresh(sim.Receiver());
    EXPECT_EQ(fresh.Run(QStringLiteral("print,rcv/uptime")), QStringLiteral("0"));
    EXPECT_EQ(sim.Receiver()->UnmatchedReplies(), 1u);
    // A cancelled mate sends nothing more.
    const qsizetype sent = sim.Simulator().ReceivedCommands().size();
    EXPECT_EQ(pell::test::ErrorCodeOf([&] { mate.Run(QStringLiteral("print,pos/elm")); }),
              pell::ERROR_CANCELLED);
    EXPECT_EQ(sim.Simulator().ReceivedCommands().size(), sent);
}

TEST(Mate, CancelFromAWorkerThread) {
    pell::test::SimulatedReceiver sim;
    sim.Simulator().GetFaults().latencyMs = 500;
    std::stop_source cancel;
    Mate mate(sim.Receiver());
    mate.SetCancel(cancel.get_token());
    std::jthread worker([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        cancel.request_stop();
    });
    EXPECT_EQ(pell::test::ErrorCodeOf([&] { mate.Run(QStringLiteral("print,pos/elm")); }),
              pell::ERROR_CANCELLED);
}

// A timer firing during the wait (the window stays alive) must not put a second command on
// the wire while the first one waits.
TEST(Mate, ASecondCommandDuringTheWaitIsRefused) {
    pell::test::SimulatedReceiver sim;
    sim.Simulator().GetFaults().latencyMs = 150;
    Mate mate(sim.Receiver());
    unsigned long nested = 0;
    bool sawPending = false;
    QTimer::singleShot(20, [&] {
        sawPending = Mate::IsPending(sim.Receiver().get());
        nested = pell::test::ErrorCodeOf([&] { mate.Run(QStringLiteral("set,pos/elm,7")); });
    });
    const qsizetype before = sim.Simulator().ReceivedCommands().size();
    EXPECT_EQ(mate.Run(QStringLiteral("print,pos/elm")), QStringLiteral("5"));
    EXPECT_TRUE(sawPending);
    EXPECT_EQ(nested, pell::ERROR_BUSY);
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
