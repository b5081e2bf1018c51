#include <climits>
#include <cstdarg>
#include <cstring>

#include "orvil/strings/ext_str_array.h"
#include "orvil/strings/ext_string.h"
#include "strings/string_access.h"

using orvil::detail::FormerBuffer;
using orvil::detail::StringAccess;

namespace {

constexpr int kLastKind = EFT_FORMATTED_POINTER;

struct Placeholder {
    int index = -1;             // of the value, from 0; -1 when there is no placeholder
    const char* end = nullptr;  // behind the closing percent sign
};

// Reads a placeholder at a percent sign. Numbers beyond an int saturate.
Placeholder placeholder_at(const char* percent) {
    const char* p = percent + 1;
    int number = 0;
    for (; *p >= '0' && *p <= '9'; ++p) {
        const int digit = *p - '0';
        number = number > (INT_MAX - digit) / 10 ? INT_MAX : number * 10 + digit;
    }
    return *p == '%' ? Placeholder{number - 1, p + 1} : Placeholder{};
}

bool append_range(CExtString& out, const char* begin, const char* end) {
    return StringAccess::append(out, begin, static_cast<int>(end - begin));
}

bool append_value(CExtString& out, const CExtStrArray& values, int index) {
    return out.ConcatString(values.GetAt(index));
}

// Appends a template with its placeholders replaced; false when there is no memory.
bool substitute(CExtString& out, const char* format, const CExtStrArray& values) {
    const char* percent = std::strchr(format, '%');
    while (percent != nullptr) {
        const Placeholder found = placeholder_at(percent);
        if (found.index >= 0) {
            if (!append_range(out, format, percent) || !append_value(out, values, found.index)) {
                return false;
            }
            format = found.end;
        } else {
            if (!append_range(out, format, percent + 1)) {
                return false;
            }
            format = percent + 1;
        }
        percent = std::strchr(format, '%');
    }
    return out.ConcatString(format);
}

// Appends a value; false when there is no memory, also when that left the element without its text.
bool add_value(CExtStrArray& values, const CExtString& value) {
    if (!values.Add(value)) {
        return false;
    }
    const char* added = values.GetAt(values.GetSize() - 1);
    return value == added;
}

// Takes the values of an argument list; false when there is no memory.
bool collect_values(CExtStrArray& values, EFT first, va_list& args) {
    CExtString value;
    for (int kind = first; kind > EFT_END && kind <= kLastKind; kind = va_arg(args, int)) {
        if (!gExtFormat_ParseParts(value, static_cast<EFT>(kind), args) || !add_value(values, value)) {
            return false;
        }
    }
    return true;
}

}  // namespace

// The present buffer goes last: the template may stand in it.
int CExtString::_ExtFormatArray(const char* format, const CExtStrArray& values) {
    const FormerBuffer former(*this);
    if (format != nullptr && !substitute(*this, format, values)) {
        Empty();
    }
    return GetLength();
}

int CExtString::ExtFormat(const char* format, const CExtStrArray& values) {
    return _ExtFormatArray(format, values);
}

int CExtString::ExtFormatV(const char* format, EFT first, va_list args) {
    va_list taken;
    va_copy(taken, args);
    CExtStrArray values;
    const bool collected = collect_values(values, first, taken);
    va_end(taken);
    if (!collected) {
        Empty();
        return 0;
    }
    return _ExtFormatArray(format, values);
}

// An enumeration as the last named argument is what the interface has; clang doubts it, yet its values pass as ints do.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wvarargs"
int CExtString::ExtFormat(const char* format, EFT first, ...) {
    va_list args;
    va_start(args, first);
    const int length = ExtFormatV(format, first, args);
    va_end(args);
    return length;
}
#pragma GCC diagnostic pop
