#pragma once

#include <cstdint>

// Result codes and message-box styles in the numbering hosts of this library already know.
namespace pell {

using COLORREF = std::uint32_t; // 0x00BBGGRR

constexpr COLORREF RGB(unsigned r, unsigned g, unsigned b) {
    return r | (g << 8) | (b << 16);
}

constexpr int IDOK = 1;
constexpr int IDCANCEL = 2;
constexpr int IDABORT = 3;
constexpr int IDRETRY = 4;
constexpr int IDIGNORE = 5;
constexpr int IDYES = 6;
constexpr int IDNO = 7;
// What a wizard ended with Finish returns.
constexpr int ID_WIZFINISH = 12325;

// Buttons (low nibble) and icon (second nibble) of a message box.
constexpr unsigned MB_OK = 0x00;
constexpr unsigned MB_OKCANCEL = 0x01;
constexpr unsigned MB_YESNOCANCEL = 0x03;
constexpr unsigned MB_YESNO = 0x04;
constexpr unsigned MB_RETRYCANCEL = 0x05;
constexpr unsigned MB_ICONERROR = 0x10;
constexpr unsigned MB_ICONQUESTION = 0x20;
constexpr unsigned MB_ICONWARNING = 0x30;
constexpr unsigned MB_ICONINFORMATION = 0x40;
constexpr unsigned MB_TYPEMASK = 0x0F;
constexpr unsigned MB_ICONMASK = 0xF0;
// The second button (No of Yes/No) is the default one.
constexpr unsigned MB_DEFBUTTON2 = 0x100;

// Platform error codes carried by CWinException.
constexpr unsigned long ERROR_NOT_SUPPORTED = 50;
constexpr unsigned long ERROR_DEV_NOT_EXIST = 55;
constexpr unsigned long ERROR_INVALID_PARAMETER = 87;
constexpr unsigned long ERROR_BUSY = 170;
constexpr unsigned long ERROR_NOT_FOUND = 1168;
constexpr unsigned long ERROR_CANCELLED = 1223;
constexpr unsigned long ERROR_INTERNAL_ERROR = 1359;
constexpr unsigned long ERROR_INVALID_THREAD_ID = 1444;
constexpr unsigned long ERROR_TIMEOUT = 1460;

} // namespace pell
