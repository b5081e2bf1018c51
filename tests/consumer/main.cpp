// Uses the library through nothing but its installed headers; the exit code is 0 when it works.
#include <orvil/orvil.h>

#include <cstring>

int main() {
    char* copy = static_cast<char*>(orv_heap_alloc(6));
    if (copy == nullptr) {
        return 1;
    }
    std::memcpy(copy, "hello", 6);
    const bool equal = st_ImpFunc_strcasecmp(copy, "HELLO") == 0;
    orv_heap_free(copy);
    return equal && orv_heap_gettype() != 0 ? 0 : 1;
}
