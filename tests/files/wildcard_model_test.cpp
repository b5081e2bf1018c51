// Wildcards against a naive model, on random names.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <string_view>

#include "files/file_search_probe.h"
#include "orvil/strings/regex.h"

namespace {

using orvil::test::Search;

// Whether a wildcard takes all of a name. Only stars and question marks mean anything.
bool takes(std::string_view wildcard, std::string_view name) {
    if (wildcard.empty()) {
        return name.empty();
    }
    if (wildcard[0] == '*') {
        return takes(wildcard.substr(1), name) || (!name.empty() && takes(wildcard, name.substr(1)));
    }
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return !name.empty() && (wildcard[0] == '?' || lower(wildcard[0]) == lower(name[0])) &&
           takes(wildcard.substr(1), name.substr(1));
}

class RandomTexts {
public:
    explicit RandomTexts(unsigned seed) : numbers_(seed) {}

    std::string text(std::string_view alphabet, std::size_t longest) {
        std::string made(numbers_() % longest + 1, ' ');
        for (char& c : made) {
            c = alphabet[numbers_() % alphabet.size()];
        }
        return made;
    }

private:
    std::mt19937 numbers_;
};

// Makes a search stand at an entry of that name, which it will release.
void stand_at(Search& search, const std::string& name) {
    if (search.entry_ == nullptr) {
        search.entry_ = static_cast<dirent*>(std::calloc(1, sizeof(dirent)));
    }
    std::memcpy(search.entry_->d_name, name.c_str(), name.size() + 1);
    search.entry_->d_reclen = static_cast<unsigned short>(name.size());
}

}  // namespace

TEST(WildcardModel, RandomNamesAreTakenAsTheModelTakesThem) {
    const unsigned seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomTexts texts(seed);
    int taken = 0;
    for (int i = 0; i < 1500; ++i) {
        regex_cleanup();
        const std::string wildcard = texts.text("aB.+*?[]^$()*?", 6);
        Search search;
        ASSERT_TRUE(search.Setup(wildcard.c_str())) << wildcard;
        for (int j = 0; j < 30; ++j) {
            const std::string name = texts.text("aAbB.+[]^$()", 5);
            stand_at(search, name);
            ASSERT_EQ(search.MatchPattern(), takes(wildcard, name)) << wildcard << " on " << name;
            taken += takes(wildcard, name) ? 1 : 0;
        }
    }
    EXPECT_GT(taken, 1000);
}
