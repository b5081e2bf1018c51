#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "orvil/strings/ext_string.h"
#include "runtime/buffer_statistics.h"
#include "strings/string_access.h"

using orvil::detail::StringAccess;

namespace {

// Most texts fit, and are formatted once.
constexpr std::size_t kLocalBytes = 512;

// How a formatted kind is told from the plain kind of the same value.
constexpr int kFormattedKinds = 10;

// What the plain kinds are formatted with.
const char* plain_format(int kind) {
    switch (kind) {
        case EFT_CHAR:
        case EFT_UCHAR:
            return "%c";
        case EFT_SHORT:
            return "%d";
        case EFT_USHORT:
            return "%u";
        case EFT_LONG:
            return "%ld";
        case EFT_ULONG:
            return "%lu";
        case EFT_FLOAT_BITS:
            return "%f";
        case EFT_DOUBLE:
            return "%lf";
        case EFT_TEXT:
            return "%s";
        default:
            return "%p";
    }
}

// A float travels as its four bytes in an integer's slot.
double float_of_bits(std::uint32_t bits) {
    float value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return static_cast<double>(value);
}

// A null format gives an empty text. Everything else leaves a buffer, unless there is no memory.
template <typename Value>
bool format_one(CExtString& out, const char* format, Value value) {
    out.Format(format, value);
    return format == nullptr || StringAccess::bytes(out) != nullptr;
}

bool format_text(CExtString& out, const char* format, const char* value) {
    return value == nullptr || format_one(out, format, value);
}

// Takes one value of a plain kind and formats it. Small types travel widened and are narrowed again.
bool format_value(CExtString& out, int kind, const char* format, va_list& args) {
    switch (kind) {
        case EFT_CHAR:
            return format_one(out, format, static_cast<char>(va_arg(args, int)));
        case EFT_UCHAR:
            return format_one(out, format, static_cast<unsigned char>(va_arg(args, int)));
        case EFT_SHORT:
            return format_one(out, format, static_cast<short>(va_arg(args, int)));
        case EFT_USHORT:
            return format_one(out, format, static_cast<unsigned short>(va_arg(args, int)));
        case EFT_LONG:
            return format_one(out, format, long{static_cast<std::int32_t>(va_arg(args, long))});
        case EFT_ULONG:
            return format_one(out, format,
                              static_cast<unsigned long>(static_cast<std::uint32_t>(va_arg(args, unsigned long))));
        case EFT_FLOAT_BITS:
            return format_one(out, format, float_of_bits(va_arg(args, unsigned)));
        case EFT_DOUBLE:
            return format_one(out, format, va_arg(args, double));
        case EFT_TEXT:
            return format_text(out, format, va_arg(args, const char*));
        default:
            return format_one(out, format, va_arg(args, const void*));
    }
}

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

// The present buffer goes last: the format or the value may stand in it.
bool gExtFormat_ParseParts(CExtString& out, EFT kind, va_list& args) {
    const orvil::detail::FormerBuffer former(out);
    if (kind <= EFT_END || kind > EFT_FORMATTED_POINTER) {
        return false;
    }
    if (kind <= EFT_POINTER) {
        return format_value(out, kind, plain_format(kind), args);
    }
    const char* format = va_arg(args, const char*);
    return format_value(out, kind - kFormattedKinds, format, args);
}
