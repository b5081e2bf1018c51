#include "strings/regex_replace.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <new>
#include <optional>
#include <utility>

#include "strings/regex_rest_search.h"

namespace orvil::detail {
namespace {

// How many bytes the replacing of groups may write, beyond the text's own, before the run is taken for endless. A rest
// that never repeats itself can grow for ever.
constexpr std::size_t kMostGroupBytes = std::size_t{16} << 20;

// The text still to be searched: the end of the original one or, where groups were replaced, a text of its own.
class Rest {
public:
    explicit Rest(std::string_view original) : view_(original) {}

    std::string_view view() const { return view_; }
    void drop_front(std::size_t bytes) { view_.remove_prefix(bytes); }

    void become(std::string text) {
        owner_ = std::make_shared<const std::string>(std::move(text));
        view_ = *owner_;
    }

private:
    std::shared_ptr<const std::string> owner_;
    std::string_view view_;
};

// A run over one text. The text so far is always done_ followed by rest_.
class Replacing {
public:
    Replacing(const regex_entry& entry, std::string_view text, std::string_view replacement, std::size_t longest)
        : search_(entry),
          replacement_(replacement),
          longest_(longest),
          rest_(text),
          group_bytes_left_(text.size() + kMostGroupBytes) {}

    std::string run();

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
    std::string new_text_of_groups(std::size_t& next) const;
    void append(std::string_view text);

    RegexRestSearch search_;
    std::string_view replacement_;
    std::size_t longest_;
    std::string done_;
    Rest rest_;
    std::optional<Rest> kept_;  // the rest at step 1, 2, 4, 8, ...: every later one is compared with it
    std::uint64_t step_ = 0;
    std::optional<Snapshot> before_empty_;
    std::size_t group_bytes_left_;
};

std::string Replacing::run() {
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
    append(rest_.view());
    return std::move(done_);
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
        before_empty_ = Snapshot{done_.size(), rest_};
    }
}

void Replacing::undo_empty_matches() {
    if (before_empty_) {
        done_.resize(before_empty_->done);
        rest_ = before_empty_->rest;
    }
}

bool Replacing::replace_match() {
    if (search_.end() == 0) {
        undo_empty_matches();
        return false;
    }
    append(rest_.view().substr(0, static_cast<std::size_t>(search_.begin())));
    append(replacement_);
    rest_.drop_front(static_cast<std::size_t>(search_.end()));
    return true;
}

bool Replacing::replace_groups() {
    std::size_t next = 0;
    std::string text = new_text_of_groups(next);
    const bool goes_on = next <= text.size() && text.size() <= group_bytes_left_;
    group_bytes_left_ -= std::min(group_bytes_left_, text.size());
    if (goes_on) {
        append(std::string_view(text).substr(0, next));
        text.erase(0, next);
    }
    rest_.become(std::move(text));
    search_.change_text();
    return goes_on;
}

// What the rest becomes, and where in it the search goes on. A group that is unset, or begins before the end of one
// before it, has no text in front of it.
std::string Replacing::new_text_of_groups(std::size_t& next) const {
    const std::string_view subject = rest_.view();
    std::string text;
    std::size_t copied = 0;
    std::size_t begin = 0;
    for (int group = 1; group < search_.pairs(); ++group) {
        const bool is_set = search_.begin(group) >= 0;
        begin = is_set ? static_cast<std::size_t>(search_.begin(group)) : copied;
        if (begin > copied) {
            text += subject.substr(copied, begin - copied);
        }
        text += replacement_;
        if (is_set) {
            copied = std::max(copied, static_cast<std::size_t>(search_.end(group)));
        }
    }
    next = begin + replacement_.size();
    return text;
}

void Replacing::append(std::string_view text) {
    if (text.size() > longest_ - done_.size()) {
        throw std::bad_alloc();
    }
    done_ += text;
}

}  // namespace

std::string replace_regex(const regex_entry& entry, std::string_view text, std::string_view replacement,
                          std::size_t longest) {
    return Replacing(entry, text, replacement, longest).run();
}

}  // namespace orvil::detail
