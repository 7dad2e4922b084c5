#include "SimulatedReceiver.h"
#include "TestSupport.h"
#include "lib/Common.h"
#include "lib/Exceptions.h"
#include "receiver/SettingsRestorer.h"
#include "receiver/VexCommands.h"
#include "receiver/VexReceiverMate.h"

#include <QTimer>
#include <gtest/gtest.h>

namespace {

using Restorer = pell::CSettingsRestorer<CVexReceiverMate>;
using pell::vexcmd::SetChoice;
using pell::vexcmd::SetText;

class RestorerTest : public testing::Test {
protected:
    // What the receiver prints for each of `paths`, to compare before and after.
    QStringList Snapshot(const QStringList& paths) {
        QStringList values;
        for (const QString& path : paths)
            values << sim.Value(path);
        return values;
    }

    pell::test::SimulatedReceiver sim;
    CVexReceiverMate mate{sim.Receiver()};
};

TEST_F(RestorerTest, SerialPortComesBackInOneLineAfterAFailure) {
    const QStringList port = {"dev/ser/b/rate", "dev/ser/b/rtscts", "dev/ser/b/stops",
                              "dev/ser/b/parity", "dev/ser/b/bits"};
    const QStringList before = Snapshot(port);
    EXPECT_THROW(
        {
            Restorer restorer(mate, std::make_unique<Restorer::CSerialPortSettings>("/dev/ser/b"));
            mate.Run(SetChoice(QStringLiteral("/dev/ser/b/rate"), QStringLiteral("921600")));
            mate.Run(SetChoice(QStringLiteral("/dev/ser/b/parity"), QStringLiteral("E")));
            mate.Run(SetChoice(QStringLiteral("/dev/ser/b/bits"), QStringLiteral("9")));
        },
        ulm_std::CCommException);
    EXPECT_EQ(Snapshot(port), before);
    EXPECT_EQ(sim.Simulator().ReceivedCommands().back(),
              QStringLiteral("set,/dev/ser/b/rate,%1;set,/dev/ser/b/rtscts,%2;"
                             "set,/dev/ser/b/stops,%3;set,/dev/ser/b/parity,%4;"
                             "set,/dev/ser/b/bits,%5")
                  .arg(before[0], before[1], before[2], before[3], before[4]));
}

TEST_F(RestorerTest, SubtreesComeBackWithTheirListItems) {
    // Two caster users before the operation.
    for (const char* name : {"ann", "bob"}) {
        const QString index = mate.Run(QStringLiteral("create,app/ntrip/caster/usr"));
        mate.Run(SetText(QStringLiteral("app/ntrip/caster/usr/%1/name")
                             .arg(index.toInt(), 2, 10, QLatin1Char('0')),
                         QString::fromUtf8(name)));
    }
    const QStringList trees = {"app/ntrip/caster", "wlan", "pos/elm"};
    const QStringList before = Snapshot(trees);
    EXPECT_THROW(
        {
            Restorer restorer(mate, {"app/ntrip/caster/*", "/par/wlan/*", "pos/elm"});
            mate.Run(
                SetText(QStringLiteral("app/ntrip/caster/usr/00/name"), QStringLiteral("eve")));
            mate.Run(QStringLiteral("remove,app/ntrip/caster/usr/01"));
            mate.Run(QStringLiteral("create,app/ntrip/caster/usr,5"));
            mate.Run(QStringLiteral("set,app/ntrip/caster/0/port,2102"));
            mate.Run(SetText(QStringLiteral("wlan/ap/name"), QStringLiteral("field \"ap\"")));
            mate.Run(QStringLiteral("set,pos/elm,15"));
            mate.Run(QStringLiteral("set,wlan/ap/ip,10")); // not text: refused, ends the operation
        },
        ulm_std::CCommException);
    EXPECT_EQ(Snapshot(trees), before);
}

TEST_F(RestorerTest, KeptChangesStay) {
    {
        Restorer restorer(mate, {"pos/elm", "wlan/*"});
        mate.Run(QStringLiteral("set,pos/elm,15"));
        restorer.Keep();
    }
    EXPECT_EQ(sim.Value(QStringLiteral("pos/elm")), QStringLiteral("15"));
}

TEST_F(RestorerTest, ACancelledOperationIsStillPutBack) {
    std::stop_source cancel;
    mate.SetCancel(cancel.get_token());
    const QString before = sim.Value(QStringLiteral("pos/elm"));
    EXPECT_EQ(pell::test::ErrorCodeOf([&] {
                  Restorer restorer(mate, {"pos/elm"});
                  mate.Run(QStringLiteral("set,pos/elm,15"));
                  cancel.request_stop();
                  mate.Run(QStringLiteral("set,pos/elm,16"));
              }),
              pell::ERROR_CANCELLED);
    EXPECT_EQ(sim.Value(QStringLiteral("pos/elm")), before);
}

TEST_F(RestorerTest, RestoreReportsWhatItCouldNotPutBack) {
    mate.SetTimeout(100);
    Restorer restorer(mate, {"pos/elm"});
    mate.Run(QStringLiteral("set,pos/elm,15"));
    sim.Simulator().GetFaults().silentPaths.insert(QStringLiteral("pos/elm"));
    EXPECT_EQ(pell::test::ErrorCodeOf([&] { restorer.Restore(); }), pell::ERROR_TIMEOUT);
}

TEST_F(RestorerTest, UnknownPathFailsBeforeAnythingChanges) {
    EXPECT_THROW(Restorer(mate, {"none/*"}), ulm_std::CCommException);
    EXPECT_THROW(Restorer(mate, std::make_unique<Restorer::CSerialPortSettings>("/dev/ser/q")),
                 ulm_std::CCommException);
}

} // namespace
