#pragma once

#include "lib/pell_export.h"

#include <QString>

// The application's names, version line and build date.
class PELL_EXPORT CPellLibDoc {
public:
    static QString GetShortApplicationName(bool localised);
    static QString GetLongApplicationName(bool localised);
    // "Version 3.5, build 169146".
    static QString GetApplicationVersion(bool localised);
    // The build date as a long date in the user's locale.
    static QString GetBuildDate();

    static constexpr const char* kBuildNumber = "169146";
    static constexpr const char* kBuildDate = "2019-10-02";
};
