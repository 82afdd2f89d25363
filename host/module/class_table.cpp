#include "host/module/class_table.h"

#include <new>

#include "effect/ruvex.h"
#include "host/module/class_factory.h"

namespace ruvex {
namespace {

template <class T, class Face>
IClassFactory* makeFactory() {
    return new (std::nothrow) CDsClassFactory<T, Face>();
}

constexpr ServedClass kClasses[] = {
    {kRuvexClassId, 2, makeFactory<Ruvex, IDSImageEffect>},
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
