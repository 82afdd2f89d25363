// Where the compiled resources lie in the module. The loader finds both names in it, and hands
// them to whoever reads the module's resources.

#pragma once

extern "C" {
/// The first byte of the compiled resource file, and the one behind its last.
extern const unsigned char ruvexResourcesBegin[];
extern const unsigned char ruvexResourcesEnd[];
}
