// Any bytes from a controller, in any chunking, leave the simulated receiver answering in frames
// only: it never crashes, never sends bytes that fit no frame, and answers each line at most once.
#include "Model.h"
#include "Simulator.h"
#include "rxio/Framing.h"
#include "rxio/Pipe.h"

#include <QCoreApplication>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static int argc = 1;
    static char name[] = "fuzz_simulator";
    static char* argv[] = {name, nullptr};
    static QCoreApplication app(argc, argv);
    static const auto model =
        std::make_shared<const rxsim::CModel>(rxsim::CModel::Load(rxsim::CModel::DefaultFile()));
    if (size == 0)
        return 0;
    const QByteArray input(reinterpret_cast<const char*>(data + 1),
                           static_cast<qsizetype>(size - 1));
    const qsizetype chunk = 1 + data[0] % 64;

    rxsim::CSimulator simulator(model, model->Profiles().front().name);
    auto [controller, receiver] = rxio::CPipeEnd::CreatePair();
    simulator.Serve(receiver.get());

    rxio::CFrameParser parser;
    qsizetype answers = 0;
    parser.onFrame = [&answers](const rxio::Frame& frame) {
        if (frame.kind != rxio::EFrameKind::Notice)
            ++answers;
    };
    bool passedThrough = false;
    for (qsizetype i = 0; i < input.size(); i += chunk) {
        controller->write(input.mid(i, chunk));
        QCoreApplication::processEvents();
        passedThrough = passedThrough || simulator.InPassThrough();
        parser.Feed(controller->readAll());
    }
    QCoreApplication::processEvents();
    parser.Feed(controller->readAll());
    // Once the controller's port is put through to another port, bytes are no longer ours.
    if (passedThrough)
        return 0;
    if (parser.GarbageBytes() != 0 || answers > input.count('\n') + 1)
        std::abort();
    return 0;
}
