// Naive models of the containers that ask for memory in the stated order and are refused it where the tests refuse it.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvil::test {

// Grants what support/failing_allocator.h grants, by counting.
class Refusals {
public:
    Refusals(int nth, bool and_all_later) : nth_(nth), and_all_later_(and_all_later) {}

    bool grants() {
        ++count_;
        const bool refused = count_ == nth_ || (and_all_later_ && count_ > nth_);
        happened_ = happened_ || refused;
        return !refused;
    }
    bool happened() const { return happened_; }

private:
    int nth_;
    bool and_all_later_;
    int count_ = 0;
    bool happened_ = false;
};

using Texts = std::vector<std::string>;

// Elements as they are shown: in brackets, "[]" for one whose text was refused, "~" for an empty slot.
class ArrayModel {
public:
    explicit ArrayModel(Refusals& refusals) : refusals_(refusals) {}

    // Without refusals, as the tests prepare the array.
    void prepare(const Texts& texts) {
        Refusals none(0, false);
        ArrayModel prepared(none);
        prepared.append_all(texts);
        slots_ = prepared.slots_;
        capacity_ = prepared.capacity_;
    }
    bool resize(std::size_t size) {
        const std::size_t need = (size / 16 + 1) * 16;
        if (need > capacity_) {
            if (!refusals_.grants()) {
                return false;
            }
            capacity_ = need;
        }
        slots_.resize(size, "[~]");
        return true;
    }
    // An element takes an object, then its text.
    bool put(std::size_t i, const std::string& text) {
        if (text.empty()) {
            slots_[i] = "[~]";
            return true;
        }
        if (!refusals_.grants()) {
            return false;
        }
        slots_[i] = "[" + (refusals_.grants() ? text : "") + "]";
        return true;
    }
    bool append(const std::string& text) { return resize(slots_.size() + 1) && put(slots_.size() - 1, text); }
    bool append_all(const Texts& texts) {
        return std::all_of(texts.begin(), texts.end(), [this](const std::string& text) { return append(text); });
    }
    // The text is formatted into a buffer of its own; without one it is empty.
    bool append_formatted(const std::string& text) { return append(refusals_.grants() ? text : ""); }
    bool put_all(std::size_t i, const Texts& texts) {
        return std::all_of(texts.begin(), texts.end(), [&](const std::string& text) { return put(i++, text); });
    }
    bool insert_all(std::size_t i, const Texts& texts) {
        const std::size_t old_size = slots_.size();
        if (!resize(old_size + texts.size())) {
            return false;
        }
        const auto at = [this](std::size_t k) { return slots_.begin() + static_cast<std::ptrdiff_t>(k); };
        std::rotate(at(i), at(old_size), slots_.end());
        return put_all(i, texts);
    }
    bool replace_by(const Texts& texts) {
        clear();
        return texts.empty() || (resize(texts.size()) && put_all(0, texts));
    }
    void clear() {
        slots_.clear();
        capacity_ = 0;
    }
    std::string shown() const {
        std::string all;
        for (const std::string& slot : slots_) {
            all += slot;
        }
        return all;
    }
    std::size_t capacity() const { return capacity_; }

private:
    Refusals& refusals_;
    Texts slots_;
    std::size_t capacity_ = 0;
};

// A text that grows by appending. The first piece takes a buffer; a later one that does not fit takes a larger one.
class TextModel {
public:
    explicit TextModel(Refusals& refusals) : refusals_(refusals) {}

    void append(const std::string& piece) {
        const std::size_t need = (text_.size() + piece.size()) / 8 * 8 + 8;
        if (piece.empty() || (need > capacity_ && !refusals_.grants())) {
            return;
        }
        capacity_ = std::max(capacity_, need);
        text_ += piece;
    }
    void join(const Texts& texts, const std::string& separator) {
        for (const std::string& text : texts) {
            append(text_.empty() ? "" : separator);
            append(text);
        }
    }
    const std::string& text() const { return text_; }

private:
    Refusals& refusals_;
    std::string text_;
    std::size_t capacity_ = 0;
};

// Nodes stay when their texts are refused.
class ListModel {
public:
    ListModel(Refusals& refusals, Texts texts) : refusals_(refusals), texts_(std::move(texts)) {}

    bool add(const std::string& text, bool at_head) {
        if (!refusals_.grants()) {
            return false;
        }
        const bool kept = text.empty() || refusals_.grants();
        texts_.insert(at_head ? texts_.begin() : texts_.end(), kept ? text : "");
        return true;
    }
    bool add_all(const Texts& texts) {
        return std::all_of(texts.begin(), texts.end(), [this](const std::string& text) { return add(text, false); });
    }
    bool prepend_all(const Texts& texts) {
        return std::all_of(texts.rbegin(), texts.rend(), [this](const std::string& text) { return add(text, true); });
    }
    void clear() { texts_.clear(); }
    std::string shown() const {
        std::string all;
        for (const std::string& text : texts_) {
            all += "[" + text + "]";
        }
        return all;
    }

private:
    Refusals& refusals_;
    Texts texts_;
};

using Pair = std::pair<std::string, std::string>;

// An entry takes the buckets if there are none, a node, its key and its value; only without the last it stays.
class HashModel {
public:
    explicit HashModel(Refusals& refusals) : refusals_(refusals) {}

    // Without refusals, as the tests prepare the hash.
    void prepare(const std::vector<Pair>& entries) {
        entries_ = entries;
        has_buckets_ = !entries.empty();
    }
    bool make_buckets() {
        has_buckets_ = refusals_.grants();
        return has_buckets_;
    }
    bool set(const std::string& key, const std::string& value) {
        const auto has_key = [&](const Pair& entry) { return entry.first == key; };
        auto entry = std::find_if(entries_.begin(), entries_.end(), has_key);
        if (entry == entries_.end()) {
            if ((!has_buckets_ && !make_buckets()) || !refusals_.grants() || !refusals_.grants()) {
                return false;
            }
            entry = entries_.insert(entry, {key, ""});
        }
        entry->second = value.empty() || refusals_.grants() ? value : "";
        return true;
    }
    bool set_all(const std::vector<Pair>& pairs) {
        return std::all_of(pairs.begin(), pairs.end(), [this](const Pair& p) { return set(p.first, p.second); });
    }
    void clear() {
        entries_.clear();
        has_buckets_ = false;
    }
    std::string shown() const {
        std::vector<Pair> sorted = entries_;
        std::sort(sorted.begin(), sorted.end());
        std::string all;
        for (const Pair& entry : sorted) {
            all += entry.first + "=" + entry.second + ";";
        }
        return all;
    }

private:
    Refusals& refusals_;
    std::vector<Pair> entries_;
    bool has_buckets_ = false;
};

}  // namespace orvil::test
