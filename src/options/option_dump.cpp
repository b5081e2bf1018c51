// The dumps of the option parser's state.
#include "options/option_state.h"
#include "orvil/options/option_parser.h"

namespace orvil::detail {
namespace {

// Calls visit(option) for each option that is declared as the kind.
template <typename Visitor>
void for_each_of_kind(OptionKind kind, Visitor visit) {
    option_state.table.for_each([&](Option& option) {
        if (option.kind == kind) {
            visit(option);
        }
    });
}

// The number of entries of a map, which `has_entry` stands for.
int count_entries(bool OptionValues::*has_entry) {
    int count = 0;
    option_state.table.for_each([&](const Option& option) { count += option.values.*has_entry ? 1 : 0; });
    return count;
}

void dump_line(FILE* stream, int number, const Option& option, const char* value) {
    std::fprintf(stream, "  %d-%s: %s\n", number, option.name.data(), value);
}

void dump_booleans(FILE* stream) {
    std::fprintf(stream, "--- Boolean map [%d] items. ---\n", count_entries(&OptionValues::has_boolean));
    int number = 0;
    for_each_of_kind(OptionKind::kBoolean, [&](Option& option) {
        option.values.has_boolean = true;
        dump_line(stream, number++, option, option.values.is_on ? "1" : "");
    });
    std::fputs("\n", stream);
}

void dump_scalars(FILE* stream) {
    std::fprintf(stream, "--- Scalar map [%d] items. ---\n", count_entries(&OptionValues::has_scalar));
    int number = 0;
    for_each_of_kind(OptionKind::kScalar, [&](Option& option) {
        option.values.has_scalar = true;
        dump_line(stream, number++, option, option.values.scalar.get());
    });
    std::fputs("\n", stream);
}

void dump_lists(FILE* stream) {
    std::fprintf(stream, "--- List map [%d] lists. ---\n", count_entries(&OptionValues::has_list));
    for_each_of_kind(OptionKind::kList, [&](Option& option) {
        option.values.has_list = true;
        for (int i = 0; i < option.values.list.count(); ++i) {
            std::fprintf(stream, "  %s-%d: %s\n", option.name.data(), i, option.values.list.at(i));
        }
    });
    std::fputs("\n", stream);
}

void dump_items(FILE* stream) {
    for (int i = 0; i < option_state.items.count(); ++i) {
        std::fprintf(stream, "  file-%d: %s\n", i, option_state.items.at(i));
    }
}

bool dump(void (*write)(FILE*), FILE* stream) {
    if (stream != nullptr) {
        write(stream);
    }
    return true;
}

}  // namespace
}  // namespace orvil::detail

bool getopt_booldump(FILE* stream) {
    return orvil::detail::dump(orvil::detail::dump_booleans, stream);
}

bool getopt_scalardump(FILE* stream) {
    return orvil::detail::dump(orvil::detail::dump_scalars, stream);
}

bool getopt_listdump(FILE* stream) {
    return orvil::detail::dump(orvil::detail::dump_lists, stream);
}

bool getopt_itemdump(FILE* stream) {
    return orvil::detail::dump(orvil::detail::dump_items, stream);
}
