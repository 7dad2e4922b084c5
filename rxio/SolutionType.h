#pragma once

namespace rxio {

// Kind of a position solution as the receiver reports it. The numbers are what the receiver
// sends and what settings store; 0 to 18 are defined.
enum class ESolutionType : int {
    None = 0,
    Standalone = 1,
    CodeDifferential = 2,
    RtkFixed = 3,
    RtkFloat = 4,
    DeadReckoning = 5,
    ManualInput = 6,
    Simulated = 7,
    Estimated = 8,
    Sbas = 9,
    Ppp = 10,
    PppConverged = 11,
    LBand = 12,
    NetworkRtkFloat = 13,
    NetworkRtkFixed = 14,
    Beacon = 15,
    Heading = 16,
    HeadingFixed = 17,
    Other = 18,
};

inline constexpr int kSolutionTypeCount = 19;

} // namespace rxio
