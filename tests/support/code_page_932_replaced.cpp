// The platform's two questions about lead bytes are answered here, so that the tests need no such locale. The linker
// sends the library's calls to these (--wrap).
#include "support/code_page_932.h"

namespace orvil::platform {

bool replaced_is_lead_byte(unsigned char byte) asm("__wrap__ZN5orvil8platform12is_lead_byteEh");
bool replaced_has_lead_bytes() asm("__wrap__ZN5orvil8platform14has_lead_bytesEv");

namespace {
bool code_page_is_set = false;
}

bool replaced_is_lead_byte(unsigned char byte) {
    return code_page_is_set && test::is_lead_byte_932(byte);
}

bool replaced_has_lead_bytes() {
    return code_page_is_set;
}

}  // namespace orvil::platform

namespace orvil::test {

CodePage932::CodePage932() {
    platform::code_page_is_set = true;
}

CodePage932::~CodePage932() {
    platform::code_page_is_set = false;
}

}  // namespace orvil::test
