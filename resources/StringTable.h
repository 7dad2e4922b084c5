#pragma once

#include "lib/pell_export.h"

#include <span>

namespace pell {

// One entry of the string table. The English text is the source text of the translation catalog;
// the id is its disambiguation, so equal texts under different ids are translated apart.
struct StringEntry {
    unsigned id;
    struct {
        const char* text;
        const char* idText;
    } source;
};

// Context under which every text of the library is translated.
inline constexpr const char* kTranslationContext = "PellLib";

// All entries, sorted by id.
PELL_EXPORT std::span<const StringEntry> StringTable();

} // namespace pell
