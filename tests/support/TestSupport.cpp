#include "TestSupport.h"

#include "lib/SettingsStore.h"

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

ScopedPresenter::ScopedPresenter(int answer)
    : m_presenter(std::make_shared<RecordingPresenter>(answer)),
      m_previous(SetMessagePresenter(m_presenter)) {}

ScopedPresenter::~ScopedPresenter() {
    SetMessagePresenter(m_previous);
}

} // namespace pell::test
