// The one thing that the C++ library does differently from system to system: renaming onto a file that exists.
#pragma once

namespace orvil_host {

// Gives `source` the name `target`, in the place of a file that may bear it already. Both stand in one folder.
bool replace_file(const char* source, const char* target);

}  // namespace orvil_host
