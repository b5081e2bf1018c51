#include "options/argument_parser.h"

#include "options/argument_syntax.h"

namespace orvil::detail {
namespace {

bool begins_with_dash(std::string_view argument) {
    return argument.starts_with('-');
}

}  // namespace

ArgumentParser::ArgumentParser(OptionState& state, const CExtStrList& arguments)
    : state_(state), arguments_(arguments), next_(arguments.GetHeadPosition()) {
    drop_head();
}

void ArgumentParser::drop_head() {
    const char* text = arguments_.GetNext(next_);
    head_ = text == nullptr ? std::string_view() : std::string_view(text);
}

// A refused argument ends the parse in any case: it would be met again without end.
bool ArgumentParser::parse(bool stop_at_error) {
    state_.position = 0;
    while (has_head()) {
        const Outcome outcome = take_argument();
        if (outcome == Outcome::kRefused || (outcome == Outcome::kFaulty && stop_at_error)) {
            return false;
        }
    }
    return true;
}

ArgumentParser::Outcome ArgumentParser::take_argument() {
    return begins_with_dash(head_) && head_ != "-" ? take_option() : take_item();
}

ArgumentParser::Outcome ArgumentParser::take_item() {
    state_.items.add(state_.memory, head_);
    ++state_.position;
    drop_head();
    return Outcome::kConsumed;
}

ArgumentParser::Outcome ArgumentParser::take_option() {
    OptionArgument given;
    const bool is_read = read_option_argument(head_, given);
    Option* option = is_read ? find(given) : nullptr;
    if (!is_read || (option == nullptr && !given.is_long)) {
        state_.note.assign(state_.memory, {"unknown option '", head_, "'"});
        return Outcome::kRefused;
    }
    drop_head();
    if (option == nullptr || option->kind == OptionKind::kNone) {
        state_.note.assign(state_.memory, {"unknown option name '", given.name, "'"});
        return Outcome::kFaulty;
    }
    if (given.has_value) {
        return take_attached(*option, given.value);
    }
    return option->kind == OptionKind::kBoolean ? take_boolean(*option) : take_following(*option);
}

Option* ArgumentParser::find(const OptionArgument& given) const {
    return given.is_long ? state_.table.find(given.name) : state_.table.find_letter(given.name.front());
}

ArgumentParser::Outcome ArgumentParser::take_attached(Option& option, std::string_view value) {
    if (option.kind == OptionKind::kBoolean && !is_boolean_symbol(value)) {
        state_.note.assign(state_.memory, {"value '", value, "' is not boolean symbol : name [", option.name, "]"});
        return Outcome::kFaulty;
    }
    return store(option, value, 1);
}

// The next argument is the value if it can be one, whatever it begins with.
ArgumentParser::Outcome ArgumentParser::take_boolean(Option& option) {
    if (!has_head() || !is_boolean_symbol(head_)) {
        return store(option, "True", 1);
    }
    const std::string_view value = head_;
    drop_head();
    return store(option, value, 2);
}

// Without a value the option is dropped. At the end the value that is missing counts as consumed.
ArgumentParser::Outcome ArgumentParser::take_following(Option& option) {
    if (begins_with_dash(head_)) {
        return Outcome::kConsumed;
    }
    const std::string_view value = head_;
    drop_head();
    return store(option, value, 2);
}

ArgumentParser::Outcome ArgumentParser::store(Option& option, std::string_view value, int consumed) {
    OptionValues& values = option.values;
    switch (option.kind) {
        case OptionKind::kBoolean:
            values.has_boolean = values.is_on = is_true_word(value);
            break;
        case OptionKind::kScalar:
            values.has_scalar = true;
            values.scalar.assign(state_.memory, {value});
            break;
        case OptionKind::kList:
            values.has_list = true;
            values.list.add(state_.memory, value);
            break;
        case OptionKind::kNone:
            break;
    }
    state_.position += consumed;
    return Outcome::kConsumed;
}

}  // namespace orvil::detail
