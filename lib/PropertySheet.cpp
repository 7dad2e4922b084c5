#include "lib/PropertySheet.h"

#include "lib/Common.h"
#include "lib/Exceptions.h"
#include "lib/PellLib.h"
#include "resources/StringIds.h"

#include <QFontMetrics>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QStyle>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace {

// A page's answer to `question`; a failure reported from it answers no.
bool Ask(CPropertyPageBase* page, bool (CPropertyPageBase::*question)()) {
    bool answer = false;
    pell::RunAndReport(page, [&] { answer = (page->*question)(); });
    return answer;
}

QFrame* Line() {
    auto* line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

} // namespace

CPropertyPageBase::CPropertyPageBase(const QString& title, QWidget* parent)
    : QWidget(parent), m_title(title) {}

CPropertyPageBase::~CPropertyPageBase() = default;

void CPropertyPageBase::SetTitle(const QString& title) {
    m_title = title;
    if (m_sheet)
        m_sheet->UpdatePageTitle(this);
}

void CPropertyPageBase::SetSubtitle(const QString& subtitle) {
    m_subtitle = subtitle;
    if (m_sheet)
        m_sheet->UpdatePageTitle(this);
}

void CPropertyPageBase::SetModified(bool modified) {
    if (m_modified == modified)
        return;
    m_modified = modified;
    if (m_sheet)
        m_sheet->UpdateApplyButton();
}

void CPropertyPageBase::OnInitDialog() {}

void CPropertyPageBase::HandleInitDialog() {
    OnInitDialog();
}

void CPropertyPageBase::OnDestroy() {}

void CPropertyPageBase::OnSetActive() {}

bool CPropertyPageBase::OnKillActive() {
    return true;
}

bool CPropertyPageBase::OnApply() {
    return true;
}

void CPropertyPageBase::OnOK() {}

void CPropertyPageBase::OnCancel() {}

bool CPropertyPageBase::OnQueryCancel() {
    return true;
}

int CPropertyPageBase::OnWizardBack() {
    return WizardAdjacentPage;
}

int CPropertyPageBase::OnWizardNext() {
    return WizardAdjacentPage;
}

bool CPropertyPageBase::OnWizardFinish() {
    return true;
}

template <class Command> void CPropertySheetBase::RunExclusive(Command&& command) {
    if (m_busy)
        return;
    const QScopedValueRollback busy(m_busy, true);
    command();
}

template <class Handler> void CPropertySheetBase::TellInitialisedPages(Handler handler) {
    for (int i = 0; i < GetPageCount(); ++i) {
        CPropertyPageBase* page = GetPage(i);
        if (page->m_initialised)
            pell::RunAndReport(page, [&] { handler(page); });
    }
}

CPropertySheetBase::CPropertySheetBase(const QString& caption, QWidget* parent)
    : CDialogBase(parent) {
    setWindowTitle(caption);

    m_heading = new QWidget;
    m_heading->setAutoFillBackground(true);
    m_heading->setBackgroundRole(QPalette::Base);
    m_headingTitle = new QLabel;
    m_headingTitle->setObjectName(QStringLiteral("headingTitle"));
    QFont titleFont = m_headingTitle->font();
    titleFont.setBold(true);
    m_headingTitle->setFont(titleFont);
    m_headingSubtitle = new QLabel;
    m_headingSubtitle->setObjectName(QStringLiteral("headingSubtitle"));
    m_headingSubtitle->setWordWrap(true);
    m_headingSubtitle->setIndent(16);
    auto* headingLayout = new QVBoxLayout(m_heading);
    headingLayout->setContentsMargins(20, 12, 20, 12);
    headingLayout->setSpacing(4);
    headingLayout->addWidget(m_headingTitle);
    headingLayout->addWidget(m_headingSubtitle);
    m_headingLine = Line();
    m_buttonLine = Line();

    m_tabs = new QTabWidget;
    connect(m_tabs, &QTabWidget::currentChanged, this, &CPropertySheetBase::OnTabChanged);

    m_back = AddButton(pell::ids::WizardBack, "backButton");
    m_next = AddButton(pell::ids::WizardNext, "nextButton");
    m_finish = AddButton(pell::ids::WizardFinish, "finishButton");
    m_ok = AddButton(pell::ids::SheetOk, "okButton");
    m_cancel = AddButton(pell::ids::SheetCancel, "cancelButton");
    m_apply = AddButton(pell::ids::SheetApply, "applyButton");
    const auto buttons = {m_back, m_next, m_finish, m_ok, m_cancel, m_apply};
    int buttonWidth = 0;
    for (QPushButton* button : buttons)
        buttonWidth = std::max(buttonWidth, button->sizeHint().width());
    m_buttonRow = new QHBoxLayout;
    m_buttonRow->setSpacing(style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing));
    m_buttonRow->addStretch();
    for (QPushButton* button : buttons) {
        button->setMinimumWidth(buttonWidth);
        m_buttonRow->addWidget(button);
    }
    for (QPushButton* button : {m_back, m_next, m_finish})
        button->hide();
    m_ok->setDefault(true);
    m_apply->setEnabled(false);

    connect(m_ok, &QPushButton::clicked, this, [this] { RunExclusive([this] { OnOk(); }); });
    connect(m_cancel, &QPushButton::clicked, this, &CPropertySheetBase::reject);
    connect(m_apply, &QPushButton::clicked, this,
            [this] { RunExclusive([this] { ApplyChanges(); }); });
    connect(m_back, &QPushButton::clicked, this,
            [this] { RunExclusive([this] { OnWizardMove(false); }); });
    connect(m_next, &QPushButton::clicked, this,
            [this] { RunExclusive([this] { OnWizardMove(true); }); });
    connect(m_finish, &QPushButton::clicked, this,
            [this] { RunExclusive([this] { OnFinish(); }); });

    const int margin = style()->pixelMetric(QStyle::PM_LayoutLeftMargin);
    m_pageArea = new QVBoxLayout;
    m_pageArea->setContentsMargins(margin, margin, margin, 0);
    m_pageArea->addWidget(m_tabs);
    m_buttonRow->setContentsMargins(margin, margin, margin, margin);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_heading);
    layout->addWidget(m_headingLine);
    layout->addLayout(m_pageArea, 1);
    layout->addWidget(m_buttonLine);
    layout->addLayout(m_buttonRow);
    m_heading->hide();
    m_headingLine->hide();
    m_buttonLine->hide();
}

CPropertySheetBase::~CPropertySheetBase() = default;

QPushButton* CPropertySheetBase::AddButton(unsigned textId, const char* name) {
    auto* button = new QPushButton(g_PellLibApp.XLoadString(textId));
    button->setObjectName(QLatin1String(name));
    return button;
}

void CPropertySheetBase::AddPage(CPropertyPageBase* page) {
    page->m_sheet = this;
    m_tabs->addTab(page, page->GetTitle());
    UpdateApplyButton();
}

int CPropertySheetBase::GetPageCount() const {
    return m_tabs->count();
}

CPropertyPageBase* CPropertySheetBase::GetPage(int index) const {
    return qobject_cast<CPropertyPageBase*>(m_tabs->widget(index));
}

int CPropertySheetBase::GetActiveIndex() const {
    return m_active ? m_tabs->indexOf(m_active) : -1;
}

bool CPropertySheetBase::SetActivePage(int index) {
    if (!GetPage(index))
        return false;
    if (!m_active) {
        m_startPage = index;
        return true;
    }
    return MoveTo(index, true);
}

void CPropertySheetBase::SetWizardMode() {
    m_wizard = true;
    m_tabs->tabBar()->hide();
    m_tabs->setDocumentMode(true);
    m_heading->show();
    m_headingLine->show();
    m_buttonLine->show();
    // The page lines up with the heading's text and leaves room for its subtitle.
    const int margin = style()->pixelMetric(QStyle::PM_LayoutLeftMargin);
    m_pageArea->setContentsMargins(20, margin, 20, margin);
    m_tabs->setMinimumSize(fontMetrics().averageCharWidth() * 60, fontMetrics().height() * 14);
    m_buttonRow->insertSpacing(m_buttonRow->indexOf(m_cancel), margin);
    m_back->show();
    m_ok->hide();
    m_apply->hide();
    SetWizardButtons(pell::PSWIZB_NEXT);
}

void CPropertySheetBase::SetWizardButtons(unsigned flags) {
    if (!m_wizard)
        return;
    const bool finish = (flags & (pell::PSWIZB_FINISH | pell::PSWIZB_DISABLEDFINISH)) != 0;
    m_back->setEnabled((flags & pell::PSWIZB_BACK) != 0);
    m_next->setVisible(!finish);
    m_next->setEnabled((flags & pell::PSWIZB_NEXT) != 0);
    m_finish->setVisible(finish);
    m_finish->setEnabled((flags & pell::PSWIZB_FINISH) != 0);
    (finish ? m_finish : m_next)->setDefault(true);
}

void CPropertySheetBase::reject() {
    RunExclusive([this] {
        if (m_active && !Ask(m_active, &CPropertyPageBase::OnQueryCancel))
            return;
        TellInitialisedPages([](CPropertyPageBase* page) { page->OnCancel(); });
        EndDialog(pell::IDCANCEL);
    });
}

void CPropertySheetBase::OnInitDialog() {
    CDialogBase::OnInitDialog();
    UpdateApplyButton();
    MoveTo(GetPage(m_startPage) ? m_startPage : 0, false);
}

void CPropertySheetBase::OnDestroy() {
    TellInitialisedPages([](CPropertyPageBase* page) { page->OnDestroy(); });
    for (int i = 0; i < GetPageCount(); ++i)
        GetPage(i)->m_initialised = false;
    m_active = nullptr;
    CDialogBase::OnDestroy();
}

void CPropertySheetBase::UpdateApplyButton() {
    bool modified = false;
    for (int i = 0; i < GetPageCount(); ++i)
        modified = modified || GetPage(i)->IsModified();
    m_apply->setEnabled(modified);
}

void CPropertySheetBase::UpdatePageTitle(CPropertyPageBase* page) {
    m_tabs->setTabText(m_tabs->indexOf(page), page->GetTitle());
    if (page == m_active)
        ShowWizardHeading();
}

void CPropertySheetBase::ShowWizardHeading() {
    if (!m_wizard || !m_active)
        return;
    m_headingTitle->setText(m_active->GetTitle());
    m_headingSubtitle->setText(m_active->GetSubtitle());
    m_headingSubtitle->setVisible(!m_active->GetSubtitle().isEmpty());
}

bool CPropertySheetBase::MoveTo(int index, bool askActive) {
    CPropertyPageBase* page = GetPage(index);
    if (!page)
        return false;
    if (page == m_active)
        return true;
    if (m_active && askActive && !Ask(m_active, &CPropertyPageBase::OnKillActive))
        return false;
    {
        const QSignalBlocker blocker(m_tabs);
        m_tabs->setCurrentIndex(index);
    }
    m_active = page;
    ShowWizardHeading();
    unsigned buttons = index + 1 < GetPageCount() ? pell::PSWIZB_NEXT : pell::PSWIZB_FINISH;
    if (index > 0)
        buttons |= pell::PSWIZB_BACK;
    SetWizardButtons(buttons);
    if (!page->m_initialised) {
        page->m_initialised = true;
        pell::RunAndReport(page, [page] { page->HandleInitDialog(); });
    }
    // Its initialisation may have closed the sheet.
    if (m_active == page)
        pell::RunAndReport(page, [page] { page->OnSetActive(); });
    return true;
}

void CPropertySheetBase::OnTabChanged(int index) {
    // Until the sheet opens the tabs only collect pages.
    if (!m_active)
        return;
    bool moved = false;
    // A wizard's pages change only through its buttons, never by the tab widget's keys.
    if (!m_wizard)
        RunExclusive([&] { moved = MoveTo(index, true); });
    if (!moved) {
        const QSignalBlocker blocker(m_tabs);
        m_tabs->setCurrentIndex(GetActiveIndex());
    }
}

void CPropertySheetBase::OnOk() {
    if (!ApplyChanges())
        return;
    TellInitialisedPages([](CPropertyPageBase* page) { page->OnOK(); });
    EndDialog(pell::IDOK);
}

bool CPropertySheetBase::ApplyChanges() {
    if (m_active && !Ask(m_active, &CPropertyPageBase::OnKillActive))
        return false;
    for (int i = 0; i < GetPageCount(); ++i) {
        CPropertyPageBase* page = GetPage(i);
        if (!page->IsModified())
            continue;
        if (!Ask(page, &CPropertyPageBase::OnApply)) {
            MoveTo(i, false);
            return false;
        }
        page->SetModified(false);
    }
    pell::RunAndReport(this, [this] { OnChangesApplied(); });
    return true;
}

void CPropertySheetBase::OnChangesApplied() {}

void CPropertySheetBase::OnWizardMove(bool forward) {
    CPropertyPageBase* page = m_active;
    if (!page)
        return;
    int target = CPropertyPageBase::WizardStayOnPage;
    pell::RunAndReport(page,
                       [&] { target = forward ? page->OnWizardNext() : page->OnWizardBack(); });
    if (target == CPropertyPageBase::WizardStayOnPage)
        return;
    if (target == CPropertyPageBase::WizardAdjacentPage)
        target = GetActiveIndex() + (forward ? 1 : -1);
    MoveTo(target, true);
}

void CPropertySheetBase::OnFinish() {
    if (m_active && Ask(m_active, &CPropertyPageBase::OnWizardFinish))
        EndDialog(pell::ID_WIZFINISH);
}
