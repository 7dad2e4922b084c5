#include "lib/Translator.h"

#include <QCoreApplication>

namespace ulm_std {

CTranslatorInstance& CTranslatorInstance::Ref() {
    static CTranslatorInstance instance;
    return instance;
}

QString CTranslatorInstance::XlateEx(const QString& text) const {
    return QCoreApplication::translate(kContext, text.toUtf8().constData());
}

} // namespace ulm_std
