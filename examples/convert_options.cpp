// The command line of a converter: what is declared, what was given, and what is wrong with it.
//
//     convert_options --scale=2.5 --layer Outline -l Text -v -o plot.out sheet1.plt sheet2.plt
#include <cstdio>

#include "orvil/options/option_parser.h"

namespace {

const char* const kSwitches[] = {"verbose: v", nullptr};
const char* const kValues[] = {"output: o", "scale", nullptr};
const char* const kLists[] = {"layer: l", nullptr};

// Without the program's name.
bool parse(int argc, char** argv) {
    CExtStrList arguments;
    for (int i = 1; i < argc; ++i) {
        arguments.AddTail(argv[i]);
    }
    return getopt_parse_arguments(arguments, true);
}

// A value that was not given is empty, and so is an empty one.
double scale() {
    double factor = 1.0;
    getopt_scalar("scale").ParseFloatingPoint(factor);
    return factor;
}

void print_what_was_given() {
    std::printf("output  %s\n", getopt_scalar("output").GetString());
    std::printf("scale   %g\n", scale());
    for (int i = 0; i < getopt_list_count("layer"); ++i) {
        std::printf("layer   %s\n", getopt_list("layer", i).GetString());
    }
    for (int i = 0; i < getopt_item_count(); ++i) {
        std::printf("file    %s\n", getopt_item(i));
    }
}

}  // namespace

int main(int argc, char** argv) {
    getopt_initialize();
    getopt_init_boolmap(kSwitches);
    getopt_init_scalarmap(kValues);
    getopt_init_listmap(kLists);
    if (!parse(argc, argv)) {
        std::fprintf(stderr, "argument %d: %s\n", getopt_get_errorpos() + 1, getopt_get_errornote());
        return 1;
    }
    print_what_was_given();
    if (getopt_boolean("verbose")) {
        getopt_scalardump(stdout);
        getopt_listdump(stdout);
    }
    getopt_terminate();
    return 0;
}
