// Code page 932, in which a character may have two bytes.
#pragma once

namespace orvil::test {

inline bool is_lead_byte_932(unsigned char byte) {
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

// Sets the code page for the length of a test.
class CodePage932 {
public:
    CodePage932();
    ~CodePage932();
    CodePage932(const CodePage932&) = delete;
    CodePage932& operator=(const CodePage932&) = delete;
};

}  // namespace orvil::test
