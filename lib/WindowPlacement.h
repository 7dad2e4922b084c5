#pragma once

class QWidget;

namespace pell {

// Where each window class of the library last closed, kept below the settings' "WindowPlacement"
// key as one text value per class name: "x,y,width,height,maximized" (client area, pixels).
void RestoreWindowPlacement(QWidget& window);
void SaveWindowPlacement(const QWidget& window);

} // namespace pell
