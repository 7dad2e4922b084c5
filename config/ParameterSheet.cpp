#include "config/ParameterSheet.h"

#include "lib/Common.h"
#include "lib/Exceptions.h"
#include "receiver/VexCommands.h"

CParameterSheet::CParameterSheet(std::shared_ptr<rxio::IReceiver> receiver, const QString& caption,
                                 QStringList masks, QWidget* parent)
    : CPellPropertySheet(receiver, caption, parent), m_masks(std::move(masks)),
      m_mate(std::move(receiver)) {}

bool CParameterSheet::Knows(const QString& path) const {
    try {
        m_mate.Run(pell::vexcmd::List(path));
        return true;
    } catch (const ulm_std::CCommException&) {
        return false;
    }
}

void CParameterSheet::OnInitDialog() {
    CPellPropertySheet::OnInitDialog();
    Record();
}

// Only the subtrees this receiver has: a mask of a node it lacks has nothing to put back.
void CParameterSheet::Record() {
    QStringList present;
    for (const QString& mask : m_masks)
        if (Knows(mask.endsWith(QLatin1String("/*")) ? mask.chopped(2) : mask))
            present << mask;
    m_restorer.emplace(m_mate, present);
}

void CParameterSheet::OnChangesApplied() {
    m_restorer->Keep();
    Record();
}

// A receiver that is gone has nothing to put back into, and its loss has been told already.
void CParameterSheet::PutBack() {
    try {
        m_restorer->Restore();
    } catch (const ulm_std::CWinException& error) {
        if (error.GetErrorCode() != pell::ERROR_DEV_NOT_EXIST)
            error.ReportError(this);
    } catch (const ulm_std::CException& error) {
        error.ReportError(this);
    }
}

void CParameterSheet::OnDestroy() {
    if (m_restorer) {
        if (ClosingResult() == pell::IDOK)
            m_restorer->Keep();
        else
            PutBack();
        m_restorer.reset();
    }
    CPellPropertySheet::OnDestroy();
}
