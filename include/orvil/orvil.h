/// @file
/// The whole library: includes every other public header. A host may as well include only those that it uses.
#pragma once

#include "orvil/export.h"
#include "orvil/files/file_path.h"
#include "orvil/runtime/heap.h"
#include "orvil/strings/ext_format.h"
#include "orvil/strings/ext_string.h"
#include "orvil/tokens/lex_token.h"
#include "orvil/tokens/lexical_analyzer.h"
#include "orvil/tokens/stream_mem_file.h"
#include "orvil/version.h"
