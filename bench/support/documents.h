// The same settings in the syntax of each format, generated to a wanted size.
//
// A document is a tree of sections. Each section holds eight values of the kinds that settings are made of, then its
// subsections. Sizes are those of the token-block text; the other formats write the same values.
#pragma once

#include <cstddef>
#include <string>

namespace orvil::bench {

enum class Format { TokenBlocks, LibConfig, Json, Xml };

struct Shape {
    const char* name;
    std::size_t fan_out;  // subsections of a section
};

// Sections of thirty-two subsections, and chains of sections of one.
inline constexpr Shape kWide{"wide", 32};
inline constexpr Shape kDeep{"deep", 1};

// The depth at which a chain ends and the next one begins: what recursive peers can take.
inline constexpr std::size_t kChainDepth = 200;

struct Document {
    std::string text;
    std::size_t values = 0;
};

// A document whose token-block text has about `bytes` bytes. The same shape and size give the same values in each
// format.
Document make_document(Format format, const Shape& shape, std::size_t bytes);

// The path of a temporary file with the document, made once a run and removed at its end; `values` receives the count.
std::string document_file(Format format, const Shape& shape, std::size_t bytes, std::size_t& values);

// The path of a temporary file with this text, removed at the end of the run.
std::string text_file(const std::string& name, const std::string& text);

}  // namespace orvil::bench
