// Message maps as lines of text, and maps to begin with.
#pragma once

#include <string>

#include "orvil/messages/message_map.h"
#include "support/temp_dir.h"

namespace orvil::test {

// A map whose protected members can be reached.
class MapProbe : public CMessageMap {
public:
    using CMessageMap::GetItem;
    using CMessageMap::index_;
    using CMessageMap::items_;
    using CMessageMap::SearchIndex;
};

// Subject and positions, a hole as a tilde: "12 Title: 5=five ~ 7=seven".
std::string show(const CMessageMap& map);

// The elements in brackets: "[a][b]".
std::string show(const CExtStrArray& array);

// What MakeCodeArray() gives, in brackets.
std::string codes_of(const CMessageMap& map);

// A map with the codes 0 to count-1 and the texts t0, t1 and so on.
MapProbe numbered_map(int count);

// Takes the right to write a file away for as long as it lives.
class WriteProtection {
public:
    explicit WriteProtection(const std::string& path);
    ~WriteProtection();
    WriteProtection(const WriteProtection&) = delete;
    WriteProtection& operator=(const WriteProtection&) = delete;

private:
    std::string path_;
};

// What a message file begins with, for a file of that name and the usual banner.
std::string usual_heading(const std::string& name);

// What every message file ends with.
inline const std::string kClosing = "\r\n/* END OF FILE */\r\n\r\n";

// The keys of the codes 0 to count-1 in the order in which a hash of so many buckets lists them, in brackets.
std::string listed_keys(int count, int buckets);

}  // namespace orvil::test
