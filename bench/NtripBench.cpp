// Choosing a mount point from a real-world-sized caster of 5,000 streams: parsing its source
// table, opening the dialog on the table as the simulated receiver hands it on, and filtering
// the dialog's list again on each key the user types.
#include "Model.h"
#include "Simulator.h"
#include "SourceTables.h"
#include "config/NtripSourceTable.h"
#include "config/Ntrip_Client_SelectMountpointDlg.h"
#include "receiver/VexCommands.h"
#include "receiver/VexReceiverMate.h"
#include "rxio/Pipe.h"
#include "rxio/ReceiverConnection.h"

#include <QCoreApplication>
#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <benchmark/benchmark.h>

namespace {

constexpr std::size_t kStreams = 5000;

// The simulated receiver in-process, its NTRIP client pointed at the large caster.
struct Link {
    Link()
        : simulator(std::make_shared<const rxsim::CModel>(
                        rxsim::CModel::Load(rxsim::CModel::DefaultFile())),
                    QStringLiteral("ostrel-q")) {
        auto [mine, theirs] = rxio::CPipeEnd::CreatePair();
        end = std::move(theirs);
        simulator.Serve(end.get());
        connection = rxio::CReceiverConnection::Create(
            rxio::OpenInProcessLink(std::move(mine), QStringLiteral("sim")).link);
        CVexReceiverMate(connection)
            .Run(pell::vexcmd::SetText(QStringLiteral("ntrip/caster/addr"),
                                       QStringLiteral("large.example.net")));
    }
    ~Link() { connection->Disconnect(); }
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;

    rxsim::CSimulator simulator;
    std::unique_ptr<QIODevice> end;
    std::shared_ptr<rxio::CReceiverConnection> connection;
};

using Dialog = CPellWindow<CNtrip_Client_SelectMountpointDlg>;

void ParseSourceTable(benchmark::State& state) {
    const QString text = rxsim::MakeSourceTable(kStreams);
    for (auto _ : state) {
        ntrip::SourceTable table = ntrip::ParseSourceTable(text);
        benchmark::DoNotOptimize(table.streams.data());
    }
    state.SetBytesProcessed(std::int64_t(state.iterations()) * std::int64_t(text.toUtf8().size()));
}
BENCHMARK(ParseSourceTable)->Unit(benchmark::kMillisecond);

// From the dialog's start to its list shown: the table read through the receiver and parsed.
void OpenDialog(benchmark::State& state) {
    Link link;
    for (auto _ : state) {
        Dialog dialog(link.connection, QString(), nullptr);
        dialog.show();
        benchmark::DoNotOptimize(dialog.List().rowCount());
    }
}
BENCHMARK(OpenDialog)->Unit(benchmark::kMillisecond);

// One key typed: the list filtered and sorted again by what is typed so far.
void FilterKeystroke(benchmark::State& state) {
    Link link;
    Dialog dialog(link.connection, QString(), nullptr);
    dialog.show();
    const QString typed = QStringLiteral("penang rtcm 3.2");
    qsizetype length = 0;
    for (auto _ : state) {
        length = length % typed.size() + 1;
        dialog.Filter().setText(typed.left(length));
        QCoreApplication::processEvents();
        benchmark::DoNotOptimize(dialog.List().rowCount());
    }
}
BENCHMARK(FilterKeystroke)->Unit(benchmark::kMillisecond);

} // namespace
