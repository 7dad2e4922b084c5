// Any bytes as a settings file, taken into a dictionary with a variable of every type: refused, or
// values of the variables' own types; the file written from them reads back as the same values.
#include "config/VOXA2JSON.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace VOXA2JSON;

constexpr char kDictionary[] = R"(<Objects>
  <Variable Name="b" Type="boolean"/><Variable Name="i" Type="integer"/>
  <Variable Name="f" Type="float"/><Variable Name="s" Type="string"/>
  <Variable Name="q" Type="qstring"/><Variable Name="m" Type="message"/>
  <Variable Name="u" Type="other"/>
  <Object Name="l">
    <Variable Name="b" Type="[boolean"/><Variable Name="i" Type="[integer"/>
    <Variable Name="f" Type="[float"/><Variable Name="s" Type="[string"/>
    <Variable Name="q" Type="[qstring"/><Variable Name="m" Type="[message"/>
    <Object Name="o"><Variable Name="" Type="integer"/></Object>
  </Object>
</Objects>)";

std::shared_ptr<Object> Tree() {
    auto root = Dictionary::Parse(kDictionary, nullptr);
    if (!root)
        std::abort();
    return root;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto document = SettingsDocument::Parse(
        QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    if (!document)
        return 0;
    const auto taken = Tree();
    TakeValues(*taken, *document);
    const QByteArray json = BuildJson(*taken);

    const auto again = SettingsDocument::Parse(json);
    if (!again)
        std::abort();
    const auto retaken = Tree();
    TakeValues(*retaken, *again);
    const std::vector<Variable*> before = AllVariables(*taken);
    const std::vector<Variable*> after = AllVariables(*retaken);
    for (std::size_t i = 0; i < before.size(); ++i) {
        const Value& value = before[i]->value;
        if (value.type != before[i]->type || (value.type == EType::Unknown && !value.invalid) ||
            !(value == after[i]->value))
            std::abort();
    }
    if (BuildJson(*retaken) != json)
        std::abort();
    return 0;
}
