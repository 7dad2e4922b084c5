#include "receiver/SettingsTree.h"

#include "lib/Exceptions.h"
#include "receiver/VexCommands.h"
#include "receiver/VexReceiverMate.h"

#include <algorithm>

namespace pell {

namespace {

// Deeper records than this are kept as one leaf: no receiver nests that far, and a hostile
// reply must not exhaust the stack.
constexpr int kMaxDepth = 32;

// A plain character test: a pattern's "$" would also match before a final line feed.
bool IsKey(const QString& key) {
    return !key.isEmpty() && std::all_of(key.begin(), key.end(), [](QChar c) {
        return (c.isLetterOrNumber() && c.unicode() < 0x80) || c == QLatin1Char('_');
    });
}

// The key of a key=value element, or empty when the element is not one.
QString KeyOf(const QString& element) {
    const qsizetype equals = element.indexOf(QLatin1Char('='));
    const QString key = element.left(equals);
    return equals > 0 && IsKey(key) ? key : QString();
}

// A forced `node` reads any braced text as a record and leaves out elements without a key;
// otherwise only a braced text whose every element is key=value is a record.
SettingsNode ParseAt(const QString& printed, bool node, int depth) {
    SettingsNode result;
    result.value = printed.trimmed();
    if (depth >= kMaxDepth || !result.value.startsWith(QLatin1Char('{')) ||
        (!node && !result.value.endsWith(QLatin1Char('}'))))
        return result;
    const QStringList elements = CVexReceiverMate::SplitList(result.value);
    if (!node &&
        (elements.isEmpty() || std::any_of(elements.begin(), elements.end(),
                                           [](const QString& e) { return KeyOf(e).isEmpty(); })))
        return result;
    result.leaf = false;
    result.value.clear();
    for (const QString& element : elements) {
        const QString key = KeyOf(element);
        if (!key.isEmpty())
            result.children.emplace(key, ParseAt(element.mid(key.size() + 1), false, depth + 1));
    }
    return result;
}

bool IsItemKey(const QString& key) {
    bool number = false;
    key.toUInt(&number);
    return number;
}

struct Plan {
    QStringList removes;
    QStringList creates;
    QStringList sets;
    QStringList* skipped;

    void Set(const QString& path, const QString& value) {
        try {
            sets << vexcmd::SetPrinted(path, value);
        } catch (const ulm_std::CWinException&) {
            if (skipped)
                *skipped << path;
        }
    }
    void Fill(const QString& path, const SettingsNode& node) {
        if (node.leaf)
            return Set(path, node.value);
        for (const auto& [key, child] : node.children)
            Fill(path + QLatin1Char('/') + key, child);
    }
    void Compare(const QString& path, const SettingsNode& recorded, const SettingsNode& current) {
        // A list without items prints as "{}", a value, until it has some.
        static const SettingsNode kEmptyList{false, {}, {}};
        const auto emptyList = [](const SettingsNode& node) {
            return node.leaf && node.value == QLatin1String("{}");
        };
        if (recorded.leaf != current.leaf && (emptyList(recorded) || emptyList(current)))
            return Compare(path, emptyList(recorded) ? kEmptyList : recorded,
                           emptyList(current) ? kEmptyList : current);
        if (recorded.leaf || current.leaf) {
            if (recorded != current)
                Fill(path, recorded);
            return;
        }
        for (const auto& [key, child] : current.children)
            if (!recorded.children.contains(key) && IsItemKey(key))
                removes << vexcmd::Remove(path + QLatin1Char('/') + key);
        for (const auto& [key, child] : recorded.children) {
            const QString childPath = path + QLatin1Char('/') + key;
            const auto now = current.children.find(key);
            if (now != current.children.end()) {
                Compare(childPath, child, now->second);
            } else if (IsItemKey(key)) {
                creates << vexcmd::Create(path, key.toUInt());
                Fill(childPath, child);
            }
        }
    }
};

} // namespace

SettingsNode SettingsNode::Parse(const QString& printed, bool node) {
    return ParseAt(printed, node, 0);
}

QStringList RestoreCommands(const QString& path, const SettingsNode& recorded,
                            const SettingsNode& current, QStringList* skipped) {
    Plan plan{{}, {}, {}, skipped};
    plan.Compare(path, recorded, current);
    return plan.removes + plan.creates + plan.sets;
}

} // namespace pell
