#pragma once

#include "lib/MessagePresenter.h"
#include "lib/Tick.h"

#include <QString>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace pell::test {

// Points QSettings at a fresh temporary folder for the whole process.
void IsolateSettings();
// The file that holds the library's settings in the isolated location.
QString SettingsFile();

// The code of the ulm_std::CWinException that `action` throws; 0 when it throws none.
unsigned long ErrorCodeOf(const std::function<void()>& action);

// The library's texts untranslated and dates in US English for the lifetime of the object, for a
// test that checks English texts: the tests run under a German locale.
class ScopedEnglish {
public:
    ScopedEnglish();
    ~ScopedEnglish();
    ScopedEnglish(const ScopedEnglish&) = delete;
    ScopedEnglish& operator=(const ScopedEnglish&) = delete;
};

// Records every message box instead of showing it, answering with a preset result.
class RecordingPresenter final : public IMessagePresenter {
public:
    struct Box {
        QWidget* owner;
        QString caption;
        QString text;
        unsigned style;
    };

    explicit RecordingPresenter(int answer = 1) : m_answer(answer) {}
    int Show(QWidget* owner, const QString& caption, const QString& text, unsigned style) override {
        m_boxes.push_back({owner, caption, text, style});
        return m_answer;
    }
    const std::vector<Box>& Boxes() const { return m_boxes; }

private:
    int m_answer;
    std::vector<Box> m_boxes;
};

// Installs a RecordingPresenter for the lifetime of the object.
class ScopedPresenter {
public:
    explicit ScopedPresenter(int answer = 1);
    ~ScopedPresenter();
    ScopedPresenter(const ScopedPresenter&) = delete;
    ScopedPresenter& operator=(const ScopedPresenter&) = delete;
    const std::vector<RecordingPresenter::Box>& Boxes() const { return m_presenter->Boxes(); }

private:
    std::shared_ptr<RecordingPresenter> m_presenter;
    std::shared_ptr<IMessagePresenter> m_previous;
};

// Replaces the library's tick count with one the test sets, for the lifetime of the object.
class ScopedTick {
public:
    explicit ScopedTick(std::uint32_t now = 0)
        : m_source(std::make_shared<Source>()), m_previous(pell::SetTickSource(m_source)) {
        m_source->now = now;
    }
    ~ScopedTick() { pell::SetTickSource(m_previous); }
    ScopedTick(const ScopedTick&) = delete;
    ScopedTick& operator=(const ScopedTick&) = delete;
    void Set(std::uint32_t now) { m_source->now = now; }
    void Advance(std::uint32_t ms) { m_source->now += ms; }
    // Every reading of the tick moves it on by `ms`, so waits on the tick end quickly.
    void Step(std::uint32_t ms) { m_source->step = ms; }

private:
    struct Source final : ITickSource {
        std::uint32_t Now() override { return now += step; }
        std::uint32_t now = 0;
        std::uint32_t step = 0;
    };
    std::shared_ptr<Source> m_source;
    std::shared_ptr<ITickSource> m_previous;
};

} // namespace pell::test
