// Any bytes as the settings dictionary: refused with an error, or a tree whose every element
// knows its parent, with types in range, trimmed non-empty patterns that match their own text,
// model patterns that match the model they name, and whose empty export can be imported again.
#include "config/VOXA2JSON.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace VOXA2JSON;

void Check(bool condition) {
    if (!condition)
        std::abort();
}

void CheckPatterns(const QStringList& patterns) {
    for (const QString& pattern : patterns)
        Check(!pattern.isEmpty() && pattern == pattern.trimmed() &&
              PatternMatches(pattern, pattern) && PatternMatches(QStringLiteral("*"), pattern));
}

void Walk(const Object& object) {
    for (const auto& child : object.children) {
        Check(child->parent == &object && child->attributes <= 15u);
        child->DisplayName();
        if (child->IsObject()) {
            Walk(static_cast<const Object&>(*child));
            continue;
        }
        const auto& variable = static_cast<const Variable&>(*child);
        Check(variable.type >= EType::Unknown && variable.type <= EType::MessageList);
        Check(variable.value.type == variable.type && variable.value.invalid);
        Check(ItemType(variable.type) == variable.type || IsList(variable.type));
        for (const Binding& binding : variable.bindings) {
            Check(binding.index >= -1);
            CheckPatterns(binding.firmwarePatterns);
            CheckPatterns(binding.boardPatterns);
            for (const ModelPattern& model : binding.models) {
                const QString item = model.family + QLatin1Char('-') + model.variant;
                Check(ParseModelPattern(item) == model);
                Check(ModelMatches(model, item) &&
                      ModelMatches(model, model.family + QLatin1Char(' ') + model.variant));
            }
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    QString error;
    const auto root = Dictionary::Parse(
        QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)), &error);
    if (!root) {
        Check(!error.isEmpty());
        return 0;
    }
    Check(root->name == QLatin1String(Dictionary::kRootName) && !root->parent);
    Walk(*root);
    // Nothing was read: the document holds the objects only, and reads back as one.
    SelectDefaults(*root, EDirection::Export, true);
    Check(SettingsDocument::Parse(BuildJson(*root)).has_value());
    return 0;
}
