#include "orvil/params/typed_records.h"

#include <algorithm>
#include <cstring>

#include "orvil/runtime/heap.h"
#include "params/record_set.h"

using orvil::detail::Record;
using orvil::detail::RecordKey;

namespace {

// Hosts rely on the layout.
static_assert(offsetof(vpr_set_t, records) == 0 && offsetof(vpr_set_t, tree) == 16 &&
              offsetof(vpr_set_t, block_size) == 32 && offsetof(vpr_set_t, pool_count) == 36 &&
              offsetof(vpr_set_t, free_list) == 40 && offsetof(vpr_set_t, blocks) == 56 && sizeof(vpr_set_t) == 64);
static_assert(offsetof(__aVPRESTVITEM_t, type) == 0 && offsetof(__aVPRESTVITEM_t, value) == 8 &&
              sizeof(__aVPRESTVITEM_t) == 16);

constexpr int kFailed = 1;
constexpr int kNoPool = 2;
constexpr int kBadArgument = -1;
constexpr int kSmallestPool = 8;

bool is_bad(const vpr_set_t* set, const char* name) {
    return set == nullptr || name == nullptr || *name == '\0';
}

int put_item(vpr_set_t* set, const char* name, const __aVPRESTVITEM_t& item) {
    if (is_bad(set, name)) {
        return kBadArgument;
    }
    return orvil::detail::put_record(*set, RecordKey(name), item) ? 0 : kFailed;
}

}  // namespace

int vpr_init(vpr_set_t* set, int initialCount, int blockSize) {
    if (set == nullptr) {
        return 1;
    }
    *set = {};
    adl_init(&set->records);
    adl_init(&set->free_list);
    set->block_size = std::max(blockSize, orvil::detail::kSmallestBlock);
    const int wanted = std::max({initialCount, kSmallestPool, set->block_size});
    while (set->pool_count < wanted) {
        if (!orvil::detail::grow_pool(*set)) {
            vpr_destroy(set);
            return kNoPool;
        }
    }
    return 0;
}

int vpr_clear(vpr_set_t* set) {
    if (set == nullptr) {
        return kBadArgument;
    }
    orvil::detail::delete_records(*set);
    return 0;
}

int vpr_destroy(vpr_set_t* set) {
    if (set == nullptr) {
        return kBadArgument;
    }
    orvil::detail::delete_records(*set);
    orvil::detail::release_pool(*set);
    return 0;
}

int vpr_count(const vpr_set_t* set) {
    return set == nullptr ? 0 : set->tree.count;
}

int vpr_add(vpr_set_t* set, const char* name, char type, const void* value) {
    __aVPRESTVITEM_t item{};
    item.type = type;
    if (type == 's') {
        item.value.s = static_cast<const char*>(value);
    } else if (type == 'i' || type == 'd') {
        if (value == nullptr) {
            return kBadArgument;
        }
        std::memcpy(&item.value, value, type == 'i' ? sizeof(int) : sizeof(double));
    }
    return put_item(set, name, item);
}

int vpr_add_int(vpr_set_t* set, const char* name, int value) {
    return vpr_add(set, name, 'i', &value);
}

int vpr_add_dbl(vpr_set_t* set, const char* name, double value) {
    return vpr_add(set, name, 'd', &value);
}

int vpr_add_str(vpr_set_t* set, const char* name, const char* value) {
    return vpr_add(set, name, 's', value);
}

int vpr_add_strf(vpr_set_t* set, const char* name, const char* format, ...) {
    va_list args;
    va_start(args, format);
    const int result = vpr_add_vstrf(set, name, format, args);
    va_end(args);
    return result;
}

int vpr_add_vstrf(vpr_set_t* set, const char* name, const char* format, va_list args) {
    if (is_bad(set, name) || format == nullptr) {
        return kBadArgument;
    }
    char* text = vpr_vstrf(format, args);
    if (text == nullptr) {
        return kFailed;
    }
    const int result = vpr_add(set, name, 's', text);
    vpr_free(text);
    return result;
}

int vpr_delete(vpr_set_t* set, const char* name) {
    if (is_bad(set, name)) {
        return kBadArgument;
    }
    Record* record = orvil::detail::find_record(set, name);
    if (record == nullptr) {
        return kFailed;
    }
    orvil::detail::delete_record(*record);
    return 0;
}
