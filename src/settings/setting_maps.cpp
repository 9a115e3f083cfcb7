#include "settings/setting_maps.h"

namespace kalmo {
namespace {

constexpr UInt32 kNoCommand = 0;
constexpr UInt8 kInstalled = 1;

}  // namespace

const SettingMap JobTypeMap[] = {
    {CFSTR("Normal"), 1},
    {CFSTR("SecurePrint"), 6},
    {CFSTR("SampleSet"), 8},
    {CFSTR("DelayedPrint"), 7},
    {CFSTR("SavedJob"), 3, kNoCommand, CFSTR("JobStorage"), kInstalled},
    {CFSTR("Fax"), 5, kNoCommand, CFSTR("FaxKey"), kInstalled},
    {},
};

const SettingMap PlexMap[] = {
    {CFSTR("Simplex"), 1},
    {CFSTR("Duplex"), 2},
    {CFSTR("DuplexShort"), 3},
    {},
};

const SettingMap OutputOptionsMap[] = {
    {CFSTR("Face Down"), 0},
    {CFSTR("Face Up"), 1},
    {},
};

const SettingMap CoverOptionMap[] = {
    {CFSTR("No Covers"), 1},
    {CFSTR("Front Cover Only"), 2},
    {CFSTR("Same Covers"), 4},
    {},
};

const SettingMap InsertOptionMap[] = {
    {CFSTR("After Page"), 1},
    {CFSTR("SpecialPageSummaryBefore1"), 2},
    {},
};

const SettingMap CoverSidesImagedMap[] = {
    {CFSTR("CoverPrinted"), 4},
    {CFSTR("CoverBlankorPreprinted"), 1},
    {},
};

const SettingMap CoverSidesSimplexImagedMap[] = {
    {CFSTR("CoverPrinted"), 2},
    {CFSTR("CoverBlankorPreprinted"), 1},
    {},
};

const SettingMap BookletWatermarkBackgroundFormsMap[] = {
    {CFSTR("None"), 1, 'BfCn'},
    {CFSTR("-"), 2},
    {CFSTR("Setup..."), 3, 'BfCs'},
    {},
};

const SettingMap PageBordersMap[] = {
    {CFSTR("No Page Borders"), 1},
    {CFSTR("Draw Page Borders"), 2},
    {},
};

const SettingMap EnabledDisabledMap[] = {
    {CFSTR("Enabled"), 1},
    {CFSTR("Disabled"), 2},
    {},
};

const SettingMap PrintingOptimizationMap[] = {
    {CFSTR("Speed"), 1},
    {CFSTR("Economy"), 2},
    {},
};

const SettingMap WatermarkOptionsMap[] = {
    {CFSTR("WatermarkBackground"), 1},
    {CFSTR("WatermarkBlend"), 2},
    {CFSTR("WatermarkForeground"), 3},
    {CFSTR("-"), -5},
    {CFSTR("WatermarkPrintOnAllPages"), 4},
    {CFSTR("WatermarmPrintOnPage1Only"), 5},  // the key is spelled so in every string table
    {},
};

const SettingMap WatermarkMap[] = {
    {CFSTR("NoWatermark"), 1},
    {CFSTR("-"), -5},
    {CFSTR("Options"), -6},
    {CFSTR("New..."), -7},
    {CFSTR("Edit..."), -8},
    {CFSTR("Delete"), -9},
    {},
};

const SettingMap CoverSheetImageMap[] = {
    {CFSTR("NoWatermark"), 1, 'KWmX'},
    {CFSTR("-"), -5},
    {CFSTR("Cover Sheet Paper Size"), -6, 'KWmO'},
    {CFSTR("New..."), -7, 'LFin'},
    {CFSTR("Edit..."), -8, 'LFie'},
    {CFSTR("Delete"), -9, 'LFid'},
    {},
};

const SettingMap FaxResolutionMap[] = {
    {CFSTR("Standard"), 1},
    {CFSTR("Fine"), 2},
    {CFSTR("Superfine"), 3},
    {},
};

const SettingMap FaxSendSpeedMap[] = {
    {CFSTR("Forced 4800 bps"), 1},
    {CFSTR("G3 (14.4 Kbps)"), 2},
    {CFSTR("Super G3 (33.6 Kbps)"), 3},
    {},
};

const SettingMap ConfirmationSheetMap[] = {
    {CFSTR("Print a Confirmation Sheet"), 1},
    {CFSTR("Do Not Print a Confirmation Sheet"), 2},
    {},
};

const SettingMap CoverSheetMap[] = {
    {CFSTR("Do Not Print a Cover Sheet"), 1},
    {CFSTR("Print a Cover Sheet..."), 2},
    {},
};

const SettingMap CoverSheetRecipientMap[] = {
    {CFSTR("Show All Recipients"), 1},
    {CFSTR("Hide Recipient's Information"), 2},
    {CFSTR("Show Custom Text"), 3},
    {},
};

const SettingMap CoverSheetSenderMap[] = {
    {CFSTR("Show Sender's Information"), 1},
    {CFSTR("Hide Sender's Information"), 2},
    {},
};

const SettingMap FaxCoverSizeMap[] = {
    {CFSTR("StockSizeLetter"), 1, 'FwmL'},
    {CFSTR("StockSizeA4"), 4, 'FwmA'},
    {},
};

const SettingMap SeparatorOptionMap[] = {
    {CFSTR("Separator Option None"), 1},
    {CFSTR("Separator Option Blank"), 2},
    {CFSTR("Separator Option Printed"), 3},
    {},
};

const SettingMap TabStockSetupMap[] = {
    {CFSTR("None"), 1},
    {CFSTR("0.5\" (8.5x11\" Template)"), 2},
    {CFSTR("12.7 mm (A4 Template)"), 3},
    {CFSTR("Custom"), 4},
    {},
};

const SettingMap ResolutionMap[] = {
    {CFSTR("600 x 600 Resolution"), 2},
    {},
};

const SettingMap OnOffMap[] = {
    {CFSTR("On"), kMenuOnlyValue},
    {CFSTR("Off"), kMenuOnlyValue},
    {},
};

const SettingMap RotateImageMap[] = {
    {CFSTR("PrinterDefault"), kMenuOnlyValue},
    {CFSTR("Off"), kMenuOnlyValue},
    {CFSTR("On"), kMenuOnlyValue},
    {},
};

const SettingMap OPIPrescanMap[] = {
    {CFSTR("PrinterDefault"), kMenuOnlyValue},
    {CFSTR("None"), kMenuOnlyValue},
    {CFSTR("Scan"), kMenuOnlyValue},
    {CFSTR("Gather"), kMenuOnlyValue},
    {},
};

// The name lacks a "t": kept as it is, panels outside know it by this spelling.
const SettingMap OPISubsitutionMap[] = {
    {CFSTR("PrinterDefault"), kMenuOnlyValue},
    {CFSTR("True"), kMenuOnlyValue},
    {CFSTR("False"), kMenuOnlyValue},
    {},
};

const SettingMap PrinterEmulationMap[] = {
    {CFSTR("PrinterDefault"), kMenuOnlyValue},
    {CFSTR("None"), kMenuOnlyValue},
    {CFSTR("Runeline 6180"), kMenuOnlyValue},
    {},
};

const SettingMap BookletLayoutOrderMap[] = {
    {CFSTR("RightToLeft"), kMenuOnlyValue},
    {CFSTR("LeftToRight"), kMenuOnlyValue},
    {},
};

const SettingMap JobNameMap[] = {
    {CFSTR("UseJobName"), kMenuOnlyValue},
    {},
};

const SettingMap TabStockRadioMap[] = {
    {CFSTR("Inches"), 0},
    {CFSTR("Millimeters"), 0},
    {},
};

const SettingMap SavedJobSaveOptionRadioMap[] = {
    {CFSTR("Save"), 0},
    {CFSTR("SavePrint"), 0},
    {},
};

}  // namespace kalmo
