#include "TestSupport.h"

#include "lib/Exceptions.h"
#include "lib/PellLib.h"
#include "lib/SettingsStore.h"

#include <QLocale>
#include <QSettings>
#include <QTemporaryDir>

namespace pell::test {

namespace {

QTemporaryDir& SettingsFolder() {
    static QTemporaryDir folder;
    return folder;
}

} // namespace

void IsolateSettings() {
    for (auto format : {QSettings::NativeFormat, QSettings::IniFormat})
        QSettings::setPath(format, QSettings::UserScope, SettingsFolder().path());
}

QString SettingsFile() {
    return QSettings(QSettings::NativeFormat, QSettings::UserScope,
                     QString::fromLatin1(kOrganizationName),
                     QString::fromLatin1(kApplicationKeyName))
        .fileName();
}

unsigned long ErrorCodeOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const ulm_std::CWinException& e) {
        return e.GetErrorCode();
    }
    return 0;
}

ScopedEnglish::ScopedEnglish() {
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    g_PellLibApp.LoadTranslation(QLocale::c());
}

// Back to the process's start: the system's locale, no translation installed.
ScopedEnglish::~ScopedEnglish() {
    QLocale::setDefault(QLocale::system());
    g_PellLibApp.LoadTranslation(QLocale::c());
}

ScopedPresenter::ScopedPresenter(int answer)
    : m_presenter(std::make_shared<RecordingPresenter>(answer)),
      m_previous(SetMessagePresenter(m_presenter)) {}

ScopedPresenter::~ScopedPresenter() {
    SetMessagePresenter(m_previous);
}

} // namespace pell::test
