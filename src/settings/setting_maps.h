// The setting maps of the panels and dialogs.
#pragma once

#include "settings/setting_map.h"

namespace kalmo {

// Paper/Output and its dialogs.
extern const SettingMap JobTypeMap[], PlexMap[], SeparatorOptionMap[], TabStockSetupMap[];
inline constexpr auto& _JobTypeMap = JobTypeMap;
inline constexpr auto& _SeparatorOptionMap = SeparatorOptionMap;

// Special pages.
extern const SettingMap CoverOptionMap[], InsertOptionMap[], CoverSidesImagedMap[],
    CoverSidesSimplexImagedMap[];
inline constexpr auto& CoverSidesDuplexImagedMap = CoverSidesImagedMap;

// Image Options, Advanced, Booklet/Watermark.
extern const SettingMap ResolutionMap[], OutputOptionsMap[], EnabledDisabledMap[],
    PrintingOptimizationMap[], PageBordersMap[], BookletWatermarkBackgroundFormsMap[],
    WatermarkMap[], WatermarkOptionsMap[];
inline constexpr auto& AdvancedMirrorImageMap = EnabledDisabledMap;

// Fax.
extern const SettingMap FaxResolutionMap[], FaxSendSpeedMap[], ConfirmationSheetMap[],
    CoverSheetMap[], CoverSheetRecipientMap[], CoverSheetSenderMap[], CoverSheetImageMap[],
    FaxCoverSizeMap[];

/// The value of every row of the menu-only maps: their items are told apart by position.
inline constexpr SInt32 kMenuOnlyValue = 'Kujn';
extern const SettingMap OnOffMap[], RotateImageMap[], OPIPrescanMap[], OPISubsitutionMap[],
    PrinterEmulationMap[], BookletLayoutOrderMap[], JobNameMap[];

// Radio buttons, by position as well; every value is 0.
extern const SettingMap TabStockRadioMap[], SavedJobSaveOptionRadioMap[];
inline constexpr auto& _SavedJobSaveOptionRadioMap = SavedJobSaveOptionRadioMap;

}  // namespace kalmo
