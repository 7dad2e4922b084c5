#include "config/ParameterPage.h"

#include "config/KeyedList.h"
#include "config/ParameterSheet.h"
#include "lib/Exceptions.h"
#include "lib/PellLib.h"
#include "lib/Translator.h"
#include "receiver/VexCommands.h"
#include "receiver/VexReceiverMate.h"
#include "resources/StringIds.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTreeWidget>
#include <algorithm>
#include <limits>

namespace {

// The properties of a held control: that it is held, and what shows its value.
constexpr char kHeld[] = "pellHeld";
constexpr char kShownBy[] = "pellShownBy";

// Buttons that change a list are usable only while the list is: one that could not be read
// must not be edited blind.
class CFollowEnabled : public QObject {
public:
    CFollowEnabled(QWidget* list, std::vector<QPushButton*> buttons)
        : QObject(list), m_buttons(std::move(buttons)) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::EnabledChange)
            for (QPushButton* button : m_buttons)
                button->setEnabled(static_cast<QWidget*>(watched)->isEnabled());
        return QObject::eventFilter(watched, event);
    }

private:
    std::vector<QPushButton*> m_buttons;
};

bool IsUnknownPath(const QString& reply) {
    return reply.startsWith(QLatin1String("{1,,"));
}

QString DisplayName(const rxio::vex::EnumTable& table, const QString& word) {
    const int value = table.Parse(word, -1);
    return value < 0 ? word : ulm_std::CTranslatorInstance::Ref().XlateEx(table.Name(value));
}

// Wide enough for the longer end of the range, the arrows and a margin.
void FitWidth(QAbstractSpinBox* box, const QString& minimum, const QString& maximum) {
    const QFontMetrics metrics = box->fontMetrics();
    box->setMinimumWidth(
        std::max(metrics.horizontalAdvance(minimum), metrics.horizontalAdvance(maximum)) +
        metrics.horizontalAdvance(QStringLiteral("00000")));
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
    // A receiver word the table lacks joins the list: the box grows to show it whole.
    box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
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
    Add({box, path, Signed});
}

void CParameterPage::BindUnsigned(QSpinBox* box, const QString& path) {
    Add({box, path, Unsigned});
}

void CParameterPage::BindReal(QDoubleSpinBox* box, const QString& path) {
    Add({box, path, Real});
}

void CParameterPage::BindText(QLineEdit* edit, const QString& path, TextCheck check) {
    Add({edit, path, Text, nullptr, {}, {}, std::move(check)});
}

void CParameterPage::BindShown(QLabel* label, const QString& path,
                               const rxio::vex::EnumTable* table) {
    Add({label, path, Shown, table});
}

QFormLayout* CParameterPage::Form(QWidget* parent) {
    auto* form = new QFormLayout(parent);
    form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    form->setLabelAlignment(Qt::AlignLeft);
    return form;
}

QGroupBox* CParameterPage::Group(const QString& title, QBoxLayout* into) {
    auto* group = new QGroupBox(title);
    into->addWidget(group);
    return group;
}

QSpinBox* CParameterPage::SpinBox(int minimum, int maximum) {
    auto* box = new QSpinBox;
    box->setRange(minimum, maximum);
    box->setGroupSeparatorShown(true);
    box->setAlignment(Qt::AlignRight);
    FitWidth(box, box->locale().toString(minimum), box->locale().toString(maximum));
    return box;
}

QSpinBox* CParameterPage::PortBox(int minimum) {
    QSpinBox* box = SpinBox(minimum, 65535);
    box->setGroupSeparatorShown(false);
    return box;
}

QDoubleSpinBox* CParameterPage::RealBox(double minimum, double maximum, int decimals) {
    auto* box = new QDoubleSpinBox;
    box->setDecimals(decimals);
    box->setRange(minimum, maximum);
    box->setGroupSeparatorShown(true);
    box->setAlignment(Qt::AlignRight);
    FitWidth(box, box->locale().toString(minimum, 'f', decimals),
             box->locale().toString(maximum, 'f', decimals));
    return box;
}

QTreeWidget* CParameterPage::List(const QStringList& columns) {
    auto* list = new QTreeWidget;
    list->setHeaderLabels(columns);
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAllColumnsShowFocus(true);
    list->header()->setStretchLastSection(true);
    return list;
}

void CParameterPage::FitColumns(QTreeWidget* list) {
    for (int column = 0; column + 1 < list->columnCount(); ++column) {
        list->resizeColumnToContents(column);
        list->setColumnWidth(column, list->columnWidth(column) + list->fontMetrics().height() * 2);
    }
}

void CParameterPage::OnInitDialog() {
    CPellPropertyPage::OnInitDialog();
    AlignForms();
    Refresh();
}

void CParameterPage::AlignForms() {
    std::vector<QWidget*> labels;
    int width = 0;
    for (QFormLayout* form : findChildren<QFormLayout*>())
        for (int row = 0; row < form->rowCount(); ++row)
            if (QLayoutItem* item = form->itemAt(row, QFormLayout::LabelRole);
                item && item->widget()) {
                labels.push_back(item->widget());
                width = std::max(width, item->widget()->sizeHint().width());
            }
    for (QWidget* label : labels)
        label->setMinimumWidth(width);
}

void CParameterPage::Refresh() {
    const CVexReceiverMate mate(GetReceiver());
    for (Binding& binding : m_bindings) {
        Mark(binding, {});
        binding.control->setToolTip({});
        try {
            const QString reply = mate.Run(pell::vexcmd::Print(binding.path));
            binding.known = true;
            binding.writable = Show(binding, reply) && binding.kind != Shown;
            if (!binding.writable && binding.kind != Shown)
                binding.control->setToolTip(reply);
        } catch (const ulm_std::CCommException& error) {
            // Unknown: the receiver has no such parameter. Any other refusal: it has one the
            // page cannot show, so it is neither shown nor written.
            binding.known = !IsUnknownPath(error.GetReply());
            binding.writable = false;
            binding.control->setToolTip(error.GetReply());
        }
        if (SheetClosing())
            return;
        binding.control->setEnabled(binding.writable || binding.kind == Shown);
        ShowRow(binding, binding.known);
    }
    for (const ListBinding& bound : m_lists) {
        MarkControl(bound.view, {});
        try {
            bound.list->Read(mate);
            bound.view->setEnabled(true);
            bound.view->setToolTip({});
        } catch (const ulm_std::CCommException& error) {
            // A list the page cannot read is shown empty and greyed, and never written.
            ForgetList(bound, error.GetReply());
        } catch (const ulm_std::CWinException& error) {
            // A reply that is no list; a lost receiver still ends the reading.
            if (error.GetErrorCode() != pell::ERROR_INVALID_PARAMETER)
                throw;
            ForgetList(bound, error.GetErrorMessage());
        }
        if (SheetClosing())
            return;
    }
    SetModified(false);
    OnValuesRead();
    emit valuesRead();
}

void CParameterPage::ForgetList(const ListBinding& bound, const QString& why) {
    bound.list->Forget();
    bound.view->setEnabled(false);
    bound.view->setToolTip(why);
}

void CParameterPage::OnValuesRead() {}

bool CParameterPage::Show(Binding& binding, const QString& reply) {
    m_filling = true;
    QString shown = reply; // the reply as the control must give it back
    switch (binding.kind) {
    case Choice: {
        auto* box = static_cast<QComboBox*>(binding.control);
        while (box->count() > binding.table->Count()) // a word a former read added
            box->removeItem(box->count() - 1);
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
    case Unsigned: {
        bool ok = false;
        const qlonglong number = reply.toLongLong(&ok);
        shown = ok ? QString::number(number) : QString();
        static_cast<QSpinBox*>(binding.control)
            ->setValue(int(std::clamp<qlonglong>(number, std::numeric_limits<int>::min(),
                                                 std::numeric_limits<int>::max())));
        break;
    }
    case Real: {
        bool ok = false;
        const double number = reply.toDouble(&ok);
        shown = ok ? QString::asprintf("%f", number) : QString();
        static_cast<QDoubleSpinBox*>(binding.control)->setValue(number);
        break;
    }
    case Text:
        shown = pell::vexcmd::UnquoteText(reply).value_or(reply);
        static_cast<QLineEdit*>(binding.control)->setText(shown);
        break;
    case Shown:
        static_cast<QLabel*>(binding.control)
            ->setText(binding.table ? DisplayName(*binding.table, reply)
                                    : pell::vexcmd::UnquoteText(reply).value_or(reply));
        break;
    }
    m_filling = false;
    binding.applied = shown;
    return binding.kind == Shown || Current(binding) == shown;
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

std::vector<CParameterPage::Binding*> CParameterPage::Changed() {
    std::vector<Binding*> changed;
    for (Binding& binding : m_bindings)
        if (binding.writable && Current(binding) != binding.applied)
            changed.push_back(&binding);
    return changed;
}

QStringList CParameterPage::PendingCommands() {
    QStringList commands;
    for (const Binding* binding : Changed())
        commands << Command(*binding);
    for (const ListBinding& bound : m_lists)
        commands << bound.list->Commands();
    return commands;
}

void CParameterPage::BindList(QWidget* view, CKeyedList& list) {
    m_lists.push_back({view, &list});
}

QStringList CParameterPage::ChangedPaths() {
    QStringList paths;
    for (const Binding* binding : Changed())
        paths << binding->path;
    for (const ListBinding& bound : m_lists)
        if (!bound.list->Commands().isEmpty())
            paths << bound.list->Path() + QStringLiteral("/*");
    return paths;
}

bool CParameterPage::IsChanged(const QWidget* control) {
    const std::vector<Binding*> changed = Changed();
    return std::any_of(changed.begin(), changed.end(),
                       [control](const Binding* binding) { return binding->control == control; });
}

bool CParameterPage::SheetClosing() const {
    const auto* closing = qobject_cast<const CDialogBase*>(window());
    return closing && closing->ClosingResult() != 0;
}

CParameterSheet* CParameterPage::Recorder() const {
    for (QWidget* above = parentWidget(); above; above = above->parentWidget())
        if (auto* sheet = qobject_cast<CParameterSheet*>(above))
            return sheet;
    return nullptr;
}

bool CParameterPage::OnApply() {
    // Every command is composed before the first goes out: a text that cannot be sent stops the
    // page before it has written anything.
    std::vector<std::pair<Binding*, QString>> commands;
    for (Binding* binding : Changed()) {
        if (const QString refusal = binding->check ? binding->check(Current(*binding)) : QString();
            !refusal.isEmpty()) {
            Mark(*binding, refusal);
            g_PellLibApp.MessageBox(this, refusal, pell::MB_OK | pell::MB_ICONERROR);
            return false;
        }
        try {
            commands.emplace_back(binding, Command(*binding));
        } catch (const ulm_std::CWinException& error) {
            Mark(*binding, error.GetErrorMessage());
            error.ReportError(this);
            return false;
        }
    }
    std::vector<std::pair<const ListBinding*, QStringList>> listCommands;
    for (const ListBinding& bound : m_lists) {
        try {
            if (QStringList composed = bound.list->Commands(); !composed.isEmpty())
                listCommands.emplace_back(&bound, std::move(composed));
        } catch (const ulm_std::CWinException& error) {
            MarkControl(bound.view, error.GetErrorMessage());
            error.ReportError(this);
            return false;
        }
    }
    if (commands.empty() && listCommands.empty())
        return true;
    if (CParameterSheet* sheet = Recorder()) {
        if (!sheet->ConfirmReset(*this))
            return false;
        sheet->BeforeWriting();
    }
    const CVexReceiverMate mate(GetReceiver());
    for (auto& [binding, command] : commands) {
        try {
            mate.Run(command);
            binding->applied = Current(*binding);
        } catch (const ulm_std::CException& error) {
            if (SheetClosing())
                return false; // a notice closed the sheet under this command: nothing to tell
            const auto* comm = dynamic_cast<const ulm_std::CCommException*>(&error);
            Mark(*binding, comm ? comm->GetReply() : error.GetErrorMessage());
            error.ReportError(this);
            return false;
        }
        if (SheetClosing())
            return false;
    }
    for (const auto& [bound, list] : listCommands) {
        try {
            for (const QString& command : list)
                mate.Run(command);
            // The receiver's indices of the items just made.
            bound->list->Read(mate);
        } catch (const ulm_std::CException& error) {
            if (SheetClosing())
                return false;
            const auto* comm = dynamic_cast<const ulm_std::CCommException*>(&error);
            MarkControl(bound->view, comm ? comm->GetReply() : error.GetErrorMessage());
            error.ReportError(this);
            return false;
        }
        if (SheetClosing())
            return false;
    }
    OnValuesRead();
    emit valuesRead();
    return true;
}

void CParameterPage::OnConnectionLost() {
    if (CParameterSheet* sheet = Recorder())
        sheet->ForgetRecord();
    CPellPropertyPage::OnConnectionLost();
}

void CParameterPage::OnReceiverGone() {
    if (CParameterSheet* sheet = Recorder())
        sheet->ForgetRecord();
    CPellPropertyPage::OnReceiverGone();
}

// A refused value keeps a red frame and the receiver's reply as its tool tip until it changes.
void CParameterPage::Mark(Binding& binding, const QString& reply) {
    auto* shownBy = qobject_cast<QWidget*>(binding.control->property(kShownBy).value<QObject*>());
    MarkControl(shownBy ? shownBy : binding.control, reply);
}

bool CParameterPage::IsRead(const QWidget* control) const {
    return std::any_of(m_bindings.begin(), m_bindings.end(), [control](const Binding& binding) {
        return binding.control == control && binding.known &&
               (binding.writable || binding.kind == Shown);
    });
}

void CParameterPage::MarkControl(QWidget* control, const QString& reply) {
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

std::vector<QPushButton*> CParameterPage::ListButtons(QTreeWidget* list, QBoxLayout* into,
                                                      QWidget* owner, const ListActions& actions) {
    into->addWidget(list, 1);
    auto* row = new QHBoxLayout;
    std::vector<QPushButton*> buttons;
    const auto button = [&](const std::function<void()>& action, unsigned text, const char* name) {
        if (!action)
            return;
        auto* made = buttons.emplace_back(new QPushButton(XString(text)));
        made->setObjectName(QLatin1String(name));
        row->addWidget(made);
        QObject::connect(made, &QPushButton::clicked, owner,
                         [owner, action] { pell::RunAndReport(owner, action); });
    };
    button(actions.add, pell::ids::ListAdd, "addButton");
    button(actions.edit, pell::ids::ListEdit, "editButton");
    button(actions.remove, pell::ids::ListDelete, "deleteButton");
    // Buttons that add or delete sit left, under the items; an editor alone sits right.
    if (actions.add || actions.remove)
        row->addStretch();
    else
        row->insertStretch(0);
    into->addLayout(row);
    if (actions.edit)
        QObject::connect(list, &QTreeWidget::itemActivated, owner,
                         [owner, edit = actions.edit] { pell::RunAndReport(owner, edit); });
    list->installEventFilter(new CFollowEnabled(list, buttons));
    return buttons;
}

QString CParameterPage::AddressLine(const QString& host, const QString& port) {
    if (host.trimmed().isEmpty())
        return XString(pell::ids::NotSet);
    return XString(pell::ids::ServerLine).arg(host, port);
}

void CParameterPage::Hold(QWidget* control, CParameterPage& page, QWidget* shownBy) {
    control->setParent(&page);
    control->hide();
    control->setProperty(kHeld, true);
    control->setProperty(kShownBy, QVariant::fromValue<QObject*>(shownBy));
}

void CParameterPage::ShowRow(const Binding& binding, bool visible) {
    if (binding.control->property(kHeld).toBool())
        return;
    // A form row goes with its spacing; a control elsewhere goes with the label it is buddy of.
    for (QFormLayout* form : findChildren<QFormLayout*>())
        if (form->indexOf(binding.control) >= 0) {
            form->setRowVisible(binding.control, visible);
            return;
        }
    binding.control->setVisible(visible);
    for (QLabel* label : findChildren<QLabel*>())
        if (label->buddy() == binding.control)
            label->setVisible(visible);
}
