#include "strings/regex_cache.h"

#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>
#include <optional>

#include "orvil/strings/regex.h"
#include "strings/regex_notation.h"

static_assert(offsetof(regex_entry, zero) == 0 && offsetof(regex_entry, signature) == 4);
static_assert(offsetof(regex_entry, text) == 8 && offsetof(regex_entry, length) == 16);
static_assert(offsetof(regex_entry, code) == 24 && offsetof(regex_entry, references) == 32);
static_assert(offsetof(regex_entry, newer) == 40 && offsetof(regex_entry, older) == 48);

namespace orvil::detail {

constinit RegexCache regex_cache;

namespace {

struct Free {
    void operator()(void* block) const { std::free(block); }
};
using OwnedText = std::unique_ptr<char, Free>;

OwnedText duplicate(const char* text, std::size_t length) {
    OwnedText copy(static_cast<char*>(std::malloc(length + 1)));
    if (copy) {
        std::memcpy(copy.get(), text, length);
        copy.get()[length] = '\0';
    }
    return copy;
}

pcre* compile(const RegexNotation& notation) {
    const OwnedText pattern = duplicate(notation.pattern, notation.length);
    const char* message = nullptr;
    int offset = 0;
    return pattern ? pcre_compile(pattern.get(), notation.options, &message, &offset, nullptr) : nullptr;
}

void release(regex_entry* entry) {
    if (entry->study != nullptr) {
        pcre_free_study(entry->study);
    }
    if (entry->code != nullptr) {
        pcre_free(entry->code);
    }
    std::free(entry->text);
    std::free(entry);
}

// Studying cannot fail in a way that matters: without its results searches are only slower.
void study(regex_entry& entry) {
    const char* message = nullptr;
    entry.study = pcre_study(entry.code, PCRE_STUDY_JIT_COMPILE, &message);
    int has_machine_code = 0;
    pcre_fullinfo(entry.code, entry.study, PCRE_INFO_JIT, &has_machine_code);
    entry.has_machine_code = has_machine_code != 0;
    int groups = 0;
    pcre_fullinfo(entry.code, entry.study, PCRE_INFO_CAPTURECOUNT, &groups);
    entry.pairs = groups + 1;
    unsigned long options = 0;
    pcre_fullinfo(entry.code, entry.study, PCRE_INFO_OPTIONS, &options);
    entry.is_utf8 = (options & PCRE_UTF8) != 0;
}

using OwnedEntry = std::unique_ptr<regex_entry, decltype(&release)>;

OwnedEntry make_entry(const char* text) {
    OwnedEntry entry(nullptr, &release);
    const std::optional<RegexNotation> notation = parse_regex_notation(text);
    if (!notation) {
        return entry;
    }
    entry.reset(static_cast<regex_entry*>(std::calloc(1, sizeof(regex_entry))));
    if (!entry) {
        return entry;
    }
    std::memcpy(entry->signature, "UrAs", 4);
    entry->references = 1;
    entry->length = std::strlen(text);
    entry->text = duplicate(text, entry->length).release();
    entry->code = compile(*notation);
    if (entry->text == nullptr || entry->code == nullptr) {
        entry.reset();
        return entry;
    }
    study(*entry);
    return entry;
}

}  // namespace

RegexCache::Recent& RegexCache::recent_for(const char* text) {
    const auto bits = reinterpret_cast<std::uintptr_t>(text);
    return recent_[(bits ^ (bits >> 6)) % recent_.size()];
}

regex_entry* RegexCache::find(const char* text) {
    if (text == nullptr) {
        return nullptr;
    }
    Recent& recent = recent_for(text);
    if (recent.text == text && std::strcmp(recent.entry->text, text) == 0) {
        return recent.entry;
    }
    const std::size_t length = std::strlen(text);
    for (regex_entry* entry = newest_; entry != nullptr; entry = entry->older) {
        if (entry->length <= length && std::memcmp(entry->text, text, entry->length) == 0) {
            if (entry->length == length) {
                recent = {text, entry};
            }
            return entry;
        }
    }
    return nullptr;
}

regex_entry* RegexCache::add(const char* text) {
    OwnedEntry entry = make_entry(text);
    if (!entry || !handles_.insert(entry.get())) {
        return nullptr;
    }
    link(entry.get());
    return entry.release();
}

void RegexCache::link(regex_entry* entry) {
    entry->older = newest_;
    if (newest_ != nullptr) {
        newest_->newer = entry;
    }
    newest_ = entry;
    ++count_;
    recent_.fill({});
}

void RegexCache::remove(regex_entry* entry) {
    if (entry->newer != nullptr) {
        entry->newer->older = entry->older;
    } else {
        newest_ = entry->older;
    }
    if (entry->older != nullptr) {
        entry->older->newer = entry->newer;
    }
    --count_;
    recent_.fill({});
    handles_.erase(entry);
    release(entry);
}

void RegexCache::clear() {
    while (newest_ != nullptr) {
        regex_entry* older = newest_->older;
        release(newest_);
        newest_ = older;
    }
    count_ = 0;
    recent_.fill({});
    handles_.clear();
}

regex_entry* regex_entry_for(const char* pattern) {
    regex_entry* entry = regex_cache.entry_of(pattern);
    return entry != nullptr ? entry : static_cast<regex_entry*>(regex_compile(pattern));
}

}  // namespace orvil::detail

using orvil::detail::regex_cache;

void* regex_compile(const char* text) {
    regex_entry* entry = regex_cache.find(text);
    if (entry == nullptr) {
        return text != nullptr ? regex_cache.add(text) : nullptr;
    }
    if (entry->references < std::numeric_limits<std::int32_t>::max()) {
        ++entry->references;
    }
    return entry;
}

bool regex_remove(const void* handle_or_text) {
    regex_entry* entry = regex_cache.entry_of(handle_or_text);
    if (entry == nullptr) {
        entry = regex_cache.find(static_cast<const char*>(handle_or_text));
    }
    if (entry == nullptr) {
        return false;
    }
    if (entry->references > 0 && --entry->references > 0) {
        return true;
    }
    regex_cache.remove(entry);
    return true;
}

bool regex_check(const void* handle) {
    return regex_cache.entry_of(handle) != nullptr;
}

// PCRE keeps a block for machine code even when there is none, and would lose it when the library is unloaded.
void regex_cleanup() {
    regex_cache.clear();
    pcre_jit_free_unused_memory();
}
