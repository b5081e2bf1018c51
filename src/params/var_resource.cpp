#include "orvil/params/var_resource.h"

#include <cstddef>

namespace {

constexpr int kBlockSize = 8;
constexpr int kInitialCount = 16;

// Hosts rely on the layout.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
struct Layout : CVarResource {
    static constexpr bool is_as_promised() {
        return sizeof(Layout) == sizeof(vpr_set_t) + 16 && offsetof(Layout, set_) == 8 &&
               offsetof(Layout, resource_) == 8 + sizeof(vpr_set_t);
    }
};
#pragma GCC diagnostic pop
static_assert(Layout::is_as_promised());

}  // namespace

CVarResource::CVarResource() : CVarResource(kBlockSize, kInitialCount) {
}

CVarResource::CVarResource(int blockSize, int initialCount)
    : resource_(vpr_init(&set_, initialCount, blockSize) == 0 ? &set_ : nullptr) {
}

CVarResource::CVarResource(const CVarResource& source) = default;

// The own set stays an empty one, since copies of this object may use it.
CVarResource& CVarResource::operator=(const CVarResource& source) {
    if (resource_ == &set_ && source.resource_ != &set_) {
        vpr_destroy(&set_);
    }
    resource_ = source.resource_;
    return *this;
}

CVarResource::~CVarResource() {
    vpr_destroy(resource_);
}

bool CVarResource::Clear() {
    return vpr_clear(resource_) == 0;
}

bool CVarResource::Copy(const CVarResource& source) {
    return vpr_copy(resource_, source.resource_) == 0;
}

bool CVarResource::MaskedCopy(const CVarResource& source, const char* mask, char separator) {
    return vpr_masked_copy(resource_, source.resource_, mask, separator) == 0;
}

bool CVarResource::Update(const CVarResource& source) {
    return vpr_update(resource_, source.resource_) == 0;
}

bool CVarResource::Add(const char* name, char type, const void* value) {
    return vpr_add(resource_, name, type, value) == 0;
}

bool CVarResource::Delete(const char* name) {
    return vpr_delete(resource_, name) == 0;
}

bool CVarResource::AddInt(const char* name, int value) {
    return vpr_add_int(resource_, name, value) == 0;
}

bool CVarResource::AddDbl(const char* name, double value) {
    return vpr_add_dbl(resource_, name, value) == 0;
}

bool CVarResource::AddStr(const char* name, const char* value) {
    return vpr_add_str(resource_, name, value) == 0;
}

bool CVarResource::AddStrFormat(const char* name, const char* format, ...) {
    va_list args;
    va_start(args, format);
    const bool added = AddStrFormatV(name, format, args);
    va_end(args);
    return added;
}

bool CVarResource::AddStrFormatV(const char* name, const char* format, va_list args) {
    return vpr_add_vstrf(resource_, name, format, args) == 0;
}

int CVarResource::Count() const {
    return vpr_count(resource_);
}

char CVarResource::Type(const char* name) const {
    return vpr_type(resource_, name);
}

int CVarResource::RefInt(const char* name) const {
    return vpr_ref_int(resource_, name);
}

double CVarResource::RefDbl(const char* name) const {
    return vpr_ref_dbl(resource_, name);
}

const char* CVarResource::RefStr(const char* name) const {
    return vpr_ref_str(resource_, name);
}

int CVarResource::GetInt(const char* name, char* typeOut) const {
    return vpr_get_int(resource_, name, typeOut);
}

double CVarResource::GetDbl(const char* name, char* typeOut) const {
    return vpr_get_dbl(resource_, name, typeOut);
}

const char* CVarResource::GetStr(const char* name, char* typeOut) const {
    return vpr_get_str(resource_, name, typeOut);
}

int CVarResource::Traverse(int order, vpr_visit_t callback, void* user) const {
    return vpr_traverse(resource_, order, callback, user);
}
