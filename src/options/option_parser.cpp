// The public functions: declaring, parsing and asking.
#include "orvil/options/option_parser.h"

#include "options/argument_parser.h"
#include "options/option_state.h"

namespace orvil::detail {

constinit OptionState option_state;

void OptionState::clean() {
    table.clear_values();
    items = KeptTexts();
    note = KeptText();
    position = 0;
    memory.release();
}

namespace {

bool declare(OptionKind kind, const char* const* declarations) {
    for (; declarations != nullptr && *declarations != nullptr; ++declarations) {
        option_state.table.declare(kind, *declarations);
    }
    return true;
}

// The values of a name, a letter being a short name; null when there is no memory. An undeclared letter is the empty
// name.
OptionValues* values_of(const char* name) {
    std::string_view long_name = name == nullptr ? "" : name;
    if (long_name.size() == 1) {
        const Option* option = option_state.table.find_letter(long_name.front());
        long_name = option == nullptr ? "" : option->name;
    }
    Option* option = option_state.table.find_or_add(long_name);
    return option == nullptr ? nullptr : &option->values;
}

// Asking for a name enters it.
const KeptTexts* list_of(const char* name) {
    OptionValues* values = values_of(name);
    if (values == nullptr) {
        return nullptr;
    }
    values->has_list = true;
    return &values->list;
}

}  // namespace
}  // namespace orvil::detail

using orvil::detail::option_state;

// --- life cycle ------------------------------------------------------------------------------------------------------

void getopt_initialize() {
    option_state.clean();
    option_state.table.clear();
}

void getopt_terminate() {
    getopt_initialize();
}

void getopt_clean() {
    option_state.clean();
}

// --- declaring and parsing -------------------------------------------------------------------------------------------

bool getopt_init_boolmap(const char* const* decls) {
    return orvil::detail::declare(orvil::detail::OptionKind::kBoolean, decls);
}

bool getopt_init_scalarmap(const char* const* decls) {
    return orvil::detail::declare(orvil::detail::OptionKind::kScalar, decls);
}

bool getopt_init_listmap(const char* const* decls) {
    return orvil::detail::declare(orvil::detail::OptionKind::kList, decls);
}

bool getopt_parse_arguments(const CExtStrList& args, bool stopAtError) {
    return orvil::detail::ArgumentParser(option_state, args).parse(stopAtError);
}

// --- results ---------------------------------------------------------------------------------------------------------

bool getopt_boolean(const char* name) {
    orvil::detail::OptionValues* values = orvil::detail::values_of(name);
    if (values == nullptr) {
        return false;
    }
    values->has_boolean = true;
    return values->is_on;
}

CExtString getopt_scalar(const char* name) {
    orvil::detail::OptionValues* values = orvil::detail::values_of(name);
    if (values == nullptr) {
        return {};
    }
    values->has_scalar = true;
    return values->scalar.get();
}

int getopt_list_count(const char* name) {
    const orvil::detail::KeptTexts* list = orvil::detail::list_of(name);
    return list == nullptr ? 0 : list->count();
}

CExtString getopt_list(const char* name, int index) {
    const orvil::detail::KeptTexts* list = orvil::detail::list_of(name);
    return list == nullptr ? nullptr : list->at(index);
}

int getopt_item_count() {
    return option_state.items.count();
}

const char* getopt_item(int index) {
    return option_state.items.at(index);
}

bool getopt_item_empty() {
    return getopt_item_count() == 0;
}

int getopt_get_errorpos() {
    return option_state.position;
}

const char* getopt_get_errornote() {
    return option_state.note.get();
}
