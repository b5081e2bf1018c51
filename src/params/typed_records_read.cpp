#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "orvil/params/typed_records.h"
#include "params/active_walks.h"
#include "params/record_set.h"

using orvil::detail::find_record;
using orvil::detail::Record;
using orvil::detail::record_of;

namespace {

constexpr std::size_t kPrintedNumber = 514;

const char* string_of(const Record& record) {
    return record.value.s == nullptr ? "" : record.value.s;
}

bool is_hexadecimal(const char* text) {
    return text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
}

// 64 bits are read everywhere, so that the clamped result does not depend on the size of a long.
int to_int(const char* text) {
    const long long value = std::strtoll(text, nullptr, is_hexadecimal(text) ? 16 : 10);
    return static_cast<int>(std::clamp<long long>(value, INT_MIN, INT_MAX));
}

int to_int(double value) {
    const bool fits = value > INT_MIN && value < INT_MAX + 1.0;
    return fits ? static_cast<int>(value) : INT_MIN;
}

// The record remembers one conversion; a string of an earlier one goes.
Record::Value& renew_cache(Record& record, char type) {
    if (record.cache_type == 's') {
        vpr_free(record.cache.s);
    }
    record.cache_type = type;
    return record.cache;
}

int cached_int(Record& record) {
    if (record.cache_type != 'i') {
        const int value = record.type == 'd' ? to_int(record.value.d) : to_int(string_of(record));
        renew_cache(record, 'i').i = value;
    }
    return record.cache.i;
}

double cached_double(Record& record) {
    if (record.cache_type != 'd') {
        const double value = record.type == 'i' ? record.value.i : std::strtod(string_of(record), nullptr);
        renew_cache(record, 'd').d = value;
    }
    return record.cache.d;
}

const char* cached_string(Record& record) {
    if (record.cache_type != 's') {
        char printed[kPrintedNumber];
        if (record.type == 'i') {
            std::snprintf(printed, sizeof printed, "%d", record.value.i);
        } else {
            std::snprintf(printed, sizeof printed, "%.15lf", record.value.d);
        }
        char* text = vpr_strdup(printed);
        if (text == nullptr) {
            return "";
        }
        renew_cache(record, 's').s = text;
    }
    return record.cache.s;
}

Record* find_and_tell(const vpr_set_t* set, const char* name, char* typeOut) {
    Record* record = find_record(set, name);
    if (typeOut != nullptr) {
        *typeOut = record == nullptr ? '\0' : record->type;
    }
    return record;
}

const Record* find_typed(const vpr_set_t* set, const char* name, char type) {
    const Record* record = find_record(set, name);
    return record == nullptr || record->type != type ? nullptr : record;
}

Record* next_created(const Record* record) {
    const adl_link_t* next = record->link.next;
    return next == &record->set->records ? nullptr : record_of(next);
}

Record* record_or_null(const arbt_node_t* node) {
    return node == nullptr ? nullptr : record_of(node);
}

Record* next_named(const Record* record) {
    return record_or_null(arbt_get_next(&record->node));
}

Record* previous_named(const Record* record) {
    return record_or_null(arbt_get_prev(&record->node));
}

using Walk = orvil::detail::ActiveWalk<Record>;

Walk begin_walk(const vpr_set_t& set, int order) {
    const int limit = set.tree.count;
    if (order > 0) {
        return Walk(record_or_null(arbt_get_first(&set.tree)), next_named, limit);
    }
    if (order < 0) {
        return Walk(record_or_null(arbt_get_last(&set.tree)), previous_named, limit);
    }
    return Walk(limit == 0 ? nullptr : record_of(set.records.next), next_created, limit);
}

}  // namespace

char vpr_type(const vpr_set_t* set, const char* name) {
    const Record* record = find_record(set, name);
    return record == nullptr ? '\0' : record->type;
}

int vpr_ref_int(const vpr_set_t* set, const char* name) {
    const Record* record = find_typed(set, name, 'i');
    return record == nullptr ? 0 : record->value.i;
}

double vpr_ref_dbl(const vpr_set_t* set, const char* name) {
    const Record* record = find_typed(set, name, 'd');
    return record == nullptr ? 0.0 : record->value.d;
}

const char* vpr_ref_str(const vpr_set_t* set, const char* name) {
    const Record* record = find_typed(set, name, 's');
    return record == nullptr ? "" : string_of(*record);
}

int vpr_get_int(const vpr_set_t* set, const char* name, char* typeOut) {
    Record* record = find_and_tell(set, name, typeOut);
    if (record == nullptr) {
        return 0;
    }
    return record->type == 'i' ? record->value.i : cached_int(*record);
}

double vpr_get_dbl(const vpr_set_t* set, const char* name, char* typeOut) {
    Record* record = find_and_tell(set, name, typeOut);
    if (record == nullptr) {
        return 0.0;
    }
    return record->type == 'd' ? record->value.d : cached_double(*record);
}

const char* vpr_get_str(const vpr_set_t* set, const char* name, char* typeOut) {
    Record* record = find_and_tell(set, name, typeOut);
    if (record == nullptr) {
        return "";
    }
    return record->type == 's' ? string_of(*record) : cached_string(*record);
}

int vpr_traverse(const vpr_set_t* set, int order, vpr_visit_t callback, void* user) {
    if (set == nullptr) {
        return -1;
    }
    if (callback == nullptr) {
        return 0;
    }
    Walk walk = begin_walk(*set, order);
    while (const Record* record = walk.take()) {
        const __aVPRESTVITEM_t item = orvil::detail::item_of(*record);
        const int result = callback(orvil::detail::name_of(*record), &item, user);
        if (result != 0) {
            return result;
        }
    }
    return 0;
}
