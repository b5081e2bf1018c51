// Splitting a command line gives the words that the plain model gives; parsing them by declared options leaves the
// parser and its model in the same state.
#include <string>
#include <vector>

#include "../tests/options/option_model.h"
#include "orvil/options/option_parser.h"
#include "orvil/strings/regex.h"
#include "support/fuzz_check.h"

namespace {

using orvil::test::OptionModel;

constexpr std::size_t kLongestLine = 600;

struct Kind {
    bool (*declare)(const char* const*);
    const char* letter;
};
constexpr Kind kKinds[] = {{getopt_init_boolmap, "b"}, {getopt_init_scalarmap, "s"}, {getopt_init_listmap, "l"}};

// Up to seven declarations, which are the names that are asked for in the end.
std::vector<std::string> declare_some(orvil::fuzz::InputReader& input, OptionModel& model) {
    std::vector<std::string> names;
    for (std::size_t left = input.below(8); left > 0; --left) {
        const Kind& kind = kKinds[input.below(3)];
        const std::string declaration = input.text(30);
        const char* const array[] = {declaration.c_str(), nullptr};
        FUZZ_CHECK(kind.declare(array));
        model.declare(kind.letter, declaration.c_str());
        names.push_back(declaration.substr(0, declaration.find(':')));
        names.push_back(declaration.substr(0, 1));
    }
    return names;
}

void check_split(const std::string& line, CExtStrList& words) {
    std::vector<std::string> expected;
    const bool is_split = orvil::test::WordsModel(line).split(expected);
    FUZZ_CHECK(getopt_parse_string_to_list(line.c_str(), words, true) == is_split);
    FUZZ_CHECK(words.GetCount() == static_cast<int>(expected.size()));
    __pos* pos = words.GetHeadPosition();
    for (const std::string& word : expected) {
        FUZZ_CHECK(words.GetNext(pos) == word);
    }
}

void check_results(const std::vector<std::string>& names, OptionModel& model) {
    FUZZ_CHECK(getopt_get_errorpos() == model.position());
    FUZZ_CHECK(getopt_get_errornote() == model.note());
    FUZZ_CHECK(getopt_item_count() == static_cast<int>(model.items().size()));
    for (int i = 0; i < getopt_item_count(); ++i) {
        FUZZ_CHECK(getopt_item(i) == model.items()[static_cast<std::size_t>(i)]);
    }
    for (const std::string& name : names) {
        FUZZ_CHECK(getopt_boolean(name.c_str()) == model.boolean(name.c_str()));
        FUZZ_CHECK(getopt_scalar(name.c_str()).GetString() == model.scalar(name.c_str()));
        FUZZ_CHECK(getopt_list_count(name.c_str()) == model.list_count(name.c_str()));
        for (int i = 0; i < getopt_list_count(name.c_str()); ++i) {
            FUZZ_CHECK(getopt_list(name.c_str(), i).GetString() == model.list(name.c_str(), i));
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    orvil::fuzz::InputReader input(data, size);
    OptionModel model;
    const bool stop_at_error = input.below(2) == 0;
    const std::vector<std::string> names = declare_some(input, model);
    CExtStrList words;
    check_split(input.text(kLongestLine), words);
    FUZZ_CHECK(getopt_parse_arguments(words, stop_at_error) == model.parse(words, stop_at_error));
    check_results(names, model);
    getopt_terminate();
    regex_cleanup();
    return 0;
}
