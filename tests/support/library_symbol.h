// What the loaded shared library exports.
#pragma once

namespace orvil::test {

/// The address of an exported function or object, by its name as the linker writes it; null when there is none. The
/// program must be linked with the library, so that it is loaded.
const void* library_symbol(const char* name);

}  // namespace orvil::test
