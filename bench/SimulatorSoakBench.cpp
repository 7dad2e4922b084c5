// rxsim over a long session: a million commands through one connection, with the resident size
// once the simulator's histories are full and again at the end; and what one epoch of its sky
// costs, a day of them in a row.
#include "Model.h"
#include "Nmea.h"
#include "Simulator.h"
#include "rxio/Pipe.h"

#include <QCoreApplication>
#include <QFile>
#include <benchmark/benchmark.h>
#include <unistd.h>

namespace {

double ResidentMiB() {
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> fields = statm.readAll().split(' ');
    return fields.size() > 1 ? fields[1].toDouble() * sysconf(_SC_PAGESIZE) / (1 << 20) : 0;
}

void SoakMillion(benchmark::State& state) {
    constexpr int kCommands = 1'000'000;
    constexpr int kWarmUp = 100'000; // well past every kept history
    // What a long-running controller sends: reads, writes, list churn, events, message sets.
    const QByteArray commands[] = {
        "print,pos/elm",
        "set,pos/elm,7",
        "print,dev/ser/a:on",
        "create,app/notif/watchers,0",
        "remove,app/notif/watchers/00",
        "event,\"n=1\"",
        "em,/dev/ser/a,nmea/GGA",
        "print,nothing/here",
    };
    QByteArray batch;
    constexpr int kBatch = 1000;
    for (int i = 0; i < kBatch; ++i)
        batch += '%' + QByteArray::number(i) + '%' + commands[i % std::size(commands)] + "\r\n";

    const auto model =
        std::make_shared<const rxsim::CModel>(rxsim::CModel::Load(rxsim::CModel::DefaultFile()));
    for (auto _ : state) {
        rxsim::CSimulator simulator(model, model->Profiles().front().name);
        auto [controller, receiverEnd] = rxio::CPipeEnd::CreatePair();
        simulator.Serve(receiverEnd.get());
        double warm = 0;
        for (int sent = 0; sent < kCommands; sent += kBatch) {
            controller->write(batch);
            for (qsizetype answers = 0; answers < kBatch;) {
                QCoreApplication::processEvents();
                answers += controller->readAll().count('\n');
            }
            if (sent + kBatch == kWarmUp)
                warm = ResidentMiB();
        }
        const double end = ResidentMiB();
        state.counters["rss_warm_MiB"] = warm;
        state.counters["rss_end_MiB"] = end;
        state.counters["growth_MiB"] = end - warm;
        state.counters["received"] = static_cast<double>(simulator.ReceivedCount());
    }
    state.SetItemsProcessed(state.iterations() * kCommands);
}

BENCHMARK(SoakMillion)->Iterations(1)->Unit(benchmark::kSecond);

void SkyEpoch(benchmark::State& state) {
    const QDateTime start = QDateTime::currentDateTimeUtc();
    rxsim::CSky sky(rxio::GpsTime::FromUtc(start));
    qint64 second = 0;
    qint64 bytes = 0;
    for (auto _ : state) {
        const QDateTime utc = start.addSecs(second++);
        const auto satellites = sky.At(rxio::GpsTime::FromUtc(utc), 5, {});
        bytes += rxsim::NmeaEpoch(satellites, utc, sky.Observer(), rxsim::kNmeaSets).size();
    }
    state.SetBytesProcessed(bytes);
}

BENCHMARK(SkyEpoch)->Iterations(86400)->Unit(benchmark::kMicrosecond);

} // namespace
