// The parser as tests use it: with texts of the standard library, and forgotten before and after each test.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <initializer_list>
#include <string>
#include <vector>

#include "orvil/options/option_parser.h"
#include "support/temp_dir.h"

namespace orvil::test {

using Texts = std::vector<std::string>;

inline CExtStrList list_of(const Texts& texts) {
    CExtStrList list;
    for (const std::string& text : texts) {
        list.AddTail(text.c_str());
    }
    return list;
}

inline Texts texts_of(const CExtStrList& list) {
    Texts texts;
    for (__pos* pos = list.GetHeadPosition(); pos != nullptr;) {
        texts.emplace_back(list.GetNext(pos));
    }
    return texts;
}

// What a dump writes.
inline std::string dumped(bool (*dump)(FILE*)) {
    const TempDir folder;
    FILE* stream = std::fopen(folder.path("dump").c_str(), "wb");
    EXPECT_NE(stream, nullptr);
    EXPECT_TRUE(dump(stream));
    std::fclose(stream);
    return read_file(folder.path("dump"));
}

using Declare = bool (*)(const char* const*);

inline void declare(Declare function, const Texts& declarations) {
    std::vector<const char*> array;
    for (const std::string& declaration : declarations) {
        array.push_back(declaration.c_str());
    }
    array.push_back(nullptr);
    EXPECT_TRUE(function(array.data()));
}

inline void declare_booleans(const Texts& declarations) {
    declare(getopt_init_boolmap, declarations);
}

inline void declare_scalars(const Texts& declarations) {
    declare(getopt_init_scalarmap, declarations);
}

inline void declare_lists(const Texts& declarations) {
    declare(getopt_init_listmap, declarations);
}

inline bool parse(const Texts& arguments, bool stop_at_error = true) {
    return getopt_parse_arguments(list_of(arguments), stop_at_error);
}

inline std::string scalar(const char* name) {
    return getopt_scalar(name).GetString();
}

inline Texts values_of(const char* name) {
    Texts values;
    for (int i = 0; i < getopt_list_count(name); ++i) {
        values.emplace_back(getopt_list(name, i).GetString());
    }
    return values;
}

inline Texts items() {
    Texts texts;
    for (int i = 0; i < getopt_item_count(); ++i) {
        texts.emplace_back(getopt_item(i));
    }
    return texts;
}

class OptionTest : public testing::Test {
protected:
    OptionTest() { getopt_initialize(); }
    ~OptionTest() override { getopt_terminate(); }
};

// With a boolean, a scalar and a list.
class DeclaredOptionTest : public OptionTest {
protected:
    DeclaredOptionTest() {
        declare_scalars({"output: o"});
        declare_booleans({"debug: d"});
        declare_lists({"define: D"});
    }
};

}  // namespace orvil::test
