#pragma once

#include "Model.h"
#include "rxio/Link.h"

#include <memory>

namespace rxsim {

// Simulated receivers of `model` for the far end of an in-process link, by profile name (the
// model's first profile when the name is empty). A host passes it to its connection, so that
// the library never depends on the simulator.
rxio::InProcessPeerFactory InProcessReceivers(std::shared_ptr<const CModel> model);

} // namespace rxsim
