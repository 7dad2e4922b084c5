#include "config/ReceiverSettingsParametersPage.h"

#include "lib/Common.h"
#include "lib/PellLib.h"
#include "resources/StringIds.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

CReceiverSettingsParametersPage::CReceiverSettingsParametersPage(
    std::shared_ptr<rxio::IReceiver> receiver, unsigned titleId, unsigned subtitleId,
    VOXA2JSON::EDirection direction, QWidget* parent)
    : CPellPropertyPage(receiver, g_PellLibApp.XLoadString(titleId), parent),
      m_direction(direction), m_tree(new CReceiverSettingsTree),
      m_showValues(new QCheckBox(g_PellLibApp.XLoadString(pell::ids::SettingsShowValues))),
      m_details(new QPushButton(g_PellLibApp.XLoadString(pell::ids::SettingsDetails))),
      m_progress(new QProgressBar), m_status(new QLabel),
      m_accessor(std::make_unique<CVexReceiverAccessor>(std::move(receiver))) {
    SetSubtitle(g_PellLibApp.XLoadString(subtitleId));
    m_accessor->SetCancel(m_cancel.get_token());
    m_tree->setObjectName(QStringLiteral("settingsTree"));
    m_showValues->setChecked(CReceiverSettingsTree::ShowValues());
    m_progress->setTextVisible(false);
    m_progress->setMaximumHeight(m_progress->sizeHint().height() * 2 / 3);
    m_status->setWordWrap(true);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_showValues);
    buttons->addStretch();
    buttons->addWidget(m_details);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_tree, 1);
    layout->addLayout(buttons);
    layout->addWidget(m_progress);
    layout->addWidget(m_status);

    connect(m_showValues, &QCheckBox::toggled, this, [this](bool show) {
        CReceiverSettingsTree::SetShowValues(show);
        m_tree->UpdateValues();
    });
    connect(m_details, &QPushButton::clicked, this, &CReceiverSettingsParametersPage::ShowDetails);
    connect(m_tree, &QTreeWidget::itemActivated, this,
            &CReceiverSettingsParametersPage::ShowDetails);
}

void CReceiverSettingsParametersPage::OnInitDialog() {
    CPellPropertyPage::OnInitDialog();
    QString error;
    auto root = VOXA2JSON::Dictionary::Load(VOXA2JSON::Dictionary::DefaultPath(), &error);
    if (!root) {
        g_PellLibApp.MessageBox(this, error, pell::MB_ICONERROR);
        EndWindow(pell::IDCANCEL);
        return;
    }
    VOXA2JSON::SelectDefaults(*root, m_direction);
    m_tree->SetRoot(std::move(root));
    // Another wizard of this process may have changed the flag since this page was made.
    const QSignalBlocker blocker(m_showValues);
    m_showValues->setChecked(CReceiverSettingsTree::ShowValues());
    m_tree->UpdateValues();
    if (m_tree->topLevelItemCount() > 0)
        m_tree->setCurrentItem(m_tree->topLevelItem(0));
}

bool CReceiverSettingsParametersPage::OnQueryCancel() {
    m_cancel.request_stop();
    return true;
}

void CReceiverSettingsParametersPage::OnDestroy() {
    m_cancel.request_stop();
    CPellPropertyPage::OnDestroy();
}

void CReceiverSettingsParametersPage::SetReading(bool reading) {
    m_reading = reading;
    m_details->setEnabled(!reading);
}

void CReceiverSettingsParametersPage::ShowDetails() {
    VOXA2JSON::Element* element = m_tree->ElementOf(m_tree->currentItem());
    if (!element || m_reading || CVexReceiverMate::IsPending(GetReceiver().get()))
        return;
    RunUserAction([&] {
        // The import page has read nothing: find out here where the variable lives.
        if (!element->IsObject()) {
            auto& variable = static_cast<VOXA2JSON::Variable&>(*element);
            if (!variable.Resolved())
                VOXA2JSON::Resolve(variable, *m_accessor);
        }
        g_PellLibApp.MessageBox(this, CReceiverSettingsTree::DetailsText(*element),
                                pell::MB_ICONINFORMATION);
    });
}
