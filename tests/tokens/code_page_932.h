// Code page 932 for the length of a test: lead bytes 0x81 to 0x9F and 0xE0 to 0xFC.
#pragma once

namespace orvil::test {

class CodePage932 {
public:
    CodePage932();
    ~CodePage932();
    CodePage932(const CodePage932&) = delete;
    CodePage932& operator=(const CodePage932&) = delete;
};

}  // namespace orvil::test
