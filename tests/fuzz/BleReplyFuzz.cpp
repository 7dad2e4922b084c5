// Any bytes from a Bluetooth module frame without a crash, a framed reply lying within them; any
// reply of a Bluetooth LE module splits into pairs, each pair taken from one line of the reply;
// any serial-number text gives a well-formed advertising record.
#include "links/BluetoothDlg.h"
#include "links/BluetoothSmartEngine.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString reply = QString::fromUtf8(bytes);
    const CBluetoothSmartEngine::Framed framed = CBluetoothSmartEngine::FrameReply(bytes);
    if (framed.state == CBluetoothSmartEngine::Framed::Ok && !bytes.contains("OK\r\n"))
        std::abort();
    if (framed.state == CBluetoothSmartEngine::Framed::Error &&
        !framed.text.startsWith(QLatin1String("ERROR=")))
        std::abort();
    if (const auto classic = CBluetoothModuleLink::FrameReply(bytes, "\r\n", "\r\n"))
        if (classic->contains(QLatin1String("\r\n")) || !bytes.contains("\r\n"))
            std::abort();
    const CBluetoothSmartEngine::Pairs pairs = CBluetoothSmartEngine::ParseReply(reply);
    if (static_cast<qsizetype>(pairs.size()) > reply.count(QLatin1Char('=')))
        std::abort();
    for (const auto& [name, value] : pairs)
        if (!reply.contains(name) || !reply.contains(value))
            std::abort();

    const CBluetoothSmartEngine::AdvertisingRecord record =
        CBluetoothSmartEngine::MakeAdvertisingRecord({{}, reply, {}, reply, reply});
    if (record[0] != 2 || record[1] != 2 || record[2] != 5 || record[9] != 3 || record[13] != 0)
        std::abort();
    if (CBluetoothSmartEngine::MakeFriendlyName({{}, reply, {}, reply, {}})
            .contains(QLatin1Char(' ')))
        std::abort();
    return 0;
}
