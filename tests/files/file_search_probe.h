// A search whose protected members can be looked at, and what it finds.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "orvil/files/file_search.h"

namespace orvil::test {

class Search : public CFileSearch {
public:
    using CFileSearch::directory_;
    using CFileSearch::entry_;
    using CFileSearch::handle_;
    using CFileSearch::MatchPattern;
    using CFileSearch::pattern_;
    using CFileSearch::status_;
    using CFileSearch::stream_;
};

// The names that are left to be found, in order of the alphabet.
inline std::vector<std::string> found_by(CFileSearch& search) {
    std::vector<std::string> names;
    while (search.FindNext()) {
        names.emplace_back(search.GetFileName());
    }
    std::sort(names.begin(), names.end());
    return names;
}

// Goes on until an entry has that name.
inline bool find_name(CFileSearch& search, const std::string& name) {
    while (search.FindNext()) {
        if (search.GetFileName() == name) {
            return true;
        }
    }
    return false;
}

}  // namespace orvil::test
