// The working folder by a path in the code page, which the C++ library would take for Unicode on Windows.
#pragma once

namespace orvil_host {

// Makes a folder the working folder. False when it is none, or may not be entered.
bool change_folder(const char* path);

}  // namespace orvil_host
