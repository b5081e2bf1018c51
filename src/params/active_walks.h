// Walks whose callbacks may remove what comes next.
#pragma once

namespace orvil::detail {

// One walk over elements. While it lives, an element that is about to be removed is left out of it, and out of all
// other walks, by leave_out(). Walks end in the opposite order of their beginning.
template <typename Element>
class ActiveWalk {
public:
    // `following` gives the element behind another one, or null.
    using Following = Element* (*)(const Element* element);

    // A walk of at most `limit` elements, so that one which grows as it is walked ends, too.
    ActiveWalk(Element* first, Following following, int limit)
        : next_(first), following_(following), left_(limit), outer_(innermost_) {
        innermost_ = this;
    }
    ~ActiveWalk() { innermost_ = outer_; }
    ActiveWalk(const ActiveWalk&) = delete;
    ActiveWalk& operator=(const ActiveWalk&) = delete;

    // The next element, or null at the end.
    Element* take() {
        Element* element = left_-- > 0 ? next_ : nullptr;
        if (element != nullptr) {
            next_ = following_(element);
        }
        return element;
    }

    // To be called while the element still has its place.
    static void leave_out(const Element* element) {
        for (ActiveWalk* walk = innermost_; walk != nullptr; walk = walk->outer_) {
            if (walk->next_ == element) {
                walk->next_ = walk->following_(element);
            }
        }
    }

    // Ends the walks whose next element is one of those that `is_removed` names.
    template <typename Predicate>
    static void end_at(Predicate is_removed) {
        for (ActiveWalk* walk = innermost_; walk != nullptr; walk = walk->outer_) {
            if (walk->next_ != nullptr && is_removed(walk->next_)) {
                walk->next_ = nullptr;
            }
        }
    }

private:
    static inline ActiveWalk* innermost_ = nullptr;

    Element* next_;
    Following following_;
    int left_;
    ActiveWalk* outer_;
};

}  // namespace orvil::detail
