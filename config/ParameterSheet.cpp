#include "config/ParameterSheet.h"

#include "config/ParameterPage.h"
#include "lib/Common.h"
#include "lib/Exceptions.h"
#include "lib/PellLib.h"
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

void CParameterSheet::AskBeforeReset(const QString& question) {
    m_resetQuestion = question;
}

bool CParameterSheet::ConfirmReset(CParameterPage& writer) {
    if (m_resetQuestion.isEmpty())
        return true;
    QStringList changed = writer.ChangedPaths();
    for (int i = 0; i < GetPageCount(); ++i)
        if (auto* page = qobject_cast<CParameterPage*>(GetPage(i)); page && page->IsModified())
            changed << page->ChangedPaths();
    bool ask = false;
    for (const QString& path : changed) {
        if (!m_needsReset.contains(path)) {
            try {
                m_needsReset[path] =
                    m_mate.Run(pell::vexcmd::PrintNeedsReset(path)) == QLatin1String("y");
            } catch (const ulm_std::CCommException&) {
                m_needsReset[path] = false; // a receiver that cannot tell takes it at once
            }
        }
        ask = ask || (m_needsReset[path] && !m_agreedToReset.contains(path));
    }
    if (!ask)
        return true;
    if (g_PellLibApp.MessageBox(&writer, m_resetQuestion, pell::MB_YESNO | pell::MB_ICONQUESTION) !=
        pell::IDYES)
        return false;
    for (const QString& path : changed)
        if (m_needsReset[path])
            m_agreedToReset.insert(path);
    return true;
}

void CParameterSheet::OnChangesApplied() {
    // Kept; the next write records afresh.
    ForgetRecord();
    m_resetOwed = m_resetOwed || !m_agreedToReset.isEmpty();
    m_agreedToReset.clear();
}

void CParameterSheet::ForgetRecord() {
    if (m_restorer)
        m_restorer->Keep();
    m_restorer.reset();
}

void CParameterSheet::OnConnectionLost() {
    ForgetRecord();
    m_resetOwed = false;
    CPellPropertySheet::OnConnectionLost();
}

void CParameterSheet::OnReceiverGone() {
    // Reset already, or switched off.
    ForgetRecord();
    m_resetOwed = false;
    CPellPropertySheet::OnReceiverGone();
}

void CParameterSheet::OnDestroy() {
    if (m_restorer && ClosingResult() != pell::IDOK)
        pell::RunAndReport(this, [this] { m_restorer->Restore(); });
    ForgetRecord();
    const bool reset = std::exchange(m_resetOwed, false);
    CPellPropertySheet::OnDestroy();
    // Only now that the sheet and its pages no longer listen: the receiver's notice of its reset
    // must not turn an OK into a Cancel.
    if (reset)
        pell::RunAndReport(this, [this] { m_mate.Run(pell::vexcmd::Reset()); });
}
