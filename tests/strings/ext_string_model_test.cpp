// Random sequences of operations beside a model over std::string, which also knows the capacity and the books.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <iostream>
#include <random>
#include <string>

#include "orvil/strings/ext_string.h"
#include "runtime/buffer_statistics.h"
#include "strings/ext_string_probe.h"

namespace {

int need(std::size_t length) {
    return static_cast<int>(length) / 8 * 8 + 8;
}

// A string as the rules describe it. `booked` is what it has added to the books so far.
struct Model {
    std::string text;
    bool buffer = false;
    int capacity = 0;
    std::int64_t booked = 0;

    void empty() {
        booked -= capacity;
        text.clear();
        buffer = false;
        capacity = 0;
    }

    void fill(char c, int n) { fill_with(std::string(static_cast<std::size_t>(n), c)); }

    void fill_with(const std::string& s) {
        empty();
        text = s;
        buffer = true;
        capacity = need(text.size());
        booked += capacity + 1;
    }

    void assign(const std::string& s) {
        if (s.empty()) {
            empty();
            return;
        }
        booked += need(s.size()) + 1 - capacity;
        text = s;
        buffer = true;
        capacity = need(s.size());
    }

    void append(const std::string& s) {
        if (text.empty()) {
            assign(s);
            return;
        }
        text += s;
        if (capacity < need(text.size())) {
            booked += need(text.size()) - capacity + 1;
            capacity = need(text.size());
        }
    }

    void trim(bool left, bool right, const std::string& set) {
        if (text.empty()) {
            return;
        }
        std::string kept = text;
        if (left) {
            kept.erase(0, std::min(kept.find_first_not_of(set), kept.size()));
        }
        if (right) {
            kept.erase(kept.find_last_not_of(set) + 1);
        }
        assign(kept);
        booked += kept.empty() ? 0 : 1;  // the returned copy comes and goes
    }
};

class RandomWalk {
public:
    explicit RandomWalk(std::uint32_t seed) : random_(seed) {}
    ~RandomWalk() {
        string_.Empty();
        model_.empty();
        EXPECT_EQ(booked(), model_.booked);
    }
    RandomWalk(const RandomWalk&) = delete;
    RandomWalk& operator=(const RandomWalk&) = delete;

    void step() {
        switch (pick(6)) {
            case 0:
                replace();
                break;
            case 1:
                trim();
                break;
            case 2:
                change();
                break;
            default:
                append();
        }
        check();
    }

private:
    static constexpr int kLongestText = 3000;

    int pick(int n) { return static_cast<int>(random_() % static_cast<std::uint32_t>(n)); }

    std::string random_text() {
        std::string text(static_cast<std::size_t>(pick(4) == 0 ? pick(200) : pick(10)), ' ');
        for (char& c : text) {
            c = " \tabcXYZ.\n\r\x80\xFF"[pick(13)];
        }
        return text;
    }

    // A part of the own text, as offset and count.
    void pick_part(int& offset, int& count) {
        offset = pick(string_.GetLength() + 1);
        count = pick(string_.GetLength() - offset + 1);
    }

    void replace() {
        const std::string text = random_text();
        int offset = 0, count = 0;
        switch (pick(7)) {
            case 0:
                string_ = text.c_str();
                model_.assign(text);
                break;
            case 1:
                string_ = 'q';
                model_.fill('q', 1);
                break;
            case 2:
                count = pick(20);
                string_.CreateFromCharacters('f', count);
                model_.fill('f', count);
                break;
            case 3:
                count = pick(12);
                string_.CreateFromStringLen(text.c_str(), count);
                model_.assign(text.substr(0, static_cast<std::size_t>(count)));
                break;
            case 4:
                pick_part(offset, count);
                string_.CreateFromStringLen(string_.GetString() + offset, count);
                model_.assign(part(offset, count));
                break;
            case 5:
                string_.Format("<%s|%s>", text.c_str(), string_.GetString());
                model_.fill_with("<" + text + "|" + model_.text + ">");
                break;
            default:
                if (string_.GetLength() > kLongestText) {
                    string_.Empty();
                    model_.empty();
                }
        }
    }

    void trim() {
        const char* set = pick(2) == 0 ? nullptr : "aX .";
        const std::string members = set == nullptr ? " \t\n\v\f\r" : set;
        switch (pick(3)) {
            case 0:
                string_.TrimLeft(set);
                model_.trim(true, false, members);
                break;
            case 1:
                string_.TrimRight(set);
                model_.trim(false, true, members);
                break;
            default:
                string_.TrimAll(set);
                model_.trim(true, true, members);
        }
    }

    void change() {
        std::string& text = model_.text;
        switch (pick(5)) {
            case 0:
                EXPECT_EQ(string_.Reverse(), !text.empty());
                std::reverse(text.begin(), text.end());
                break;
            case 1:
                EXPECT_EQ(string_.ChangeUpper(), !text.empty());
                for (char& c : text) {
                    c = static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
                }
                break;
            case 2: {
                const std::size_t kept = text.find_last_not_of("\r\n") + 1;
                const int removed = static_cast<int>(text.size() - kept);
                EXPECT_EQ(string_.Chomp(true), text.empty() ? 0 : removed + 1);
                text.erase(kept);
                break;
            }
            default: {
                const int i = pick(string_.GetLength() + 2) - 1;
                const bool inside = i >= 0 && i < string_.GetLength();
                EXPECT_EQ(string_.SetAt(i, 'S'), inside);
                if (inside) {
                    text[static_cast<std::size_t>(i)] = 'S';
                }
            }
        }
    }

    void append() {
        const std::string text = random_text();
        int offset = 0, count = 0;
        switch (pick(6)) {
            case 0:
                string_ += text.c_str();
                model_.append(text);
                break;
            case 1:
                string_ += 'c';
                append_characters('c', 1);
                break;
            case 2:
                count = 1 + pick(20);
                string_.ConcatCharacters('n', count);
                append_characters('n', count);
                break;
            case 3:
                count = pick(12);
                string_.ConcatStringLen(text.c_str(), count);
                model_.append(text.substr(0, static_cast<std::size_t>(count)));
                break;
            case 4:
                pick_part(offset, count);
                string_.ConcatStringLen(string_.GetString() + offset, count);
                model_.append(part(offset, count));
                break;
            default:
                if (string_.GetLength() < kLongestText) {
                    string_ += string_;
                    model_.append(std::string(model_.text));
                }
        }
    }

    void append_characters(char c, int n) {
        if (model_.text.empty()) {
            model_.fill(c, n);
        } else {
            model_.append(std::string(static_cast<std::size_t>(n), c));
        }
    }

    std::string part(int offset, int count) const {
        return model_.text.substr(static_cast<std::size_t>(offset), static_cast<std::size_t>(count));
    }

    std::int64_t booked() const {
        return static_cast<std::int64_t>(orvil::detail::booked_buffer_bytes() - booked_at_start_);
    }

    void check() {
        ASSERT_EQ(string_.GetString(), model_.text);
        ASSERT_EQ(string_.GetLength(), static_cast<int>(model_.text.size()));
        ASSERT_EQ(string_.capacity_, model_.capacity);
        ASSERT_EQ(string_.buffer_ != nullptr, model_.buffer);
        ASSERT_EQ(booked(), model_.booked);
    }

    std::mt19937 random_;
    std::uint64_t booked_at_start_ = orvil::detail::booked_buffer_bytes();
    orvil::test::StringProbe string_;
    Model model_;
};

void walk(std::uint32_t seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomWalk random_walk(seed);
    for (int i = 0; i < 3000 && !testing::Test::HasFatalFailure(); ++i) {
        random_walk.step();
    }
}

}  // namespace

TEST(ExtStringModel, FixedWalksAgreeWithTheModel) {
    for (std::uint32_t seed = 1; seed <= 10; ++seed) {
        walk(seed);
    }
}

TEST(ExtStringModel, ANewWalkAgreesWithTheModel) {
    const std::uint32_t seed = std::random_device()();
    std::cout << "seed " << seed << "\n";
    walk(seed);
}
