#pragma once

#include "lib/pell_export.h"

#include <QString>

namespace ulm_std {

// Translates display names (receiver enumerations, names from data files) into the user's
// language through the translation the application object installed.
class PELL_EXPORT CTranslatorInstance {
public:
    static CTranslatorInstance& Ref();

    // `text` in the user's language; unchanged when the catalog has no translation of it.
    QString XlateEx(const QString& text) const;

    // Context of the display names in the translation catalog.
    static constexpr const char* kContext = "PellNames";

private:
    CTranslatorInstance() = default;
};

} // namespace ulm_std
