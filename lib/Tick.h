#pragma once

#include "lib/pell_export.h"

#include <cstdint>
#include <memory>

namespace pell {

// A millisecond tick count that wraps at 2^32 like the platform's GetTickCount. Ages are
// differences of two ticks taken as unsigned 32-bit numbers, so the wrap is harmless.
class PELL_EXPORT ITickSource {
public:
    virtual ~ITickSource();
    virtual std::uint32_t Now() = 0;
};

// Milliseconds of a steady clock.
class PELL_EXPORT CSteadyTickSource final : public ITickSource {
public:
    std::uint32_t Now() override;
};

// The current tick of the source in use.
PELL_EXPORT std::uint32_t GetTickCount();
// Installs `source` (null restores the steady clock) and returns the one it replaces. Tests use
// it to step time by hand, while no other thread reads the tick.
PELL_EXPORT std::shared_ptr<ITickSource> SetTickSource(std::shared_ptr<ITickSource> source);

// Waits until `ms` have passed on the tick count: Sleep blocks the thread, PumpingSleep keeps
// the event loop turning so windows stay painted and timers run, while what the user does waits.
// Both follow a tick source a test installed.
PELL_EXPORT void Sleep(std::uint32_t ms);
PELL_EXPORT void PumpingSleep(std::uint32_t ms);

} // namespace pell
