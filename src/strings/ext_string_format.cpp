#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "orvil/strings/ext_string.h"
#include "runtime/buffer_statistics.h"

namespace {

// Most texts fit, and are formatted once.
constexpr std::size_t kLocalBytes = 512;

}  // namespace

// The fresh buffer is filled before the present one goes: the arguments may stand in it. In the books the present one
// goes first. A failed format leaves an empty buffer of capacity 8 and the length -1.
int CExtString::FormatV(const char* format, va_list args) {
    if (format == nullptr) {
        Empty();
        return 0;
    }
    char local[kLocalBytes];
    va_list measuring;
    va_copy(measuring, args);
    const int length = std::vsnprintf(local, sizeof local, format, measuring);
    va_end(measuring);

    const int capacity = CalcNewBufferSize(length, -1);
    char* fresh = AllocBuffer(capacity);
    if (fresh != nullptr && length >= 0) {
        if (static_cast<std::size_t>(length) < sizeof local) {
            std::memcpy(fresh, local, static_cast<std::size_t>(length));
        } else {
            std::vsnprintf(fresh, static_cast<std::size_t>(capacity), format, args);
        }
    }
    Empty();
    if (fresh == nullptr) {
        return 0;
    }
    orvil::detail::book_buffer(capacity);
    Install(fresh, length, capacity);
    return length;
}

int CExtString::Format(const char* format, ...) {
    va_list args;
    va_start(args, format);
    const int length = FormatV(format, args);
    va_end(args);
    return length;
}
