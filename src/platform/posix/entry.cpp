// Registers the entry routine with the dynamic loader.
#include "platform/platform.h"

namespace {

[[gnu::constructor]] void loaded() {
    orvil::platform::on_load();
}

[[gnu::destructor]] void unloaded() {
    orvil::platform::on_unload();
}

}  // namespace
