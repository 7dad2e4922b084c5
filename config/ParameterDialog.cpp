#include "config/ParameterDialog.h"

#include "config/KeyedList.h"
#include "config/ParameterSheet.h"
#include "lib/Common.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

CParameterDialog::CParameterDialog(std::shared_ptr<rxio::IReceiver> receiver,
                                   const QString& caption, QWidget* parent)
    : CPellDialog(receiver, parent), m_body(new CParameterPage(receiver, caption)) {
    setWindowTitle(caption);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("okButton"));
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("cancelButton"));
    connect(buttons, &QDialogButtonBox::accepted, this, &CParameterDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &CParameterDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_body);
    layout->addWidget(buttons);
}

void CParameterDialog::OnInitDialog() {
    CPellDialog::OnInitDialog();
    m_body->AlignForms();
    m_body->Refresh();
}

void CParameterDialog::accept() {
    bool applied = false;
    RunUserAction([this, &applied] {
        const bool changes = !m_body->PendingCommands().isEmpty();
        // Its own record, in a sheet too: Cancel after an OK the receiver refused half way puts
        // back what that OK wrote, before the sheet decides about the rest.
        if (changes && !m_restorer) {
            QStringList paths;
            for (const CParameterPage::Binding& binding : m_body->m_bindings)
                if (binding.writable)
                    paths << binding.path;
            for (const CParameterPage::ListBinding& bound : m_body->m_lists)
                paths << bound.list->Path() + QStringLiteral("/*");
            m_restorer = std::make_unique<pell::CSettingsRestorer<CVexReceiverMate>>(
                CVexReceiverMate(GetReceiver()), paths);
        }
        m_wrote = m_wrote || changes;
        applied = m_body->OnApply();
    });
    if (!applied || ClosingResult() != 0)
        return;
    ForgetRecord();
    EndDialog(pell::IDOK);
}

void CParameterDialog::ForgetRecord() {
    if (m_restorer)
        m_restorer->Keep();
    m_restorer.reset();
}

void CParameterDialog::OnDestroy() {
    if (m_restorer && ClosingResult() != pell::IDOK)
        pell::RunAndReport(this, [this] { m_restorer->Restore(); });
    ForgetRecord();
    CPellDialog::OnDestroy();
}

// A lost or resetting receiver gets nothing put back, as in a sheet.
void CParameterDialog::OnConnectionLost() {
    ForgetRecord();
    CPellDialog::OnConnectionLost();
}

void CParameterDialog::OnReceiverGone() {
    ForgetRecord();
    CPellDialog::OnReceiverGone();
}
