#pragma once

#include <QString>

namespace dorrit {

class MainWindow;

// Saves a PNG of every window the host can open into `folder`; returns the number of failures.
int SaveScreenshots(MainWindow& window, const QString& folder);

} // namespace dorrit
