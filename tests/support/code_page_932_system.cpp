// The system's own code page 932.
#include <gtest/gtest.h>

#include <clocale>

#include "support/code_page_932.h"

namespace orvil::test {

CodePage932::CodePage932() {
    EXPECT_NE(std::setlocale(LC_CTYPE, "Japanese_Japan.932"), nullptr);
}

CodePage932::~CodePage932() {
    std::setlocale(LC_CTYPE, "C");
}

}  // namespace orvil::test
