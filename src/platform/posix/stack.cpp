#include <pthread.h>

#include <cstdint>

#include "platform/platform.h"

namespace orvil::platform {
namespace {

// The lowest address of the calling thread's stack; null when it cannot be found out.
const void* stack_bottom() {
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0) {
        return nullptr;
    }
    void* bottom = nullptr;
    std::size_t size = 0;
    const int error = pthread_attr_getstack(&attributes, &bottom, &size);
    pthread_attr_destroy(&attributes);
    return error == 0 ? bottom : nullptr;
}

}  // namespace

std::size_t stack_room() {
    thread_local const void* const bottom = stack_bottom();
    const auto here = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
    const auto end = reinterpret_cast<std::uintptr_t>(bottom);
    return bottom != nullptr && end < here ? here - end : 0;
}

}  // namespace orvil::platform
