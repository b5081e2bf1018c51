// Streams, tokens, the analyser, parser and writer, trees and the flat functions over them; message files.
#include <gtest/gtest.h>

#include "entry_points/entry_points.h"
#include "orvil/orvil.h"
#include "support/temp_dir.h"
#include "support/working_folder.h"

namespace orvil::test {
namespace {

const char* const kText = "a text of some more than thirty-two bytes";

struct Stream : CStreamMemFile {
    using CStreamMemFile::CStreamMemFile;
    using CStreamMemFile::IncrementQue;
    using CStreamMemFile::QueryQue;
    using CStreamMemFile::ReallocBuffer;
};

struct Token : CLexToken {
    using CLexToken::AnalyzeString;
};

struct Analyzer : CLexicalAnalyzer {
    using CLexicalAnalyzer::AddInfo;
    using CLexicalAnalyzer::CheckConditionBehavior;
    using CLexicalAnalyzer::CLexicalAnalyzer;
    using CLexicalAnalyzer::IsCommentStart;
    using CLexicalAnalyzer::ResetBinderCharacter;
    using CLexicalAnalyzer::SearchEscapeSequenceTable;
    using CLexicalAnalyzer::SetBinderCharacter;
};

struct Parser : CTokenParser {
    using CTokenParser::CTokenParser;
    using CTokenParser::DoLexAnalyze;
    using CTokenParser::DoParseAssignment;
    using CTokenParser::DoParseBlock;
};

struct Writer : CTokenRegister {
    using CTokenRegister::CreateIndentSpace;
    using CTokenRegister::CTokenRegister;
    using CTokenRegister::DoRegistAssign;
    using CTokenRegister::DoRegistBlock;
    using CTokenRegister::DoRegistListing;
};

struct Block : CLexTokenBlock {
    using CLexTokenBlock::InsertBlockArray;
};

struct Map : CMessageMap {
    using CMessageMap::GetItem;
};

class EntryPointsOfTokens : public testing::Test {
protected:
    EntryPointsOfTokens() { folder.write("page.cfg", "Page {\n  Width = 841.0; // wide\n  List { 1 2 }\n}\n"); }

    TempDir folder;
    InFolder inside{folder.path(".")};
};

TEST_F(EntryPointsOfTokens, StreamsAreReadCopiedAndAsked) {
    sweep_each(
        [] {
            Stream stream(eTransRead, 4096);
            if (!stream.OpenFile("page.cfg")) {
                return;
            }
            const Stream copy(stream);
            Stream other(eTransRead, 4096);
            other = stream;
            char first = 0;
            char second = 0;
            char line[32] = "";
            stream.QueryCurrentData(first, second);
            stream.QueryNextData(first, second, 1);
            stream.ReadString(line, 20);
            stream.IncrementQue(true);
            EXPECT_GE(stream.QueryCurrentLine(), 0);
            EXPECT_GE(stream.QueryCurrentColm(), -1);
            EXPECT_FALSE(stream.IsEof());
            stream.QueryQue();
            stream.GetErrorInformation();
            stream.GetFilePath();
            stream.CloseFile();
        },
        [] {
            Stream stream(eTransWrite, 4096);
            stream.SetDelimiterMode(eDelimiterLf);
            stream.OpenFile("written.cfg");
            stream.ReallocBuffer();
        });
}

TEST_F(EntryPointsOfTokens, TokensAreMadeAndAsked) {
    sweep_each([] {
        CLexToken token;
        token.Create(kText, 1, 2, false, eTokenSymbol);
        const CLexToken same(token);
        CLexToken copy;
        copy = token;
        delete copy.GetCopyInstance();
        CExtString text;
        int line = 0;
        int column = 0;
        copy.MakeDumpString(text, 1);
        copy.ParseString(text);
        copy.ParseSymbol(text);
        copy.ParseComment(text);
        copy.ParseSingleComment(text);
        copy.QuerySourcePosition(line, column);
        copy.GetSourcePositionString();
        copy.GetTokenKindString();
        EXPECT_FALSE(copy.IsEmptyToken() || copy.IsMetaCharToken() || copy.IsDecimalToken() ||
                     copy.IsHexaDecimalToken() || copy.IsDoubleToken() || copy.IsCommentToken() ||
                     copy.IsSingleCommentToken() || copy.IsPreprocessorToken());
        copy.IsSymbolToken();
        CLexToken point;
        point.Create(eMetaPoint, 0, 0);
        CLexToken().Initialize();
    });
}

TEST_F(EntryPointsOfTokens, TokensAreAnalyzed) {
    sweep_each([] {
        Token token;
        char meta = 0;
        int decimal = 0;
        unsigned int hexadecimal = 0;
        double real = 0;
        token.Create("12", 0, 0, true, eTokenNone);
        token.AnalyzeString();
        token.ParseMetaChar(meta);
        token.ParseDecimal(decimal);
        token.ParseHexaDecimal(hexadecimal);
        token.ParseDouble(real);
        EXPECT_TRUE(CLexToken::AnalyzeIntegerFormat("12") && CLexToken::AnalyzeHexaDecimalFormat("0x12") &&
                    CLexToken::AnalyzeDoubleFormat("1.5"));
        EXPECT_STREQ(CLexToken::TransMetaCharToString(CLexToken::IsMetaCharacter('=')), "=");
    });
}

TEST_F(EntryPointsOfTokens, TheAnalyzerIsAskedAndCopied) {
    sweep_each([] {
        CStreamMemFile stream(eTransRead, 4096);
        if (!stream.OpenFile("page.cfg")) {
            return;
        }
        Analyzer analyzer(stream);
        bool is_comment = false;
        analyzer.IsCommentStart(is_comment);
        analyzer.CheckConditionBehavior("{");
        analyzer.SearchEscapeSequenceTable("n");
        analyzer.SetBinderCharacter('"');
        analyzer.ResetBinderCharacter();
        analyzer.AddInfo("%s", kText);
        const Analyzer same(analyzer);
        Analyzer copy(stream);
        copy = analyzer;
        copy.GetInformation();
    });
}

TEST_F(EntryPointsOfTokens, ParserAndWriterWorkStepByStep) {
    sweep_each(
        [] {
            Parser parser("none.cfg", true);
            const Parser same(parser);
            Parser copy("", true);
            copy = parser;
            CLexToken token;
            CLexTokenBlock block;
            EXPECT_FALSE(Parser("", true).DoLexAnalyze(token));
            EXPECT_FALSE(Parser("", true).DoParseBlock(block));
            EXPECT_FALSE(Parser("", true).DoParseAssignment(block));
        },
        [] {
            Writer writer("written.cfg", false, 4);
            const Writer same(writer);
            Writer copy("", false, 4);
            copy = writer;
            copy.CreateIndentSpace();
            const CLexTokenBlock block;
            copy.DoRegistBlock(block);
            copy.DoRegistAssign(block);
            copy.DoRegistListing(block);
        });
}

TEST_F(EntryPointsOfTokens, TreesAreMadeAndAsked) {
    sweep_each(
        [] {
            const CLexToken token;
            Block block;
            block.SetupBlockTypeFactor("Page");
            CLexTokenBlock child;
            child.SetupAssignmentDecimal("a", 7, "%d");
            block.AddBlock(child);
            child.SetupAssignmentHexaDecimal("b", 7, "0x%X");
            block.AddBlock(child);
            child.SetupAssignmentString("c", kText);
            block.AddBlock(child);
            child.SetupAssignmentSymbol("d", kText);
            block.AddBlock(child);
            child.SetupAssignmentFactor("e", "1.5", eTokenDouble);
            block.AddBlock(child);
            const CLexTokenBlock inserted(token);
            block.InsertBlockEntityToken(token);
            block.InsertBlockArray(0, &inserted);
            int decimal = 0;
            unsigned int hexadecimal = 0;
            double real = 0;
            CExtString text;
            block.GetAssignmentDecimal("a", decimal);
            block.GetAssignmentHexaDecimal("b", hexadecimal);
            block.GetAssignmentString("c", text);
            block.GetAssignmentSymbol("d", text);
            block.GetAssignmentDouble("e", real);
            block.FindTokenBlockEntity("a");
            block.SearchTokenBlockIndex(eTokenSymbol, "a", 0);
            EXPECT_FALSE(block.IsAssignType() || block.IsListingType());
            block.IsBlockType();
            block.SetupGrammerType(eGrammerListing);
            block.SetNoWriteDelimiter(true);
        },
        [] {
            CLexTokenBlock::SetupDoublePercision(CLexTokenBlock::RefDoublePercision());
            void* memory = CLexTokenBlock::operator new(sizeof(CLexTokenBlock), std::nothrow);
            CLexTokenBlock::operator delete(memory, std::nothrow);
        });
}

TEST_F(EntryPointsOfTokens, FlatFunctionsMakeBlocks) {
    sweep_each([] {
        CLexTokenBlock page;
        CLexTokenBlock list;
        bt_init_block_with_marker(page, "Page", "Kind", "page");
        bt_init_block(page, "Page");
        bt_add_block_assign(page, "Flag", true);
        bt_add_block_assign(page, "Number", 7);
        bt_add_block_assign(page, "Colour", 0xFFU);
        bt_add_block_assign(page, "Width", 1.5);
        bt_init_listing(list);
        bt_add_listing_item(list, 7);
        bt_add_listing_item(list, 0xFFU);
        bt_add_listing_item(list, "text", true);
        bt_insert_block(page, list);
        CLexTokenBlock master;
        bt_make_master_block(master, "out.cfg", "Title");
        bt_add_block(master, page);
        CExtString message;
        bt_output_file("out.cfg", master, message, false);
    });
}

TEST_F(EntryPointsOfTokens, FlatFunctionsReadBlocks) {
    sweep_each([] {
        CLexTokenBlock page;
        bt_init_block(page, "Page");
        bool flag = false;
        int number = 0;
        unsigned int colour = 0;
        double width = 0;
        CExtString text;
        bt_get_block_assign(page, "Flag", flag);
        bt_get_block_assign(page, "Number", number);
        bt_get_block_assign(page, "Colour", colour);
        bt_get_block_assign(page, "Width", width);
        bt_get_block_assign(page, "Title", text, true);
        CLexTokenBlock list;
        bt_init_listing(list);
        bt_add_listing_item(list, "text", true);
        bt_get_listing_item(list, 0, number);
        bt_get_listing_item(list, 0, colour);
        bt_get_listing_item(list, 0, width);
        bt_get_listing_item(list, 0, text, true);
        EXPECT_FALSE(bt_check_listing_symbol(list, 0) || bt_check_listing_decimal(list, 0) ||
                     bt_check_listing_hexadecimal(list, 0) || bt_check_listing_double(list, 0));
        bt_check_listing_string(list, 0);
        bt_check_listing_itemtype(list, 0);
        bt_insert_block(page, list);
        CLexTokenBlock copy;
        int index = 0;
        EXPECT_EQ(bt_search_block(page, "None"), nullptr);
        EXPECT_EQ(bt_search_block(page, "None", index), nullptr);
        bt_search_block(page, "None", copy, 0);
        bt_search_block_index(page, "None", 0);
        bt_check_block_and_assign(page, "Page", "Kind", "page");
    });
}

TEST_F(EntryPointsOfTokens, MessagesAreCopiedAndWritten) {
    sweep_each([] {
        Map map;
        map.SetupSubjectKey(7, "Title");
        map.AddItem(1, kText);
        map.GetItem(0);
        const CMessageMap same(map);
        CMessageMap map_copy;
        map_copy = map;
        EXPECT_FALSE(CMessageMap::IsMsgCode(-1) || CMessageMap::IsResourceCode(-1) || CMessageMap::IsErrorCode(-1));
        CMessageManager manager;
        manager.AddMap(map);
        const CMessageManager same_manager(manager);
        CMessageManager copied;
        copied.CopyData(manager);
        CMessageManager copy;
        copy = manager;
        delete copy.GetCopyInstance();
        copy.RemoveAll();
        CMessageManager::GetFinalErrorCode(1, 2);
        CMessageLoader loader;
        CMessageLoader loader_copy(loader);
        loader_copy = loader;
        CMessageRegister writer;
        CMessageRegister writer_copy(writer);
        writer_copy = writer;
        CLexTokenBlock parent;
        writer_copy.Regist(parent, map);
    });
}

}  // namespace
}  // namespace orvil::test
