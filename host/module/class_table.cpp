#include "host/module/class_table.h"

#include <new>

#include "effect/ruvex.h"
#include "host/base/class_ids.h"
#include "host/module/class_factory.h"
#include "overlay/vx_t_interact.h"
#include "pages/breakup1_ppg.h"
#include "pages/breakup2_ppg.h"
#include "pages/effects_ppg.h"
#include "pages/full_crop_ppg.h"
#include "pages/guns_ppg.h"
#include "pages/help_ppg.h"
#include "pages/ruvex_ppg.h"
#include "pages/shash_ppg.h"
#include "sdk/effect/object_families.h"

namespace ruvex {
namespace {

template <class T, class Face>
IClassFactory* makeFactory() {
    return new (std::nothrow) CDsClassFactory<T, Face>();
}

// The string number of kToolClassId is not in the string table; the class has no description.
constexpr ServedClass kClasses[] = {
    {kRuvexClassId, 2, makeFactory<Ruvex, IDSImageEffect>},
    {kRuvexPageId, 4, makeFactory<RuvexPPG, IPropertyPage>},
    {kGunsPageId, 6, makeFactory<GunsPPG, IPropertyPage>},
    {kBreakup1PageId, 8, makeFactory<Breakup1PPG, IPropertyPage>},
    {kBreakup2PageId, 10, makeFactory<Breakup2PPG, IPropertyPage>},
    {kShashPageId, 12, makeFactory<ShashPPG, IPropertyPage>},
    {kEffectsPageId, 14, makeFactory<EffectsPPG, IPropertyPage>},
    {kToolClassId, 1178, makeFactory<VxTInteract, IDSInteractiveTool>},
    {kHelpPageId, 16, makeFactory<HelpPPG, IPropertyPage>},
    {kCropPageId, 4997, makeFactory<FullCropPPG, IPropertyPage>},
};

constexpr GUID kFamilies[] = {
    DSFAMILY_List,
    DSFAMILY_Filter,
    DSFAMILY_Paint,
    DSFAMILY_Filter3,
};

}  // namespace

std::span<const ServedClass> servedClasses() {
    return kClasses;
}

std::span<const GUID> servedFamilies() {
    return kFamilies;
}

}  // namespace ruvex
