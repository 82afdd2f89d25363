#include "host/module/class_table.h"

#include <new>

#include "effect/ruvex.h"
#include "host/base/class_ids.h"
#include "host/module/class_factory.h"

namespace ruvex {
namespace {

template <class T, class Face>
IClassFactory* makeFactory() {
    return new (std::nothrow) CDsClassFactory<T, Face>();
}

// The tool names a string that the table of strings does not have.
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
    guidFromText("183E3834-D79D-11D0-A7AE-00A0C9068107"),
    guidFromText("AE0D7C31-95AA-11D0-B685-00A024191AE0"),
    guidFromText("AE0D7C40-95AA-11D0-B685-00A024191AE0"),
    guidFromText("95F7E8A0-8B84-11D1-94A3-00A0C911C625"),
};

}  // namespace

std::span<const ServedClass> servedClasses() {
    return kClasses;
}

std::span<const GUID> servedFamilies() {
    return kFamilies;
}

}  // namespace ruvex
