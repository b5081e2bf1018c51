// The patterns that the targets for replacing and splitting choose from: arbitrary ones would search for faults of
// PCRE.
#pragma once

namespace orvil::fuzz {

inline constexpr const char* kPatterns[] = {
    "/a/",
    "/,/",
    "/a+/",
    "/(a)/",
    "/(a)(b)/",
    "/(a)(b)?(c)?/",
    "/(a)|(b)/",
    "/((a)b)/",
    "/x*/",
    "/(x*)/",
    "/$/",
    "/^a/",
    "/\\b/",
    "/(?<=a)/",
    "/(?=b)/",
    "/(?=(b))/",
    "/(?=.*(c))(a)/",
    "/\\s*,\\s*/",
    "/(\\w)=(\\w)/",
    "/\\r?\\n/",
    "/(?<=a)b|c*/",
    "/(?=ab\\K)/",
    "/(*UTF8)./",
    "/(*UTF8),|(\\x{e4})/",
    "/[^,]*/",
    "/(a*)(b*)/",
    "/a\\Kb/",
    "/(?(?=a)ab|(c))/",
};

}  // namespace orvil::fuzz
