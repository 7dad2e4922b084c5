// Any bytes from a controller, in any chunking and with the knobs that change answers, leave a
// simulated Bluetooth module answering in its own framing: whole CR LF lines from the LE module, no
// quote inside a quoted value, "\r\n<text>\r\n" frames from the classic one. Nothing a controller
// sends can make an answer look like two.
#include "BleModule.h"
#include "ClassicBtModule.h"
#include "rxio/Pipe.h"

#include <QCoreApplication>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>

namespace {

void Check(bool ok) {
    if (!ok)
        std::abort();
}

// Every line ends in CR LF and holds no other CR or LF; a name="value" line quotes its value
// once.
void CheckLeLines(const QByteArray& out) {
    const QList<QByteArray> lines = out.split('\n');
    Check(lines.back().isEmpty());
    for (qsizetype i = 0; i + 1 < lines.size(); ++i) {
        Check(lines[i].endsWith('\r') && lines[i].count('\r') == 1);
        const qsizetype quotes = lines[i].count('"');
        Check(quotes == 0 || quotes == 2);
    }
}

// Frames "\r\n<text>\r\n", the identification's ending "\r\n\n" aside; no text holds CR or LF.
void CheckClassicFrames(QByteArray out) {
    out.replace("\r\nPELL BT-C Module 2.3\r\n\n", "");
    while (!out.isEmpty()) {
        Check(out.startsWith("\r\n"));
        const qsizetype end = out.indexOf("\r\n", 2);
        Check(end >= 2);
        const QByteArray text = out.mid(2, end - 2);
        Check(!text.contains('\r') && !text.contains('\n'));
        out.remove(0, end + 2);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static int argc = 1;
    static char name[] = "fuzz_bluetooth_module";
    static char* argv[] = {name, nullptr};
    static QCoreApplication app(argc, argv);
    if (size < 2)
        return 0;
    const bool classic = data[0] & 1;
    const qsizetype chunk = 1 + data[1] % 32;
    const QByteArray input(reinterpret_cast<const char*>(data + 2),
                           static_cast<qsizetype>(size - 2));

    std::unique_ptr<rxsim::CPortModule> module;
    if (classic)
        module = std::make_unique<rxsim::CClassicBtModule>();
    else
        module = std::make_unique<rxsim::CBleModule>(rxsim::BleSettings(),
                                                     QStringLiteral("00:1B:C5:0A:42:17"));
    rxsim::ModuleFaults& faults = module->GetFaults();
    faults.errorBeforeOk = data[0] & 2;
    faults.notBle = data[0] & 4;
    auto [controller, port] = rxio::CPipeEnd::CreatePair();
    module->Attach(port.get());

    QByteArray out;
    for (qsizetype i = 0; i < input.size(); i += chunk) {
        controller->write(input.mid(i, chunk));
        QCoreApplication::processEvents();
        out += controller->readAll();
    }
    if (classic)
        CheckClassicFrames(out);
    else
        CheckLeLines(out);
    return 0;
}
