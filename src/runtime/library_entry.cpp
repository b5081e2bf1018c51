// What happens when the library is loaded and unloaded.
#include "orvil/options/option_parser.h"
#include "orvil/runtime/heap.h"
#include "orvil/strings/regex.h"
#include "platform/platform.h"
#include "runtime/heap_state.h"

namespace orvil::platform {

// A heap that cannot be made ready now is tried again, with the fallback, at the first allocation.
void on_load() {
    debug_text("ORVIL.DLL Initialize ... \r\n");
    orv_heap_init();
}

void on_unload() {
    getopt_terminate();
    regex_cleanup();
    detail::destroy_private_heap();
    detail::trim_heap();
    debug_text("ORVIL.DLL Terminate ... \r\n");
}

}  // namespace orvil::platform
