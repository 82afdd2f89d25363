#include "pages/full_crop_ppg.h"

#include "host/base/class_ids.h"
#include "pages/resources/resource_ids.h"

namespace ruvex {
namespace {

using Id = ParameterId;
using P = FullCropPPG;
using Group = VxPPGColourGroup;

constexpr UINT kColourTip = 5021;

const PageEntry kEntries[] = {
    control<P, &P::cropLeft>(Id::CropLeft, IDC_CROP_LEFT),
    control<P, &P::cropRight>(Id::CropRight, IDC_CROP_RIGHT),
    control<P, &P::cropBottom>(Id::CropBottom, IDC_CROP_BOTTOM),
    control<P, &P::cropTop>(Id::CropTop, IDC_CROP_TOP),
    control<P, &P::xEdgeMethod>(Id::XEdgeMethod, IDC_X_EDGE_METHOD),
    control<P, &P::yEdgeMethod>(Id::YEdgeMethod, IDC_Y_EDGE_METHOD),
    command(IDC_CROP_CHIP, notifyOf(&P::OnChipChanged), kColourTip),
    control<P, &P::colour, &Group::red>(Id::CropColourR, IDC_CROP_RED,
                                        notifyOf(&P::OnColourNumberChanged)),
    control<P, &P::colour, &Group::green>(Id::CropColourG, IDC_CROP_GREEN,
                                          notifyOf(&P::OnColourNumberChanged)),
    control<P, &P::colour, &Group::blue>(Id::CropColourB, IDC_CROP_BLUE,
                                         notifyOf(&P::OnColourNumberChanged)),
    control<P, &P::colour, &Group::alpha>(Id::CropColourA, IDC_CROP_ALPHA,
                                          notifyOf(&P::OnColourNumberChanged)),
    checkBox<P, &P::displayCropped>(Id::DisplayCropped, IDC_DISPLAY_CROPPED),
    control<P, &P::blankCropped>(Id::BlankCropped, IDC_BLANK_CROPPED),
    command(IDC_CROPPING_RESET, notifyOf(&P::OnResetPage), 5035),
};

}  // namespace

FullCropPPG::FullCropPPG() : VxDsPPG(IDD_CROPPING, 4996, "crop") {
    fillRecords(kEntries);
    colour.page = this;
    colour.controlId = IDC_CROP_CHIP;
    colour.labelId = IDC_CROP_GROUP;
    colour.flags = Group::kHasAlpha;
}

const CDSPPGControlMap* FullCropPPG::GetControlMap() {
    static PageControlMap map(kEntries, EntryFlags::Shared);
    return map.initialized();
}

HRESULT FullCropPPG::OnInitDialog() {
    prepareControls();
    linkEffect(kVxDsEffectId);
    return S_OK;
}

void FullCropPPG::OnChipChanged() {
    colour.UpdateValuesFromChip();
}

void FullCropPPG::OnColourNumberChanged() {
    colour.UpdateChipFromValues();
}

void FullCropPPG::OnResetPage() {
    resetPage(ParameterPage::Cropping);
}

void FullCropPPG::reactToNotification() {
    float rgba[4];
    if (colour.NotificationUpdates(rgba)) colour.ShowInChip(rgba);
}

}  // namespace ruvex
