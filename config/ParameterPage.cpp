#include "config/ParameterPage.h"

#include "lib/Exceptions.h"
#include "lib/Translator.h"
#include "receiver/VexCommands.h"
#include "receiver/VexReceiverMate.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <limits>

namespace {

bool IsUnknownPath(const QString& reply) {
    return reply.startsWith(QLatin1String("{1,,"));
}

QString DisplayName(const rxio::vex::EnumTable& table, const QString& word) {
    const int value = table.Parse(word, -1);
    return value < 0 ? word : ulm_std::CTranslatorInstance::Ref().XlateEx(table.Name(value));
}

} // namespace

CParameterPage::CParameterPage(std::shared_ptr<rxio::IReceiver> receiver, const QString& title,
                               QWidget* parent)
    : CPellPropertyPage(std::move(receiver), title, parent) {}

void CParameterPage::Add(Binding binding) {
    QWidget* control = binding.control;
    const auto changed = [this, control] {
        if (m_filling)
            return;
        for (Binding& bound : m_bindings)
            if (bound.control == control)
                Mark(bound, {});
        SetModified(true);
    };
    if (auto* box = qobject_cast<QComboBox*>(control))
        connect(box, &QComboBox::currentIndexChanged, this, changed);
    else if (auto* check = qobject_cast<QCheckBox*>(control))
        connect(check, &QCheckBox::toggled, this, changed);
    else if (auto* spin = qobject_cast<QSpinBox*>(control))
        connect(spin, &QSpinBox::valueChanged, this, changed);
    else if (auto* real = qobject_cast<QDoubleSpinBox*>(control))
        connect(real, &QDoubleSpinBox::valueChanged, this, changed);
    else if (auto* edit = qobject_cast<QLineEdit*>(control))
        connect(edit, &QLineEdit::textEdited, this, changed);
    m_bindings.push_back(std::move(binding));
}

void CParameterPage::BindChoice(QComboBox* box, const QString& path,
                                const rxio::vex::EnumTable& table) {
    for (int value = 0; value < table.Count(); ++value)
        box->addItem(ulm_std::CTranslatorInstance::Ref().XlateEx(table.Name(value)),
                     table.Text(value));
    Add({box, path, Choice, &table});
}

void CParameterPage::BindSwitch(QCheckBox* box, const QString& path, const QString& on,
                                const QString& off) {
    Add({box, path, Switch, nullptr, on, off});
}

void CParameterPage::BindSigned(QSpinBox* box, const QString& path) {
    if (box->minimum() == 0 && box->maximum() == 99) // the spin box's own range: none was set
        box->setRange(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    Add({box, path, Signed});
}

void CParameterPage::BindUnsigned(QSpinBox* box, const QString& path) {
    if (box->minimum() == 0 && box->maximum() == 99)
        box->setRange(0, std::numeric_limits<int>::max());
    Add({box, path, Unsigned});
}

void CParameterPage::BindReal(QDoubleSpinBox* box, const QString& path) {
    Add({box, path, Real});
}

void CParameterPage::BindText(QLineEdit* edit, const QString& path) {
    Add({edit, path, Text});
}

void CParameterPage::BindShown(QLabel* label, const QString& path,
                               const rxio::vex::EnumTable* table) {
    Add({label, path, Shown, table});
}

void CParameterPage::OnInitDialog() {
    CPellPropertyPage::OnInitDialog();
    Refresh();
}

void CParameterPage::Refresh() {
    const CVexReceiverMate mate(GetReceiver());
    for (Binding& binding : m_bindings) {
        Mark(binding, {});
        try {
            Show(binding, mate.Run(pell::vexcmd::Print(binding.path)));
            binding.known = true;
            binding.control->setEnabled(true);
        } catch (const ulm_std::CCommException& error) {
            // Unknown: the receiver has no such parameter. Any other refusal: it has one the
            // page cannot show, so it is neither shown nor written.
            binding.known = !IsUnknownPath(error.GetReply());
            binding.control->setEnabled(false);
            binding.control->setToolTip(error.GetReply());
        }
        ShowRow(binding, binding.known);
    }
    SetModified(false);
}

void CParameterPage::Show(Binding& binding, const QString& reply) {
    m_filling = true;
    switch (binding.kind) {
    case Choice: {
        auto* box = static_cast<QComboBox*>(binding.control);
        int index = box->findData(reply);
        if (index < 0) {
            box->addItem(reply, reply);
            index = box->count() - 1;
        }
        box->setCurrentIndex(index);
        break;
    }
    case Switch:
        static_cast<QCheckBox*>(binding.control)->setChecked(reply == binding.on);
        break;
    case Signed:
    case Unsigned:
        static_cast<QSpinBox*>(binding.control)->setValue(reply.toInt());
        break;
    case Real:
        static_cast<QDoubleSpinBox*>(binding.control)->setValue(reply.toDouble());
        break;
    case Text:
        static_cast<QLineEdit*>(binding.control)
            ->setText(pell::vexcmd::UnquoteText(reply).value_or(reply));
        break;
    case Shown:
        static_cast<QLabel*>(binding.control)
            ->setText(binding.table ? DisplayName(*binding.table, reply)
                                    : pell::vexcmd::UnquoteText(reply).value_or(reply));
        break;
    }
    m_filling = false;
    binding.applied = Current(binding);
}

QString CParameterPage::Current(const Binding& binding) const {
    switch (binding.kind) {
    case Choice:
        return static_cast<QComboBox*>(binding.control)->currentData().toString();
    case Switch:
        return static_cast<QCheckBox*>(binding.control)->isChecked() ? binding.on : binding.off;
    case Signed:
    case Unsigned:
        return QString::number(static_cast<QSpinBox*>(binding.control)->value());
    case Real:
        return QString::asprintf("%f", static_cast<QDoubleSpinBox*>(binding.control)->value());
    case Text:
        return static_cast<QLineEdit*>(binding.control)->text();
    case Shown:
        break;
    }
    return {};
}

QString CParameterPage::Command(const Binding& binding) const {
    switch (binding.kind) {
    case Choice:
    case Switch:
        return pell::vexcmd::SetChoice(binding.path, Current(binding));
    case Signed:
        return pell::vexcmd::SetSigned(binding.path,
                                       static_cast<QSpinBox*>(binding.control)->value());
    case Unsigned:
        return pell::vexcmd::SetUnsigned(
            binding.path, unsigned(std::max(0, static_cast<QSpinBox*>(binding.control)->value())));
    case Real:
        return pell::vexcmd::SetReal(binding.path,
                                     static_cast<QDoubleSpinBox*>(binding.control)->value());
    case Text:
        return pell::vexcmd::SetText(binding.path, Current(binding));
    case Shown:
        break;
    }
    return {};
}

QStringList CParameterPage::PendingCommands() const {
    QStringList commands;
    for (const Binding& binding : m_bindings)
        if (binding.kind != Shown && binding.known && binding.control->isEnabled() &&
            Current(binding) != binding.applied)
            commands << Command(binding);
    return commands;
}

bool CParameterPage::OnApply() {
    const CVexReceiverMate mate(GetReceiver());
    for (Binding& binding : m_bindings) {
        if (binding.kind == Shown || !binding.known || !binding.control->isEnabled() ||
            Current(binding) == binding.applied)
            continue;
        try {
            mate.Run(Command(binding));
            binding.applied = Current(binding);
        } catch (const ulm_std::CCommException& error) {
            Mark(binding, error.GetReply());
            error.ReportError(this);
            return false;
        } catch (const ulm_std::CWinException& error) {
            Mark(binding, error.GetErrorMessage());
            error.ReportError(this);
            return false;
        }
    }
    return true;
}

// A refused value keeps a red frame and the receiver's reply as its tool tip until it changes.
void CParameterPage::Mark(Binding& binding, const QString& reply) {
    QWidget* control = binding.control;
    if (reply.isEmpty()) {
        if (control->property("refused").toBool()) {
            control->setProperty("refused", false);
            control->setStyleSheet({});
            control->setToolTip({});
        }
        return;
    }
    control->setProperty("refused", true);
    control->setStyleSheet(QStringLiteral("%1 { border: 2px solid #c62828; border-radius: 3px; }")
                               .arg(QLatin1String(control->metaObject()->className())));
    control->setToolTip(reply);
    control->setFocus();
}

void CParameterPage::ShowRow(const Binding& binding, bool visible) {
    binding.control->setVisible(visible);
    for (QLabel* label : findChildren<QLabel*>())
        if (label->buddy() == binding.control)
            label->setVisible(visible);
}
