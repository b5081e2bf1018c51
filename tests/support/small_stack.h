// Runs a function where the stack is no larger than a program's main stack on Windows, 1 MiB.
#pragma once

#include <functional>

#if !defined(_WIN32)
#include <pthread.h>
#endif

namespace orvil::test {

inline void run_on_small_stack(std::function<void()> work) {
#if defined(_WIN32)
    work();
#else
    pthread_attr_t attributes;
    pthread_t thread;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, 1024 * 1024);
    const auto run = [](void* function) -> void* {
        (*static_cast<std::function<void()>*>(function))();
        return nullptr;
    };
    if (pthread_create(&thread, &attributes, run, &work) == 0) {
        pthread_join(thread, nullptr);
    }
    pthread_attr_destroy(&attributes);
#endif
}

}  // namespace orvil::test
