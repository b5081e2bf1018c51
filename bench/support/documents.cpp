#include "support/documents.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>

namespace orvil::bench {
namespace {

// How a format writes the pieces of a document.
struct Syntax {
    const char* document_open;
    const char* document_close;
    const char* section_open;  // takes the name
    const char* section_close;
    const char* number;  // each takes the name, then the value
    const char* hexadecimal;
    const char* text;
    bool comma;  // between members
};

constexpr Syntax kSyntax[] = {
    {"", "", "Section%zu {\n", "}\n", "%s = %s;\n", "%s = 0x%08X;\n", "%s = \"%s\";\n", false},
    {"", "", "Section%zu : {\n", "};\n", "%s = %s;\n", "%s = 0x%08X;\n", "%s = \"%s\";\n", false},
    {"{\n", "}\n", "\"Section%zu\": {\n", "}\n", "\"%s\": %s\n", "\"%s\": %u\n", "\"%s\": \"%s\"\n", true},
    {"<doc>\n", "</doc>\n", "<Section name=\"%zu\">\n", "</Section>\n", "<%1$s>%2$s</%1$s>\n",
     "<%1$s>0x%2$08X</%1$s>\n", "<%1$s>%2$s</%1$s>\n", false},
};

class Writer {
public:
    Writer(Format format, const Shape& shape, std::size_t bytes)
        : syntax_(kSyntax[static_cast<int>(format)]), shape_(shape), wanted_(bytes) {}

    Document write() {
        document_.text = syntax_.document_open;
        for (std::size_t index = 0; size_ < wanted_; ++index) {
            section(index, 0);
        }
        document_.text += syntax_.document_close;
        return std::move(document_);
    }

private:
    // Sizes are counted in the token-block text, so that every format stops at the same section.
    void section(std::size_t index, std::size_t depth) {
        separate();
        put(syntax_.section_open, index);
        size_ += static_cast<std::size_t>(std::snprintf(nullptr, 0, kSyntax[0].section_open, index)) + 2;
        first_ = true;
        values();
        const bool chain = shape_.fan_out == 1;
        const std::size_t levels = chain ? kChainDepth : 2;
        for (std::size_t i = 0; depth < levels && i < shape_.fan_out && size_ < wanted_; ++i) {
            section(i, depth + 1);
        }
        document_.text += syntax_.section_close;
        first_ = false;
    }

    void values() {
        number("Index", "%d", static_cast<int>(random_() % 100000));
        number("Offset", "%d", -static_cast<int>(random_() % 1000));
        number("Width", "%.2f", static_cast<double>(random_() % 1000) / 100 + 0.25);
        number("Scale", "%.6f", static_cast<double>(random_() % 100000) / 7);
        hexadecimal("Colour", static_cast<unsigned>(random_()) & 0xFFFFFF);
        text("Title", "sheet %u of the drawing", static_cast<unsigned>(random_() % 1000));
        text("Layer", "L%u", static_cast<unsigned>(random_() % 100));
        text("Pen", "solid-%u", static_cast<unsigned>(random_() % 16));
    }

    template <typename Value>
    void number(const char* name, const char* format, Value value) {
        char digits[40];
        std::snprintf(digits, sizeof digits, format, value);
        member(syntax_.number, kSyntax[0].number, name, static_cast<const char*>(digits));
    }

    void hexadecimal(const char* name, unsigned value) {
        member(syntax_.hexadecimal, kSyntax[0].hexadecimal, name, value);
    }

    void text(const char* name, const char* format, unsigned value) {
        char content[64];
        std::snprintf(content, sizeof content, format, value);
        member(syntax_.text, kSyntax[0].text, name, static_cast<const char*>(content));
    }

    template <typename Value>
    void member(const char* format, const char* measure, const char* name, Value value) {
        separate();
        put(format, name, value);
        size_ += static_cast<std::size_t>(std::snprintf(nullptr, 0, measure, name, value));
        ++document_.values;
    }

    void separate() {
        if (syntax_.comma && !first_) {
            document_.text += ',';
        }
        first_ = false;
    }

    template <typename... Values>
    void put(const char* format, Values... values) {
        char line[200];
        const int length = std::snprintf(line, sizeof line, format, values...);
        document_.text.append(line, static_cast<std::size_t>(length));
    }

    const Syntax& syntax_;
    const Shape& shape_;
    std::size_t wanted_;
    std::size_t size_ = 0;
    bool first_ = true;
    Document document_;
    std::mt19937 random_{20260101};
};

// Removes the files of a run when it ends.
class Folder {
public:
    Folder() {
        path_ = std::filesystem::temp_directory_path() / ("orvil-bench-" + std::to_string(std::random_device{}()));
        std::filesystem::create_directories(path_);
    }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    std::string operator/(const std::string& name) const { return (path_ / name).string(); }

private:
    std::filesystem::path path_;
};

const Folder& folder() {
    static const Folder instance;
    return instance;
}

}  // namespace

Document make_document(Format format, const Shape& shape, std::size_t bytes) {
    return Writer(format, shape, bytes).write();
}

std::string text_file(const std::string& name, const std::string& text) {
    std::string path = folder() / name;
    std::ofstream(path, std::ios::binary).write(text.data(), static_cast<std::streamsize>(text.size()));
    return path;
}

std::string document_file(Format format, const Shape& shape, std::size_t bytes, std::size_t& values) {
    static std::map<std::string, std::size_t> made;
    const std::string name =
        std::string(shape.name) + "-" + std::to_string(bytes) + "." + std::to_string(static_cast<int>(format));
    auto found = made.find(name);
    if (found == made.end()) {
        const Document document = make_document(format, shape, bytes);
        text_file(name, document.text);
        found = made.emplace(name, document.values).first;
    }
    values = found->second;
    return folder() / name;
}

}  // namespace orvil::bench
