// The settings file: an export of the shipped dictionary from the simulator paced at 115200 baud
// against the time its bytes need on the wire, and writing and reading large documents.
#include "Model.h"
#include "Simulator.h"
#include "config/VOXA2JSON.h"
#include "config/VexReceiverAccessor.h"
#include "lib/Exceptions.h"
#include "rxio/Pipe.h"
#include "rxio/ReceiverConnection.h"

#include <QElapsedTimer>
#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>

namespace {

using namespace VOXA2JSON;

// The simulator's end of the link, counting the bytes that cross it both ways as they are
// carried: command lines and framed answers.
class CCountingDevice final : public QIODevice {
public:
    explicit CCountingDevice(std::unique_ptr<QIODevice> inner) : m_inner(std::move(inner)) {
        connect(m_inner.get(), &QIODevice::readyRead, this, &QIODevice::readyRead);
        open(QIODevice::ReadWrite | QIODevice::Unbuffered);
    }

    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override {
        return m_inner->bytesAvailable() + QIODevice::bytesAvailable();
    }
    qint64 Bytes() const { return m_bytes; }

protected:
    qint64 readData(char* data, qint64 maxSize) override {
        return Count(m_inner->read(data, maxSize));
    }
    qint64 writeData(const char* data, qint64 size) override {
        return Count(m_inner->write(data, size));
    }

private:
    qint64 Count(qint64 bytes) {
        m_bytes += std::max<qint64>(bytes, 0);
        return bytes;
    }

    std::unique_ptr<QIODevice> m_inner;
    qint64 m_bytes = 0;
};

struct CountedLink {
    explicit CountedLink(const QString& profile)
        : simulator(std::make_shared<const rxsim::CModel>(
                        rxsim::CModel::Load(rxsim::CModel::DefaultFile())),
                    profile) {
        auto [mine, theirs] = rxio::CPipeEnd::CreatePair();
        end = std::make_unique<CCountingDevice>(std::move(theirs));
        simulator.Serve(end.get());
        connection = rxio::CReceiverConnection::Create(
            rxio::OpenInProcessLink(std::move(mine), QStringLiteral("sim")).link);
    }
    ~CountedLink() { connection->Disconnect(); }
    CountedLink(const CountedLink&) = delete;
    CountedLink& operator=(const CountedLink&) = delete;

    rxsim::CSimulator simulator;
    std::unique_ptr<CCountingDevice> end;
    std::shared_ptr<rxio::CReceiverConnection> connection;
};

void ExportAt115200(benchmark::State& state) {
    constexpr int kBaud = 115200;
    QString error;
    const auto root = Dictionary::Load(Dictionary::DefaultPath(), &error);
    if (!root) {
        state.SkipWithError(qPrintable(error));
        return;
    }
    SelectDefaults(*root, EDirection::Export, true);
    for (auto _ : state) {
        CountedLink link(QStringLiteral("ostrel-q"));
        link.simulator.GetFaults().baud = kBaud;
        CVexReceiverAccessor accessor(link.connection);
        QElapsedTimer clock;
        clock.start();
        try {
            ReadAll(*root, accessor);
        } catch (const ulm_std::CException& e) {
            state.SkipWithError(e.what());
            return;
        }
        const double measured = clock.nsecsElapsed() / 1e9;
        const double wire = link.end->Bytes() * 10.0 / kBaud;
        const auto commands = double(link.simulator.ReceivedCount());
        const auto variables = SelectedVariables(*root);
        state.counters["variables"] = double(variables.size());
        state.counters["read"] =
            double(std::count_if(variables.begin(), variables.end(),
                                 [](const Variable* v) { return !v->value.invalid; }));
        state.counters["commands"] = commands;
        state.counters["bytes"] = double(link.end->Bytes());
        state.counters["wire_s"] = wire;
        state.counters["measured_s"] = measured;
        state.counters["ratio"] = measured / wire;
        state.counters["overhead_us_per_command"] = (measured - wire) / commands * 1e6;
    }
}

constexpr std::array<EType, 12> kTypes{
    EType::Boolean,   EType::Integer,    EType::Float,       EType::String,
    EType::QString,   EType::Message,    EType::BooleanList, EType::IntegerList,
    EType::FloatList, EType::StringList, EType::QStringList, EType::MessageList,
};

// Value number `n` of a type, the lists `items` long: short receiver-like numbers and texts, some
// with a quote or a non-ASCII letter to escape.
Value MakeValue(EType type, int n, int items) {
    Value value;
    value.type = type;
    value.invalid = false;
    const bool list = IsList(type);
    for (int i = 0; i < (list ? items : 1); ++i) {
        const int k = n + i;
        switch (ItemType(type)) {
        case EType::Boolean:
            list ? value.booleans.push_back(k % 2 != 0) : void(value.boolean = k % 2 != 0);
            break;
        case EType::Integer:
            list ? value.integers.push_back(k * 37 - 5000) : void(value.integer = k * 37 - 5000);
            break;
        case EType::Float:
            list ? value.reals.push_back(k * 0.01) : void(value.real = k * 0.01);
            break;
        case EType::String:
            list ? value.texts.push_back(QStringLiteral("item%1").arg(k))
                 : void(value.text = QStringLiteral("mode%1").arg(k));
            break;
        case EType::QString:
            list ? value.texts.push_back(QStringLiteral("Base \"%1\" Zürich").arg(k))
                 : void(value.text = QStringLiteral("Base \"%1\" Zürich").arg(k));
            break;
        case EType::Message: {
            const Message message{QStringLiteral("nmea/GGA"), 1.0 + i, 0.5, 0, std::uint32_t(k)};
            list ? value.messages.push_back(message) : void(value.message = message);
            break;
        }
        default:
            break;
        }
    }
    return value;
}

// A dictionary of `variables` variables of every type, a hundred to an object, all valid.
std::shared_ptr<Object> GeneratedTree(int variables, int items) {
    auto root = std::make_shared<Object>();
    root->name = QLatin1String(Dictionary::kRootName);
    for (int n = 0; n < variables; ++n) {
        if (n % 100 == 0) {
            auto group = std::make_shared<Object>();
            group->name = QStringLiteral("Group%1").arg(n / 100);
            group->parent = root.get();
            root->children.push_back(group);
        }
        auto& group = static_cast<Object&>(*root->children.back());
        auto variable = std::make_shared<Variable>();
        variable->name = QStringLiteral("Setting%1").arg(n);
        variable->type = kTypes[n % kTypes.size()];
        variable->value = MakeValue(variable->type, n, items);
        variable->parent = &group;
        group.children.push_back(variable);
    }
    return root;
}

void BuildJson10000(benchmark::State& state) {
    const auto root = GeneratedTree(10'000, 4);
    qsizetype bytes = 0;
    for (auto _ : state) {
        const QByteArray json = BuildJson(*root);
        bytes = json.size();
        benchmark::DoNotOptimize(json.constData());
    }
    state.counters["json_bytes"] = double(bytes);
    state.SetBytesProcessed(state.iterations() * bytes);
}

void ParseTenMegabytes(benchmark::State& state) {
    constexpr int kVariables = 147'000; // 10 MiB of JSON
    const auto root = GeneratedTree(kVariables, 4);
    const QByteArray json = BuildJson(*root);
    for (auto _ : state) {
        const auto document = SettingsDocument::Parse(json);
        if (!document) {
            state.SkipWithError("the generated document does not parse");
            return;
        }
        TakeValues(*root, *document);
    }
    if (BuildJson(*root) != json)
        state.SkipWithError("the values taken are not the values written");
    state.counters["json_bytes"] = double(json.size());
    state.SetBytesProcessed(state.iterations() * json.size());
}

BENCHMARK(ExportAt115200)->Iterations(1)->Unit(benchmark::kSecond);
BENCHMARK(BuildJson10000)->Unit(benchmark::kMillisecond);
BENCHMARK(ParseTenMegabytes)->Unit(benchmark::kMillisecond);

} // namespace
