#include "config/ReceiverSettingsImport_ProgressPP.h"

#include "config/ReceiverSettingsImport_SelectParametersPP.h"
#include "config/SettingsImport.h"
#include "config/VexReceiverAccessor.h"
#include "lib/Common.h"
#include "lib/Exceptions.h"
#include "lib/PellLib.h"
#include "resources/StringIds.h"

#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

CReceiverSettingsImport_ProgressPP::CReceiverSettingsImport_ProgressPP(
    std::shared_ptr<rxio::IReceiver> receiver,
    CReceiverSettingsImport_SelectParametersPP& parameters, QWidget* parent)
    : CPellPropertyPage(std::move(receiver),
                        g_PellLibApp.XLoadString(pell::ids::SettingsImportProgress), parent),
      m_parameters(parameters), m_rows(new QTreeWidget), m_progress(new QProgressBar),
      m_status(new QLabel) {
    SetSubtitle(g_PellLibApp.XLoadString(pell::ids::SettingsImportProgressHint));
    m_rows->setObjectName(QStringLiteral("importRows"));
    m_rows->setRootIsDecorated(false);
    m_rows->setUniformRowHeights(true);
    m_rows->setAlternatingRowColors(true);
    m_rows->setHeaderLabels({g_PellLibApp.XLoadString(pell::ids::SettingsColumnParameter),
                             g_PellLibApp.XLoadString(pell::ids::SettingsColumnResult)});
    m_rows->header()->setStretchLastSection(true);
    m_progress->setTextVisible(false);
    m_progress->setMaximumHeight(m_progress->sizeHint().height() * 2 / 3);
    m_status->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_rows, 1);
    layout->addWidget(m_progress);
    layout->addWidget(m_status);
}

void CReceiverSettingsImport_ProgressPP::OnSetActive() {
    CPellPropertyPage::OnSetActive();
    GetSheet()->SetWizardButtons(0);
    // From the event loop, not from inside the sheet's own handling: Cancel stays clickable.
    QTimer::singleShot(0, this, &CReceiverSettingsImport_ProgressPP::Write);
}

bool CReceiverSettingsImport_ProgressPP::OnQueryCancel() {
    if (!m_writing)
        return true;
    // The page closes the wizard itself once what was written is back.
    m_cancel.request_stop();
    return false;
}

void CReceiverSettingsImport_ProgressPP::OnDestroy() {
    m_closing = true;
    m_cancel.request_stop();
    CPellPropertyPage::OnDestroy();
}

void CReceiverSettingsImport_ProgressPP::Write() {
    if (m_closing)
        return;
    m_rows->clear();
    m_writing = true;
    m_cancel = std::stop_source();
    CVexReceiverAccessor accessor(GetReceiver());
    accessor.SetCancel(m_cancel.get_token());
    VOXA2JSON::CSettingsImport import(*m_parameters.Root());
    m_progress->setRange(0, std::max(import.Total(), 1));
    int imported = 0;
    int failed = 0;
    try {
        while (!import.AtEnd() && !m_cancel.stop_requested()) {
            m_status->setText(g_PellLibApp.XLoadString(pell::ids::SettingsWriting)
                                  .arg(import.Done() + 1)
                                  .arg(import.Total()));
            const VOXA2JSON::ImportRow row = import.WriteNext(accessor);
            m_progress->setValue(import.Done());
            if (row.outcome == VOXA2JSON::EWriteOutcome::Skipped)
                continue;
            auto* item = new QTreeWidgetItem(m_rows, {row.path, row.text});
            item->setToolTip(0, row.path);
            item->setToolTip(1, row.text);
            if (row.outcome == VOXA2JSON::EWriteOutcome::Failed) {
                item->setIcon(1, style()->standardIcon(QStyle::SP_MessageBoxWarning));
                ++failed;
            } else {
                ++imported;
            }
            m_rows->scrollToItem(item);
        }
    } catch (const ulm_std::CWinException& error) {
        if (error.GetErrorCode() == pell::ERROR_DEV_NOT_EXIST) {
            m_writing = false; // the connection's notice closes the wizard
            return;
        }
        if (error.GetErrorCode() != pell::ERROR_CANCELLED)
            error.ReportError(this);
    }
    if (m_closing) {
        m_writing = false;
        return;
    }
    if (m_cancel.stop_requested()) {
        m_status->setText(g_PellLibApp.XLoadString(pell::ids::SettingsCancelling));
        CVexReceiverAccessor restorer(GetReceiver());
        QStringList notBack;
        RunUserAction([&] { notBack = import.Undo(restorer); });
        if (!notBack.isEmpty())
            g_PellLibApp.MessageBox(this,
                                    g_PellLibApp.XLoadString(pell::ids::SettingsRestoreFailed)
                                        .arg(notBack.join(QStringLiteral(", "))),
                                    pell::MB_ICONWARNING);
        m_writing = false;
        EndWindow(pell::IDCANCEL);
        return;
    }
    m_writing = false;
    m_progress->setValue(m_progress->maximum());
    m_status->setText(
        g_PellLibApp.XLoadString(pell::ids::SettingsWritten).arg(imported).arg(failed));
    // Paths as wide as they need, but the results stay in sight on a small screen.
    m_rows->resizeColumnToContents(0);
    m_rows->setColumnWidth(0,
                           std::min(m_rows->columnWidth(0), m_rows->viewport()->width() * 3 / 5));
    GetSheet()->SetWizardButtons(pell::PSWIZB_BACK | pell::PSWIZB_FINISH);
    emit writingDone();
}
