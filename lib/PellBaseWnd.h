#pragma once

#include "lib/Common.h"
#include "lib/DialogBase.h"
#include "lib/Exceptions.h"
#include "lib/PropertySheet.h"
#include "lib/WindowMailbox.h"
#include "receiver/VexReceiverMate.h"
#include "rxio/Receiver.h"

#include <QApplication>
#include <QMetaObject>
#include <QThread>
#include <QVariant>
#include <atomic>
#include <chrono>
#include <exception>
#include <future>
#include <memory>
#include <optional>
#include <stop_token>
#include <thread>
#include <type_traits>
#include <utility>

template <class Window> class CPellWindow;

// What every window of the library adds to its Qt base (CDialogBase, CPropertySheetBase or
// CPropertyPageBase): the receiver it works with, closing with IDCANCEL when that receiver's
// connection goes, one optional worker thread, and library exceptions from its handlers reported
// instead of reaching Qt. See docs/windows.md.
template <class Base> class CPellBaseWnd : public Base {
public:
    template <class... BaseArgs>
    explicit CPellBaseWnd(std::shared_ptr<rxio::IReceiver> receiver, BaseArgs&&... args)
        : Base(std::forward<BaseArgs>(args)...), m_receiver(std::move(receiver)) {
        // Nothing handed over by the worker runs while the window waits for the receiver: it
        // could not talk to it then (ERROR_BUSY), and the window is in the middle of a handler.
        m_mailbox->SetHold(
            [this] { return m_receiver && CVexReceiverMate::IsPending(m_receiver.get()); });
    }

    // The worker has been stopped by now: closing the window or the CPellWindow destructor
    // (which runs before any member of the derived window goes) does that.
    ~CPellBaseWnd() override = default;

    // Null for a window that needs no receiver.
    const std::shared_ptr<rxio::IReceiver>& GetReceiver() const { return m_receiver; }

protected:
    // Derived windows call this first from their own OnInitDialog.
    void OnInitDialog() override {
        Base::OnInitDialog();
        // Shown filled in before the derived window starts talking to the receiver.
        this->repaint();
        if (!m_receiver)
            return;
        m_connectionLost = MakeNotice(&CPellBaseWnd::OnConnectionLost);
        m_receiverGone = MakeNotice(&CPellBaseWnd::OnReceiverGone);
        m_receiver->RegisterNotice(m_connectionLost, rxio::NotifyConnectionLost);
        m_receiver->RegisterNotice(m_receiverGone, rxio::NotifyReceiverGone);
    }

    void HandleInitDialog() override {
        RunOrCancel([this] { Base::HandleInitDialog(); });
    }

    void OnDestroy() override {
        RunOrCancel([this] { StopWorker(); });
        m_connectionLost.reset();
        m_receiverGone.reset();
        Base::OnDestroy();
    }

    // The receiver's connection is gone (rxio::NotifyConnectionLost).
    virtual void OnConnectionLost() { EndWindow(pell::IDCANCEL); }
    // The receiver announced a reset or power-off (rxio::NotifyReceiverGone).
    virtual void OnReceiverGone() { EndWindow(pell::IDCANCEL); }

    // Stops a worker still running, hands `first` and `second` to PrepareWorker and runs
    // RunWorker on a new thread with a fresh stop state. Only a window made as a CPellWindow may
    // run a worker: its destruction stops the worker before the window's members are gone.
    virtual void StartWorker(const QVariant& first, const QVariant& second) {
        PELL_REQUIRE(m_stopsWorkerFirst, QStringLiteral("StartWorker"), pell::ERROR_NOT_SUPPORTED);
        StopWorker();
        ++m_workerRun;
        PrepareWorker(first, second);
        m_worker = std::jthread([this](std::stop_token stop) {
            try {
                RunWorker(std::move(stop));
            } catch (const ulm_std::CException&) {
                // Reported on the window's thread; the window stays open.
                PostToWindow([error = std::current_exception()] { std::rethrow_exception(error); });
            }
        });
    }

    // Asks the worker to stop and waits for it behind the wait cursor.
    virtual void StopWorker() {
        if (!m_worker.joinable())
            return;
        QApplication::setOverrideCursor(Qt::WaitCursor);
        JoinWorker();
        QApplication::restoreOverrideCursor();
    }

    // Called by StartWorker on the window's thread, before the worker starts.
    virtual void PrepareWorker(const QVariant& /*first*/, const QVariant& /*second*/) {}

    // The worker's body, on its own thread. It must not touch widgets (PostToWindow hands results
    // over) and must look at `stop` often enough for the window to close promptly.
    virtual void RunWorker(std::stop_token /*stop*/) {}

    // Runs `action` on the window's thread, later, unless the window is gone by then or a newer
    // worker has started. Safe to call from the worker. A library exception from `action` is
    // reported.
    template <class Action> void PostToWindow(Action action) {
        // What a worker posts belongs to its run (m_workerRun is written only before a worker
        // starts and after it ended); what the window posts to itself always runs.
        const int run = QThread::currentThread() == this->thread() ? -1 : m_workerRun;
        m_mailbox->Post([this, run, action = std::move(action)]() mutable {
            if (run < 0 || run == m_workerRun)
                RunUserAction(action);
        });
    }

    // From the worker: runs `action` on the window's thread (where the receiver may be used),
    // once the window is not waiting for the receiver itself, and waits for its result. Gives an
    // std::optional of the result (a bool for a void action: whether it ran), empty when the stop
    // is requested first; a stopped worker's action is skipped if it has not started. Mind that
    // an optional<bool> tests its presence, not its value. An exception from `action` is thrown
    // here, on the worker. Never from the window's own thread: it would wait for itself.
    template <class Action> auto CallOnWindow(const std::stop_token& stop, Action action) {
        PELL_REQUIRE(QThread::currentThread() != this->thread(), QStringLiteral("CallOnWindow"),
                     pell::ERROR_INVALID_THREAD_ID);
        using Result = std::invoke_result_t<Action&>;
        using Answer = std::conditional_t<std::is_void_v<Result>, bool, std::optional<Result>>;
        if (stop.stop_requested())
            return Answer{};
        auto promise = std::make_shared<std::promise<Result>>();
        auto givenUp = std::make_shared<std::atomic<bool>>(false);
        std::future<Result> future = promise->get_future();
        m_mailbox->Post([promise, givenUp, action = std::move(action)]() mutable {
            if (*givenUp)
                return;
            try {
                if constexpr (std::is_void_v<Result>) {
                    action();
                    promise->set_value();
                } else {
                    promise->set_value(action());
                }
            } catch (...) {
                promise->set_exception(std::current_exception());
            }
        });
        while (future.wait_for(std::chrono::milliseconds(20)) != std::future_status::ready) {
            if (stop.stop_requested()) {
                *givenUp = true;
                return Answer{};
            }
        }
        // Ready: the action ran, to its result or to its exception.
        if constexpr (std::is_void_v<Result>) {
            future.get();
            return true;
        } else {
            return Answer{future.get()};
        }
    }

    // For button and other handlers: runs `action` and reports a library exception from it; the
    // window stays open. Returns whether `action` completed.
    template <class Action> bool RunUserAction(Action&& action) {
        return pell::RunAndReport(this, std::forward<Action>(action));
    }

    // Ends the window (a page: its sheet) with `result`.
    void EndWindow(int result) {
        if constexpr (std::is_base_of_v<CPropertyPageBase, Base>) {
            if (CPropertySheetBase* sheet = this->GetSheet())
                sheet->EndDialog(result);
        } else {
            this->EndDialog(result);
        }
    }

private:
    template <class Window> friend class CPellWindow;

    void JoinWorker() {
        if (m_worker.joinable()) {
            m_worker.request_stop();
            m_worker.join();
        }
    }

    // A library exception from `handler` is reported and ends the window with IDCANCEL.
    template <class Handler> void RunOrCancel(Handler&& handler) {
        if (!RunUserAction(std::forward<Handler>(handler)))
            EndWindow(pell::IDCANCEL);
    }

    std::shared_ptr<rxio::INotice> MakeNotice(void (CPellBaseWnd::*handler)()) {
        return rxio::INotice::CreateInstance([this, handler](rxio::ENotification) {
            // The receiver tells its notices from inside its own work, perhaps while a command of
            // this window waits in a nested event loop: handle them from an event of their own.
            // Queued on the window, the call is dropped if the window is gone by then.
            QMetaObject::invokeMethod(
                this, [this, handler] { RunOrCancel([this, handler] { (this->*handler)(); }); },
                Qt::QueuedConnection);
        });
    }

    std::shared_ptr<rxio::IReceiver> m_receiver;
    std::shared_ptr<rxio::INotice> m_connectionLost;
    std::shared_ptr<rxio::INotice> m_receiverGone;
    // What the worker hands to the window; a child, so it goes with the window.
    CWindowMailbox* m_mailbox = new CWindowMailbox(this);
    int m_workerRun = 0; // counts StartWorker calls; what an earlier run posts is dropped
    std::jthread m_worker;
    bool m_stopsWorkerFirst = false;
};

// What a run_ entry constructs (and a sheet, for its pages): the window `Window`, whose worker is
// stopped before anything of `Window` is destroyed, so that no derived window has to remember.
template <class Window> class CPellWindow final : public Window {
public:
    template <class... Args>
    explicit CPellWindow(Args&&... args) : Window(std::forward<Args>(args)...) {
        this->m_stopsWorkerFirst = true;
    }
    ~CPellWindow() override { this->JoinWorker(); }
};
