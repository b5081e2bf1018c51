// Record sets as text.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "orvil/params/typed_records.h"

namespace orvil::test {

inline std::string show_item(const __aVPRESTVITEM_t& item) {
    char text[512];
    if (item.type == 'd') {
        std::snprintf(text, sizeof text, "d%g", item.value.d);
    } else if (item.type == 'i') {
        std::snprintf(text, sizeof text, "i%d", item.value.i);
    } else {
        return std::string(1, item.type) + item.value.s;
    }
    return text;
}

inline int append_item(const char* name, const __aVPRESTVITEM_t* item, void* user) {
    auto& text = *static_cast<std::string*>(user);
    text += (text.empty() ? "" : " ") + std::string(name) + "=" + show_item(*item);
    return 0;
}

// "name=i5 other=stext", in the order that vpr_traverse() is asked for.
inline std::string show(const vpr_set_t* set, int order = 0) {
    std::string text;
    EXPECT_EQ(0, vpr_traverse(set, order, append_item, &text));
    return text;
}

// A set for the length of a test.
struct RecordSet {
    explicit RecordSet(int initial_count = 16, int block_size = 8) {
        EXPECT_EQ(0, vpr_init(&set, initial_count, block_size));
    }
    // Strings, ints and doubles told apart by the type of the value.
    RecordSet& with(const char* name, int value) {
        EXPECT_EQ(0, vpr_add_int(&set, name, value));
        return *this;
    }
    RecordSet& with(const char* name, double value) {
        EXPECT_EQ(0, vpr_add_dbl(&set, name, value));
        return *this;
    }
    RecordSet& with(const char* name, const char* value) {
        EXPECT_EQ(0, vpr_add_str(&set, name, value));
        return *this;
    }
    ~RecordSet() { vpr_destroy(&set); }
    RecordSet(const RecordSet&) = delete;
    RecordSet& operator=(const RecordSet&) = delete;

    operator vpr_set_t*() { return &set; }

    vpr_set_t set;
};

}  // namespace orvil::test
