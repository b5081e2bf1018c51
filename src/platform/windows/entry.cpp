// Registers the entry routine with the system's loader.
#include <windows.h>

#include "platform/platform.h"

// The C++ runtime in the DLL sets 70 KiB aside for exceptions without memory, and never gives them back by itself.
namespace __gnu_cxx {
void __freeres();
}

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) {
        orvil::platform::on_load();
    } else if (reason == DLL_PROCESS_DETACH) {
        orvil::platform::on_unload();
        __gnu_cxx::__freeres();
    }
    return TRUE;
}
