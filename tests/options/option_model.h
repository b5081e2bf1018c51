// The option parser as plainly as its rules read: tables of texts, a list that loses its head, and regular expressions.
#pragma once

#include <string>
#include <vector>

#include "orvil/strings/ext_hash.h"
#include "orvil/strings/ext_str_array.h"
#include "orvil/strings/ext_str_hash.h"
#include "orvil/strings/ext_str_list.h"
#include "orvil/strings/ext_string.h"

namespace orvil::test {

inline bool model_is_symbol(const char* text) {
    return CExtString(text).RegexMatch(
               "/^(True|On|Set|Yes|Ok|Enable|1|Y|y)|(False|Off|Reset|No|Cancel|Disable|0|N|n)$/i") > 0;
}

inline bool model_is_on(const char* text) {
    return CExtString(text).RegexMatch("/^(True|On|Set|Yes|Ok|Enable|1|Y|y)$/i") > 0;
}

class OptionModel {
public:
    void initialize() {
        kinds_.RemoveAll();
        short_names_.RemoveAll();
        letters_.Empty();
        clean();
    }

    void clean() {
        booleans_.RemoveAll();
        scalars_.RemoveAll();
        lists_.RemoveAll();
        items_.clear();
        position_ = 0;
        note_.clear();
    }

    // `kind` is "b", "s" or "l".
    void declare(const char* kind, const char* declaration) {
        CExtStrArray parts;
        if (CExtString(declaration).RegexMatch("/^\\s*([^:]+)\\s*:\\s*([A-Za-z])\\s*$/", parts) > 0) {
            kinds_.SetAt(parts[1], kind);
            short_names_.SetAt(parts[2], parts[1]);
            letters_ += parts[2];
        } else {
            kinds_.SetAt(declaration, kind);
        }
    }

    // Where the parser of the rules would not end, this gives false.
    bool parse(const CExtStrList& arguments, bool stop_at_error) {
        CExtStrList left(arguments);
        position_ = 0;
        while (!left.IsEmpty()) {
            const int before = left.GetCount();
            if (!take(left) && (stop_at_error || left.GetCount() == before)) {
                return false;
            }
        }
        return true;
    }

    bool boolean(const char* name) { return booleans_[long_name(name)] == "1"; }
    std::string scalar(const char* name) { return scalars_[long_name(name)].GetString(); }
    int list_count(const char* name) { return lists_[long_name(name)].GetSize(); }
    std::string list(const char* name, int index) { return text(lists_[long_name(name)].GetAt(index)); }
    const std::vector<std::string>& items() const { return items_; }
    int position() const { return position_; }
    const std::string& note() const { return note_; }

    std::string boolean_dump() { return map_dump("--- Boolean map [", booleans_, "b"); }
    std::string scalar_dump() { return map_dump("--- Scalar map [", scalars_, "s"); }
    std::string list_dump() {
        std::string dump = "--- List map [" + std::to_string(lists_.GetCount()) + "] lists. ---\n";
        for (const std::string& name : names("l")) {
            const CExtStrArray& values = lists_[name.c_str()];
            for (int i = 0; i < values.GetSize(); ++i) {
                dump += "  " + name + "-" + std::to_string(i) + ": " + text(values[i]) + "\n";
            }
        }
        return dump + "\n";
    }
    std::string item_dump() const {
        std::string dump;
        for (std::size_t i = 0; i < items_.size(); ++i) {
            dump += "  file-" + std::to_string(i) + ": " + items_[i] + "\n";
        }
        return dump;
    }

private:
    static std::string text(const char* text) { return text == nullptr ? "" : text; }

    CExtString long_name(const char* name) {
        const CExtString given(name);
        return given.GetLength() < 2 ? short_names_[given.GetString()] : given;
    }

    std::vector<std::string> names(const char* kind) {
        std::vector<std::string> names;
        const CExtStrArray keys = kinds_.Keys();
        for (int i = 0; i < keys.GetSize(); ++i) {
            const std::string name = text(keys[i]);
            if (kinds_[name.c_str()] == kind) {
                names.push_back(name);
            }
        }
        return names;
    }

    std::string map_dump(const char* header, CExtStrHash& map, const char* kind) {
        std::string dump = header + std::to_string(map.GetCount()) + "] items. ---\n";
        int number = 0;
        for (const std::string& name : names(kind)) {
            dump += "  " + std::to_string(number++) + "-" + name + ": " + map[name.c_str()].GetString() + "\n";
        }
        return dump + "\n";
    }

    // Consumes what the head begins; false when it is faulty.
    bool take(CExtStrList& left) {
        const CExtString argument(left.GetHead());
        if (argument[0] != '-' || argument == "-") {
            items_.emplace_back(argument.GetString());
            ++position_;
            return left.RemoveHead();
        }
        CExtStrArray parts;
        CExtString name;
        if (argument.RegexMatch("/^--([^:=]+)([:=](.+))?$/", parts) > 0) {
            name = parts[1];
        } else if (argument.RegexMatch("/^-([^:=])([:=](.+))?$/", parts) > 0 && letters_.Find(parts[1]) >= 0) {
            name = short_names_[parts[1]];
        } else {
            note_ = "unknown option '" + std::string(argument.GetString()) + "'";
            return false;
        }
        left.RemoveHead();
        const char* kind = static_cast<const CExtStrHash&>(kinds_)[name.GetString()];
        if (text(kind).empty()) {
            note_ = "unknown option name '" + std::string(name.GetString()) + "'";
            return false;
        }
        return parts[3] != nullptr ? take_attached(*kind, name, parts[3]) : take_following(*kind, name, left);
    }

    bool take_attached(char kind, const char* name, const char* value) {
        if (kind == 'b' && !model_is_symbol(value)) {
            note_ = "value '" + std::string(value) + "' is not boolean symbol : name [" + name + "]";
            return false;
        }
        ++position_;
        return apply(kind, name, value);
    }

    bool take_following(char kind, const char* name, CExtStrList& left) {
        const CExtString next(left.GetHead());
        if (kind == 'b') {
            const bool is_value = !left.IsEmpty() && model_is_symbol(next);
            position_ += is_value ? 2 : 1;
            return apply(kind, name, is_value ? next.GetString() : "True") && (!is_value || left.RemoveHead());
        }
        if (next[0] == '-') {
            return true;
        }
        left.RemoveHead();
        position_ += 2;
        return apply(kind, name, next);
    }

    bool apply(char kind, const char* name, const char* value) {
        if (kind == 's') {
            scalars_.SetAt(name, value);
        } else if (kind == 'l') {
            lists_[name].Add(value);
        } else if (model_is_on(value)) {
            booleans_.SetAt(name, "1");
        } else {
            booleans_.RemoveKey(name);
        }
        return true;
    }

    CExtStrHash kinds_;
    CExtStrHash short_names_;
    CExtString letters_;
    CExtStrHash booleans_;
    CExtStrHash scalars_;
    CExtHash<CExtStrArray> lists_;
    std::vector<std::string> items_;
    int position_ = 0;
    std::string note_;
};

// Splitting a command line, byte by byte. `leads` tells whether a byte leads a double-byte character.
class WordsModel {
public:
    explicit WordsModel(std::string line, bool (*leads)(unsigned char) = nullptr)
        : line_(std::move(line)), leads_(leads) {}

    // Whether there is a word; `words` receives all of them.
    bool split(std::vector<std::string>& words) {
        skip_blanks();
        if (at_end()) {
            return false;
        }
        words.push_back(first_word());
        for (skip_blanks(); !at_end(); skip_blanks()) {
            words.push_back(further_word());
        }
        return true;
    }

private:
    bool at_end() const { return at_ >= line_.size(); }
    bool is_at(char c, std::size_t offset = 0) const { return at_ + offset < line_.size() && line_[at_ + offset] == c; }
    bool is_blank() const { return is_at(' ') || is_at('\t'); }
    void skip_blanks() {
        while (is_blank()) {
            ++at_;
        }
    }
    std::string character() {
        const bool is_double = leads_ != nullptr && leads_(static_cast<unsigned char>(line_[at_]));
        const std::string taken = line_.substr(at_, is_double ? 2 : 1);
        at_ += taken.size();
        return taken;
    }

    std::string first_word() {
        std::string word;
        if (!is_at('"')) {
            while (!at_end() && !is_blank()) {
                word += character();
            }
            return word;
        }
        ++at_;
        while (!at_end() && !is_at('"')) {
            word += character();
        }
        ++at_;
        return word;
    }

    std::string further_word() {
        std::string word;
        bool in_quotes = false;
        while (!at_end() && (in_quotes || !is_blank())) {
            std::size_t run = 0;
            while (is_at('\\', run)) {
                ++run;
            }
            const bool before_quote = is_at('"', run);
            word += std::string(before_quote ? run / 2 : run, '\\');
            at_ += run;
            if (!before_quote) {
                word += run == 0 ? character() : "";
                continue;
            }
            ++at_;
            if (run % 2 == 1) {
                word += '"';
            } else if (in_quotes && is_at('"')) {
                word += '"';
                ++at_;
            } else {
                in_quotes = !in_quotes;
            }
        }
        return word;
    }

    std::string line_;
    bool (*leads_)(unsigned char);
    std::size_t at_ = 0;
};

}  // namespace orvil::test
