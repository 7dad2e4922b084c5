#pragma once

#include "receiver/ReceiverTarget.h"

#include <QString>
#include <memory>
#include <optional>

namespace rxsim {
class CModel;
} // namespace rxsim

namespace dorrit {

// Saves a PNG of every window the host can open, the main window in each connection state and
// at a handheld's and a desktop's size, into `folder`; with a `source`, also the status sheet
// over that receiver's sky once its data have arrived. Returns the number of failures.
int SaveScreenshots(std::shared_ptr<const rxsim::CModel> model, const QString& folder,
                    const std::optional<pell::ReceiverTarget>& source = std::nullopt);

} // namespace dorrit
