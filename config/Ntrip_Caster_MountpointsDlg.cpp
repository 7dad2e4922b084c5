#include "config/Ntrip_Caster_MountpointsDlg.h"

#include "lib/Common.h"
#include "lib/PellLib.h"
#include "receiver/VexReceiverMate.h"
#include "resources/StringIds.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QRegularExpressionValidator>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace {

// Formats in the order a description lists them, with the name it gives each.
constexpr std::pair<const char*, const char*> kFormats[] = {
    {"rtcm3", "RTCM 3"}, {"rtcm", "RTCM 2"}, {"cmr", "CMR"}, {"jps", "JPS"}, {"nmea", "NMEA"}};

// The description's room on the receiver.
constexpr qsizetype kDescriptionLength = 128;

// The message sets a receiver names in "<slot>/msgs": "{rtcm3/1004,jps/RT}". A reply with
// anything else tells nothing.
std::optional<QStringList> EnabledMessages(const QString& reply) {
    if (!reply.trimmed().startsWith(QLatin1Char('{')))
        return std::nullopt;
    const QStringList messages = CVexReceiverMate::SplitList(reply);
    if (!std::all_of(messages.begin(), messages.end(), CVexReceiverMate::IsMessageSetName))
        return std::nullopt;
    return messages;
}

} // namespace

CNtrip_Caster_MountpointDlg::CNtrip_Caster_MountpointDlg(const QString& name,
                                                         const QString& description,
                                                         std::optional<QStringList> messages,
                                                         QStringList others, QWidget* parent)
    : CPellDialog(nullptr, parent), m_stored(description),
      m_description(messages ? Describe(*messages) : description), m_others(std::move(others)),
      m_name(new QLineEdit(name)), m_descriptionField(new QLineEdit) {
    setWindowTitle(XString(pell::ids::NtripMountpointDialog));
    m_name->setObjectName(QStringLiteral("nameEdit"));
    // A mount point name is a path segment of every client's request.
    m_name->setValidator(new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral(R"([A-Za-z0-9_.\-]{0,32})")), m_name));
    m_descriptionField->setReadOnly(true);
    m_descriptionField->setMinimumWidth(m_name->fontMetrics().horizontalAdvance(QLatin1Char('x')) *
                                        40);
    auto* list = new QListWidget;
    list->addItems(messages.value_or(QStringList()));
    list->setSelectionMode(QAbstractItemView::NoSelection);
    list->setFocusPolicy(Qt::NoFocus);
    list->setMaximumHeight(list->fontMetrics().height() * 8);
    auto* hint = new QLabel(XString(!messages             ? pell::ids::NtripMessagesUnknown
                                    : messages->isEmpty() ? pell::ids::NtripNoMessages
                                                          : pell::ids::NtripMessagesHint));
    hint->setWordWrap(true);

    QFormLayout* form = CParameterPage::Form(nullptr);
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    form->addRow(XString(pell::ids::NtripMountpointName), m_name);
    form->addRow(XString(pell::ids::NtripMessageSet), m_descriptionField);
    form->addRow(XString(pell::ids::NtripMessagesServed), list);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("okButton"));
    connect(buttons, &QDialogButtonBox::accepted, this, &CNtrip_Caster_MountpointDlg::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &CNtrip_Caster_MountpointDlg::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(hint);
    layout->addStretch(1);
    layout->addWidget(buttons);
}

QString CNtrip_Caster_MountpointDlg::Describe(QStringList messages) {
    QStringList groups;
    const auto describe = [&](const QString& format, const QString& title) {
        QStringList names;
        for (auto it = messages.begin(); it != messages.end();)
            if (it->section(QLatin1Char('/'), 0, 0) == format) {
                names << it->section(QLatin1Char('/'), 1);
                it = messages.erase(it);
            } else {
                ++it;
            }
        if (names.isEmpty())
            return;
        // Message numbers in numeric order, names (NMEA, JPS) as the receiver gave them.
        std::stable_sort(names.begin(), names.end(), [](const QString& a, const QString& b) {
            bool aNumber = false, bNumber = false;
            const int x = a.toInt(&aNumber), y = b.toInt(&bNumber);
            if (aNumber != bNumber)
                return aNumber;
            return aNumber && x < y;
        });
        groups << title + QStringLiteral(": ") + names.join(QLatin1Char(','));
    };
    for (const auto& [format, title] : kFormats)
        describe(QLatin1String(format), QLatin1String(title));
    while (!messages.isEmpty())
        describe(messages.first().section(QLatin1Char('/'), 0, 0),
                 messages.first().section(QLatin1Char('/'), 0, 0).toUpper());
    return groups.join(QStringLiteral("; ")).left(kDescriptionLength);
}

void CNtrip_Caster_MountpointDlg::OnInitDialog() {
    CPellDialog::OnInitDialog();
    m_descriptionField->setText(m_description);
    if (m_description != m_stored)
        g_PellLibApp.MessageBox(this, XString(pell::ids::NtripMessageSetUpdated),
                                pell::MB_OK | pell::MB_ICONINFORMATION);
}

QString CNtrip_Caster_MountpointDlg::Name() const {
    return m_name->text().trimmed();
}

void CNtrip_Caster_MountpointDlg::accept() {
    const QString name = Name();
    // Told apart by case alone, two mount points would confuse every user typing one.
    const unsigned refusal = name.isEmpty() ? pell::ids::NtripMountpointNameEmpty
                             : m_others.contains(name, Qt::CaseInsensitive)
                                 ? pell::ids::NtripMountpointNameTaken
                                 : 0;
    if (refusal != 0) {
        g_PellLibApp.MessageBox(this, XString(refusal), pell::MB_OK | pell::MB_ICONERROR);
        m_name->setFocus();
        return;
    }
    EndDialog(pell::IDOK);
}

CNtrip_Caster_MountpointsDlg::CNtrip_Caster_MountpointsDlg(
    std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent, int listener, int slotCount)
    : CParameterDialog(std::move(receiver),
                       XString(pell::ids::NtripMountpointsDialog).arg(listener + 1), parent),
      m_list(CParameterPage::List({XString(pell::ids::NtripColumnId),
                                   XString(pell::ids::NtripColumnMountpointName),
                                   XString(pell::ids::NtripColumnMessageSet)})) {
    CParameterPage::ListButtons(m_list, new QVBoxLayout(&Body()), this,
                                {[this] { AddMountpoint(); }, [this] { EditMountpoint(); },
                                 [this] {
                                     DeleteMountpoint();
                                 }});
    resize(560, 300);

    // Each slot's values are bound as any parameter is; the list shows them.
    for (int slot = 0; slot < slotCount; ++slot) {
        const Slot& held = m_slots.emplace_back(Slot{new QLineEdit, new QLineEdit, new QLabel});
        const QString path = QStringLiteral("/app/ntrip/caster/%1/%2/").arg(listener).arg(slot);
        for (QWidget* control :
             {static_cast<QWidget*>(held.name), static_cast<QWidget*>(held.description),
              static_cast<QWidget*>(held.messages)})
            CParameterPage::Hold(control, Body(), m_list);
        Body().BindText(held.name, path + QStringLiteral("name"));
        Body().BindText(held.description, path + QStringLiteral("msgset"));
        Body().BindShown(held.messages, path + QStringLiteral("msgs"));
    }
    connect(&Body(), &CParameterPage::valuesRead, this, &CNtrip_Caster_MountpointsDlg::Fill);
}

void CNtrip_Caster_MountpointsDlg::Fill() {
    m_list->clear();
    for (std::size_t slot = 0; slot < m_slots.size(); ++slot) {
        const Slot& held = m_slots[slot];
        const bool read = Body().IsRead(held.name);
        if (read && held.name->text().isEmpty())
            continue;
        // A slot whose name the receiver did not give may hold a mount point: shown, not used.
        auto* row = new QTreeWidgetItem(
            m_list, {QString::number(slot),
                     read ? held.name->text() : XString(pell::ids::NtripSlotUnreadable),
                     read ? held.description->text() : QString()});
        row->setData(0, Qt::UserRole, qulonglong(slot));
        row->setTextAlignment(0, Qt::AlignRight);
        if (!read)
            row->setFlags(row->flags() & ~Qt::ItemIsEnabled);
    }
    CParameterPage::FitColumns(m_list);
}

std::optional<std::size_t> CNtrip_Caster_MountpointsDlg::CurrentSlot() const {
    const QTreeWidgetItem* current = m_list->currentItem();
    if (!current || !(current->flags() & Qt::ItemIsEnabled))
        return std::nullopt;
    return std::size_t(current->data(0, Qt::UserRole).toULongLong());
}

bool CNtrip_Caster_MountpointsDlg::Edit(std::size_t slot) {
    QStringList others;
    for (std::size_t i = 0; i < m_slots.size(); ++i)
        if (i != slot && !m_slots[i].name->text().isEmpty())
            others << m_slots[i].name->text();
    const Slot& held = m_slots[slot];
    CPellWindow<CNtrip_Caster_MountpointDlg> dialog(
        held.name->text(), held.description->text(),
        Body().IsRead(held.messages) ? EnabledMessages(held.messages->text()) : std::nullopt,
        others, this);
    if (dialog.exec() != pell::IDOK)
        return false;
    held.name->setText(dialog.Name());
    held.description->setText(dialog.Description());
    Fill();
    return true;
}

void CNtrip_Caster_MountpointsDlg::AddMountpoint() {
    const auto free = std::find_if(m_slots.begin(), m_slots.end(), [this](const Slot& slot) {
        return Body().IsRead(slot.name) && slot.name->text().isEmpty();
    });
    if (free == m_slots.end()) {
        g_PellLibApp.MessageBox(this, XString(pell::ids::NtripMountpointsFull).arg(m_slots.size()),
                                pell::MB_OK | pell::MB_ICONWARNING);
        return;
    }
    Edit(std::size_t(free - m_slots.begin()));
}

void CNtrip_Caster_MountpointsDlg::EditMountpoint() {
    if (const auto slot = CurrentSlot())
        Edit(*slot);
}

void CNtrip_Caster_MountpointsDlg::DeleteMountpoint() {
    const auto slot = CurrentSlot();
    if (!slot || g_PellLibApp.MessageBox(this, XString(pell::ids::ConfirmDeletion),
                                         pell::MB_YESNO | pell::MB_ICONQUESTION) != pell::IDYES)
        return;
    m_slots[*slot].name->clear();
    m_slots[*slot].description->clear();
    Fill();
}
