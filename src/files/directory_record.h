// What is behind the handle of a directory stream.
#pragma once

#include <cstdint>

#include "orvil/files/directory_stream.h"
#include "platform/platform.h"

// All blocks are the C runtime's.
struct DIR {
    std::int64_t find;                    // platform::kNoFind until the first entry has been read
    std::int16_t count;                   // the entries read so far; wraps around
    std::uint16_t state;                  // nothing is read while it is not 0
    orvil::platform::FindRecord* record;  // what the system tells of an entry
    char* working_directory;              // when the stream was opened
    char* path;                           // as it was given
    dirent* entry;                        // what the caller sees
};

namespace orvil::detail {

// Counts an entry and shows it to the caller.
void show_entry(DIR& stream, const char* name);

}  // namespace orvil::detail
