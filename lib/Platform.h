#pragma once

#include <QString>

namespace pell::platform {

// Absolute path of the folder that holds the library's own file.
QString LibraryFolder();

} // namespace pell::platform
