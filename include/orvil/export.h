/// @file
/// Which declarations the library exports, and how.
///
/// A host needs nothing from here: it includes the headers and links the import library (Windows) or the shared
/// library. Apart from the library's platform layer this is the only file that asks which platform it is compiled for.
#pragma once

#if defined(ORVIL_STATIC)
#define ORVIL_API
#elif defined(_WIN32) && defined(ORVIL_BUILDING)
#define ORVIL_API __declspec(dllexport)
#elif defined(_WIN32)
#define ORVIL_API __declspec(dllimport)
#else
#define ORVIL_API __attribute__((visibility("default")))
#endif

/// Lets the compiler check the arguments of a function that takes a printf-style format. @p format and @p first are the
/// positions of the format and of the first argument, counted from 1 (from 2 in member functions).
#if defined(__GNUC__)
#define ORVIL_PRINTF(format, first) __attribute__((format(gnu_printf, format, first)))
#else
#define ORVIL_PRINTF(format, first)
#endif
