// Random sequences of calls beside naive models of standard containers.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "messages/message_support.h"
#include "orvil/messages/message_files.h"
#include "orvil/messages/message_manager.h"

namespace orvil::test {
namespace {

constexpr int kOddCodes[] = {-1, 9999, 10000, 20000};

class Dice {
public:
    explicit Dice(unsigned seed) : engine_(seed) {}
    int roll(int low, int high) { return std::uniform_int_distribution<int>(low, high)(engine_); }
    // Few codes, so that they meet again and again, and some beyond the range.
    int code() { return roll(0, 9) == 0 ? kOddCodes[roll(0, 3)] : roll(0, 12); }
    std::string text() { return roll(0, 9) == 0 ? "" : "t" + std::to_string(roll(0, 999)); }

private:
    std::mt19937 engine_;
};

bool is_valid(int code, const std::string& text) {
    return code >= 0 && code <= 9999 && !text.empty();
}

// --- maps -----------------------------------------------------------------------------------------------------------

struct ModelMap {
    using Item = std::pair<int, std::string>;
    std::vector<std::optional<Item>> items;
    std::map<int, std::size_t> index;

    bool add(int code, const std::string& text) {
        if (!is_valid(code, text)) {
            return false;
        }
        index[code] = items.size();
        items.emplace_back(Item(code, text));
        return true;
    }

    bool remove(int code) {
        if (!index.contains(code)) {
            return false;
        }
        items[index[code]].reset();
        index.erase(code);
        return true;
    }

    bool replace(int old_code, int new_code, const std::string& text) {
        if (!is_valid(old_code, text) || !is_valid(new_code, text) || !index.contains(old_code)) {
            return false;
        }
        const std::size_t position = index[old_code];
        index.erase(old_code);
        items[position] = Item(new_code, text);
        index[new_code] = position;
        return true;
    }

    ModelMap copy() const {
        ModelMap result;
        for (const std::optional<Item>& item : items) {
            if (item) {
                result.add(item->first, item->second);
            }
        }
        return result;
    }

    // What a file gives back: every item that has a text, by code, with the newest text.
    ModelMap stored() const {
        std::vector<int> codes;
        for (const std::optional<Item>& item : items) {
            if (item) {
                codes.push_back(item->first);
            }
        }
        std::sort(codes.begin(), codes.end());
        ModelMap result;
        for (int code : codes) {
            if (index.contains(code)) {
                result.add(code, items[index.at(code)]->second);
            }
        }
        return result;
    }
};

void expect_same(const CMessageMap& map, const ModelMap& model) {
    std::string expected;
    for (const std::optional<ModelMap::Item>& item : model.items) {
        expected += item ? " " + std::to_string(item->first) + "=" + item->second : " ~";
    }
    EXPECT_EQ(show(map).substr(show(map).find(':') + 1), expected);
    std::vector<int> codes(std::begin(kOddCodes), std::end(kOddCodes));
    for (int code = 0; code <= 13; ++code) {
        codes.push_back(code);
    }
    for (int code : codes) {
        const char* text = map.SearchItemText(code);
        ASSERT_EQ(text != nullptr, model.index.contains(code)) << code;
        if (text != nullptr) {
            EXPECT_EQ(text, model.items[model.index.at(code)]->second);
        }
    }
}

// One random change of both; the texts of the map itself are among those that are given to it.
void change(CMessageMap& map, ModelMap& model, Dice& dice) {
    const int code = dice.code();
    const int other = dice.roll(0, 3) == 0 ? code : dice.code();
    const char* own = map.GetItemText(dice.roll(0, std::max(map.GetItemCount(), 1)));
    const std::string text = own != nullptr && dice.roll(0, 3) == 0 ? own : dice.text();
    const char* given = own != nullptr && text == own ? own : text.c_str();
    switch (dice.roll(0, 5)) {
        case 0:
        case 1:
        case 2:
            EXPECT_EQ(map.AddItem(code, given), model.add(code, text));
            break;
        case 3:
            EXPECT_EQ(map.DeleteItem(code), model.remove(code));
            break;
        default:
            EXPECT_EQ(map.ReplaceItem(code, other, given), model.replace(code, other, text));
    }
}

TEST(MessageMapModel, AgreesOverRandomChangesAndCopies) {
    for (unsigned seed = 0; seed < 200; ++seed) {
        Dice dice(seed);
        CMessageMap map;
        ModelMap model;
        for (int step = 0; step < 60; ++step) {
            change(map, model, dice);
        }
        expect_same(map, model);
        expect_same(CMessageMap(map), model.copy());
        ASSERT_FALSE(HasFailure()) << "seed " << seed;
    }
}

TEST(MessageMapModel, FilesGiveBackWhatTheModelSays) {
    const TempDir folder;
    const std::string path = folder.path("map.txt");
    for (unsigned seed = 0; seed < 60; ++seed) {
        Dice dice(seed);
        CMessageMap map;
        ModelMap model;
        for (int step = 0; step < 40; ++step) {
            change(map, model, dice);
        }
        CMessageMap read;
        EXPECT_TRUE(CMessageRegister().Store(path.c_str(), map));
        EXPECT_TRUE(CMessageLoader().Load(path.c_str(), read));
        expect_same(read, model.stored());
        ASSERT_FALSE(HasFailure()) << "seed " << seed;
    }
}

// --- entries of a file ----------------------------------------------------------------------------------------------

// Reads entries by the rules, one after the other.
class ModelReader {
public:
    void decimal(int code) {
        code_ = code;
        pair();
    }
    void text(const std::string& text) {
        text_ = text;
        pair();
    }
    void other() { text_.clear(); }
    const ModelMap& map() const { return map_; }

private:
    void pair() {
        if (code_ && !text_.empty()) {
            map_.add(*code_, text_);
            code_.reset();
            text_.clear();
        }
    }

    std::optional<int> code_;
    std::string text_;
    ModelMap map_;
};

// A random entry; tells the model what it is. The parser passes over empty strings and comments.
std::string entry(Dice& dice, ModelReader& model) {
    static const std::vector<std::string> kOthers{"x = 1;", "0x05", "1.5", ";", "Sub { 5 \"five\" }", "007"};
    static const std::vector<std::string> kNothing{"\"\"", "/* 5 */", "// \"five\"\n"};
    switch (dice.roll(0, 9)) {
        case 0:
            model.other();
            return kOthers[static_cast<std::size_t>(dice.roll(0, static_cast<int>(kOthers.size()) - 1))];
        case 1:
            return kNothing[static_cast<std::size_t>(dice.roll(0, static_cast<int>(kNothing.size()) - 1))];
        case 2:
        case 3:
        case 4:
        case 5: {
            const int code = dice.code();
            model.decimal(code);
            return std::to_string(code);
        }
        default: {
            const std::string text = "t" + std::to_string(dice.roll(0, 999));
            model.text(text);
            return "\"" + text + "\"";
        }
    }
}

TEST(MessageEntriesModel, PairsAgreeOverRandomEntries) {
    const TempDir folder;
    for (unsigned seed = 0; seed < 200; ++seed) {
        Dice dice(seed);
        ModelReader model;
        std::string text = "MessageMap {\n";
        for (int i = dice.roll(0, 40); i > 0; --i) {
            text += entry(dice, model) + " ";
        }
        CMessageMap map;
        EXPECT_TRUE(CMessageLoader().Load(folder.write("in.txt", text + "\n}\n").c_str(), map));
        expect_same(map, model.map());
        ASSERT_FALSE(HasFailure()) << "seed " << seed << "\n" << text;
    }
}

// --- managers -------------------------------------------------------------------------------------------------------

struct ModelManager {
    std::map<int, std::string> titles;  // by code
    std::map<std::string, int> codes;   // by title

    bool add(int code, const std::string& title) {
        if (!titles.emplace(code, title).second) {
            return false;
        }
        codes[title] = code;
        return true;
    }

    ModelManager copy() const {
        ModelManager result;
        for (const auto& [code, title] : titles) {
            result.add(code, title);
        }
        return result;
    }
};

void expect_same(const CMessageManager& manager, const ModelManager& model) {
    ASSERT_EQ(manager.GetItemCount(), static_cast<int>(model.titles.size()));
    int position = 0;
    for (const auto& [code, title] : model.titles) {
        EXPECT_EQ(manager.GetMessageMap(position), manager.SearchMessageMap(code));
        EXPECT_EQ(manager.GetMessageMap(position)->GetSubjectKeyCode(), code);
        EXPECT_EQ(manager.GetMessageMap(position)->GetSubjectKeyText(), title);
        ++position;
    }
    for (const auto& [title, code] : model.codes) {
        ASSERT_NE(manager.SearchMessageMap(title.c_str()), nullptr);
        EXPECT_EQ(manager.SearchMessageMap(title.c_str())->GetSubjectKeyCode(), code);
    }
}

TEST(MessageManagerModel, AgreesOverRandomMapsCopiesAndFiles) {
    const TempDir folder;
    const std::string path = folder.path("maps.txt");
    for (unsigned seed = 0; seed < 60; ++seed) {
        Dice dice(seed);
        CMessageManager manager;
        ModelManager model;
        for (int step = 0; step < 60; ++step) {
            const int code = dice.roll(-30, 30) * (dice.roll(0, 3) == 0 ? 70000000 : 1);
            const std::string title = "t" + std::to_string(dice.roll(0, 15));
            CMessageMap map;
            map.SetupSubjectKey(code, title.c_str());
            EXPECT_EQ(manager.AddMap(map), model.add(code, title));
        }
        expect_same(manager, model);
        expect_same(CMessageManager(manager), model.copy());
        CMessageManager read;
        EXPECT_TRUE(manager.Store(path.c_str(), nullptr));
        EXPECT_TRUE(read.Load(path.c_str()));
        expect_same(read, model.copy());
        ASSERT_FALSE(HasFailure()) << "seed " << seed;
    }
}

}  // namespace
}  // namespace orvil::test
