// Registers the entry routine with the system's loader.
#include <windows.h>

#include "platform/platform.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) {
        orvil::platform::on_load();
    } else if (reason == DLL_PROCESS_DETACH) {
        orvil::platform::on_unload();
    }
    return TRUE;
}
