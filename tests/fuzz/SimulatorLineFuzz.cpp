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
    if (size < 2)
        return 0;
    // The body up to four times over, so that lines can grow past the 4096-byte limit.
    const QByteArray input =
        QByteArray(reinterpret_cast<const char*>(data + 2), static_cast<qsizetype>(size - 2))
            .repeated(1 + data[1] % 4);
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
    // One answer at most for each line, and for an unfinished one only once it is too long.
    const qsizetype tail = input.size() - 1 - input.lastIndexOf('\n');
    if (parser.GarbageBytes() != 0 || answers > input.count('\n') + (tail > 4096 ? 1 : 0))
        std::abort();
    return 0;
}
