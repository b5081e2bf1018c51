/// @file
/// The whole library: includes every other public header. A host may as well include only those that it uses.
#pragma once

#include "orvil/export.h"
#include "orvil/runtime/heap.h"
#include "orvil/version.h"
