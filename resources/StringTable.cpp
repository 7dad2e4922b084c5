#include "StringTable.h"

#include <QtGlobal>

// The library's texts. lupdate reads this file to make the translation catalog; keep each entry's
// context "PellLib" and its id as the third argument.
namespace pell {
namespace {

constexpr StringEntry kEntries[] = {
    {1, QT_TRANSLATE_NOOP3("PellLib", "Version 3.5, build %ls", "1")},
    {3169, QT_TRANSLATE_NOOP3("PellLib", "N", "3169")},
    {3170, QT_TRANSLATE_NOOP3("PellLib", "S", "3170")},
    {3171, QT_TRANSLATE_NOOP3("PellLib", "E", "3171")},
    {3172, QT_TRANSLATE_NOOP3("PellLib", "W", "3172")},
    {3214,
     QT_TRANSLATE_NOOP3("PellLib",
                        "You are connecting to the unpowered receiver. Please use the Setup dialog "
                        "(Device -> Halvard Tools, Receiver tab) to turn power on manually, or "
                        "allow Dorrit to change power state of the receiver.",
                        "3214")},
    {3220, QT_TRANSLATE_NOOP3("PellLib", "m", "3220")},
    {3247, QT_TRANSLATE_NOOP3("PellLib",
                              "You are connecting to the unpowered modem. Please use the Setup "
                              "dialog (Device -> Halvard Tools, Modem tab) to turn power on "
                              "manually, or allow Dorrit to change power state of the modem.",
                              "3247")},
    {3365, QT_TRANSLATE_NOOP3("PellLib", "Bluetooth disconnected", "3365")},
    {3370, QT_TRANSLATE_NOOP3("PellLib", "Wrong name", "3370")},
    {3439, QT_TRANSLATE_NOOP3("PellLib", "Fennickware", "3439")},
    {3464,
     QT_TRANSLATE_NOOP3("PellLib",
                        "You are connecting to the unpowered receiver. Please use the Setup dialog "
                        "(Device -> Backpack Tools, Receiver tab) to turn power on manually, or "
                        "allow Dorrit to change power state of the receiver.",
                        "3464")},
    {57344, QT_TRANSLATE_NOOP3("PellLib", "Dorrit", "57344")},
    {61000, QT_TRANSLATE_NOOP3("PellLib", "%1 failed: %2 (error %3).", "61000")},
    {61001, QT_TRANSLATE_NOOP3("PellLib", "Source: %1, line %2", "61001")},
    {61002, QT_TRANSLATE_NOOP3("PellLib", "Source: %1", "61002")},
    {61003, QT_TRANSLATE_NOOP3("PellLib", "The command \"%1\" failed.", "61003")},
    {61004, QT_TRANSLATE_NOOP3("PellLib", "%1 replied: %2", "61004")},
    {61005, QT_TRANSLATE_NOOP3("PellLib", "Unknown system error.", "61005")},
    {61010, QT_TRANSLATE_NOOP3("PellLib", "The request is not supported.", "61010")},
    {61011, QT_TRANSLATE_NOOP3("PellLib", "The device is not present.", "61011")},
    {61012, QT_TRANSLATE_NOOP3("PellLib", "The parameter is incorrect.", "61012")},
    {61013, QT_TRANSLATE_NOOP3("PellLib", "Element not found.", "61013")},
    {61014, QT_TRANSLATE_NOOP3("PellLib", "The operation was cancelled by the user.", "61014")},
    {61015, QT_TRANSLATE_NOOP3("PellLib", "An internal error occurred.", "61015")},
    {61016, QT_TRANSLATE_NOOP3("PellLib", "The operation timed out.", "61016")},
    {61020, QT_TRANSLATE_NOOP3("PellLib", "Switching the power of the %1", "61020")},
    {61021, QT_TRANSLATE_NOOP3("PellLib", "internal receiver", "61021")},
    {61022, QT_TRANSLATE_NOOP3("PellLib", "internal modem", "61022")},
    {61023,
     QT_TRANSLATE_NOOP3("PellLib", "The receiver is still busy with another command.", "61023")},
    {61024,
     QT_TRANSLATE_NOOP3("PellLib", "The receiver can only be used from the thread of its window.",
                        "61024")},
    {61100, QT_TRANSLATE_NOOP3("PellLib", "Sending text with a control character to %1", "61100")},
    {61101, QT_TRANSLATE_NOOP3("PellLib", "Building the receiver command for %1", "61101")},
    {61102, QT_TRANSLATE_NOOP3("PellLib", "Restoring the receiver settings under %1", "61102")},
    {61150, QT_TRANSLATE_NOOP3("PellLib", "OK", "61150")},
    {61151, QT_TRANSLATE_NOOP3("PellLib", "Cancel", "61151")},
    {61152, QT_TRANSLATE_NOOP3("PellLib", "&Apply", "61152")},
    {61153, QT_TRANSLATE_NOOP3("PellLib", "< &Back", "61153")},
    {61154, QT_TRANSLATE_NOOP3("PellLib", "&Next >", "61154")},
    {61155, QT_TRANSLATE_NOOP3("PellLib", "&Finish", "61155")},
    {61200, QT_TRANSLATE_NOOP3("PellLib", "PRN", "61200")},
    {61201, QT_TRANSLATE_NOOP3("PellLib", "SN", "61201")},
    {61202, QT_TRANSLATE_NOOP3("PellLib", "EL", "61202")},
    {61203, QT_TRANSLATE_NOOP3("PellLib", "AZ", "61203")},
    {61204, QT_TRANSLATE_NOOP3("PellLib", "C/A", "61204")},
    {61205, QT_TRANSLATE_NOOP3("PellLib", "L2C", "61205")},
    {61206, QT_TRANSLATE_NOOP3("PellLib", "L1P", "61206")},
    {61207, QT_TRANSLATE_NOOP3("PellLib", "L2P", "61207")},
    {61208, QT_TRANSLATE_NOOP3("PellLib", "L5", "61208")},
    {61209, QT_TRANSLATE_NOOP3("PellLib", "L2CA", "61209")},
    {61210, QT_TRANSLATE_NOOP3("PellLib", "L3", "61210")},
    {61211, QT_TRANSLATE_NOOP3("PellLib", "E1", "61211")},
    {61212, QT_TRANSLATE_NOOP3("PellLib", "E5a", "61212")},
    {61213, QT_TRANSLATE_NOOP3("PellLib", "E5b", "61213")},
    {61214, QT_TRANSLATE_NOOP3("PellLib", "E5ab", "61214")},
    {61215, QT_TRANSLATE_NOOP3("PellLib", "E6", "61215")},
    {61216, QT_TRANSLATE_NOOP3("PellLib", "B1", "61216")},
    {61217, QT_TRANSLATE_NOOP3("PellLib", "B1C", "61217")},
    {61218, QT_TRANSLATE_NOOP3("PellLib", "B2b", "61218")},
    {61219, QT_TRANSLATE_NOOP3("PellLib", "B2a", "61219")},
    {61220, QT_TRANSLATE_NOOP3("PellLib", "B3", "61220")},
    {61221, QT_TRANSLATE_NOOP3("PellLib", "L1C", "61221")},
    {61222, QT_TRANSLATE_NOOP3("PellLib", "LEX", "61222")},
    {61223, QT_TRANSLATE_NOOP3("PellLib", "L5A", "61223")},
    {61224, QT_TRANSLATE_NOOP3("PellLib", "TC", "61224")},
    {61225, QT_TRANSLATE_NOOP3("PellLib", "SS", "61225")},
    {61226, QT_TRANSLATE_NOOP3("PellLib", "FCN", "61226")},
    {61230, QT_TRANSLATE_NOOP3("PellLib", "Unused", "61230")},
    {61231, QT_TRANSLATE_NOOP3("PellLib", "GPS", "61231")},
    {61232, QT_TRANSLATE_NOOP3("PellLib", "GLONASS", "61232")},
    {61233, QT_TRANSLATE_NOOP3("PellLib", "Galileo", "61233")},
    {61234, QT_TRANSLATE_NOOP3("PellLib", "BeiDou", "61234")},
    {61235, QT_TRANSLATE_NOOP3("PellLib", "SBAS", "61235")},
    {61236, QT_TRANSLATE_NOOP3("PellLib", "SAIF", "61236")},
    {61237, QT_TRANSLATE_NOOP3("PellLib", "QZSS", "61237")},
    {61238, QT_TRANSLATE_NOOP3("PellLib", "IRNSS", "61238")},
    {61239, QT_TRANSLATE_NOOP3("PellLib", "Reserved", "61239")},
    {61240, QT_TRANSLATE_NOOP3("PellLib", "GLO", "61240")},
    {61241, QT_TRANSLATE_NOOP3("PellLib", "GAL", "61241")},
    {61242, QT_TRANSLATE_NOOP3("PellLib", "BDS", "61242")},
};

} // namespace

std::span<const StringEntry> StringTable() {
    return kEntries;
}

} // namespace pell
