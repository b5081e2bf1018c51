// The heading that the library puts on every file it writes: a line with the file's name, and a boxed comment.
//
//     // settings.cfg :
//     /****************/
//     /*  two lines   */
//     /*  of text     */
//     /****************/
//
// And the comment that ends the file. Both belong to the file's dress: writing a file anew takes the old ones off.
#pragma once

#include <cstddef>
#include <string>

#include "source_text.h"

namespace orvil_host {

struct Body {
    std::size_t begin = 0;  // the first token behind the heading
    std::size_t end = 0;    // the token of the closing comment, or one past the last
    bool has_heading = false;
    std::string comment;  // what the heading's box says
};

Body find_body(const SourceText& text);

}  // namespace orvil_host
