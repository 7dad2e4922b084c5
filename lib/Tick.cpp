#include "lib/Tick.h"

#include "lib/Replaceable.h"

#include <QCoreApplication>
#include <QThread>
#include <chrono>

namespace pell {

namespace {

CReplaceable<ITickSource, CSteadyTickSource>& Source() {
    static CReplaceable<ITickSource, CSteadyTickSource> source;
    return source;
}

} // namespace

ITickSource::~ITickSource() = default;

std::uint32_t CSteadyTickSource::Now() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint32_t>(
        std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

std::uint32_t GetTickCount() {
    return Source().Get().Now();
}

std::shared_ptr<ITickSource> SetTickSource(std::shared_ptr<ITickSource> source) {
    return Source().Set(std::move(source));
}

void Sleep(std::uint32_t ms) {
    const std::uint32_t start = GetTickCount();
    while (GetTickCount() - start < ms)
        QThread::msleep(1);
}

void PumpingSleep(std::uint32_t ms) {
    const std::uint32_t start = GetTickCount();
    // Windows repaint and timers run; what the user does waits, and so does the processor.
    while (GetTickCount() - start < ms) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        QThread::msleep(5);
    }
}

} // namespace pell
