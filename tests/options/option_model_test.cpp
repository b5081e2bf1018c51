// Random sequences of calls beside the plain model.
#include <random>

#include "options/option_model.h"
#include "options/option_support.h"

namespace orvil::test {
namespace {

class OptionModelTest : public OptionTest, public testing::WithParamInterface<unsigned> {
protected:
    std::size_t below(std::size_t limit) { return random_() % limit; }

    template <std::size_t N>
    const char* one_of(const char* const (&texts)[N]) {
        return texts[below(N)];
    }

    const char* name() {
        return one_of(
            {"debug", "Debug", "output", "ab", "bA", "x", "d", "o", "D", "q", "", "a b", "none", "n", "--", "ab "});
    }
    std::string declaration() {
        static constexpr const char* kLetters[] = {"", ": d", ":o", " : D ", ":\nx\n", ": q", ": ab", ":"};
        return std::string(one_of({"", " ", "\t"})) + name() + one_of(kLetters);
    }
    std::string value() {
        return one_of({"",      "yes", "No",  "plan", "online",
                       "maybe", "-",   "-d",  "--n",  "x\n",
                       "a\nb",  "1",   "10",  "=",    "file",
                       "True",  "\n",  "-no", "y\n",  "a fairly long value that does not fit where a short one did"});
    }
    std::string argument() {
        const std::string dashes = one_of({"-", "--", "-", "--", "", "---"});
        const std::string attached = one_of({"", "", "=", ":"});
        return below(3) == 0 ? value() : dashes + name() + attached + (attached.empty() ? "" : value());
    }
    Texts arguments() {
        Texts texts(below(12));
        for (std::string& text : texts) {
            text = argument();
        }
        return texts;
    }

    void change() {
        switch (below(12)) {
            case 0:
                return declare_one();
            case 1:
                return declare_one();
            case 2:
                getopt_clean(), model_.clean();
                break;
            case 3:
                below(8) == 0 ? (getopt_initialize(), model_.initialize()) : void();
                break;
            default:
                return parse_some();
        }
    }
    void declare_one() {
        static constexpr Declare kFunctions[] = {getopt_init_boolmap, getopt_init_scalarmap, getopt_init_listmap};
        static constexpr const char* kKinds[] = {"b", "s", "l"};
        const std::string text = declaration();
        const std::size_t kind = below(3);
        declare(kFunctions[kind], {text});
        model_.declare(kKinds[kind], text.c_str());
    }
    void parse_some() {
        const CExtStrList list = list_of(arguments());
        const bool stop_at_error = below(2) == 0;
        EXPECT_EQ(getopt_parse_arguments(list, stop_at_error), model_.parse(list, stop_at_error));
    }

    void compare() {
        EXPECT_EQ(getopt_get_errorpos(), model_.position());
        EXPECT_EQ(getopt_get_errornote(), model_.note());
        EXPECT_EQ(items(), model_.items());
        EXPECT_EQ(getopt_item_empty(), model_.items().empty());
        ask();
        if (below(15) == 0) {
            compare_dumps();
        }
    }
    void ask() {
        const char* asked = name();
        const int index = static_cast<int>(below(4)) - 1;
        switch (below(4)) {
            case 0:
                EXPECT_EQ(getopt_boolean(asked), model_.boolean(asked));
                break;
            case 1:
                EXPECT_EQ(scalar(asked), model_.scalar(asked));
                break;
            case 2:
                EXPECT_EQ(getopt_list_count(asked), model_.list_count(asked));
                break;
            default:
                EXPECT_EQ(getopt_list(asked, index).GetString(), model_.list(asked, index));
        }
    }
    void compare_dumps() {
        EXPECT_EQ(dumped(getopt_booldump), model_.boolean_dump());
        EXPECT_EQ(dumped(getopt_scalardump), model_.scalar_dump());
        EXPECT_EQ(dumped(getopt_listdump), model_.list_dump());
        EXPECT_EQ(dumped(getopt_itemdump), model_.item_dump());
    }

    std::mt19937 random_{GetParam()};
    OptionModel model_;
};

TEST_P(OptionModelTest, AgreesAfterEachCall) {
    for (int step = 0; step < 400 && !HasFailure(); ++step) {
        change();
        compare();
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, OptionModelTest, testing::Range(1U, 21U));

// --- words -----------------------------------------------------------------------------------------------------------

// All lines of up to seven characters out of four.
TEST(CommandLineWordsModel, AgreesOnAllShortLines) {
    static constexpr char kCharacters[] = {'a', ' ', '"', '\\'};
    for (int length = 0; length <= 7; ++length) {
        for (int code = 0; code < 1 << (2 * length); ++code) {
            std::string line;
            for (int i = 0; i < length; ++i) {
                line.push_back(kCharacters[(code >> (2 * i)) & 3]);
            }
            Texts expected;
            CExtStrList words;
            ASSERT_EQ(getopt_parse_string_to_list(line.c_str(), words, true), WordsModel(line).split(expected)) << line;
            ASSERT_EQ(texts_of(words), expected) << line;
        }
    }
}

}  // namespace
}  // namespace orvil::test
