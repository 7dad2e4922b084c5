#pragma once

#include "lib/DialogBase.h"
#include "lib/pell_export.h"

#include <QPointer>
#include <QString>
#include <QWidget>

class CPropertySheetBase;
class QFrame;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QTabWidget;
class QVBoxLayout;

namespace pell {

// Buttons of a wizard, for CPropertySheetBase::SetWizardButtons.
constexpr unsigned PSWIZB_BACK = 0x1;
constexpr unsigned PSWIZB_NEXT = 0x2;
constexpr unsigned PSWIZB_FINISH = 0x4;         // Finish in place of Next
constexpr unsigned PSWIZB_DISABLEDFINISH = 0x8; // Finish in place of Next, disabled

} // namespace pell

// One page of a CPropertySheetBase: a tab, or one step of a wizard. The sheet calls the page's
// handlers; a library exception that escapes one of them is reported and counts as a refusal.
class PELL_EXPORT CPropertyPageBase : public QWidget {
    Q_OBJECT
public:
    // What OnWizardBack and OnWizardNext return besides the index of the page to go to.
    static constexpr int WizardAdjacentPage = -1; // the previous or the next page
    static constexpr int WizardStayOnPage = -2;

    explicit CPropertyPageBase(const QString& title = {}, QWidget* parent = nullptr);
    ~CPropertyPageBase() override;

    // The tab's text; in a wizard, the heading above the page.
    const QString& GetTitle() const { return m_title; }
    void SetTitle(const QString& title);
    // In a wizard, the line under the heading.
    const QString& GetSubtitle() const { return m_subtitle; }
    void SetSubtitle(const QString& subtitle);

    // OK and Apply apply the modified pages; Apply is enabled while any page is modified.
    void SetModified(bool modified = true);
    bool IsModified() const { return m_modified; }
    // The page has been activated since its sheet opened.
    bool IsInitialised() const { return m_initialised; }
    // The sheet the page was added to, or null.
    CPropertySheetBase* GetSheet() const { return m_sheet; }

protected:
    // Called when the page is first activated after its sheet opened, before OnSetActive.
    virtual void OnInitDialog();
    // How the sheet calls OnInitDialog; a page that guards its handlers wraps this call.
    virtual void HandleInitDialog();
    // Called on each initialised page when the sheet closes.
    virtual void OnDestroy();

    // The page has become the active one.
    virtual void OnSetActive();
    // The page is about to be left for another page, or for OK or Apply; false keeps it.
    virtual bool OnKillActive();
    // OK or Apply while the page is modified; false refuses and keeps the sheet open on it.
    virtual bool OnApply();
    // The sheet closes with OK, after every modified page applied.
    virtual void OnOK();
    // The sheet closes with Cancel.
    virtual void OnCancel();
    // Cancel while this page is active; false keeps the sheet open.
    virtual bool OnQueryCancel();
    // Back and Next in a wizard: the index of the page to go to, WizardAdjacentPage or
    // WizardStayOnPage.
    virtual int OnWizardBack();
    virtual int OnWizardNext();
    // Finish in a wizard; false keeps the wizard open.
    virtual bool OnWizardFinish();

private:
    friend class CPropertySheetBase;

    CPropertySheetBase* m_sheet = nullptr;
    QString m_title;
    QString m_subtitle;
    bool m_modified = false;
    bool m_initialised = false;
};

// Pages in tabs over OK, Cancel and Apply; or, in wizard mode, one page at a time under a
// heading, over Back, Next or Finish, and Cancel. OK ends the sheet with IDOK, Cancel with
// IDCANCEL, Finish with ID_WIZFINISH.
class PELL_EXPORT CPropertySheetBase : public CDialogBase {
    Q_OBJECT
public:
    explicit CPropertySheetBase(const QString& caption, QWidget* parent = nullptr);
    ~CPropertySheetBase() override;

    // The sheet shows `page` after the pages added before it and becomes its parent.
    void AddPage(CPropertyPageBase* page);
    int GetPageCount() const;
    // Null for an index out of range.
    CPropertyPageBase* GetPage(int index) const;
    // Null while the sheet is not open.
    CPropertyPageBase* GetActivePage() const { return m_active; }
    int GetActiveIndex() const;
    // While the sheet is not open: the page it opens on. While open: leaves the active page
    // (unless its OnKillActive refuses) for page `index`. Returns whether that happened.
    bool SetActivePage(int index);

    // Makes the sheet a wizard; call before it opens.
    void SetWizardMode();
    bool IsWizard() const { return m_wizard; }
    // A combination of the PSWIZB_ flags. Each page starts with Back (but the first), and Next,
    // or Finish on the last; a page's OnSetActive may change them.
    void SetWizardButtons(unsigned flags);

    // Asks the active page (OnQueryCancel), tells every initialised page (OnCancel) and ends the
    // sheet with IDCANCEL.
    void reject() override;

protected:
    void OnInitDialog() override;
    void OnDestroy() override;
    // Every modified page applied its changes (Apply, or OK before the sheet closes).
    virtual void OnChangesApplied();

private:
    friend class CPropertyPageBase;

    QPushButton* AddButton(unsigned textId, const char* name);
    void UpdateApplyButton();
    void UpdatePageTitle(CPropertyPageBase* page);
    void ShowWizardHeading();
    // Leaves the active page, asking it first when `askActive`, and activates page `index`.
    bool MoveTo(int index, bool askActive);
    // Runs one user command unless another one is still running (waiting for the receiver).
    template <class Command> void RunExclusive(Command&& command);
    void OnTabChanged(int index);
    void OnOk();
    void OnWizardMove(bool forward);
    void OnFinish();
    // Runs KillActive on the active page and OnApply on each modified page.
    bool ApplyChanges();
    template <class Handler> void TellInitialisedPages(Handler handler);

    QTabWidget* m_tabs = nullptr;
    QVBoxLayout* m_pageArea = nullptr;
    QHBoxLayout* m_buttonRow = nullptr;
    QWidget* m_heading = nullptr;
    QLabel* m_headingTitle = nullptr;
    QLabel* m_headingSubtitle = nullptr;
    QFrame* m_headingLine = nullptr;
    QFrame* m_buttonLine = nullptr;
    QPushButton* m_ok = nullptr;
    QPushButton* m_cancel = nullptr;
    QPushButton* m_apply = nullptr;
    QPushButton* m_back = nullptr;
    QPushButton* m_next = nullptr;
    QPushButton* m_finish = nullptr;
    QPointer<CPropertyPageBase> m_active;
    int m_startPage = 0;
    bool m_wizard = false;
    bool m_busy = false;
};
