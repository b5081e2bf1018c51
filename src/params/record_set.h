// The records behind a record set: their pool, their two orders, and what one consists of.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "orvil/params/typed_records.h"

namespace orvil::detail {

// Hosts never see this structure; the order of its fields is kept all the same, but for the last one.
struct Record {
    char* name;           // owned; null when there was no memory for it
    char type;            // 0 while the record is free
    unsigned char flags;  // kInUse
    union Value {
        int i;
        double d;
        char* s;  // owned
    } value;
    char cache_type;  // of a conversion; 0 while there is none
    Value cache;
    vpr_set_t* set;
    adl_link_t link;        // in the set's records or its free ones
    arbt_node_t node;       // in the set's tree while in use
    std::uint64_t leading;  // the name's first bytes, as RecordKey has them
};

inline constexpr unsigned char kInUse = 1;

// The least number of records by which a pool grows.
inline constexpr int kSmallestBlock = 4;

inline Record* record_of(const adl_link_t* link) {
    return reinterpret_cast<Record*>(reinterpret_cast<std::uintptr_t>(link) - offsetof(Record, link));
}

inline Record* record_of(const arbt_node_t* node) {
    return reinterpret_cast<Record*>(reinterpret_cast<std::uintptr_t>(node) - offsetof(Record, node));
}

// A name, with its first eight bytes as a number that compares as they do: most comparisons need no other byte.
class RecordKey {
public:
    explicit RecordKey(const char* text) : text_(text), leading_(leading_bytes(text)) {}

    const char* text() const { return text_; }
    std::uint64_t leading() const { return leading_; }

    // As strcmp() of this name and the record's.
    int compare(const Record& record) const {
        if (leading_ != record.leading) {
            return leading_ < record.leading ? -1 : 1;
        }
        const bool ends_there = (leading_ & 0xFF) == 0;
        return ends_there ? 0 : std::strcmp(text_ + kLeadingBytes, record.name + kLeadingBytes);
    }

private:
    static constexpr int kLeadingBytes = 8;

    static std::uint64_t leading_bytes(const char* text);

    const char* text_;
    std::uint64_t leading_;
};

Record* find_record(const vpr_set_t& set, const RecordKey& key);

// The record of a name, which may be null or empty, in a set, which may be null; null when there is none.
Record* find_record(const vpr_set_t* set, const char* name);

// The record's name, "" when it is missing.
inline const char* name_of(const Record& record) {
    return record.name == nullptr ? "" : record.name;
}

// What a walk shows of a record. The string is not copied.
__aVPRESTVITEM_t item_of(const Record& record);

// Adds one block to the pool. False when there is no memory.
bool grow_pool(vpr_set_t& set);

// Adds a record with a copy of the item's value. False when there is one of that name, when there is no memory and when
// the item has no valid type. Without memory for the name the record has none.
bool add_record(vpr_set_t& set, const RecordKey& key, const __aVPRESTVITEM_t& item);

// The same in the place of the record of that name, if there is one: that one is gone in any case. Name and value may
// lie in it.
bool put_record(vpr_set_t& set, const RecordKey& key, const __aVPRESTVITEM_t& item);

// The record is free again.
void delete_record(Record& record);

// Deletes all records. A set of zeros is taken for an empty one.
void delete_records(vpr_set_t& set);

// Releases the blocks of a set without records.
void release_pool(vpr_set_t& set);

}  // namespace orvil::detail
