#pragma once

#include "lib/Common.h"
#include "lib/pell_export.h"
#include "rxio/PortAddr.h"
#include "rxio/Positions.h"

#include <QString>
#include <memory>

class QLocale;
class QTranslator;
class QWidget;

// The library's application object. A host creates its QApplication, then calls InitInstance()
// once; each run_ entry makes sure of it too. ExitInstance() undoes it before the host's
// QApplication goes.
class PELL_EXPORT CPellLibApp {
public:
    CPellLibApp();
    ~CPellLibApp();
    CPellLibApp(const CPellLibApp&) = delete;
    CPellLibApp& operator=(const CPellLibApp&) = delete;

    // Sets the application name to the short name and installs the translation of the user's
    // language when one is installed. Returns non-zero.
    int InitInstance();
    int ExitInstance();
    bool IsInitialised() const { return m_initialised; }

    // The name used as caption of the library's message boxes.
    const QString& GetAppName() const { return m_appName; }

    // A text of the string table by id; an unknown id gives an empty text.
    QString LoadString(unsigned id) const;
    // The same text in the user's language, when a translation is installed.
    QString XLoadString(unsigned id) const;

    // A message box captioned with the short application name; returns its ID result.
    unsigned MessageBox(QWidget* owner, const QString& text, unsigned type) const;

    // `name` + `ext` in the folder "DATA" beside the library's own file.
    static QString GetDataPath(const QString& name, const QString& ext);
    // `name` + `ext` in the folder "Help" beside the library's own file.
    static QString GetHelpPath(const QString& name, const QString& ext);

    // Installs the translation of `locale`'s language, when one is installed, in place of the
    // current one; returns whether one was found.
    bool LoadTranslation(const QLocale& locale);

    // Angle in degrees as 12°34'56.7890''N (latitude) or E/W (longitude).
    QString Coordinates2String(double degrees, bool latitude) const;
    QString Coordinates2String(const vex::POS_GEO& position) const;
    QString Coordinates2String(const vex::POS_XYZ& position) const;

private:
    void RemoveTranslation();

    bool m_initialised = false;
    QString m_appName;
    std::unique_ptr<QTranslator> m_translator;
};

PELL_EXPORT extern CPellLibApp g_PellLibApp;

// A text of the string table in the user's language.
inline QString XString(unsigned id) {
    return g_PellLibApp.XLoadString(id);
}

// What every run_ entry holds for its duration: the library initialised and its texts in use.
class PELL_EXPORT CPellModuleState {
public:
    CPellModuleState();
    CPellModuleState(const CPellModuleState&) = delete;
    CPellModuleState& operator=(const CPellModuleState&) = delete;
};

// The host calls this before it opens `port`; false means the port must not be opened.
PELL_EXPORT bool PreOpenPort(std::shared_ptr<const rxio::IPortAddr> port);
// The host calls this after it closed `port`.
PELL_EXPORT bool PostClosePort(std::shared_ptr<const rxio::IPortAddr> port);
// The host calls this once when it exits.
PELL_EXPORT void OnExitApp();
