/// @file
/// Which declarations the library exports, and how.
///
/// A host needs nothing from here: it includes the headers and links the import library (Windows) or the shared
/// library. Apart from the library's platform layer this is the only file that asks which platform it is compiled for.
#pragma once

/// @def ORVIL_API
/// Marks what the library exports.
#if defined(ORVIL_STATIC)
#define ORVIL_API
#elif defined(_WIN32) && defined(ORVIL_BUILDING)
#define ORVIL_API __declspec(dllexport)
#elif defined(_WIN32)
#define ORVIL_API __declspec(dllimport)
#else
#define ORVIL_API __attribute__((visibility("default")))
#endif

/// @def ORVIL_LINK_NAME
/// Behind the declaration of a function that is called as one of the C library: gives it another name for the linker,
/// so that it does not take the place of the C library's. On Windows each DLL has its own names, and nothing is needed.
#if defined(_WIN32)
#define ORVIL_LINK_NAME(name)
#else
#define ORVIL_LINK_NAME(name) __asm__(name)
#endif

/// Lets the compiler check the arguments of a function that takes a printf-style format. @p format_at and @p first_at
/// are the positions of the format and of the first argument, counted from 1 (from 2 in member functions).
#if defined(__clang__)
#define ORVIL_PRINTF(format_at, first_at) __attribute__((format(printf, format_at, first_at)))
#elif defined(__GNUC__)
#define ORVIL_PRINTF(format_at, first_at) __attribute__((format(gnu_printf, format_at, first_at)))
#else
#define ORVIL_PRINTF(format_at, first_at)
#endif
