#pragma once

#include <QString>
#include <memory>

namespace rxsim {
class CModel;
} // namespace rxsim

namespace dorrit {

// Saves a PNG of every window the host can open, the main window in each connection state and
// at a handheld's and a desktop's size, into `folder`; returns the number of failures.
int SaveScreenshots(std::shared_ptr<const rxsim::CModel> model, const QString& folder);

} // namespace dorrit
