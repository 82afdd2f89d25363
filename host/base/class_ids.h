// The class identifiers that the module registers. The effect's own and its tool's are in
// sdk/effect, for hosts.

#pragma once

#include "sdk/com/guid.h"
#include "sdk/effect/ruvex_class_id.h"

namespace ruvex {

inline constexpr GUID kRuvexPageId = guidFromText("FF17B06D-625E-467E-8781-A656F61FC4DF");
inline constexpr GUID kGunsPageId = guidFromText("5D00DB8B-608B-403D-A53D-0A9FEF753796");
inline constexpr GUID kBreakup1PageId = guidFromText("82E8CBFA-9E51-4920-A471-A4F5249EA3B0");
inline constexpr GUID kBreakup2PageId = guidFromText("28D08FB3-1C11-4943-800B-C1648AC0F5A3");
inline constexpr GUID kShashPageId = guidFromText("A58AD5AB-4CD7-4929-8E39-3212821AABA6");
inline constexpr GUID kEffectsPageId = guidFromText("D69C227D-225A-48B8-998B-9AC1F8E2154E");
inline constexpr GUID kHelpPageId = guidFromText("633BF221-759B-4B4A-B863-64706872769D");
/// The crop page is shared with other effects of the family, so its identifier looks different.
inline constexpr GUID kCropPageId = guidFromText("D9885DBA-EAB5-4D09-ADFE-A35A1E0693C3");

/// QueryInterface of an effect of this family with this identifier, or with its class identifier,
/// gives its `VxDsEffect`.
inline constexpr GUID kVxDsEffectId = guidFromText("53A973D2-298B-11D3-AB9A-0000E8D8077F");

}  // namespace ruvex
