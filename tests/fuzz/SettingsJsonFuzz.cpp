// Any bytes as a settings file, taken into a dictionary with a variable of every type: refused, or
// values of the variables' own types; the file written from them reads back as the same values;
// and whatever the file holds, each command written to the receiver stays one command.
#include "ReceiverState.h"
#include "config/VOXA2JSON.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace VOXA2JSON;

constexpr char kDictionary[] = R"(<Objects>
  <Variable Name="b" Type="boolean"><VOXA Parameter="p/b" True="on" False="off"/></Variable>
  <Variable Name="i" Type="integer"><VOXA Parameter="p/i" Radix="16"/></Variable>
  <Variable Name="f" Type="float"><VOXA Parameter="p/f"/></Variable>
  <Variable Name="s" Type="string"><VOXA Parameter="p/s"/></Variable>
  <Variable Name="q" Type="qstring"><VOXA Parameter="p/q"/></Variable>
  <Variable Name="m" Type="message"><VOXA Parameter="p/m"/></Variable>
  <Variable Name="x" Type="string"><VOXA Parameter="p/list" Index="1"/></Variable>
  <Variable Name="u" Type="other"/>
  <Object Name="l">
    <Variable Name="b" Type="[boolean"><VOXA Parameter="p/lb" True="y" False="n"/></Variable>
    <Variable Name="i" Type="[integer"><VOXA Parameter="p/li"/></Variable>
    <Variable Name="f" Type="[float"><VOXA Parameter="p/lf"/></Variable>
    <Variable Name="s" Type="[string"><VOXA Parameter="p/ls"/></Variable>
    <Variable Name="q" Type="[qstring"><VOXA Parameter="p/lq"/></Variable>
    <Variable Name="m" Type="[message"><VOXA Parameter="p/lm"/></Variable>
    <Variable Name="OMode" Type="[string"><VOXA Parameter="dev/ser/a/msgs"/></Variable>
    <Variable Name="DefMsgSet" Type="[message"><VOXA Parameter="msg/def/"/></Variable>
    <Object Name="o"><Variable Name="" Type="integer"><VOXA Parameter="p/o"/></Variable></Object>
  </Object>
</Objects>)";

// A receiver that knows every path and takes every value; it aborts on a line that is not one
// command of at most the engine's length, or that holds a control character.
class CheckingAccessor final : public ReceiverAccessor {
public:
    Reply Execute(const QString& command) override {
        if (command.size() > kCommandLimit ||
            std::any_of(command.begin(), command.end(),
                        [](QChar c) { return c.unicode() < 0x20 || c.unicode() == 0x7F; }) ||
            rxsim::CReceiverState::SplitCommands(command).size() != 1)
            std::abort();
        return {true, command.startsWith(QLatin1String("print,")) ? QStringLiteral("{a,b,c}")
                                                                  : QString()};
    }
};
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

    CheckingAccessor receiver;
    for (Variable* variable : AllVariables(*taken))
        WriteVariable(*variable, receiver);
    return 0;
}
