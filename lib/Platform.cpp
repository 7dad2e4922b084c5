// The one place that asks the operating system directly.
#include "lib/Platform.h"

#include <QDir>
#include <QFileInfo>

#ifdef _WIN32
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace pell::platform {

QString LibraryFolder() {
    static const int anchor = 0; // any object of this library locates its file
#ifdef _WIN32
    HMODULE module = nullptr;
    wchar_t path[MAX_PATH] = {};
    if (GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                               GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                           reinterpret_cast<LPCWSTR>(&anchor), &module) &&
        GetModuleFileNameW(module, path, MAX_PATH) > 0)
        return QFileInfo(QString::fromWCharArray(path)).absolutePath();
#else
    Dl_info info{};
    if (dladdr(&anchor, &info) != 0 && info.dli_fname != nullptr)
        return QFileInfo(QFile::decodeName(info.dli_fname)).absolutePath();
#endif
    return QDir::currentPath();
}

} // namespace pell::platform
