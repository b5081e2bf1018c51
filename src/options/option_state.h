// The state of the option parser, of which there is one in a process.
#pragma once

#include "options/kept_text.h"
#include "options/option_table.h"

namespace orvil::detail {

struct OptionState {
    OptionTable table;
    Arena memory;  // of all that follows, and of the values in the table
    KeptTexts items;
    int position = 0;
    KeptText note;

    // Forgets the results.
    void clean();
};

extern OptionState option_state;

}  // namespace orvil::detail
