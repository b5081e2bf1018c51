#include <windows.h>

#include "platform/platform.h"

namespace orvil::platform {

std::size_t stack_room() {
    ULONG_PTR bottom = 0;
    ULONG_PTR top = 0;
    GetCurrentThreadStackLimits(&bottom, &top);
    const auto here = reinterpret_cast<ULONG_PTR>(__builtin_frame_address(0));
    return bottom < here ? here - bottom : 0;
}

}  // namespace orvil::platform
