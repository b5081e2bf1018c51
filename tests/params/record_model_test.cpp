// Record sets beside models of vectors, over random operations.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <sstream>
#include <vector>

#include "params/record_support.h"

namespace orvil::test {
namespace {

// The records in the order of creation, each as name and shown value.
class Model {
public:
    void remove(const std::string& name) { records_.erase(find(name), records_.end()); }

    bool has(const std::string& name) {
        const auto end = records_.end();
        return std::find_if(records_.begin(), end, [&](const Entry& each) { return each.first == name; }) != end;
    }

    void add(const std::string& name, const std::string& value) {
        remove(name);
        records_.emplace_back(name, value);
    }

    void clear() { records_.clear(); }

    void update(const Model& other) {
        for (const Entry& each : other.records_) {
            add(each.first, each.second);
        }
    }

    // False when a name stands in the mask twice.
    bool masked_copy(const Model& other, const std::string& mask) {
        Model copy;
        std::istringstream pieces(mask);
        bool unique = true;
        for (std::string name; unique && std::getline(pieces, name, ';');) {
            for (const Entry& each : other.records_) {
                if (each.first == name) {
                    unique = !copy.has(name);
                    unique ? copy.add(name, each.second) : void();
                }
            }
        }
        *this = copy;
        return unique;
    }

    std::string text(int order) const {
        std::vector<Entry> entries = records_;
        if (order != 0) {
            std::sort(entries.begin(), entries.end());
        }
        if (order < 0) {
            std::reverse(entries.begin(), entries.end());
        }
        std::string text;
        for (const Entry& each : entries) {
            text += (text.empty() ? "" : " ") + each.first + "=" + each.second;
        }
        return text;
    }

    int count() const { return static_cast<int>(records_.size()); }

private:
    using Entry = std::pair<std::string, std::string>;

    std::vector<Entry>::iterator find(const std::string& name) {
        return std::remove_if(records_.begin(), records_.end(), [&](const Entry& each) { return each.first == name; });
    }

    std::vector<Entry> records_;
};

class Twins {
public:
    explicit Twins(unsigned seed) : random_(seed), sets_{RecordSet(8, 4), RecordSet(20, 7)} {}

    void step() {
        const std::size_t which = below(2);
        vpr_set_t* set = &sets_[which].set;
        Model& model = models_[which];
        const std::string name = some_name();
        switch (below(24)) {
            case 0:
                EXPECT_EQ(0, vpr_update(set, &sets_[1 - which].set));
                model.update(models_[1 - which]);
                break;
            case 1:
                EXPECT_EQ(0, vpr_copy(set, &sets_[1 - which].set));
                model = models_[1 - which];
                break;
            case 2:
                masked_copy(which);
                break;
            case 3:
                EXPECT_EQ(0, vpr_clear(set));
                model.clear();
                break;
            case 4:
                EXPECT_EQ(1, vpr_add(set, name.c_str(), 'q', nullptr));
                model.remove(name);
                break;
            case 5:
            case 6:
            case 7:
            case 8:
                EXPECT_EQ(model.has(name) ? 0 : 1, vpr_delete(set, name.c_str()));
                model.remove(name);
                break;
            default:
                add(set, model, name);
        }
    }

    void check() {
        for (std::size_t which = 0; which < 2; ++which) {
            for (int order : {0, 1, -1}) {
                ASSERT_EQ(models_[which].text(order), show(&sets_[which].set, order));
            }
            ASSERT_EQ(models_[which].count(), vpr_count(&sets_[which].set));
        }
    }

private:
    std::size_t below(std::size_t n) { return random_() % n; }

    // Names that share their first bytes, so that every part of a comparison is needed.
    std::string some_name() {
        const char* beginnings[] = {"", "a", "abcdefg", "abcdefgh", "abcdefghi", "\xC8"};
        return beginnings[below(6)] + std::string(1, static_cast<char>('A' + below(6)));
    }

    void add(vpr_set_t* set, Model& model, const std::string& name) {
        const int value = static_cast<int>(below(1000));
        const std::string text = std::to_string(value);
        switch (below(3)) {
            case 0:
                EXPECT_EQ(0, vpr_add_int(set, name.c_str(), value));
                model.add(name, "i" + text);
                break;
            case 1:
                EXPECT_EQ(0, vpr_add_dbl(set, name.c_str(), value + 0.5));
                model.add(name, "d" + text + ".5");
                break;
            default:
                EXPECT_EQ(0, vpr_add_strf(set, name.c_str(), "%d", value));
                model.add(name, "s" + text);
        }
        EXPECT_EQ(value, vpr_get_int(set, name.c_str(), nullptr));
        EXPECT_EQ(0, std::string(vpr_get_str(set, name.c_str(), nullptr)).compare(0, text.size(), text));
    }

    void masked_copy(std::size_t which) {
        std::string mask;
        for (std::size_t i = below(6); i > 0; --i) {
            mask += some_name() + ";";
        }
        const bool unique = models_[which].masked_copy(models_[1 - which], mask);
        EXPECT_EQ(unique ? 0 : 1, vpr_masked_copy(&sets_[which].set, &sets_[1 - which].set, mask.c_str(), ';'));
    }

    std::mt19937 random_;
    RecordSet sets_[2];
    Model models_[2];
};

TEST(RecordSetModel, RandomOperationsGiveTheRecordsOfTheModelInAllOrders) {
    for (unsigned seed = 1; seed <= 30; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Twins twins(seed);
        for (int i = 0; i < 500 && !testing::Test::HasFailure(); ++i) {
            twins.step();
            twins.check();
        }
    }
}

TEST(RecordSetModel, TenThousandRecordsInAscendingOrderStayBalanced) {
    RecordSet set;
    char name[16];
    for (int i = 0; i < 10000; ++i) {
        std::snprintf(name, sizeof name, "name%05d", i);
        set.with(name, i);
    }
    int height = 0;
    for (const arbt_node_t* node = set.set.tree.node; node != nullptr; node = node->right) {
        ++height;
    }
    EXPECT_LE(height, 27);  // 2 * log2(10001) is 26.6
    for (int i = 0; i < 10000; i += 2) {
        std::snprintf(name, sizeof name, "name%05d", i);
        EXPECT_EQ(0, vpr_delete(set, name));
    }
    EXPECT_EQ(5000, vpr_count(set));
    EXPECT_EQ(9999, vpr_ref_int(set, "name09999"));
}

}  // namespace
}  // namespace orvil::test
