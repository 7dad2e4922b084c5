#include "config/ReceiverSettingsTree.h"

#include "lib/PellLib.h"
#include "resources/StringIds.h"

#include <QHeaderView>
#include <algorithm>

namespace {

using namespace VOXA2JSON;

bool g_showValues = false;

constexpr int kElementRole = Qt::UserRole;

QString Quoted(const QString& text) {
    return QLatin1Char('"') + text + QLatin1Char('"');
}

// What the value column says of a variable: its value, or why it has none.
QString ValueText(const Variable& variable) {
    return variable.error.isEmpty() ? DisplayText(variable) : variable.error;
}

} // namespace

CReceiverSettingsTree::CReceiverSettingsTree(QWidget* parent) : QTreeWidget(parent) {
    setColumnCount(2);
    setHeaderLabels(
        {XString(pell::ids::SettingsColumnParameter), XString(pell::ids::SettingsColumnValue)});
    header()->setStretchLastSection(true);
    header()->setSectionResizeMode(0, QHeaderView::Interactive);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    connect(this, &QTreeWidget::itemExpanded, this, [this] {
        m_namesWidth = sizeHintForColumn(0);
        FitColumns();
    });
    connect(this, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item, int column) {
        if (column != 0)
            return;
        if (Element* element = ElementOf(item))
            element->selected = item->checkState(0) == Qt::Checked;
    });
}

void CReceiverSettingsTree::SetRoot(std::shared_ptr<Object> root) {
    const QSignalBlocker blocker(this);
    clear();
    m_items.clear();
    m_root = std::move(root);
    if (m_root)
        AddChildren(invisibleRootItem(), *m_root);
    expandToDepth(0);
    UpdateValues();
}

void CReceiverSettingsTree::AddChildren(QTreeWidgetItem* parent, const Object& object) {
    for (const auto& child : object.children) {
        auto* item = new QTreeWidgetItem(parent);
        item->setText(0, child->DisplayName());
        item->setData(0, kElementRole, QVariant::fromValue(quintptr(child.get())));
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(0, child->selected ? Qt::Checked : Qt::Unchecked);
        m_items.emplace(child.get(), item);
        if (child->IsObject())
            AddChildren(item, static_cast<const Object&>(*child));
    }
}

void CReceiverSettingsTree::UpdateValues() {
    setColumnHidden(1, !g_showValues);
    if (!m_root)
        return;
    for (Variable* variable : AllVariables(*m_root))
        UpdateVariable(*variable);
    m_namesWidth = sizeHintForColumn(0);
    FitColumns();
}

void CReceiverSettingsTree::resizeEvent(QResizeEvent* event) {
    QTreeWidget::resizeEvent(event);
    FitColumns();
}

void CReceiverSettingsTree::FitColumns() {
    if (g_showValues)
        setColumnWidth(0, std::min(m_namesWidth, viewport()->width() * 3 / 5));
}

void CReceiverSettingsTree::UpdateVariable(const Variable& variable) {
    QTreeWidgetItem* item = ItemOf(variable);
    if (!item)
        return;
    const QSignalBlocker blocker(this);
    const bool missing = variable.error.isEmpty() && variable.value.invalid;
    item->setText(1, missing ? m_missingText : ValueText(variable));
    item->setToolTip(0, ItemText(variable, true));
    item->setToolTip(1, ItemText(variable, true));
    // An error reads as a remark, not as a value.
    item->setForeground(1, variable.error.isEmpty() && !missing
                               ? palette().text()
                               : palette().color(QPalette::Disabled, QPalette::Text));
}

QTreeWidgetItem* CReceiverSettingsTree::ItemOf(const Element& element) const {
    const auto found = m_items.find(&element);
    return found == m_items.end() ? nullptr : found->second;
}

Element* CReceiverSettingsTree::ElementOf(const QTreeWidgetItem* item) const {
    return item ? reinterpret_cast<Element*>(item->data(0, kElementRole).value<quintptr>())
                : nullptr;
}

bool CReceiverSettingsTree::ShowValues() {
    return g_showValues;
}

void CReceiverSettingsTree::SetShowValues(bool show) {
    g_showValues = show;
}

QString CReceiverSettingsTree::ItemText(const Element& element, bool showValues) {
    if (!showValues || element.IsObject())
        return element.DisplayName();
    return QStringLiteral("%1 = %2").arg(element.DisplayName(),
                                         ValueText(static_cast<const Variable&>(element)));
}

QString CReceiverSettingsTree::DetailsText(const Element& element) {
    QStringList lines = {
        XString(pell::ids::SettingsDetailsFriendlyName) + Quoted(element.friendlyName),
        XString(pell::ids::SettingsDetailsName) + Quoted(element.name),
        XString(pell::ids::SettingsDetailsPath) + Quoted(element.Path()),
    };
    if (element.IsObject())
        return lines.join(QStringLiteral("\r\n"));
    const auto& variable = static_cast<const Variable&>(element);
    const Binding* binding = variable.Resolved();
    QString type = XString(pell::ids::SettingsDetailsType) + Quoted(TypeDisplayName(variable.type));
    if (variable.type == EType::Boolean && binding)
        type += XString(pell::ids::SettingsDetailsTrue) + Quoted(binding->trueText) +
                XString(pell::ids::SettingsDetailsFalse) + Quoted(binding->falseText);
    lines << type;
    if (binding)
        lines << XString(pell::ids::SettingsDetailsParameter) +
                     Quoted(binding->parameter + (binding->index >= 0
                                                      ? QStringLiteral("[%1]").arg(binding->index)
                                                      : QString()));
    return lines.join(QStringLiteral("\r\n"));
}
