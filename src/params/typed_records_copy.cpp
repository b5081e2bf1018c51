#include <cstring>

#include "orvil/params/typed_records.h"
#include "params/record_set.h"

using orvil::detail::add_record;
using orvil::detail::item_of;
using orvil::detail::Record;

namespace {

constexpr int kFailed = 1;
constexpr int kNoDestination = 4;
constexpr int kNoSource = 5;
constexpr int kNoWorkCopy = 6;
constexpr int kInvalidType = -1;

int missing_set(const vpr_set_t* dst, const vpr_set_t* src) {
    if (dst == nullptr) {
        return kNoDestination;
    }
    return src == nullptr ? kNoSource : 0;
}

bool is_valid_type(char type) {
    return type == 'i' || type == 'd' || type == 's';
}

orvil::detail::RecordKey key_of(const Record& record) {
    return orvil::detail::RecordKey(orvil::detail::name_of(record));
}

// Copies the records that the mask names. The separators are overwritten.
int copy_named(vpr_set_t& dst, const vpr_set_t& src, char* mask, char separator) {
    for (char* piece = mask; piece != nullptr;) {
        char* end = std::strchr(piece, separator);
        if (end != nullptr) {
            *end = '\0';
        }
        const Record* record = orvil::detail::find_record(&src, piece);
        if (record != nullptr && !add_record(dst, key_of(*record), item_of(*record))) {
            return kFailed;
        }
        piece = end == nullptr ? nullptr : end + 1;
    }
    return 0;
}

int update_record(vpr_set_t& dst, const Record& source) {
    if (!is_valid_type(source.type)) {
        return kInvalidType;
    }
    return orvil::detail::put_record(dst, key_of(source), item_of(source)) ? 0 : kFailed;
}

}  // namespace

int vpr_copy(vpr_set_t* dst, const vpr_set_t* src) {
    const int missing = missing_set(dst, src);
    if (missing != 0) {
        return missing;
    }
    vpr_clear(dst);
    for (const adl_link_t* link = src->records.next; link != nullptr && link != &src->records; link = link->next) {
        const Record& record = *orvil::detail::record_of(link);
        if (!add_record(*dst, key_of(record), item_of(record))) {
            return kFailed;
        }
    }
    return 0;
}

int vpr_masked_copy(vpr_set_t* dst, const vpr_set_t* src, const char* mask, char separator) {
    const int missing = missing_set(dst, src);
    if (missing != 0) {
        return missing;
    }
    if (mask == nullptr || separator == '\0') {
        return vpr_copy(dst, src);
    }
    char* work_copy = vpr_strdup(mask);
    if (work_copy == nullptr) {
        return kNoWorkCopy;
    }
    vpr_clear(dst);
    const int result = copy_named(*dst, *src, work_copy, separator);
    vpr_free(work_copy);
    return result;
}

int vpr_update(vpr_set_t* dst, const vpr_set_t* src) {
    const int missing = missing_set(dst, src);
    if (missing != 0 || dst == src) {
        return missing;
    }
    for (const adl_link_t* link = src->records.next; link != nullptr && link != &src->records; link = link->next) {
        const int result = update_record(*dst, *orvil::detail::record_of(link));
        if (result != 0) {
            return result;
        }
    }
    return 0;
}
