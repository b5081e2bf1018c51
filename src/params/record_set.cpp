#include "params/record_set.h"

#include <climits>
#include <utility>

#include "orvil/runtime/heap.h"
#include "params/active_walks.h"

namespace orvil::detail {
namespace {

static_assert(offsetof(Record, name) == 0 && offsetof(Record, type) == 8 && offsetof(Record, flags) == 9 &&
              offsetof(Record, value) == 16 && offsetof(Record, cache_type) == 24 && offsetof(Record, cache) == 32 &&
              offsetof(Record, set) == 40 && offsetof(Record, link) == 48 && offsetof(Record, node) == 64 &&
              sizeof(Record) == 96);

// What stands in front of the records of a block of the pool.
struct BlockHead {
    void* next;
};
static_assert(sizeof(BlockHead) % alignof(Record) == 0);

// Where a name is in the tree, or would be.
struct RecordPlace {
    Record* record;       // null when there is none of that name
    arbt_node_t* parent;  // of a record that is to be linked here
    arbt_node_t** link;   // that points to it then
};

RecordPlace find_place(vpr_set_t& set, const RecordKey& key) {
    Record* parent = nullptr;
    int order = 0;
    for (arbt_node_t* node = set.tree.node; node != nullptr;
         node = order < 0 ? parent->node.left : parent->node.right) {
        parent = record_of(node);
        order = key.compare(*parent);
        if (order == 0) {
            return {parent, nullptr, nullptr};
        }
    }
    if (parent == nullptr) {
        return {nullptr, nullptr, &set.tree.node};
    }
    return {nullptr, &parent->node, order < 0 ? &parent->node.left : &parent->node.right};
}

// Copies the value of an item into a record that is free.
bool store_value(Record& record, const __aVPRESTVITEM_t& item) {
    switch (item.type) {
        case 'i':
            record.value.i = item.value.i;
            break;
        case 'd':
            record.value.d = item.value.d;
            break;
        case 's':
            record.value.s = vpr_strdup(item.value.s == nullptr ? "" : item.value.s);
            if (record.value.s == nullptr) {
                return false;
            }
            break;
        default:
            return false;
    }
    record.type = item.type;
    record.flags |= kInUse;
    return true;
}

// The texts of a record's value and of its cache, of which it knows no longer.
struct FormerTexts {
    explicit FormerTexts(Record& record)
        : string(record.type == 's' ? record.value.s : nullptr),
          cache(record.cache_type == 's' ? record.cache.s : nullptr) {
        record.type = 0;
        record.cache_type = 0;
        record.flags = static_cast<unsigned char>(record.flags & ~kInUse);
    }
    ~FormerTexts() {
        vpr_free(string);
        vpr_free(cache);
    }
    FormerTexts(const FormerTexts&) = delete;
    FormerTexts& operator=(const FormerTexts&) = delete;

    char* string;
    char* cache;
};

void release_texts(Record& record) {
    const FormerTexts former(record);
    vpr_free(std::exchange(record.name, nullptr));
}

// Gives a record another value and the last place in the order of creation; its name and its place in the tree stay.
// The value may lie in the record itself. Without it the record is deleted.
bool renew_record(Record& record, const __aVPRESTVITEM_t& item) {
    ActiveWalk<Record>::leave_out(&record);
    const FormerTexts former(record);
    if (!store_value(record, item)) {
        delete_record(record);
        return false;
    }
    adl_move_tail(&record.link, &record.set->records);
    return true;
}

// Takes a free record, which becomes the last one in the order of creation, with a copy of the item's value. Null when
// there is no memory or the item has no valid type.
Record* obtain_record(vpr_set_t& set, const __aVPRESTVITEM_t& item) {
    if (set.free_list.next == nullptr || (set.free_list.next == &set.free_list && !grow_pool(set))) {
        return nullptr;
    }
    Record* record = record_of(set.free_list.next);
    if (!store_value(*record, item)) {
        return nullptr;
    }
    adl_move_tail(&record->link, &set.records);
    return record;
}

// Adds a record at its place in the tree. Its name is copied last: without memory it has none.
bool add_at(vpr_set_t& set, const RecordKey& key, const RecordPlace& place, const __aVPRESTVITEM_t& item) {
    Record* record = obtain_record(set, item);
    if (record == nullptr) {
        return false;
    }
    arbt_link_node(&record->node, place.parent, place.link);
    arbt_insert_fixup(&record->node, &set.tree);
    ++set.tree.count;
    record->name = vpr_strdup(key.text());
    record->leading = record->name == nullptr ? 0 : key.leading();
    return true;
}

}  // namespace

std::uint64_t RecordKey::leading_bytes(const char* text) {
    std::uint64_t leading = 0;
    for (int shift = 64 - CHAR_BIT; shift >= 0 && *text != '\0'; shift -= CHAR_BIT) {
        leading |= static_cast<std::uint64_t>(static_cast<unsigned char>(*text++)) << shift;
    }
    return leading;
}

Record* find_record(const vpr_set_t& set, const RecordKey& key) {
    arbt_node_t* node = set.tree.node;
    while (node != nullptr) {
        Record* record = record_of(node);
        const int order = key.compare(*record);
        if (order == 0) {
            return record;
        }
        node = order < 0 ? node->left : node->right;
    }
    return nullptr;
}

Record* find_record(const vpr_set_t* set, const char* name) {
    if (set == nullptr || name == nullptr || *name == '\0') {
        return nullptr;
    }
    return find_record(*set, RecordKey(name));
}

__aVPRESTVITEM_t item_of(const Record& record) {
    __aVPRESTVITEM_t item{};
    item.type = record.type;
    if (record.type == 'd') {
        item.value.d = record.value.d;
    } else if (record.type == 's') {
        item.value.s = record.value.s == nullptr ? "" : record.value.s;
    } else {
        item.value.i = record.value.i;
    }
    return item;
}

bool grow_pool(vpr_set_t& set) {
    const int count = set.block_size < kSmallestBlock ? kSmallestBlock : set.block_size;
    if (set.pool_count > INT_MAX - count) {
        return false;
    }
    void* block = orv_heap_alloc(sizeof(BlockHead) + static_cast<std::size_t>(count) * sizeof(Record));
    if (block == nullptr) {
        return false;
    }
    auto* head = static_cast<BlockHead*>(block);
    head->next = std::exchange(set.blocks, block);
    auto* records = reinterpret_cast<Record*>(head + 1);
    for (int i = 0; i < count; ++i) {
        records[i].set = &set;
        arbt_init_node(&records[i].node);
        adl_add_tail(&set.free_list, &records[i].link);
    }
    set.pool_count += count;
    return true;
}

bool add_record(vpr_set_t& set, const RecordKey& key, const __aVPRESTVITEM_t& item) {
    const RecordPlace place = find_place(set, key);
    return place.record == nullptr && add_at(set, key, place, item);
}

bool put_record(vpr_set_t& set, const RecordKey& key, const __aVPRESTVITEM_t& item) {
    const RecordPlace place = find_place(set, key);
    return place.record == nullptr ? add_at(set, key, place, item) : renew_record(*place.record, item);
}

void delete_record(Record& record) {
    ActiveWalk<Record>::leave_out(&record);
    arbt_erase_entry(&record.node, &record.set->tree);
    adl_move_head(&record.link, &record.set->free_list);
    release_texts(record);
}

void delete_records(vpr_set_t& set) {
    ActiveWalk<Record>::end_at([&set](const Record* record) { return record->set == &set; });
    for (adl_link_t* link = set.records.next; link != nullptr && link != &set.records; link = link->next) {
        release_texts(*record_of(link));
    }
    adl_splice_init(&set.records, &set.free_list);
    arbt_init_root(&set.tree);
}

void release_pool(vpr_set_t& set) {
    while (set.blocks != nullptr) {
        void* block = set.blocks;
        set.blocks = static_cast<BlockHead*>(block)->next;
        orv_heap_free(block);
    }
    adl_init(&set.free_list);
    set.pool_count = 0;
}

}  // namespace orvil::detail
