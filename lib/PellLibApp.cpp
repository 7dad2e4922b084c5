#include "lib/MessagePresenter.h"
#include "lib/PellLib.h"
#include "lib/PellLibDoc.h"
#include "lib/Platform.h"
#include "resources/StringTable.h"

#include <QCoreApplication>
#include <QDir>
#include <QLocale>
#include <QTranslator>
#include <algorithm>

CPellLibApp g_PellLibApp;

namespace {

const pell::StringEntry* FindString(unsigned id) {
    const auto table = pell::StringTable();
    const auto it =
        std::lower_bound(table.begin(), table.end(), id,
                         [](const pell::StringEntry& e, unsigned v) { return e.id < v; });
    return it != table.end() && it->id == id ? &*it : nullptr;
}

QString FolderBesideLibrary(const char* folder, const QString& name, const QString& ext) {
    return QDir(pell::platform::LibraryFolder() + QLatin1Char('/') + QLatin1String(folder))
        .filePath(name + ext);
}

} // namespace

CPellLibApp::CPellLibApp() = default;

CPellLibApp::~CPellLibApp() = default;

int CPellLibApp::InitInstance() {
    if (!m_initialised) {
        m_initialised = true;
        LoadTranslation(QLocale());
    }
    m_appName = CPellLibDoc::GetShortApplicationName(true);
    return 1;
}

int CPellLibApp::ExitInstance() {
    RemoveTranslation();
    m_initialised = false;
    return 0;
}

QString CPellLibApp::LoadString(unsigned id) const {
    const auto* entry = FindString(id);
    return entry ? QString::fromUtf8(entry->source.text) : QString();
}

QString CPellLibApp::XLoadString(unsigned id) const {
    const auto* entry = FindString(id);
    if (!entry)
        return {};
    return QCoreApplication::translate(pell::kTranslationContext, entry->source.text,
                                       entry->source.idText);
}

unsigned CPellLibApp::MessageBox(QWidget* owner, const QString& text, unsigned type) const {
    return static_cast<unsigned>(pell::MessagePresenter().Show(
        owner, CPellLibDoc::GetShortApplicationName(true), text, type));
}

QString CPellLibApp::GetDataPath(const QString& name, const QString& ext) {
    return FolderBesideLibrary("DATA", name, ext);
}

QString CPellLibApp::GetHelpPath(const QString& name, const QString& ext) {
    return FolderBesideLibrary("Help", name, ext);
}

bool CPellLibApp::LoadTranslation(const QLocale& locale) {
    RemoveTranslation();
    auto translator = std::make_unique<QTranslator>();
    const QString folder = pell::platform::LibraryFolder() + QStringLiteral("/translations");
    if (!translator->load(locale, QStringLiteral("pell"), QStringLiteral("_"), folder))
        return false;
    QCoreApplication::installTranslator(translator.get());
    m_translator = std::move(translator);
    return true;
}

void CPellLibApp::RemoveTranslation() {
    if (m_translator)
        QCoreApplication::removeTranslator(m_translator.get());
    m_translator.reset();
}

CPellModuleState::CPellModuleState() {
    if (!g_PellLibApp.IsInitialised())
        g_PellLibApp.InitInstance();
}
