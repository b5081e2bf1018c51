// Reads a list of arguments into the state of the option parser.
#pragma once

#include <string_view>

#include "options/option_state.h"
#include "orvil/strings/ext_str_list.h"

namespace orvil::detail {

class ArgumentParser {
public:
    ArgumentParser(OptionState& state, const CExtStrList& arguments);

    // Whether all arguments were consumed.
    bool parse(bool stop_at_error);

private:
    enum class Outcome {
        kConsumed,
        kFaulty,   // consumed, but not counted
        kRefused,  // not consumed
    };

    bool has_head() const { return head_.data() != nullptr; }
    void drop_head();

    Outcome take_argument();
    Outcome take_item();
    Outcome take_option();
    Option* find(const OptionArgument& given) const;
    Outcome take_attached(Option& option, std::string_view value);
    Outcome take_boolean(Option& option);
    Outcome take_following(Option& option);
    Outcome store(Option& option, std::string_view value, int consumed);

    OptionState& state_;
    const CExtStrList& arguments_;
    __pos* next_;            // behind the head
    std::string_view head_;  // null data at the end
};

}  // namespace orvil::detail
