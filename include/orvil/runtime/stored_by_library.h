/// @file
/// Where objects come from that the library makes by the thousand. Hosts include the headers of such objects.
#pragma once

#include <cstddef>
#include <new>

#include "orvil/export.h"

namespace orvil::detail {

/// Objects of classes that derive from this, made by `new`, come from the library's memory for many small objects,
/// whichever module asks. Without memory `new` yields null, also in its plain form. Arrays are not concerned. As with
/// all of the library's memory, one thread at a time.
class ORVIL_API StoredByLibrary {
public:
    /// @return memory for one object, or null
    static void* operator new(std::size_t size) noexcept;
    /// As above.
    static void* operator new(std::size_t size, const std::nothrow_t&) noexcept;
    /// @return @p place
    static void* operator new(std::size_t, void* place) noexcept { return place; }
    /// Takes the memory of an object of @p size bytes back; null is ignored.
    static void operator delete(void* block, std::size_t size) noexcept;
    /// Takes the memory back of an object whose constructor has thrown.
    static void operator delete(void* block, const std::nothrow_t&) noexcept;
    /// Nothing to take back.
    static void operator delete(void*, void*) noexcept {}
};

}  // namespace orvil::detail
