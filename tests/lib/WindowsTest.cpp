#include "SimulatedReceiver.h"
#include "TestSupport.h"
#include "lib/Common.h"
#include "lib/Exceptions.h"
#include "lib/PellDialog.h"
#include "lib/PellPropertyPage.h"
#include "lib/PellPropertySheet.h"
#include "lib/SettingsStore.h"
#include "receiver/VexReceiverMate.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <atomic>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <numeric>
#include <set>
#include <string>

namespace windows_test {

using pell::test::SimulatedReceiver;

// What the probe windows did, as "dialog:init A:init A:active ...", and how they answer: a handler
// named in `actions` runs that action first, one named in `refused` says no.
struct Log {
    bool Note(const QString& window, const char* handler) {
        const std::string entry = window.toStdString() + ':' + handler;
        text += (text.empty() ? "" : " ") + entry;
        if (const auto action = actions.find(entry); action != actions.end())
            action->second();
        return !refused.contains(entry);
    }

    std::string text;
    std::map<std::string, std::function<void()>> actions;
    std::set<std::string> refused;
};

// A dialog that logs its handlers as "dialog:<handler>".
class ProbeDialog : public CPellDialog {
    Q_OBJECT
public:
    using CPellDialog::CallOnWindow;
    using CPellDialog::CPellDialog;
    using CPellDialog::PostToWindow;
    using CPellDialog::RunUserAction;
    using CPellDialog::StartWorker;

    void StopWorker() override {
        log.Note("dialog", "stop");
        CPellDialog::StopWorker();
    }

    Log log;
    std::vector<QVariant> prepared;
    std::function<void(std::stop_token)> work;

protected:
    void OnInitDialog() override {
        CPellDialog::OnInitDialog();
        log.Note("dialog", "init");
    }
    void OnConnectionLost() override {
        log.Note("dialog", "lost");
        CPellDialog::OnConnectionLost();
    }
    void PrepareWorker(const QVariant& first, const QVariant& second) override {
        prepared = {first, second};
    }
    void RunWorker(std::stop_token stop) override { work(std::move(stop)); }
};

// A sheet that logs its initialisation as "sheet:init", its pages theirs as "<title>:<handler>".
class ProbeSheet : public CPellPropertySheet {
    Q_OBJECT
public:
    using CPellPropertySheet::CPellPropertySheet;

    Log log;

protected:
    void OnInitDialog() override {
        CPellPropertySheet::OnInitDialog();
        log.Note("sheet", "init");
    }
};

class ProbePage : public CPellPropertyPage {
    Q_OBJECT
public:
    ProbePage(std::shared_ptr<rxio::IReceiver> receiver, const QString& title, ProbeSheet& sheet)
        : CPellPropertyPage(std::move(receiver), title), m_log(sheet.log) {
        // Something to size the page by.
        (new QLabel(title, this))->setMinimumSize(240, 120);
        sheet.AddPage(this);
    }

    int wizardNext = WizardAdjacentPage;

protected:
    void OnInitDialog() override {
        CPellPropertyPage::OnInitDialog();
        Note("init");
    }
    void OnDestroy() override {
        Note("destroy");
        CPellPropertyPage::OnDestroy();
    }
    void OnSetActive() override { Note("active"); }
    bool OnKillActive() override { return Note("kill"); }
    bool OnApply() override { return Note("apply"); }
    void OnOK() override { Note("ok"); }
    void OnCancel() override { Note("cancel"); }
    bool OnQueryCancel() override { return Note("query"); }
    int OnWizardBack() override { return Note("back"), WizardAdjacentPage; }
    int OnWizardNext() override { return Note("next"), wizardNext; }
    bool OnWizardFinish() override { return Note("finish"); }

private:
    bool Note(const char* handler) { return m_log.Note(GetTitle(), handler); }

    Log& m_log;
};

constexpr int kHung = 99;

// Runs `window` modally; one that has not ended after 5 s ends with kHung.
int Exec(QDialog& window) {
    QTimer::singleShot(5000, &window, [&window] {
        // A window that closed before exec() started its loop leaves that loop waiting for a
        // hidden window: show it to end it.
        window.show();
        window.QDialog::done(kHung);
    });
    return window.exec();
}

// Turns the event loop until `done` holds or 5 s have passed.
bool SpinUntil(const std::function<bool()>& done) {
    QElapsedTimer timer;
    timer.start();
    while (!done() && timer.elapsed() < 5000)
        pell::test::Spin(10);
    return done();
}

QPushButton* Button(QWidget& sheet, const std::string& name) {
    return sheet.findChild<QPushButton*>(QString::fromStdString(name + "Button"));
}

void Click(QWidget& sheet, const char* name) {
    QTest::mouseClick(Button(sheet, name), Qt::LeftButton);
}

void ClickTab(QWidget& sheet, int index) {
    QTabBar* tabs = sheet.findChild<QTabBar*>();
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(index).center());
}

// A sheet's buttons on show, a disabled one in brackets: "[back] next cancel".
std::string Buttons(QWidget& sheet) {
    std::string shown;
    for (const std::string name : {"back", "next", "finish", "ok", "cancel", "apply"}) {
        const QPushButton* button = Button(sheet, name);
        if (button->isVisible())
            shown += (shown.empty() ? "" : " ") + (button->isEnabled() ? name : '[' + name + ']');
    }
    return shown;
}

[[noreturn]] void Fail() {
    PELL_THROW_WIN(QStringLiteral("Reading the receiver"), pell::ERROR_TIMEOUT);
}

// A window under test with its log; its first page, if it is a sheet.
struct Window {
    std::unique_ptr<QDialog> window;
    Log* log;
    ProbePage* firstPage = nullptr;
};

enum class EKind { Dialog, Sheet, SheetWithRegisteredPage };
constexpr EKind kKinds[] = {EKind::Dialog, EKind::Sheet, EKind::SheetWithRegisteredPage};

const char* const kKindNames[] = {"dialog", "sheet", "sheet with a registered page"};

// A dialog, or a sheet of pages A and B. `receiver` goes to the window, or for
// SheetWithRegisteredPage only to page A.
Window Make(EKind kind, const std::shared_ptr<rxio::IReceiver>& receiver) {
    if (kind == EKind::Dialog) {
        auto dialog = std::make_unique<CPellWindow<ProbeDialog>>(receiver);
        Log* log = &dialog->log;
        return {std::move(dialog), log};
    }
    const bool sheetHasIt = kind == EKind::Sheet;
    auto sheet =
        std::make_unique<ProbeSheet>(sheetHasIt ? receiver : nullptr, QStringLiteral("Settings"));
    auto* first = new ProbePage(sheetHasIt ? nullptr : receiver, QStringLiteral("A"), *sheet);
    new ProbePage(nullptr, QStringLiteral("B"), *sheet);
    Log* log = &sheet->log;
    return {std::move(sheet), log, first};
}

TEST(WindowsTest, ReceiverNoticesEndTheWindowWithCancel) {
    const std::pair<const char*, void (rxsim::CSimulator::*)()> faults[] = {
        {"connection dropped", &rxsim::CSimulator::DropConnection},
        {"reset announced", &rxsim::CSimulator::AnnounceReset},
    };
    for (const auto& [name, raise] : faults) {
        for (EKind kind : kKinds) {
            SimulatedReceiver receiver;
            Window window = Make(kind, receiver.Receiver());
            QTimer::singleShot(50, window.window.get(), [&] { (receiver.Simulator().*raise)(); });
            EXPECT_EQ(Exec(*window.window), pell::IDCANCEL)
                << name << ", " << kKindNames[static_cast<int>(kind)];
        }
    }
}

TEST(WindowsTest, DialogEndsWithTheHostsResultCodes) {
    struct Case {
        const char* name;
        std::function<void(CDialogBase&)> end;
        int result;
    };
    const Case cases[] = {
        {"accept", [](CDialogBase& d) { d.accept(); }, pell::IDOK},
        {"Escape", [](CDialogBase& d) { QTest::keyClick(&d, Qt::Key_Escape); }, pell::IDCANCEL},
        {"close button", [](CDialogBase& d) { d.close(); }, pell::IDCANCEL},
        {"EndDialog", [](CDialogBase& d) { d.EndDialog(7); }, 7},
    };
    for (const Case& c : cases) {
        ProbeDialog dialog(nullptr);
        QTimer::singleShot(20, &dialog, [&] { c.end(dialog); });
        EXPECT_EQ(Exec(dialog), c.result) << c.name;
        dialog.EndDialog(8); // the first end wins
        EXPECT_EQ(dialog.result(), c.result) << c.name;
    }
}

// Initialisation waits for a reply that never comes while the connection goes: the notice
// arrives in the wait, before exec() has started its event loop.
std::function<void()> WaitWhileTheConnectionGoes(SimulatedReceiver& receiver) {
    return [&receiver] {
        receiver.Simulator().GetFaults().silentPaths.insert(QStringLiteral("rcv/model"));
        receiver.Simulator().DropAfter(50);
        CVexReceiverMate(receiver.Receiver()).Run(QStringLiteral("print,rcv/model"));
    };
}

TEST(WindowsTest, FailuresOfTheWindowsOwnHandlersAreReportedAndCancelIt) {
    enum class EThen { Nothing, DropConnection, PressOk };
    struct Case {
        const char* failing; // its window (page A's sheet) ends with IDCANCEL
        EKind kind;
        EThen then = EThen::Nothing;
        bool waitsWhileTheConnectionGoes = false; // rather than throwing at once
    };
    const Case cases[] = {
        {"dialog:init", EKind::Dialog},
        {"sheet:init", EKind::Sheet},
        {"A:init", EKind::Sheet},
        {"dialog:lost", EKind::Dialog, EThen::DropConnection},
        {"dialog:stop", EKind::Dialog, EThen::PressOk},
        {"dialog:init", EKind::Dialog, EThen::Nothing, true},
        {"A:init", EKind::SheetWithRegisteredPage, EThen::Nothing, true},
    };
    for (const Case& c : cases) {
        pell::test::ScopedPresenter presenter;
        SimulatedReceiver receiver;
        Window w = Make(c.kind, receiver.Receiver());
        w.log->actions[c.failing] =
            c.waitsWhileTheConnectionGoes ? WaitWhileTheConnectionGoes(receiver) : Fail;
        QTimer::singleShot(20, w.window.get(), [&] {
            if (c.then == EThen::DropConnection)
                receiver.Simulator().DropConnection();
            if (c.then == EThen::PressOk)
                w.window->accept();
        });

        EXPECT_EQ(Exec(*w.window), pell::IDCANCEL) << c.failing;
        ASSERT_EQ(presenter.Boxes().size(), 1U) << c.failing;
        // The box belongs to the window whose handler failed.
        QWidget* owner = c.failing[0] == 'A' ? static_cast<QWidget*>(w.firstPage) : w.window.get();
        EXPECT_EQ(presenter.Boxes().front().owner, owner) << c.failing;
    }
}

// The worker runs twice, the second time until the window closes.
TEST(WindowsTest, WorkerRunsUntilStoppedAndHandsResultsToTheWindow) {
    CPellWindow<ProbeDialog> dialog(nullptr);
    std::atomic<bool> sawStop = false;
    std::vector<int> delivered; // on the window's thread
    dialog.work = [&](std::stop_token stop) {
        for (int round = 0; !stop.stop_requested(); ++round) {
            dialog.PostToWindow([&delivered, round] {
                if (QThread::currentThread() == qApp->thread())
                    delivered.push_back(round);
            });
            QThread::msleep(2);
        }
        sawStop = true;
        // Posted after the stop: still undelivered when StopWorker returns.
        dialog.PostToWindow([&delivered] { delivered.push_back(-1); });
    };
    dialog.show();

    for (int run = 0; run < 2; ++run) {
        // Each start has a fresh stop state: the second run is not stopped at once.
        sawStop = false;
        delivered.clear();
        dialog.StartWorker(run, QStringLiteral("x"));
        EXPECT_EQ(dialog.prepared, (std::vector<QVariant>{run, QStringLiteral("x")}));
        ASSERT_TRUE(SpinUntil([&] { return delivered.size() >= 3; })) << run;
        EXPECT_FALSE(sawStop);
        run == 0 ? dialog.StopWorker() : dialog.accept();
        // Stopping joined: the worker has seen the request and ended.
        EXPECT_TRUE(sawStop) << run;
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        // What the first run left undelivered never reaches the second run.
        if (run == 0)
            continue;
        // Every round arrives, in order, the last ones after the worker ended.
        QCoreApplication::sendPostedEvents();
        ASSERT_FALSE(delivered.empty());
        EXPECT_EQ(delivered.back(), -1);
        delivered.pop_back();
        std::vector<int> rounds(delivered.size());
        std::iota(rounds.begin(), rounds.end(), 0);
        EXPECT_EQ(delivered, rounds) << run;
    }
}

// Destroyed while open and working: the worker ends before the window's member it uses goes
// (the sanitizer presets see it otherwise), and the unguarded form cannot start a worker at all.
TEST(WindowsTest, AWorkerNeverOutlivesItsWindowsMembers) {
    {
        CPellWindow<ProbeDialog> dialog(nullptr);
        dialog.work = [&dialog](std::stop_token stop) {
            for (; !stop.stop_requested(); QThread::usleep(100))
                dialog.prepared.assign(64, 1);
        };
        dialog.show();
        dialog.StartWorker({}, {});
        QThread::msleep(5);
    }
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(ProbeDialog(nullptr).StartWorker({}, {}), "m_stopsWorkerFirst");
}

// The worker never talks to the receiver itself: it asks the window's thread and waits.
TEST(WindowsTest, AWorkerAsksTheWindowToTalkToTheReceiver) {
    SimulatedReceiver receiver;
    CPellWindow<ProbeDialog> dialog(receiver.Receiver());
    std::optional<QString> elevation;
    std::atomic<bool> failureCameBack = false;
    dialog.work = [&](std::stop_token stop) {
        const CVexReceiverMate mate(dialog.GetReceiver());
        elevation =
            dialog.CallOnWindow(stop, [&] { return mate.Run(QStringLiteral("print,pos/elm")); });
        try {
            dialog.CallOnWindow(stop, [&] { mate.Run(QStringLiteral("print,/par/none")); });
        } catch (const ulm_std::CCommException&) {
            failureCameBack = true;
        }
    };
    receiver.Simulator().GetFaults().latencyMs = 50;
    dialog.show();
    dialog.StartWorker({}, {});
    // Meanwhile the window waits for a command of its own: the worker's turn comes after it,
    // never as a second command while the first waits.
    EXPECT_EQ(CVexReceiverMate(receiver.Receiver()).Run(QStringLiteral("print,rcv/uptime")),
              QStringLiteral("0"));
    ASSERT_TRUE(SpinUntil([&] { return failureCameBack.load(); }));
    dialog.StopWorker();
    EXPECT_EQ(elevation, QStringLiteral("5"));

    // Stopped while the window's thread is busy: the worker gets nothing and the action never
    // runs later.
    std::atomic<bool> ran = false;
    std::atomic<int> answer = -1;
    dialog.work = [&](std::stop_token stop) {
        answer = dialog.CallOnWindow(stop, [&] { ran = true; }) ? 1 : 0;
    };
    dialog.StartWorker({}, {});
    dialog.StopWorker();
    pell::test::Spin(30);
    EXPECT_EQ(answer, 0);
    EXPECT_FALSE(ran);
}

// Failures of a user action, of a call handed to the window and of the worker are reported; the
// window stays open.
TEST(WindowsTest, OtherFailuresAreReportedAndTheWindowStays) {
    pell::test::ScopedPresenter presenter;
    CPellWindow<ProbeDialog> dialog(nullptr);
    dialog.work = [](std::stop_token) {
        Fail();
    };
    dialog.show();
    EXPECT_TRUE(dialog.RunUserAction([] {}));
    EXPECT_FALSE(dialog.RunUserAction(Fail));
    dialog.PostToWindow(Fail);
    dialog.StartWorker({}, {});
    ASSERT_TRUE(SpinUntil([&] { return presenter.Boxes().size() == 3; }));
    EXPECT_TRUE(dialog.isVisible());
    for (const auto& box : presenter.Boxes())
        EXPECT_EQ(box.owner, &dialog);
}

// A sheet of pages A, B and C, in tabs or as a wizard.
struct Pages {
    explicit Pages(bool wizard = false) {
        if (wizard)
            sheet.SetWizardMode();
        for (const char* title : {"A", "B", "C"})
            pages.push_back(new ProbePage(nullptr, QString::fromLatin1(title), sheet));
    }

    ProbeSheet sheet{nullptr, QStringLiteral("Settings")};
    Log& log = sheet.log;
    std::vector<ProbePage*> pages;
};

// Open in tabs, having visited B and back on A; the log starts empty.
struct VisitedSheet : Pages {
    VisitedSheet() {
        sheet.show();
        ClickTab(sheet, 1);
        ClickTab(sheet, 0);
        log.text.clear();
    }
};

TEST(SheetTest, OkApplyAndCancelAskThePagesAndTellThem) {
    struct Case {
        const char* button;
        const char* modified; // pages
        const char* refused;
        int result; // 0: the sheet stays open
        const char* buttonsAfter;
        const char* log;
    };
    const Case cases[] = {
        {"ok", "AB", "", pell::IDOK, "", "A:kill A:apply B:apply A:ok B:ok A:destroy B:destroy"},
        // The refusing page is shown, still modified.
        {"ok", "AB", "B:apply", 0, "ok cancel apply", "A:kill A:apply B:apply B:active"},
        {"ok", "B", "A:kill", 0, "ok cancel apply", "A:kill"},
        {"apply", "B", "", 0, "ok cancel [apply]", "A:kill B:apply"},
        {"cancel", "B", "A:query", 0, "ok cancel apply", "A:query"},
        {"cancel", "B", "", pell::IDCANCEL, "", "A:query A:cancel B:cancel A:destroy B:destroy"},
    };
    for (const Case& c : cases) {
        VisitedSheet s;
        for (const char* page = c.modified; *page; ++page)
            s.pages[*page - 'A']->SetModified();
        s.log.refused = {c.refused};

        Click(s.sheet, c.button);
        EXPECT_EQ(s.log.text, c.log);
        EXPECT_EQ(s.sheet.result(), c.result) << c.log;
        EXPECT_EQ(Buttons(s.sheet), c.buttonsAfter) << c.log;
    }
}

// While a page's handler waits for the receiver, further clicks and tab changes are ignored.
TEST(SheetTest, ClicksWhileAHandlerWaitsAreIgnored) {
    VisitedSheet s;
    pell::test::ScopedPresenter presenter;
    SimulatedReceiver receiver;
    receiver.Simulator().GetFaults().latencyMs = 100;
    s.pages[1]->SetModified();
    s.log.actions["B:apply"] = [&] {
        QTimer::singleShot(10, &s.sheet, [&] {
            for (const char* button : {"ok", "apply", "cancel"})
                Click(s.sheet, button);
            ClickTab(s.sheet, 2);
        });
        CVexReceiverMate(receiver.Receiver()).Run(QStringLiteral("print,pos/elm"));
    };
    Click(s.sheet, "apply");
    EXPECT_EQ(s.log.text, "A:kill B:apply");
    EXPECT_TRUE(presenter.Boxes().empty());
    EXPECT_TRUE(s.sheet.isVisible());
    EXPECT_EQ(s.sheet.GetActiveIndex(), 0);
}

TEST(SheetTest, PageThatWillNotBeLeftKeepsItsTabAndAFailingPageIsReported) {
    VisitedSheet s;
    EXPECT_EQ(Buttons(s.sheet), "ok cancel [apply]");
    s.log.refused = {"A:kill"};
    ClickTab(s.sheet, 2);
    EXPECT_EQ(s.sheet.GetActiveIndex(), 0);
    EXPECT_EQ(s.sheet.findChild<QTabBar*>()->currentIndex(), 0);
    EXPECT_FALSE(s.pages[2]->IsInitialised());

    pell::test::ScopedPresenter presenter;
    s.log.refused.clear();
    s.log.actions["C:active"] = Fail;
    ClickTab(s.sheet, 2);
    EXPECT_EQ(s.sheet.GetActiveIndex(), 2);
    EXPECT_EQ(s.log.text, "A:kill A:kill C:init C:active");
    ASSERT_EQ(presenter.Boxes().size(), 1U);
    EXPECT_EQ(presenter.Boxes().front().owner, s.pages[2]);
    EXPECT_TRUE(s.sheet.isVisible());
}

TEST(WizardTest, BackAndNextWalkThePagesUnderTheirHeadingWithFittingButtons) {
    Pages w(true);
    w.pages[0]->SetSubtitle(QStringLiteral("Choose a file."));
    w.sheet.show();
    EXPECT_FALSE(w.sheet.findChild<QTabBar*>()->isVisible());

    const std::tuple<const char*, int, const char*> steps[] = {
        {nullptr, 0, "[back] next cancel"}, {"next", 1, "back next cancel"},
        {"next", 2, "back finish cancel"},  {"back", 1, "back next cancel"},
        {"back", 0, "[back] next cancel"},
    };
    for (const auto& [click, page, buttons] : steps) {
        if (click)
            Click(w.sheet, click);
        EXPECT_EQ(w.sheet.GetActiveIndex(), page);
        EXPECT_EQ(Buttons(w.sheet), buttons) << page;
        EXPECT_EQ(w.sheet.findChild<QLabel*>(QStringLiteral("headingTitle"))->text(),
                  w.pages[page]->GetTitle());
        const QLabel* subtitle = w.sheet.findChild<QLabel*>(QStringLiteral("headingSubtitle"));
        EXPECT_EQ(subtitle->isVisible(), page == 0) << page;
        EXPECT_EQ(subtitle->text(), w.pages[page]->GetSubtitle()) << page;
    }
    // The tab widget's own keys do not turn a wizard's pages.
    QTest::keyClick(w.sheet.findChild<QTabWidget*>(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(w.sheet.GetActiveIndex(), 0);
    EXPECT_EQ(w.log.text, "A:init A:active sheet:init A:next A:kill B:init B:active B:next B:kill "
                          "C:init C:active C:back C:kill B:active B:back B:kill A:active");
}

TEST(WizardTest, PagesChooseWhereNextGoesAndWhetherFinishEnds) {
    Pages w(true);
    w.pages[0]->wizardNext = CPropertyPageBase::WizardStayOnPage;
    w.log.refused = {"C:finish"};
    w.sheet.show();
    Click(w.sheet, "next");
    EXPECT_EQ(w.sheet.GetActiveIndex(), 0);

    w.pages[0]->wizardNext = 2;
    Click(w.sheet, "next");
    EXPECT_EQ(w.sheet.GetActiveIndex(), 2);
    EXPECT_FALSE(w.pages[1]->IsInitialised());

    Click(w.sheet, "finish");
    EXPECT_TRUE(w.sheet.isVisible());
    w.log.refused.clear();
    Click(w.sheet, "finish");
    EXPECT_EQ(w.sheet.result(), pell::ID_WIZFINISH);
}

TEST(WizardTest, PageSetsTheButtons) {
    Pages w(true);
    w.log.actions["C:active"] = [&w] {
        w.sheet.SetWizardButtons(pell::PSWIZB_BACK | pell::PSWIZB_DISABLEDFINISH);
    };
    w.sheet.SetActivePage(2);
    w.sheet.show();
    EXPECT_EQ(Buttons(w.sheet), "back [finish] cancel");
    w.sheet.SetWizardButtons(pell::PSWIZB_NEXT);
    EXPECT_EQ(Buttons(w.sheet), "[back] next cancel");
}

// Closing stores the placement; a stored one that fits no screen or cannot be read is ignored.
TEST(WindowPlacementTest, WindowsOpenWhereTheyLastClosed) {
    pell::CQSettingsStore store;
    const QString key = QStringLiteral("WindowPlacement");
    const QString name = QStringLiteral("windows_test::ProbeDialog");
    const auto opened = [] {
        ProbeDialog dialog(nullptr);
        dialog.show();
        return dialog.geometry();
    };
    store.WriteString(key, name, QStringLiteral("nonsense"));
    const QRect unplaced = opened();
    for (const char* stored : {"5000,5000,300,200,0", "-900,10,300,200,0", "10,10,90000,200,0",
                               "10,10,0,200,0", "1,2,3", "10,10,300,200,7", ""}) {
        store.WriteString(key, name, QString::fromLatin1(stored));
        EXPECT_EQ(opened(), unplaced) << stored;
    }

    const QRect where(120, 90, 420, 260);
    {
        ProbeDialog dialog(nullptr);
        dialog.show();
        dialog.setGeometry(where);
        dialog.accept();
    }
    EXPECT_EQ(store.ReadString(key, name), QStringLiteral("120,90,420,260,0"));
    EXPECT_EQ(opened(), where);
}

} // namespace windows_test

#include "WindowsTest.moc"
