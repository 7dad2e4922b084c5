#include "Simulator.h"

#include "Model.h"
#include "Pty.h"
#include "SimulatedReceiver.h"
#include "rxio/Pipe.h"

#include <QTest>
#include <gtest/gtest.h>

namespace {

using rxsim::CSimulator;

using pell::test::SmallModel;

// One controller connection to the simulator over the in-process pipe.
struct Controller {
    explicit Controller(CSimulator& simulator) {
        auto [mine, theirs] = rxio::CPipeEnd::CreatePair();
        end = std::move(mine);
        receiverEnd = std::move(theirs);
        simulator.Serve(receiverEnd.get());
    }
    // The frames (one a line: their payloads hold no LF here) once `count` have come and
    // `settleMs` more have passed, so that one too many shows.
    QList<QByteArray> Frames(qsizetype count, int settleMs) {
        QByteArray bytes;
        const auto read = [&] {
            bytes += end->readAll();
            return bytes.count('\n') >= count;
        };
        if (QTest::qWaitFor(read, 5000))
            QTest::qWait(settleMs);
        read();
        bytes.chop(1);
        return bytes.isEmpty() ? QList<QByteArray>{} : bytes.split('\n');
    }
    std::unique_ptr<rxio::CPipeEnd> end;
    std::unique_ptr<rxio::CPipeEnd> receiverEnd;
};

// Whatever a connection leaves behind, the next one's commands are each answered once.
TEST(SimulatorConnections, EachStartsClean) {
    const struct {
        const char* left;
        int latencyMs;
        QByteArray bytes;
        int settleMs; // long enough for what was left to show
    } cases[] = {
        {"half a line", 0, "%1%print,pos", 20},
        {"a pass-through", 0, "%1%set,cur/term/echo,/dev/ser/a\r\n%2%set,cur/term/imode,echo\r\n+",
         20},
        {"a delayed answer", 40, "%1%print,pos/elm\r\n", 60},
        {"a stream", 0, "em,/cur/term,nmea/GGA\r\n", 1100},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.left);
        CSimulator simulator(SmallModel(), QStringLiteral("alpha"));
        simulator.GetFaults().latencyMs = c.latencyMs;
        {
            Controller previous(simulator);
            previous.end->write(c.bytes);
            QTest::qWait(5);
        }
        Controller next(simulator);
        next.end->write("%8%print,pos/elm\r\n%9%print,cur/term/imode\r\n");
        EXPECT_EQ(next.Frames(2, c.settleMs),
                  (QList<QByteArray>{"RE000005%8%10", "RE000006%9%cmd"}));
    }
}

// A long session keeps the newest lines only; the counters still see every one.
TEST(SimulatorHistory, KeepsTheNewestAndCountsAll) {
    CSimulator simulator(SmallModel(), QStringLiteral("alpha"));
    Controller controller(simulator);
    constexpr qsizetype kLines = CSimulator::kKeptCommands + 100;
    QByteArray lines;
    for (qsizetype i = 0; i < kLines; ++i)
        lines += "event,\"n=" + QByteArray::number(i) + "\"\n";
    controller.end->write(lines);
    ASSERT_TRUE(QTest::qWaitFor([&] { return simulator.ReceivedCount() == kLines; }, 5000));
    const QStringList& kept = simulator.ReceivedCommands();
    EXPECT_EQ(kept.size(), CSimulator::kKeptCommands);
    EXPECT_EQ(kept.front(), QStringLiteral("event,\"n=100\""));
    EXPECT_EQ(kept.back(), QStringLiteral("event,\"n=%1\"").arg(kLines - 1));
    const QStringList& events = simulator.State().Events();
    EXPECT_EQ(events.size(), rxsim::CReceiverState::kKeptEvents);
    EXPECT_EQ(events.back(), QStringLiteral("n=%1").arg(kLines - 1));
}

// A pseudo-terminal nobody reads (a stream left on when the controller went) takes what fits
// and drops the rest rather than stall the simulator.
TEST(SimulatorPty, ALineNobodyReadsNeverStalls) {
    rxsim::CPty pty;
    const QByteArray block(1 << 20, '$');
    EXPECT_EQ(pty.write(block), block.size());
}

} // namespace
