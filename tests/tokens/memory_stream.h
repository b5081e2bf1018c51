// A stream for reading that takes its bytes from memory instead of a file. Its path is empty.
#pragma once

#include <string_view>

#include "orvil/tokens/stream_mem_file.h"

namespace orvil::test {

class MemoryStream : public CStreamMemFile {
public:
    explicit MemoryStream(std::string_view bytes, ETransDirection direction = eTransRead)
        : CStreamMemFile(direction, 0) {
        if (GetBuffer(static_cast<int>(bytes.size()))) {
            Rewind();
            for (const char byte : bytes) {
                AddQue(byte);  // the last byte fills the buffer, which cannot grow
            }
            Rewind();
        }
    }
    using CStreamMemFile::AddQue;
    using CStreamMemFile::GetBuffer;
    using CStreamMemFile::IncrementQue;
    using CStreamMemFile::QueryQue;
    using CStreamMemFile::ReallocBuffer;

    // The position, found by looking at how far the end lies ahead.
    int position(int size) const {
        char first = '\0';
        char second = '\0';
        int left = 0;
        while (QueryNextData(first, second, left)) {
            ++left;
        }
        return size - left;
    }
};

}  // namespace orvil::test
