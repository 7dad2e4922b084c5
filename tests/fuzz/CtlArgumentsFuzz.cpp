// Any text typed as pellctl's --at or --observer is refused or gives a moment or a place in
// range that reads back the same when written out again. Typed as the PATH of print or the
// VALUE of set, it is refused or gives one command as the simulated receiver splits a line,
// with no control character that would end the line on the wire (a quoted text may hold a tab).
#include "Predict.h"
#include "ReceiverState.h"
#include "lib/Exceptions.h"
#include "receiver/VexCommands.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <numbers>

namespace {

void CheckOneCommand(const std::function<QString()>& compose) {
    QString command;
    try {
        command = compose();
    } catch (const ulm_std::CWinException&) {
        return;
    }
    if (rxsim::CReceiverState::SplitCommands(command).size() != 1 ||
        std::any_of(command.begin(), command.end(), [](QChar c) {
            // A tab may stand in a quoted text; nothing else below a space may.
            return (c.unicode() < 0x20 && c != QLatin1Char('\t')) || c.unicode() == 0x7F;
        }))
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (const auto utc = pellctl::ParseUtc(text)) {
        if (!utc->isValid() || utc->timeSpec() != Qt::UTC ||
            pellctl::ParseUtc(utc->toString(Qt::ISODateWithMs)) != utc)
            std::abort();
    }
    if (const auto place = pellctl::ParseObserver(text)) {
        constexpr double kDegrees = 180.0 / std::numbers::pi;
        const double lat = place->lat * kDegrees, lon = place->lon * kDegrees;
        if (!(std::abs(lat) <= 90.0 + 1e-9 && std::abs(lon) <= 180.0 + 1e-9 &&
              std::abs(place->height) <= 100'000.0))
            std::abort();
        const auto again = pellctl::ParseObserver(QStringLiteral("%1,%2,%3")
                                                      .arg(lat, 0, 'f', 9)
                                                      .arg(lon, 0, 'f', 9)
                                                      .arg(place->height, 0, 'f', 9));
        if (!again || std::abs(again->lat - place->lat) > 1e-9 ||
            std::abs(again->lon - place->lon) > 1e-9 ||
            std::abs(again->height - place->height) > 1e-6)
            std::abort();
    }
    CheckOneCommand([&text] { return pell::vexcmd::Print(text); });
    CheckOneCommand([&text] { return pell::vexcmd::SetPrinted(QStringLiteral("pos/elm"), text); });
    CheckOneCommand([&text] { return pell::vexcmd::Out(QStringLiteral("/dev/ser/a"), text); });
    CheckOneCommand([&text] { return pell::vexcmd::DisableMessages(text, text); });
    return 0;
}
