// The object families under which a host lists and runs effects.

#pragma once

#include "sdk/com/guid.h"

/// The host sets the family under which it runs an effect in the DSIMAGEEFFECTINFO.

/// Filters. Normally the host runs an effect under the first of these families.
inline constexpr GUID DSFAMILY_Filter = ruvex::guidFromText("AE0D7C31-95AA-11D0-B685-00A024191AE0");
inline constexpr GUID DSFAMILY_Filter2 =
    ruvex::guidFromText("28610EB3-AECA-11D1-BFAD-0800368E7203");
inline constexpr GUID DSFAMILY_Filter3 =
    ruvex::guidFromText("95F7E8A0-8B84-11D1-94A3-00A0C911C625");
/// An effect that draws its picture without an input.
inline constexpr GUID DSFAMILY_WithoutInput =
    ruvex::guidFromText("61054A81-9662-11D0-B685-00A024191AE0");
/// The effect is blended with its input through the mask of a paint stroke.
inline constexpr GUID DSFAMILY_Paint = ruvex::guidFromText("AE0D7C40-95AA-11D0-B685-00A024191AE0");
/// An effect with two inputs.
inline constexpr GUID DSFAMILY_Transition =
    ruvex::guidFromText("61054A80-9662-11D0-B685-00A024191AE0");
/// Two families that have no name, only the number of their kind.
inline constexpr GUID DSFAMILY_Kind2 = ruvex::guidFromText("AE0D7C33-95AA-11D0-B685-00A024191AE0");
inline constexpr GUID DSFAMILY_Kind7 = ruvex::guidFromText("AE0D7C34-95AA-11D0-B685-00A024191AE0");
/// The family for the list of effects; no effect is run under it.
inline constexpr GUID DSFAMILY_List = ruvex::guidFromText("183E3834-D79D-11D0-A7AE-00A0C9068107");
