#include "orvil/tokens/token_parser.h"

#include <cstddef>

#include "tokens/block_access.h"
#include "tokens/block_parser.h"

using orvil::detail::BlockAccess;
using orvil::detail::BlockParser;

namespace {

constexpr int kGrowUnit = 4096;

// Hosts rely on the layout.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
struct Layout : CTokenParser {
    static constexpr bool is_as_promised() {
        return sizeof(Layout) == 160 && offsetof(Layout, error_message_) == 8 && offsetof(Layout, source_path_) == 32 &&
               offsetof(Layout, stream_) == 56 && offsetof(Layout, keep_comments_) == 152;
    }
};
#pragma GCC diagnostic pop
static_assert(Layout::is_as_promised());

}  // namespace

CTokenParser::CTokenParser(const char* sourcePath, bool keepComments)
    : source_path_(sourcePath), stream_(eTransRead, kGrowUnit), keep_comments_(keepComments) {
}

CTokenParser::CTokenParser(const CTokenParser& source) = default;

CTokenParser& CTokenParser::operator=(const CTokenParser& source) = default;

CTokenParser::~CTokenParser() = default;

bool CTokenParser::DoParse(CLexTokenBlock& root) {
    if (!stream_.OpenFile(source_path_)) {
        error_message_.Format("Can not open source file [%s]\n", source_path_.GetString());
        return false;
    }
    BlockAccess::clear(root);
    BlockParser parser(stream_, error_message_, keep_comments_);
    BlockParser::Outcome outcome = BlockParser::Outcome::kDone;
    while (outcome == BlockParser::Outcome::kDone && !stream_.IsEof()) {
        outcome = parser.parse_block(root);
    }
    if (outcome == BlockParser::Outcome::kCutOff || parser.out_of_memory() || !stream_.IsEof()) {
        return false;
    }
    root.SetupGrammerType(eGrammerBlock);
    return true;
}

const CExtString& CTokenParser::GetErrorMessage() const {
    return error_message_;
}

bool CTokenParser::DoLexAnalyze(CLexToken& token) {
    return BlockParser(stream_, error_message_, keep_comments_).read(token);
}

bool CTokenParser::DoParseBlock(CLexTokenBlock& block) {
    return BlockParser(stream_, error_message_, keep_comments_).parse_block(block) == BlockParser::Outcome::kDone;
}

bool CTokenParser::DoParseAssignment(CLexTokenBlock& assignment) {
    return BlockParser(stream_, error_message_, keep_comments_).parse_values(assignment);
}
