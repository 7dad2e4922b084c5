#pragma once

#include "lib/pell_export.h"

class QLineEdit;

// Masks a password field and puts an eye at its end: a click shows the password, another hides
// it again, so a password is read on purpose, never by a glance over the user's shoulder.
PELL_EXPORT void MaskPassword(QLineEdit* edit);
