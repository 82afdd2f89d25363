#include "host/module/class_table.h"

#include <new>

#include "effect/ruvex.h"
#include "host/base/class_ids.h"
#include "host/module/class_factory.h"
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
    {kRuvexPageId, 4, nullptr},
    {kGunsPageId, 6, nullptr},
    {kBreakup1PageId, 8, nullptr},
    {kBreakup2PageId, 10, nullptr},
    {kShashPageId, 12, nullptr},
    {kEffectsPageId, 14, nullptr},
    {kToolClassId, 1178, nullptr},
    {kHelpPageId, 16, nullptr},
    {kCropPageId, 4997, nullptr},
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
