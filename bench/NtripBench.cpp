// Choosing a mount point from a real-world-sized caster: parsing a source table of 5,000 streams,
// and filtering it again on each key the user types.
#include "SourceTables.h"
#include "config/NtripSourceTable.h"

#include <benchmark/benchmark.h>

namespace {

constexpr std::size_t kStreams = 5000;

void BM_ParseSourceTable(benchmark::State& state) {
    const std::string text = rxsim::MakeSourceTable(kStreams);
    for (auto _ : state) {
        ntrip::SourceTable table = ntrip::ParseSourceTable(text);
        benchmark::DoNotOptimize(table.streams.data());
    }
    state.SetBytesProcessed(std::int64_t(state.iterations()) * std::int64_t(text.size()));
}
BENCHMARK(BM_ParseSourceTable)->Unit(benchmark::kMillisecond);

// One keystroke: the whole list filtered by what is typed so far, as the dialog does.
void BM_FilterKeystroke(benchmark::State& state) {
    const ntrip::SourceTable table = ntrip::ParseSourceTable(rxsim::MakeSourceTable(kStreams));
    const QString typed = QStringLiteral("bremen rtcm 3.2");
    qsizetype length = 0;
    for (auto _ : state) {
        length = length % typed.size() + 1;
        const QStringView filter = QStringView(typed).left(length);
        std::size_t shown = 0;
        for (const ntrip::Stream& stream : table.streams)
            shown += ntrip::Matches(stream, filter) ? 1 : 0;
        benchmark::DoNotOptimize(shown);
    }
}
BENCHMARK(BM_FilterKeystroke)->Unit(benchmark::kMillisecond);

} // namespace
