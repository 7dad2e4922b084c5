#include "ReceiverState.h"
#include "SimulatedReceiver.h"
#include "config/VOXA2JSON.h"
#include "config/VexReceiverAccessor.h"
#include "receiver/VexReceiverMate.h"

#include <QFile>
#include <QXmlStreamReader>
#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <set>

namespace {

using namespace VOXA2JSON;

std::shared_ptr<Object> ShippedDictionary() {
    QString error;
    auto root = Dictionary::Load(Dictionary::DefaultPath(), &error);
    EXPECT_TRUE(root) << error.toStdString();
    return root;
}

// The flags of an element and of the objects above it, which decide for it as well.
unsigned Flags(const Element* element) {
    unsigned flags = 0;
    for (; element; element = element->parent)
        flags |= element->attributes;
    return flags;
}

bool Accepts(const Binding& binding, const rxsim::Profile& profile) {
    const auto any = [](const QStringList& patterns, const QString& text) {
        return patterns.isEmpty() ||
               std::any_of(patterns.begin(), patterns.end(),
                           [&](const QString& pattern) { return PatternMatches(pattern, text); });
    };
    const bool model =
        binding.models.empty() ||
        std::any_of(binding.models.begin(), binding.models.end(), [&](const ModelPattern& pattern) {
            return ModelMatches(pattern, profile.model);
        });
    return model && any(binding.firmwarePatterns, profile.firmware) &&
           any(binding.boardPatterns, profile.board);
}

// What each simulated receiver would resolve: a binding its identity accepts names a path it
// has, and every variable is some receiver's. No password goes into a file unless asked for.
TEST(ShippedDictionary, EveryAcceptedBindingExistsOnItsReceiver) {
    const auto root = ShippedDictionary();
    ASSERT_TRUE(root);
    const rxsim::CModel& model = *pell::test::ShippedModel();
    std::map<const Variable*, int> accepted;
    for (const rxsim::Profile& profile : model.Profiles()) {
        rxsim::CReceiverState state(model, profile);
        rxsim::SideEffects effects;
        const auto exists = [&](const QString& path) {
            return !path.isEmpty() && !state.Execute(QStringLiteral("list,") + path, effects).error;
        };
        for (const Variable* variable : AllVariables(*root))
            for (const Binding& binding : variable->bindings) {
                if (!Accepts(binding, profile))
                    continue;
                ++accepted[variable];
                EXPECT_TRUE(exists(binding.parameter) || exists(binding.test))
                    << profile.name.toStdString() << ": " << variable->Path().toStdString()
                    << " at " << binding.parameter.toStdString();
            }
    }
    for (const Variable* variable : AllVariables(*root)) {
        EXPECT_GT(accepted[variable], 0) << variable->Path().toStdString();
        const bool password =
            std::any_of(variable->bindings.begin(), variable->bindings.end(), [](const Binding& b) {
                return b.parameter.contains(QLatin1String("passw"));
            });
        EXPECT_TRUE(!password || (Flags(variable) & DoNotExportByDefault))
            << "a password exported by default: " << variable->Path().toStdString();
        if (ItemType(variable->type) == EType::Boolean) {
            for (const Binding& binding : variable->bindings) {
                EXPECT_FALSE(binding.trueText.isEmpty() || binding.falseText.isEmpty())
                    << variable->Path().toStdString();
            }
        }
    }
}

// The loader drops a model item it cannot parse, which would widen its binding to every model.
TEST(ShippedDictionary, EveryModelItemParses) {
    QFile file(Dictionary::DefaultPath());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QString models = xml.attributes().value(QLatin1String("ReceiverModels")).toString();
        for (const QString& item : models.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
            EXPECT_TRUE(ParseModelPattern(item)) << item.toStdString();
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
}

// An edit of the dictionary must not silently drop a kind of value, a flag or a kind of binding.
TEST(ShippedDictionary, UsesEveryTypeFlagAndKindOfBinding) {
    const auto root = ShippedDictionary();
    ASSERT_TRUE(root);
    std::set<EType> types;
    unsigned flags = 0;
    for (const Variable* variable : AllVariables(*root)) {
        flags |= Flags(variable);
        types.insert(variable->type);
    }
    for (int type = static_cast<int>(EType::Boolean); type <= static_cast<int>(EType::MessageList);
         ++type)
        EXPECT_TRUE(types.contains(static_cast<EType>(type)))
            << TypeDisplayName(static_cast<EType>(type)).toStdString();
    for (const EAttr flag : {DoNotExportByDefault, DoNotImportByDefault, ReadOnly, WriteOnly})
        EXPECT_TRUE(flags & flag) << flag;

    using Kind = std::function<bool(const Variable&, const Binding&)>;
    const std::pair<const char*, Kind> kinds[] = {
        {"an item of a list",
         [](const Variable&, const Binding& b) {
             return b.index >= 0;
         }},
        {"hexadecimal",
         [](const Variable&, const Binding& b) {
             return b.radix == 16;
         }},
        {"a test path",
         [](const Variable&, const Binding& b) {
             return !b.test.isEmpty();
         }},
        {"by model",
         [](const Variable&, const Binding& b) {
             return !b.models.empty();
         }},
        {"by firmware",
         [](const Variable&, const Binding& b) {
             return !b.firmwarePatterns.isEmpty();
         }},
        {"by board",
         [](const Variable&, const Binding& b) {
             return !b.boardPatterns.isEmpty();
         }},
        {"in order of priority",
         [](const Variable& v, const Binding&) {
             return v.bindings.size() > 1;
         }},
        {"a port's output messages",
         [](const Variable& v, const Binding& b) {
             return v.name == QLatin1String("OMode") && v.type == EType::StringList &&
                    b.parameter.endsWith(QLatin1String("/msgs"));
         }},
        {"the default message set",
         [](const Variable& v, const Binding& b) {
             return v.name == QLatin1String("DefMsgSet") && v.type == EType::MessageList &&
                    b.parameter == QLatin1String("msg/def/");
         }},
    };
    const auto variables = AllVariables(*root);
    for (const auto& [what, kind] : kinds)
        EXPECT_TRUE(std::any_of(variables.begin(), variables.end(), [&](const Variable* v) {
            return std::any_of(v->bindings.begin(), v->bindings.end(),
                               [&](const Binding& b) { return kind(*v, b); });
        })) << what;
}

// Every setting of the receiver, read through the shipped dictionary.
std::shared_ptr<Object> ReadEverything(pell::test::SimulatedReceiver& receiver) {
    auto root = ShippedDictionary();
    SelectDefaults(*root, EDirection::Export, true);
    CVexReceiverAccessor accessor(receiver.Receiver());
    EXPECT_TRUE(ReadAll(*root, accessor));
    return root;
}

// Each simulated receiver takes back what it gave, output messages and default message set
// included: nothing is refused and a second export is the first. A variable reads nothing only
// where it does not apply or its list item was never created.
TEST(ShippedDictionary, EveryReceiverTakesBackWhatItGave) {
    for (const rxsim::Profile& profile : pell::test::ShippedModel()->Profiles()) {
        SCOPED_TRACE(profile.name.toStdString());
        pell::test::SimulatedReceiver receiver(profile.name);
        const CVexReceiverMate mate(receiver.Receiver());
        mate.Run(QStringLiteral("em,dev/ser/a,nmea/GGA;em,dev/ser/a,jps/RT"));
        const auto exported = ReadEverything(receiver);
        for (const Variable* variable : AllVariables(*exported)) {
            const Binding* binding = variable->Resolved();
            EXPECT_TRUE(variable->error.isEmpty() || !binding || !binding->test.isEmpty())
                << variable->Path().toStdString() << ": " << variable->error.toStdString();
        }
        const QByteArray json = BuildJson(*exported);
        mate.Run(QStringLiteral("dm,dev/ser/a;remove,msg/def;set,pos/elm,0"));

        auto root = ShippedDictionary();
        const auto document = SettingsDocument::Parse(json);
        ASSERT_TRUE(document);
        SelectDefaults(*root, EDirection::Import, true);
        TakeValues(*root, *document);
        CVexReceiverAccessor accessor(receiver.Receiver());
        for (Variable* variable : SelectedVariables(*root))
            EXPECT_NE(WriteVariable(*variable, accessor), EWriteOutcome::Failed)
                << variable->Path().toStdString() << ": " << variable->error.toStdString();
        EXPECT_EQ(BuildJson(*ReadEverything(receiver)), json);
    }
}

} // namespace
