#include "strings/regex_replace.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <new>
#include <optional>
#include <utility>

#include "strings/regex_rest_search.h"

namespace orvil::detail {
namespace {

// How often groups are replaced before the run is taken for endless: a rest that grows at every step never repeats
// itself. After the first time the rest is no longer than the replacements of one match, unless groups overlap.
constexpr int kMostGroupSteps = 1000;

// The text that replacing groups has left to search.
struct Tail {
    int owners = 1;
    BoundedText text{INT_MAX};
};

// The text still to be searched: the end of the original one or, where groups were replaced, a text of its own.
class Rest {
public:
    explicit Rest(std::string_view original) : view_(original) {}
    explicit Rest(Tail* tail) : tail_(tail), view_(tail->text.view()) {}
    Rest(const Rest& other) : tail_(other.tail_), view_(other.view_) { share(); }
    Rest& operator=(const Rest& other) {
        Rest copy(other);
        std::swap(tail_, copy.tail_);
        std::swap(view_, copy.view_);
        return *this;
    }
    ~Rest() {
        // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDelete): the owners are counted
        if (tail_ != nullptr && --tail_->owners == 0) {
            delete tail_;
        }
    }

    std::string_view view() const { return view_; }
    void drop_front(std::size_t bytes) { view_.remove_prefix(bytes); }

private:
    void share() {
        if (tail_ != nullptr) {
            ++tail_->owners;
        }
    }

    Tail* tail_ = nullptr;
    std::string_view view_;
};

// A run over one text. The text so far is always done_ followed by rest_.
class Replacing {
public:
    Replacing(const regex_entry& entry, std::string_view text, std::string_view replacement, BoundedText& done)
        : search_(entry), replacement_(replacement), done_(done), rest_(text) {}

    bool run();

private:
    // The text before the first of a series of empty matches.
    struct Snapshot {
        std::size_t done;
        Rest rest;
    };

    bool repeats_itself();
    void remember_empty_match();
    void undo_empty_matches();
    bool replace_match();
    bool replace_groups();
    std::size_t append_groups(BoundedText& text) const;

    RegexRestSearch search_;
    std::string_view replacement_;
    BoundedText& done_;
    Rest rest_;
    std::optional<Rest> kept_;  // the rest at step 1, 2, 4, 8, ...: every later one is compared with it
    std::uint64_t step_ = 0;
    std::optional<Snapshot> before_empty_;
    int group_steps_ = 0;
};

bool Replacing::run() {
    while (true) {
        if (repeats_itself()) {
            undo_empty_matches();
            break;
        }
        if (!search_.find(rest_.view())) {
            break;
        }
        remember_empty_match();
        if (search_.pairs() == 1 ? !replace_match() : !replace_groups()) {
            break;
        }
    }
    return done_.append(rest_.view());
}

// The rest alone decides how the run goes on, so one that comes back comes back for ever.
bool Replacing::repeats_itself() {
    if (kept_ && kept_->view() == rest_.view()) {
        return true;
    }
    ++step_;
    if ((step_ & (step_ - 1)) == 0) {
        kept_ = rest_;
    }
    return false;
}

void Replacing::remember_empty_match() {
    if (!search_.is_empty()) {
        before_empty_.reset();
    } else if (!before_empty_) {
        before_empty_ = Snapshot{done_.length(), rest_};
    }
}

void Replacing::undo_empty_matches() {
    if (before_empty_) {
        done_.cut(before_empty_->done);
        rest_ = before_empty_->rest;
    }
}

bool Replacing::replace_match() {
    if (search_.end() == 0) {
        undo_empty_matches();
        return false;
    }
    if (!done_.append(rest_.view().substr(0, static_cast<std::size_t>(search_.begin()))) ||
        !done_.append(replacement_)) {
        return false;
    }
    rest_.drop_front(static_cast<std::size_t>(search_.end()));
    return true;
}

bool Replacing::replace_groups() {
    Tail* tail = new (std::nothrow) Tail;
    if (tail == nullptr) {
        return done_.fail();
    }
    const std::size_t next = append_groups(tail->text);
    rest_ = Rest(tail);
    search_.change_text();
    if (tail->text.failed()) {
        return done_.fail();
    }
    if (next > tail->text.length() || ++group_steps_ == kMostGroupSteps) {
        return false;
    }
    const bool has_room = done_.append(rest_.view().substr(0, next));
    rest_.drop_front(next);
    return has_room;
}

// Appends what the rest becomes and tells where in it the search goes on. A group that is unset, or begins before the
// end of one before it, has no text in front of it.
std::size_t Replacing::append_groups(BoundedText& text) const {
    const std::string_view subject = rest_.view();
    std::size_t copied = 0;
    std::size_t begin = 0;
    for (int group = 1; group < search_.pairs(); ++group) {
        const bool is_set = search_.begin(group) >= 0;
        begin = is_set ? static_cast<std::size_t>(search_.begin(group)) : copied;
        if (begin > copied) {
            text.append(subject.substr(copied, begin - copied));
        }
        text.append(replacement_);
        if (is_set) {
            copied = std::max(copied, static_cast<std::size_t>(search_.end(group)));
        }
    }
    return begin + replacement_.size();
}

}  // namespace

bool replace_regex(const regex_entry& entry, std::string_view text, std::string_view replacement, BoundedText& result) {
    return Replacing(entry, text, replacement, result).run();
}

}  // namespace orvil::detail
