// Any text typed into an address field: an address it accepts is four numbers 0-255 that write
// back as the same text, a mask it accepts is also an address, and what it refuses says so.
#include "config/IPv4Dlg.h"

#include <QStringList>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const bool address = IPv4Refusal(EIPv4Field::Address, text).isEmpty();
    const bool mask = IPv4Refusal(EIPv4Field::Mask, text).isEmpty();
    if (mask && !address)
        std::abort();
    if (!address)
        return 0;
    const QStringList parts = text.split(QLatin1Char('.'));
    if (parts.size() != 4)
        std::abort();
    QStringList written;
    for (const QString& part : parts) {
        bool ok = false;
        const int number = part.toInt(&ok);
        if (!ok || number < 0 || number > 255)
            std::abort();
        written << QString::number(number);
    }
    if (written.join(QLatin1Char('.')) != text)
        std::abort();
    return 0;
}
