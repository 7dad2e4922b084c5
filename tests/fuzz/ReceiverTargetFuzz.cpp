// Any text typed as a serial port or a TCP address is refused or gives a target in range that
// comes back the same when written out in full and read again.
#include "receiver/ReceiverTarget.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using pell::ReceiverTarget;
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (const auto serial = ReceiverTarget::FromSerial(text)) {
        if (serial->kind != ReceiverTarget::Serial || serial->name.trimmed().isEmpty() ||
            serial->number <= 0 || !text.startsWith(serial->name))
            std::abort();
        const QString full = serial->name + QLatin1Char('@') + QString::number(serial->number) +
                             (serial->rtsCts ? QStringLiteral(",rtscts") : QString());
        if (ReceiverTarget::FromSerial(full) != serial)
            std::abort();
    }
    if (const auto tcp = ReceiverTarget::FromUrl(text)) {
        if (tcp->kind != ReceiverTarget::Tcp || tcp->name.isEmpty() || tcp->number < 1 ||
            tcp->number > 65535 || ReceiverTarget::FromUrl(tcp->Describe()) != tcp)
            std::abort();
    }
    return 0;
}
