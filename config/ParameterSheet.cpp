#include "config/ParameterSheet.h"

#include "lib/Common.h"
#include "lib/Exceptions.h"
#include "receiver/VexCommands.h"

CParameterSheet::CParameterSheet(std::shared_ptr<rxio::IReceiver> receiver, const QString& caption,
                                 QStringList masks, QWidget* parent)
    : CPellPropertySheet(receiver, caption, parent), m_masks(std::move(masks)),
      m_mate(std::move(receiver)) {}

bool CParameterSheet::Knows(const QString& path) {
    if (m_openFailure)
        return false;
    try {
        m_mate.Run(pell::vexcmd::List(path));
        return true;
    } catch (const ulm_std::CCommException&) {
        return false;
    } catch (const ulm_std::CWinException&) {
        // Pages are chosen while the sheet is made, before it can report anything.
        m_openFailure = std::current_exception();
        return false;
    }
}

void CParameterSheet::OnInitDialog() {
    CPellPropertySheet::OnInitDialog();
    if (m_openFailure)
        std::rethrow_exception(m_openFailure);
}

// Only the subtrees this receiver has: a mask of a node it lacks has nothing to put back.
void CParameterSheet::BeforeWriting() {
    if (m_restorer)
        return;
    QStringList present;
    for (const QString& mask : m_masks)
        if (Knows(mask.endsWith(QLatin1String("/*")) ? mask.chopped(2) : mask))
            present << mask;
    if (m_openFailure)
        std::rethrow_exception(std::exchange(m_openFailure, nullptr));
    m_restorer = std::make_unique<pell::CSettingsRestorer<CVexReceiverMate>>(m_mate, present);
}

void CParameterSheet::OnChangesApplied() {
    // Kept; the next write records afresh.
    ForgetRecord();
}

void CParameterSheet::ForgetRecord() {
    if (m_restorer)
        m_restorer->Keep();
    m_restorer.reset();
}

void CParameterSheet::OnConnectionLost() {
    ForgetRecord();
    CPellPropertySheet::OnConnectionLost();
}

void CParameterSheet::OnReceiverGone() {
    ForgetRecord();
    CPellPropertySheet::OnReceiverGone();
}

void CParameterSheet::OnDestroy() {
    if (m_restorer && ClosingResult() != pell::IDOK)
        pell::RunAndReport(this, [this] { m_restorer->Restore(); });
    ForgetRecord();
    CPellPropertySheet::OnDestroy();
}
