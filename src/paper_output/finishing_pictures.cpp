#include <algorithm>
#include <iterator>

#include "paper_output/finishing.h"

namespace kalmo {
namespace {

struct PictureRow {
    SInt32 value;
    const char* picture;
};
constexpr PictureRow kStaplePictures[] = {{5, "OfficeFinishing_1St.gif"},
                                          {6, "OfficeFinishing_1St.gif"},
                                          {10, "OfficeFinishing_2St.gif"},
                                          {12, "OfficeFinishing_2St.gif"},
                                          {54, "OfficeFinishing_4St.gif"}};
constexpr PictureRow kPunchPictures[] = {{2, "OfficeFinishing_3Hp.gif"},
                                         {3, "OfficeFinishing_2Hp.gif"},
                                         {4, "OfficeFinishing_3Hp.gif"},
                                         {5, "OfficeFinishing_4Hp.gif"}};
constexpr PictureRow kFoldPictures[] = {
    {kFoldC, "OfficeFinishing_CFold.gif"},
    {kFoldZ, "OfficeFinishing_ZFold.gif"},
    {kFoldZHalfSheet, "ProductionFinishing_ZFold_Half_Left.gif"},
    {kFoldBi, "OfficeFinishing_Bklt_Fold.gif"},
    {kFoldBiStaple, "OfficeFinishing_BKlt_Fold&Stple.gif"}};
constexpr PictureRow kBookletFoldPictures[] = {
    {kFoldBi, "OfficeFinishing_Bklt_Fold_Layout.gif"},
    {kFoldBiStaple, "OfficeFinishing_Bklt_Fold&Stpl_Layout.gif"}};

template <std::size_t Count>
const char* PictureOf(const PictureRow (&rows)[Count], SInt32 value) {
    const auto* const row = std::ranges::find(rows, value, &PictureRow::value);
    return row == std::end(rows) ? nullptr : row->picture;
}

const char* FoldPicture(SInt32 fold, bool bookletLayout) {
    const char* picture = bookletLayout ? PictureOf(kBookletFoldPictures, fold) : nullptr;
    return picture ? picture : PictureOf(kFoldPictures, fold);
}

/// "OfficeFinishing_1St&2Hp.gif": the staples' picture up to its ending, then the holes.
std::string StapleAndPunchPicture(const std::string& staple, const std::string& punch) {
    return staple.substr(0, staple.rfind('.')) + "&" + punch.substr(punch.find('_') + 1);
}

}  // namespace

const char* StaplePicture(SInt32 staple) { return PictureOf(kStaplePictures, staple); }

const char* PunchPicture(SInt32 punch) { return PictureOf(kPunchPictures, punch); }

std::string FinishingPicture(const Finishing& finishing, bool bookletLayout) {
    if (const char* fold = FoldPicture(finishing.fold, bookletLayout)) return fold;
    const char* staple = StaplePicture(StapleLocation(finishing));
    const char* punch = PunchPicture(finishing.punch);
    if (staple && punch) return StapleAndPunchPicture(staple, punch);
    if (staple || punch) return staple ? staple : punch;
    return bookletLayout ? "OfficeFinishing_Bklt_Layout.gif" : "OfficeFinishing_None.gif";
}

}  // namespace kalmo
