// What streams, tokens and analysers do when there is no memory.
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "orvil/tokens/lexical_analyzer.h"
#include "strings/string_access.h"
#include "support/failing_allocator.h"
#include "support/temp_dir.h"
#include "tokens/analyzer_access.h"
#include "tokens/memory_stream.h"
#include "tokens/token_scanner.h"

using orvil::detail::AnalyzerAccess;
using orvil::detail::StringAccess;
using orvil::detail::TokenScanner;
using orvil::test::MemoryStream;
using orvil::test::read_file;
using orvil::test::sweep_allocation_failures;
using orvil::test::TempDir;

namespace {

constexpr int kLong = 3000;  // longer than the small blocks that are handed out from a pool

const std::string kLongName(kLong, 'n');

CLexToken long_token(ETokenKind kind) {
    CLexToken token;
    token.Create(kLongName.c_str(), 1, 2, false, kind);
    return token;
}

bool is_reset(const CLexToken& token) {
    return token.GetTokenKind() == eTokenNone && token.CompareFilePosition(-1, -1) && *token.GetString() == '\0';
}

}  // namespace

TEST(StreamWithoutMemory, OpeningForReadingIsRefused) {
    TempDir folder;
    const std::string path = folder.write("f", kLongName);
    sweep_allocation_failures([&path](auto failed) {
        CStreamMemFile stream(eTransRead, 4096);
        const bool opened = stream.OpenFile(path.c_str());
        char first = '\0';
        char second = '\0';
        EXPECT_EQ(stream.GetCurrentData(first, second), opened);
        EXPECT_TRUE(opened || failed());
    });
}

TEST(StreamWithoutMemory, WritingStopsWhereTheBufferEnds) {
    TempDir folder;
    const std::string path = folder.path("out");
    sweep_allocation_failures([&path](auto failed) {
        CStreamMemFile stream(eTransWrite, 1000);
        const bool written =
            stream.OpenFile(path.c_str()) && stream.WriteString(kLongName.c_str(), true) && stream.WriteFile(false);
        EXPECT_TRUE(written || failed());
    });
    EXPECT_EQ(read_file(path), kLongName + "\r\n");
}

TEST(StreamWithoutMemory, CopyIsWholeOrAsUnopened) {
    MemoryStream source(kLongName);
    sweep_allocation_failures([&source](auto failed) {
        MemoryStream copy("x");
        const bool copied = copy.CopyData(source);
        char first = '\0';
        char second = '\0';
        EXPECT_TRUE(copied || failed());
        if (copied) {
            EXPECT_TRUE(copy.GetCurrentData(first, second));
            EXPECT_EQ(first, 'n');
        }
    });
}

TEST(StreamWithoutMemory, LineThatCannotBeStoredIsConsumed) {
    const std::string bytes = kLongName + "\nx\n";
    sweep_allocation_failures([&bytes](auto failed) {
        MemoryStream stream(bytes);
        CExtString line;
        if (stream.ReadString(line)) {
            EXPECT_EQ(line.GetLength(), kLong);
        } else {
            EXPECT_TRUE(failed());
        }
    });
}

TEST(TokenWithoutMemory, CreateResetsTheToken) {
    sweep_allocation_failures([](auto failed) {
        CLexToken token;
        token.Create("old", 1, 2, false, eTokenString);
        if (token.Create(kLongName.c_str(), 3, 4, true, eTokenNone)) {
            EXPECT_TRUE(token.Compare(eTokenSymbol, kLongName.c_str()));
        } else {
            EXPECT_TRUE(failed());
            EXPECT_TRUE(is_reset(token));
        }
    });
}

TEST(TokenWithoutMemory, CopyLeavesTheTokenAsItWas) {
    const CLexToken source = long_token(eTokenSymbol);
    sweep_allocation_failures([&source](auto failed) {
        CLexToken token;
        const bool copied = token.CopyData(source);
        EXPECT_TRUE(copied || failed());
        EXPECT_EQ(token.GetTokenKind(), copied ? eTokenSymbol : eTokenNone);
    });
}

TEST(TokenWithoutMemory, CopyInstanceIsWholeOrNull) {
    CLexToken source = long_token(eTokenSymbol);
    sweep_allocation_failures([&source](auto failed) {
        const std::unique_ptr<CLexToken> copy(source.GetCopyInstance());
        EXPECT_TRUE(copy != nullptr || failed());
        EXPECT_TRUE(copy == nullptr || copy->Compare(eTokenSymbol, kLongName.c_str()));
    });
}

TEST(TokenWithoutMemory, OutputIsWholeOrEmpty) {
    for (const ETokenKind kind : {eTokenString, eTokenSymbol}) {
        const CLexToken token = long_token(kind);
        sweep_allocation_failures([&token](auto failed) {
            CExtString out;
            const bool made = token.CreateOutputString(out);
            EXPECT_TRUE(made || failed());
            EXPECT_EQ(out.IsEmpty(), !made);
        });
    }
}

TEST(TokenWithoutMemory, PartsOfAPreprocessorLineComeOrFail) {
    CLexToken token;
    token.Create(("#" + kLongName + " " + kLongName).c_str(), 0, 0, false, eTokenPreprocessor);
    sweep_allocation_failures([&token](auto failed) {
        CExtString name;
        CExtString value;
        if (token.ParsePreprocessor(name, value)) {
            EXPECT_EQ(value.GetLength(), kLong);
        } else {
            EXPECT_TRUE(failed());
        }
    });
}

TEST(AnalyzerWithoutMemory, TokenIsWholeOrReset) {
    for (const std::string& text : {kLongName + ";", "'" + kLongName + "\\n'", "//" + kLongName + "\r" + kLongName,
                                    "/*" + kLongName + std::string("\0y*/", 4), "#" + kLongName + "\\q\n"}) {
        sweep_allocation_failures([&text](auto failed) {
            MemoryStream stream(text);
            CLexToken token;
            if (!CLexicalAnalyzer(stream).DoAnalyze(token)) {
                EXPECT_TRUE(failed());
                EXPECT_TRUE(is_reset(token));
            } else if (token.GetTokenKind() != eTokenNone) {
                EXPECT_GT(token.GetPureString().GetLength(), kLong - 1);
            }
        });
    }
}

TEST(AnalyzerWithoutMemory, MessagesMayBeMissingButNothingElse) {
    sweep_allocation_failures([](auto) {
        MemoryStream stream("ab\\q");
        CLexToken token;
        CLexicalAnalyzer analyzer(stream);
        const bool result = analyzer.DoAnalyze(token);
        EXPECT_TRUE(!result || token.GetTokenKind() == eTokenNone);
    });
}

TEST(ScannerWithoutMemory, TokenIsWholeOrReset) {
    const std::string text = "'" + kLongName + "\\n'";
    sweep_allocation_failures([&text](auto failed) {
        MemoryStream stream(text);
        TokenScanner scanner(stream);
        CLexToken token;
        if (!scanner.next(token)) {
            EXPECT_TRUE(failed());
            EXPECT_TRUE(is_reset(token));
        }
    });
}

// --- what the analyser keeps ----------------------------------------------------------------------------------------

TEST(AnalyzerState, CurrentTokenIsTheTokenProduced) {
    MemoryStream stream("name;");
    CLexicalAnalyzer analyzer(stream);
    CLexToken token;
    ASSERT_TRUE(analyzer.DoAnalyze(token));
    EXPECT_TRUE(AnalyzerAccess::current_token(analyzer).Compare(eTokenSymbol, "name"));
    EXPECT_TRUE(AnalyzerAccess::current_token(analyzer).CompareFilePosition(0, -1));
}

TEST(AnalyzerState, PartsGoOnWithTheCharactersCollected) {
    class Probe : public CLexicalAnalyzer {
    public:
        using CLexicalAnalyzer::AblateComment;
        using CLexicalAnalyzer::AblatePreprocess;
        using CLexicalAnalyzer::CLexicalAnalyzer;
        using CLexicalAnalyzer::CreateCurrentToken;
        using CLexicalAnalyzer::ParseEscapeSequence;
    };
    MemoryStream stream("\\t\\n/*x*/#y");
    Probe analyzer(stream);
    ASSERT_TRUE(analyzer.ParseEscapeSequence());
    EXPECT_TRUE(analyzer.CreateCurrentToken(eTokenNone));
    EXPECT_TRUE(AnalyzerAccess::current_token(analyzer).Compare(eTokenMetaChar, "\t"));
    EXPECT_TRUE(analyzer.CreateCurrentToken(eTokenString));
    EXPECT_TRUE(AnalyzerAccess::current_token(analyzer).Compare(eTokenString, "\t"));
    ASSERT_TRUE(analyzer.ParseEscapeSequence());
    ASSERT_TRUE(analyzer.AblateComment());
    EXPECT_TRUE(AnalyzerAccess::current_token(analyzer).Compare(eTokenComment, "\t\n/*x*/"));
    ASSERT_TRUE(analyzer.AblatePreprocess());
    EXPECT_TRUE(AnalyzerAccess::current_token(analyzer).Compare(eTokenPreprocessor, "\t\n/*x*/#y"));
}

// --- capacities -----------------------------------------------------------------------------------------------------

TEST(TokenCapacity, IsTheNextMultipleOfEightAboveTheLength) {
    for (int size = 1; size < 40; ++size) {
        const std::string text(static_cast<std::size_t>(size), 'x');
        for (const std::string& written : {text + ";", "'" + text + "'", "//" + text.substr(1) + "\r"}) {
            MemoryStream stream(written);
            TokenScanner scanner(stream);
            CLexToken token;
            ASSERT_TRUE(scanner.next(token));
            const int length = token.GetPureString().GetLength();
            EXPECT_EQ(StringAccess::capacity(token.GetPureString()), length / 8 * 8 + 8);
            CExtString out;
            ASSERT_TRUE(token.CreateOutputString(out));
            EXPECT_EQ(StringAccess::capacity(out), out.GetLength() / 8 * 8 + 8);
        }
    }
}
