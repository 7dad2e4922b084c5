#include "SimulatedReceiver.h"
#include "TestSupport.h"
#include "lib/Common.h"
#include "lib/Exceptions.h"
#include "lib/PellDialog.h"
#include "lib/PellGlobalSettings.h"
#include "lib/PellPropertyPage.h"
#include "lib/PellPropertySheet.h"
#include "lib/SettingsStore.h"
#include "receiver/VexReceiverMate.h"

#include <QApplication>
#include <QEventLoop>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <atomic>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <numeric>

namespace windows_test {

using Log = std::vector<std::string>;

// A dialog whose handlers each test fills in.
class ProbeDialog : public CPellDialog {
    Q_OBJECT
public:
    using CPellDialog::CallOnWindow;
    using CPellDialog::CPellDialog;
    using CPellDialog::PostToWindow;
    using CPellDialog::RunUserAction;
    using CPellDialog::StartWorker;

    std::function<void()> onInit;
    std::function<void()> onConnectionLost; // in place of the base's handler
    std::function<void()> onStopWorker;     // before the base's
    std::function<void(const QVariant&, const QVariant&)> onPrepare;
    std::function<void(std::stop_token)> work;

    void StopWorker() override {
        if (onStopWorker)
            onStopWorker();
        CPellDialog::StopWorker();
    }

protected:
    void OnInitDialog() override {
        CPellDialog::OnInitDialog();
        if (onInit)
            onInit();
    }
    void OnConnectionLost() override {
        if (onConnectionLost)
            onConnectionLost();
        else
            CPellDialog::OnConnectionLost();
    }
    void PrepareWorker(const QVariant& first, const QVariant& second) override {
        if (onPrepare)
            onPrepare(first, second);
    }
    void RunWorker(std::stop_token stop) override {
        if (work)
            work(std::move(stop));
    }
};

// A page that logs each handler as "<title>:<handler>" and answers as told.
class ProbePage : public CPellPropertyPage {
    Q_OBJECT
public:
    ProbePage(std::shared_ptr<rxio::IReceiver> receiver, const QString& title, Log* log)
        : CPellPropertyPage(std::move(receiver), title), m_log(log) {
        // Something to size the page by.
        auto* label = new QLabel(title, this);
        label->setMinimumSize(240, 120);
    }

    std::function<void()> onInit;
    std::function<void()> onSetActive;
    std::function<void()> onApply;
    bool killActive = true;
    bool apply = true;
    bool queryCancel = true;
    int wizardNext = WizardAdjacentPage;
    bool wizardFinish = true;

protected:
    void OnInitDialog() override {
        CPellPropertyPage::OnInitDialog();
        Note("init");
        if (onInit)
            onInit();
    }
    void OnDestroy() override {
        Note("destroy");
        CPellPropertyPage::OnDestroy();
    }
    void OnSetActive() override {
        Note("active");
        if (onSetActive)
            onSetActive();
    }
    bool OnKillActive() override { return Note("kill"), killActive; }
    bool OnApply() override {
        Note("apply");
        if (onApply)
            onApply();
        return apply;
    }
    void OnOK() override { Note("ok"); }
    void OnCancel() override { Note("cancel"); }
    bool OnQueryCancel() override { return Note("query"), queryCancel; }
    int OnWizardBack() override { return Note("back"), WizardAdjacentPage; }
    int OnWizardNext() override { return Note("next"), wizardNext; }
    bool OnWizardFinish() override { return Note("finish"), wizardFinish; }

private:
    void Note(const char* handler) { m_log->push_back(GetTitle().toStdString() + ':' + handler); }

    Log* m_log;
};

class ProbeSheet : public CPellPropertySheet {
    Q_OBJECT
public:
    using CPellPropertySheet::CPellPropertySheet;

    std::function<void()> onInit;

protected:
    void OnInitDialog() override {
        CPellPropertySheet::OnInitDialog();
        if (onInit)
            onInit();
    }
};

// Only for its own class name, under which its placement is kept.
class PlacedDialog : public CPellDialog {
    Q_OBJECT
public:
    PlacedDialog() : CPellDialog(nullptr) { resize(300, 200); }
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

QPushButton* Button(QWidget& sheet, const char* name) {
    return sheet.findChild<QPushButton*>(QLatin1String(name));
}

void Click(QWidget& sheet, const char* name) {
    QPushButton* button = Button(sheet, name);
    ASSERT_NE(button, nullptr) << name;
    QTest::mouseClick(button, Qt::LeftButton);
}

void ClickTab(QWidget& sheet, int index) {
    QTabBar* tabs = sheet.findChild<QTabBar*>();
    ASSERT_NE(tabs, nullptr);
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(index).center());
}

[[noreturn]] void Fail() {
    PELL_THROW_WIN(QStringLiteral("Reading the receiver"), pell::ERROR_TIMEOUT);
}

// A window under test; its first page, if it is a sheet.
struct Window {
    std::unique_ptr<QDialog> window;
    ProbePage* firstPage = nullptr;
};

enum class EKind { Dialog, Sheet, SheetWithRegisteredPage };
constexpr EKind kKinds[] = {EKind::Dialog, EKind::Sheet, EKind::SheetWithRegisteredPage};

const char* KindName(EKind kind) {
    const char* const names[] = {"dialog", "sheet", "sheet with a registered page"};
    return names[static_cast<int>(kind)];
}

// `receiver` goes to the window, or for SheetWithRegisteredPage only to its first page.
Window Make(EKind kind, const std::shared_ptr<rxio::IReceiver>& receiver, Log* log) {
    if (kind == EKind::Dialog)
        return {std::make_unique<CPellWindow<ProbeDialog>>(receiver)};
    const bool sheetHasIt = kind == EKind::Sheet;
    auto sheet =
        std::make_unique<ProbeSheet>(sheetHasIt ? receiver : nullptr, QStringLiteral("Settings"));
    auto* first = new ProbePage(sheetHasIt ? nullptr : receiver, QStringLiteral("A"), log);
    sheet->AddPage(first);
    sheet->AddPage(new ProbePage(nullptr, QStringLiteral("B"), log));
    return {std::move(sheet), first};
}

TEST(WindowsTest, ReceiverNoticesEndTheWindowWithCancel) {
    struct Fault {
        const char* name;
        void (rxsim::CSimulator::*raise)();
    };
    const Fault faults[] = {
        {"connection dropped", &rxsim::CSimulator::DropConnection},
        {"reset announced", &rxsim::CSimulator::AnnounceReset},
    };
    for (const Fault& fault : faults) {
        for (EKind kind : kKinds) {
            pell::test::SimulatedReceiver receiver;
            Log log;
            Window window = Make(kind, receiver.Receiver(), &log);
            QTimer::singleShot(50, window.window.get(),
                               [&] { (receiver.Simulator().*fault.raise)(); });
            EXPECT_EQ(Exec(*window.window), pell::IDCANCEL) << fault.name << ", " << KindName(kind);
        }
    }
}

TEST(WindowsTest, WindowsWithoutAReceiverWork) {
    for (EKind kind : kKinds) {
        Log log;
        Window window = Make(kind, nullptr, &log);
        QTimer::singleShot(20, window.window.get(), [&] { window.window->accept(); });
        EXPECT_EQ(Exec(*window.window), pell::IDOK) << KindName(kind);
    }
}

TEST(WindowsTest, DialogEndsWithTheHostsResultCodes) {
    struct Case {
        const char* name;
        std::function<void(QDialog&)> end;
        int result;
    };
    const Case cases[] = {
        {"accept", [](QDialog& d) { d.accept(); }, pell::IDOK},
        {"reject", [](QDialog& d) { d.reject(); }, pell::IDCANCEL},
        {"Escape", [](QDialog& d) { QTest::keyClick(&d, Qt::Key_Escape); }, pell::IDCANCEL},
        {"close button", [](QDialog& d) { d.close(); }, pell::IDCANCEL},
        {"EndDialog", [](QDialog& d) { static_cast<CDialogBase&>(d).EndDialog(7); }, 7},
    };
    for (const Case& c : cases) {
        ProbeDialog dialog(nullptr);
        QTimer::singleShot(20, &dialog, [&] { c.end(dialog); });
        EXPECT_EQ(Exec(dialog), c.result) << c.name;
    }
}

// The receiver goes while the window's (or its page's) initialisation waits for a reply, before
// exec() has started its event loop.
TEST(WindowsTest, ConnectionLostDuringAWaitInInitialisationEndsTheWindow) {
    for (EKind kind : {EKind::Dialog, EKind::SheetWithRegisteredPage}) {
        pell::test::ScopedPresenter presenter;
        pell::test::SimulatedReceiver receiver;
        receiver.Simulator().GetFaults().silentPaths.insert(QStringLiteral("rcv/model"));
        Log log;
        Window window = Make(kind, receiver.Receiver(), &log);
        const auto ask = [&receiver] {
            rxio::CommandResult result;
            QEventLoop wait;
            receiver.Receiver()->StartCommand(QStringLiteral("print,rcv/model"), 10000,
                                              [&](const rxio::CommandResult& r) {
                                                  result = r;
                                                  wait.quit();
                                              });
            receiver.Simulator().DropAfter(50);
            wait.exec();
            if (result.status == rxio::CommandResult::Disconnected)
                throw ulm_std::CCommException(QStringLiteral("print,rcv/model"),
                                              QStringLiteral("Receiver"), {}, QStringLiteral("t"));
        };
        if (kind == EKind::Dialog)
            static_cast<ProbeDialog&>(*window.window).onInit = ask;
        else
            window.firstPage->onInit = ask;

        EXPECT_EQ(Exec(*window.window), pell::IDCANCEL) << KindName(kind);
        EXPECT_EQ(presenter.Boxes().size(), 1U) << KindName(kind);
    }
}

TEST(WindowsTest, FailuresInHandlersAreReportedAndCancelTheWindow) {
    struct Case {
        const char* name;
        EKind kind;
        // Makes the window fail; returns the owner of the error box.
        std::function<QWidget*(Window&, pell::test::SimulatedReceiver&)> arrange;
    };
    const Case cases[] = {
        {"dialog initialisation", EKind::Dialog,
         [](Window& w, pell::test::SimulatedReceiver&) {
             static_cast<ProbeDialog&>(*w.window).onInit = Fail;
             return w.window.get();
         }},
        {"sheet initialisation", EKind::Sheet,
         [](Window& w, pell::test::SimulatedReceiver&) {
             static_cast<ProbeSheet&>(*w.window).onInit = Fail;
             return w.window.get();
         }},
        {"page initialisation", EKind::Sheet,
         [](Window& w, pell::test::SimulatedReceiver&) -> QWidget* {
             w.firstPage->onInit = Fail;
             return w.firstPage;
         }},
        {"notice handler", EKind::Dialog,
         [](Window& w, pell::test::SimulatedReceiver& receiver) {
             static_cast<ProbeDialog&>(*w.window).onConnectionLost = Fail;
             QTimer::singleShot(20, w.window.get(),
                                [&receiver] { receiver.Simulator().DropConnection(); });
             return w.window.get();
         }},
        {"worker stop on OK", EKind::Dialog,
         [](Window& w, pell::test::SimulatedReceiver&) {
             static_cast<ProbeDialog&>(*w.window).onStopWorker = Fail;
             QTimer::singleShot(20, w.window.get(), [&w] { w.window->accept(); });
             return w.window.get();
         }},
    };
    for (const Case& c : cases) {
        pell::test::ScopedPresenter presenter;
        pell::test::SimulatedReceiver receiver;
        Log log;
        Window window = Make(c.kind, receiver.Receiver(), &log);
        QWidget* owner = c.arrange(window, receiver);

        EXPECT_EQ(Exec(*window.window), pell::IDCANCEL) << c.name;
        ASSERT_EQ(presenter.Boxes().size(), 1U) << c.name;
        const auto& box = presenter.Boxes().front();
        EXPECT_EQ(box.style & pell::MB_ICONMASK, pell::MB_ICONERROR) << c.name;
        EXPECT_EQ(box.owner, owner) << c.name;
        EXPECT_TRUE(box.text.contains(QStringLiteral("Reading the receiver"))) << c.name;
    }
}

// A worker that posts its round number to the window until it is asked to stop.
struct CountingWorker {
    std::atomic<bool> sawStop = false;
    std::atomic<bool> offThread = false;
    std::vector<int> delivered; // on the window's thread

    void Attach(ProbeDialog& dialog) {
        dialog.work = [this, &dialog](std::stop_token stop) {
            offThread = QThread::currentThread() != qApp->thread();
            for (int round = 0; !stop.stop_requested(); ++round) {
                dialog.PostToWindow([this, round] {
                    if (QThread::currentThread() == qApp->thread())
                        delivered.push_back(round);
                });
                QThread::msleep(2);
            }
            sawStop = true;
        };
    }
};

TEST(WindowsTest, WorkerRunsUntilStoppedAndHandsResultsToTheWindow) {
    CPellWindow<ProbeDialog> dialog(nullptr);
    std::vector<QVariant> prepared;
    dialog.onPrepare = [&](const QVariant& first, const QVariant& second) {
        prepared = {first, second};
    };
    CountingWorker worker;
    worker.Attach(dialog);
    dialog.show();

    for (int run = 0; run < 2; ++run) {
        // Each start has a fresh stop state: the second run is not stopped at once.
        worker.sawStop = false;
        worker.delivered.clear();
        dialog.StartWorker(run, QStringLiteral("x"));
        EXPECT_EQ(prepared, (std::vector<QVariant>{run, QStringLiteral("x")}));
        ASSERT_TRUE(SpinUntil([&] { return worker.delivered.size() >= 3; })) << run;
        EXPECT_FALSE(worker.sawStop);
        EXPECT_TRUE(worker.offThread);
        dialog.StopWorker();
        // Stopping joined: the worker has seen the request and ended.
        EXPECT_TRUE(worker.sawStop) << run;
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        // Every round arrives, in order, the last ones after the worker ended.
        QCoreApplication::sendPostedEvents(&dialog);
        std::vector<int> rounds(worker.delivered.size());
        std::iota(rounds.begin(), rounds.end(), 0);
        EXPECT_EQ(worker.delivered, rounds) << run;
    }
}

TEST(WindowsTest, ClosingTheWindowStopsItsWorker) {
    CountingWorker worker;
    CPellWindow<ProbeDialog> dialog(nullptr);
    worker.Attach(dialog);
    dialog.show();
    dialog.StartWorker({}, {});
    ASSERT_TRUE(SpinUntil([&] { return !worker.delivered.empty(); }));
    dialog.accept();
    EXPECT_TRUE(worker.sawStop);
}

// A window whose worker uses one of the window's own members.
class ScratchDialog : public ProbeDialog {
public:
    using ProbeDialog::ProbeDialog;

protected:
    void RunWorker(std::stop_token stop) override {
        while (!stop.stop_requested()) {
            m_scratch.assign(64, 1);
            QThread::usleep(100);
        }
    }

private:
    std::vector<int> m_scratch;
};

// Destroyed while open and working: the worker ends before the member it uses goes (the
// sanitizer presets see it otherwise), and the unguarded form cannot start a worker at all.
TEST(WindowsTest, AWorkerNeverOutlivesItsWindowsMembers) {
    {
        CPellWindow<ScratchDialog> dialog(nullptr);
        dialog.show();
        dialog.StartWorker({}, {});
        QThread::msleep(5);
    }
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(
        {
            ScratchDialog unguarded(nullptr);
            unguarded.StartWorker({}, {});
        },
        "m_stopsWorkerFirst");
}

// The worker never talks to the receiver itself: it asks the window's thread and waits.
TEST(WindowsTest, AWorkerAsksTheWindowToTalkToTheReceiver) {
    pell::test::SimulatedReceiver receiver;
    CPellWindow<ProbeDialog> dialog(receiver.Receiver());
    std::optional<QString> elevation;
    std::atomic<bool> failureCameBack = false;
    std::atomic<bool> finished = false;
    dialog.work = [&](std::stop_token stop) {
        const CVexReceiverMate mate(dialog.GetReceiver());
        elevation =
            dialog.CallOnWindow(stop, [&] { return mate.Run(QStringLiteral("print,pos/elm")); });
        try {
            dialog.CallOnWindow(stop, [&] { mate.Run(QStringLiteral("print,/par/none")); });
        } catch (const ulm_std::CCommException&) {
            failureCameBack = true;
        }
        finished = true;
    };
    dialog.show();
    dialog.StartWorker({}, {});
    ASSERT_TRUE(SpinUntil([&] { return finished.load(); }));
    dialog.StopWorker();
    EXPECT_EQ(elevation, QStringLiteral("5"));
    EXPECT_TRUE(failureCameBack);

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

// A sheet of pages A, B, C in tabs that has visited B and is back on A; the log starts empty.
struct VisitedSheet {
    VisitedSheet() {
        for (const char* title : {"A", "B", "C"}) {
            pages.push_back(new ProbePage(nullptr, QString::fromLatin1(title), &log));
            sheet.AddPage(pages.back());
        }
        sheet.show();
        ClickTab(sheet, 1);
        ClickTab(sheet, 0);
        log.clear();
    }

    Log log;
    ProbeSheet sheet{nullptr, QStringLiteral("Settings")};
    std::vector<ProbePage*> pages;
};

TEST(SheetTest, ApplyIsEnabledWhileAPageIsModified) {
    VisitedSheet s;
    auto& [log, sheet, pages] = s;
    QPushButton* apply = Button(sheet, "applyButton");
    EXPECT_FALSE(apply->isEnabled());
    pages[1]->SetModified();
    EXPECT_TRUE(apply->isEnabled());
    pages[1]->SetModified(false);
    EXPECT_FALSE(apply->isEnabled());

    pages[1]->SetModified();
    Click(sheet, "applyButton");
    EXPECT_THAT(log, testing::ElementsAre("A:kill", "B:apply"));
    EXPECT_FALSE(apply->isEnabled());
    EXPECT_FALSE(pages[1]->IsModified());
    EXPECT_TRUE(sheet.isVisible());
    EXPECT_EQ(sheet.GetActiveIndex(), 0);
}

TEST(SheetTest, OkAppliesModifiedPagesAndClosesWhenAllAccept) {
    struct Case {
        const char* name;
        std::vector<int> modified;
        int refusingApply = -1;
        bool refuseKill = false;
        bool closes;
        int activeAfter;
        Log log;
    };
    const Case cases[] = {
        {"nothing modified",
         {},
         -1,
         false,
         true,
         -1,
         {"A:kill", "A:ok", "B:ok", "A:destroy", "B:destroy"}},
        {"both modified",
         {0, 1},
         -1,
         false,
         true,
         -1,
         {"A:kill", "A:apply", "B:apply", "A:ok", "B:ok", "A:destroy", "B:destroy"}},
        {"B refuses", {0, 1}, 1, false, false, 1, {"A:kill", "A:apply", "B:apply", "B:active"}},
        {"A will not be left", {1}, -1, true, false, 0, {"A:kill"}},
    };
    for (const Case& c : cases) {
        VisitedSheet s;
        for (int index : c.modified)
            s.pages[index]->SetModified();
        if (c.refusingApply >= 0)
            s.pages[c.refusingApply]->apply = false;
        s.pages[0]->killActive = !c.refuseKill;

        Click(s.sheet, "okButton");
        EXPECT_EQ(s.log, c.log) << c.name;
        EXPECT_EQ(s.sheet.isVisible(), !c.closes) << c.name;
        EXPECT_EQ(s.sheet.GetActiveIndex(), c.activeAfter) << c.name;
        EXPECT_EQ(s.sheet.result(), c.closes ? pell::IDOK : 0) << c.name;
        // The refusing page stays modified.
        if (c.refusingApply >= 0) {
            EXPECT_TRUE(s.pages[c.refusingApply]->IsModified()) << c.name;
        }
    }
}

// While a page's handler waits for the receiver, further clicks and tab changes are ignored.
TEST(SheetTest, ClicksWhileAHandlerWaitsAreIgnored) {
    VisitedSheet s;
    auto& [log, sheet, pages] = s;
    pell::test::ScopedPresenter presenter;
    pell::test::SimulatedReceiver receiver;
    receiver.Simulator().GetFaults().latencyMs = 100;
    pages[1]->SetModified();
    pages[1]->onApply = [&] {
        QTimer::singleShot(10, &sheet, [&] {
            for (const char* button : {"okButton", "applyButton", "cancelButton"})
                Click(sheet, button);
            ClickTab(sheet, 2);
        });
        CVexReceiverMate(receiver.Receiver()).Run(QStringLiteral("print,pos/elm"));
    };
    Click(sheet, "applyButton");
    EXPECT_THAT(log, testing::ElementsAre("A:kill", "B:apply"));
    EXPECT_TRUE(presenter.Boxes().empty());
    EXPECT_TRUE(sheet.isVisible());
    EXPECT_EQ(sheet.GetActiveIndex(), 0);
}

TEST(SheetTest, PageThatWillNotBeLeftKeepsItsTab) {
    VisitedSheet s;
    auto& [log, sheet, pages] = s;
    pages[0]->killActive = false;
    ClickTab(sheet, 2);
    EXPECT_EQ(sheet.GetActiveIndex(), 0);
    EXPECT_EQ(sheet.findChild<QTabBar*>()->currentIndex(), 0);
    EXPECT_FALSE(pages[2]->IsInitialised());

    pages[0]->killActive = true;
    ClickTab(sheet, 2);
    EXPECT_EQ(sheet.GetActiveIndex(), 2);
    EXPECT_THAT(log, testing::ElementsAre("A:kill", "A:kill", "C:init", "C:active"));
}

TEST(SheetTest, CancelAsksTheActivePageAndTellsEveryInitialisedPage) {
    VisitedSheet s;
    auto& [log, sheet, pages] = s;
    pages[0]->queryCancel = false;
    Click(sheet, "cancelButton");
    QTest::keyClick(&sheet, Qt::Key_Escape);
    EXPECT_TRUE(sheet.isVisible());
    EXPECT_THAT(log, testing::ElementsAre("A:query", "A:query"));

    log.clear();
    pages[0]->queryCancel = true;
    QTest::keyClick(&sheet, Qt::Key_Escape);
    EXPECT_FALSE(sheet.isVisible());
    EXPECT_EQ(sheet.result(), pell::IDCANCEL);
    EXPECT_THAT(log,
                testing::ElementsAre("A:query", "A:cancel", "B:cancel", "A:destroy", "B:destroy"));
}

TEST(SheetTest, PageFailureIsReportedAndCountsAsRefusal) {
    VisitedSheet s;
    auto& [log, sheet, pages] = s;
    pell::test::ScopedPresenter presenter;
    pages[2]->onSetActive = Fail;
    ClickTab(sheet, 2);
    EXPECT_EQ(presenter.Boxes().size(), 1U);
    EXPECT_EQ(presenter.Boxes().front().owner, pages[2]);
    EXPECT_EQ(sheet.GetActiveIndex(), 2);
    EXPECT_TRUE(sheet.isVisible());
}

// A wizard of pages 1, 2, 3.
class WizardTest : public testing::Test {
protected:
    void SetUp() override {
        wizard.SetWizardMode();
        for (const char* title : {"1", "2", "3"}) {
            pages.push_back(new ProbePage(nullptr, QString::fromLatin1(title), &log));
            wizard.AddPage(pages.back());
        }
        pages[0]->SetSubtitle(QStringLiteral("Choose a file."));
    }

    struct Buttons {
        bool backEnabled;
        bool nextShown;
        bool nextEnabled;
        bool finishShown;
        bool finishEnabled;
        bool operator==(const Buttons&) const = default;
    };

    Buttons State() {
        return {
            Button(wizard, "backButton")->isEnabled(), Button(wizard, "nextButton")->isVisible(),
            Button(wizard, "nextButton")->isEnabled(), Button(wizard, "finishButton")->isVisible(),
            Button(wizard, "finishButton")->isEnabled()};
    }

    Log log;
    ProbeSheet wizard{nullptr, QStringLiteral("Export")};
    std::vector<ProbePage*> pages;
};

TEST_F(WizardTest, BackAndNextWalkThePagesWithFittingButtons) {
    wizard.show();
    EXPECT_FALSE(Button(wizard, "okButton")->isVisible());
    EXPECT_FALSE(Button(wizard, "applyButton")->isVisible());
    EXPECT_FALSE(wizard.findChild<QTabBar*>()->isVisible());

    struct Step {
        const char* click;
        int page;
        Buttons buttons;
    };
    const Step steps[] = {
        {nullptr, 0, {false, true, true, false, false}},
        {"nextButton", 1, {true, true, true, false, false}},
        {"nextButton", 2, {true, false, false, true, true}},
        {"backButton", 1, {true, true, true, false, false}},
        {"backButton", 0, {false, true, true, false, false}},
    };
    for (const Step& step : steps) {
        if (step.click)
            Click(wizard, step.click);
        EXPECT_EQ(wizard.GetActiveIndex(), step.page) << step.page;
        EXPECT_TRUE(State() == step.buttons) << step.page;
        EXPECT_EQ(wizard.findChild<QLabel*>(QStringLiteral("headingTitle"))->text(),
                  pages[step.page]->GetTitle());
        const QLabel* subtitle = wizard.findChild<QLabel*>(QStringLiteral("headingSubtitle"));
        EXPECT_EQ(subtitle->isVisible(), step.page == 0) << step.page;
        EXPECT_EQ(subtitle->text(), pages[step.page]->GetSubtitle()) << step.page;
    }
    // The tab widget's own keys do not turn a wizard's pages.
    QTest::keyClick(wizard.findChild<QTabWidget*>(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(wizard.GetActiveIndex(), 0);
    EXPECT_THAT(log,
                testing::ElementsAre("1:init", "1:active", "1:next", "1:kill", "2:init", "2:active",
                                     "2:next", "2:kill", "3:init", "3:active", "3:back", "3:kill",
                                     "2:active", "2:back", "2:kill", "1:active"));
}

TEST_F(WizardTest, PageChoosesWhereNextGoes) {
    pages[0]->wizardNext = CPropertyPageBase::WizardStayOnPage;
    wizard.show();
    Click(wizard, "nextButton");
    EXPECT_EQ(wizard.GetActiveIndex(), 0);

    pages[0]->wizardNext = 2;
    Click(wizard, "nextButton");
    EXPECT_EQ(wizard.GetActiveIndex(), 2);
    EXPECT_FALSE(pages[1]->IsInitialised());
}

TEST_F(WizardTest, PageSetsTheButtons) {
    pages[2]->onSetActive = [this] {
        wizard.SetWizardButtons(pell::PSWIZB_BACK | pell::PSWIZB_DISABLEDFINISH);
    };
    wizard.SetActivePage(2);
    wizard.show();
    EXPECT_TRUE(State() == (Buttons{true, false, false, true, false}));
    wizard.SetWizardButtons(pell::PSWIZB_NEXT);
    EXPECT_TRUE(State() == (Buttons{false, true, true, false, false}));
}

TEST_F(WizardTest, FinishEndsWithTheFinishCodeUnlessThePageRefuses) {
    pages[2]->wizardFinish = false;
    QTimer::singleShot(20, &wizard, [this] {
        Click(wizard, "nextButton");
        Click(wizard, "nextButton");
        Click(wizard, "finishButton");
        EXPECT_TRUE(wizard.isVisible());
        pages[2]->wizardFinish = true;
        Click(wizard, "finishButton");
    });
    EXPECT_EQ(Exec(wizard), pell::ID_WIZFINISH);
    EXPECT_EQ(std::count(log.begin(), log.end(), "3:finish"), 2);
}

TEST(WindowPlacementTest, WindowsOpenWhereTheyLastClosed) {
    const QRect where(120, 90, 420, 260);
    {
        PlacedDialog dialog;
        dialog.show();
        dialog.setGeometry(where);
        dialog.accept();
    }
    EXPECT_EQ(pell::CQSettingsStore().ReadString(QStringLiteral("WindowPlacement"),
                                                 QStringLiteral("windows_test::PlacedDialog")),
              QStringLiteral("120,90,420,260,0"));
    PlacedDialog again;
    again.show();
    EXPECT_EQ(again.geometry(), where);
    again.hide();

    ProbeSheet sheet(nullptr, QStringLiteral("Settings"));
    sheet.show();
    sheet.accept();
    EXPECT_TRUE(pell::CQSettingsStore()
                    .ReadString(QStringLiteral("WindowPlacement"),
                                QStringLiteral("windows_test::ProbeSheet"))
                    .has_value());
}

TEST(WindowPlacementTest, StoredPlacementThatFitsNoScreenIsIgnored) {
    pell::CQSettingsStore store;
    const QString key = CPellGlobalSettings::Ref().GetWindowPlacementKey();
    const QString name = QStringLiteral("windows_test::PlacedDialog");
    store.WriteString(key, name, QStringLiteral("nonsense"));
    QRect unplaced;
    {
        PlacedDialog dialog;
        dialog.show();
        unplaced = dialog.geometry();
        dialog.hide();
    }
    for (const char* stored : {"5000,5000,300,200,0", "-900,10,300,200,0", "10,10,90000,200,0",
                               "10,10,0,200,0", "1,2,3", "10,10,300,200,7", ""}) {
        store.WriteString(key, name, QString::fromLatin1(stored));
        PlacedDialog dialog;
        dialog.show();
        EXPECT_EQ(dialog.geometry(), unplaced) << stored;
        dialog.hide();
    }
}

} // namespace windows_test

#include "WindowsTest.moc"
