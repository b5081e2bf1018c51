/// @file
/// The library's version. The build reads it from here for the package files and for the DLL's version resource.
#pragma once

/// Grows when a host has to be changed.
#define ORVIL_VERSION_MAJOR 0
/// Grows when something is added; while the major version is 0, also when a host has to be changed.
#define ORVIL_VERSION_MINOR 1
/// Grows when only faults are mended.
#define ORVIL_VERSION_PATCH 0
