// Sizes, places of fields and virtual slots of the exported classes. Hosts are compiled with them: a change of any is a
// change of the binary interface. They hold on Linux and with mingw-w64, which both follow the Itanium C++ ABI.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

#include "orvil/orvil.h"
#include "support/library_symbol.h"

namespace {

// --- Sizes --------------------------------------------------------------------------------------------------------

struct Size {
    const char* type;
    std::size_t actual;
    std::size_t expected;
};

const Size kSizes[] = {
    {"CExtString", sizeof(CExtString), 24},
    {"CExtStrArray", sizeof(CExtStrArray), 24},
    {"CExtArray", sizeof(CExtArray<C3DLine>), 24},
    {"CExtStrList", sizeof(CExtStrList), 32},
    {"CExtStrList_ListNode", sizeof(CExtStrList_ListNode), 40},
    {"CExtList", sizeof(CExtList<C2DMatrixItem>), 32},
    {"CExtStrHash", sizeof(CExtStrHash), 40},
    {"CExtStrHash_THashNode", sizeof(CExtStrHash_THashNode), 56},
    {"CExtHash", sizeof(CExtHash<int>), 40},
    {"CFilePath", sizeof(CFilePath), 80},
    {"CFileSearch", sizeof(CFileSearch), 1128},
    {"CCurrentDirectory", sizeof(CCurrentDirectory), 16},
    {"dirent", sizeof(dirent), 268},
    {"CStreamMemFile", sizeof(CStreamMemFile), 96},
    {"CLexToken", sizeof(CLexToken), 48},
    {"CLexicalAnalyzer", sizeof(CLexicalAnalyzer), 128},
    {"CLexTokenBlock", sizeof(CLexTokenBlock), 88},
    {"CTokenParser", sizeof(CTokenParser), 160},
    {"CTokenRegister", sizeof(CTokenRegister), 168},
    {"CMessageMap", sizeof(CMessageMap), 104},
    {"CMessageMap::CMsgMapItem", sizeof(CMessageMap::CMsgMapItem), 32},
    {"CMessageLoader", sizeof(CMessageLoader), 8},
    {"CMessageRegister", sizeof(CMessageRegister), 8},
    {"CMessageManager", sizeof(CMessageManager), 112},
    {"adl_link_t", sizeof(adl_link_t), 16},
    {"arbt_node_t", sizeof(arbt_node_t), 24},
    {"arbt_root_t", sizeof(arbt_root_t), 16},
    {"vpr_set_t", sizeof(vpr_set_t), 64},
    {"__aVPRESTVITEM_t", sizeof(__aVPRESTVITEM_t), 16},
    {"CVarResource", sizeof(CVarResource), 80},
    {"vpdp_root_t", sizeof(vpdp_root_t), 32},
    {"vpdp_cont_t", sizeof(vpdp_cont_t), 128},
    {"vpdpc_entry_t", sizeof(vpdpc_entry_t), 56},
    {"VPLIST", sizeof(VPLIST), 16},
    {"CVpItem", sizeof(CVpItem), 64},
    {"CVpList", sizeof(CVpList), 80},
    {"C2DPoint", sizeof(C2DPoint), 24},
    {"C2DLine", sizeof(C2DLine), 56},
    {"C2DVectorLine", sizeof(C2DVectorLine), 56},
    {"C2DEllipse", sizeof(C2DEllipse), 80},
    {"C2DMatrixItem", sizeof(C2DMatrixItem), 88},
    {"C2DMatrixList", sizeof(C2DMatrixList), 32},
    {"C3DPoint", sizeof(C3DPoint), 32},
    {"C3DLine", sizeof(C3DLine), 72},
    {"C3DVectorLine", sizeof(C3DVectorLine), 72},
    {"C3DMatrixItem", sizeof(C3DMatrixItem), 112},
    {"C3DMatrixList", sizeof(C3DMatrixList), 32},
    {"CNurbsCtrlPoint", sizeof(CNurbsCtrlPoint), 48},
    {"CNurbsFitPoint", sizeof(CNurbsFitPoint), 40},
    {"CCalcNurbs", sizeof(CCalcNurbs), 112},
    {"TCalcNurbsWorkBuffer", sizeof(TCalcNurbsWorkBuffer), 40},
    {"EFT", sizeof(EFT), 4},
    {"EDriveType", sizeof(EDriveType), 4},
    {"ETransDirection", sizeof(ETransDirection), 4},
    {"EDelimiterMode", sizeof(EDelimiterMode), 4},
    {"ETokenKind", sizeof(ETokenKind), 4},
    {"EMetaCharacter", sizeof(EMetaCharacter), 4},
    {"ELexConditionBehavior", sizeof(ELexConditionBehavior), 4},
    {"EGrammerType", sizeof(EGrammerType), 4},
    {"EKnotVectorForm", sizeof(EKnotVectorForm), 4},
};

// --- Fields -------------------------------------------------------------------------------------------------------

struct Field {
    const char* description;
    std::size_t actual;
    std::size_t expected;
};

std::vector<Field>& fields() {
    static std::vector<Field> all;
    return all;
}

// A pointer to a data member is the member's offset.
template <typename Class, typename Base, typename Type>
std::size_t offset_in(Type Base::*member) {
    std::ptrdiff_t offset = 0;
    static_assert(sizeof member == sizeof offset);
    std::memcpy(&offset, &member, sizeof offset);
    auto* object = reinterpret_cast<Class*>(4096);
    auto* base = (Base*)object;  // this form of cast reaches a protected base too
    return reinterpret_cast<std::size_t>(base) - 4096 + static_cast<std::size_t>(offset);
}

template <std::size_t kOffset, typename Class, auto kMember>
bool note_field() {
    fields().push_back({__PRETTY_FUNCTION__, offset_in<Class>(kMember), kOffset});
    return true;
}

// Each of the explicit instantiations below is a row: the field lies so many bytes into the class. There, and only
// there, protected and private members may be named.
template <std::size_t kOffset, typename Class, auto kMember>
struct At {
    static const bool noted;
};
template <std::size_t kOffset, typename Class, auto kMember>
const bool At<kOffset, Class, kMember>::noted = note_field<kOffset, Class, kMember>();

template struct At<8, CExtString, &CExtString::buffer_>;
template struct At<16, CExtString, &CExtString::length_>;
template struct At<20, CExtString, &CExtString::capacity_>;

template struct At<8, CExtStrArray, &CExtStrArray::slots_>;
template struct At<16, CExtStrArray, &CExtStrArray::size_>;
template struct At<20, CExtStrArray, &CExtStrArray::capacity_>;

template struct At<8, CExtArray<C3DLine>, &CExtArray<C3DLine>::slots_>;
template struct At<16, CExtArray<C3DLine>, &CExtArray<C3DLine>::size_>;
template struct At<20, CExtArray<C3DLine>, &CExtArray<C3DLine>::capacity_>;

template struct At<8, CExtStrList, &CExtStrList::head_>;
template struct At<16, CExtStrList, &CExtStrList::tail_>;
template struct At<24, CExtStrList, &CExtStrList::count_>;
template struct At<0, CExtStrList_ListNode, &CExtStrList_ListNode::next>;
template struct At<8, CExtStrList_ListNode, &CExtStrList_ListNode::prev>;
template struct At<16, CExtStrList_ListNode, &CExtStrList_ListNode::value>;

template struct At<8, CExtList<C2DMatrixItem>, &CExtList<C2DMatrixItem>::head_>;
template struct At<16, CExtList<C2DMatrixItem>, &CExtList<C2DMatrixItem>::tail_>;
template struct At<24, CExtList<C2DMatrixItem>, &CExtList<C2DMatrixItem>::count_>;

template struct At<8, CExtStrHash, &CExtStrHash::ignore_case_>;
template struct At<12, CExtStrHash, &CExtStrHash::count_>;
template struct At<16, CExtStrHash, &CExtStrHash::table_size_>;
template struct At<24, CExtStrHash, &CExtStrHash::buckets_>;
template struct At<32, CExtStrHash, &CExtStrHash::snapshot_>;

template struct At<8, CExtHash<int>, &CExtHash<int>::ignore_case_>;
template struct At<12, CExtHash<int>, &CExtHash<int>::count_>;
template struct At<16, CExtHash<int>, &CExtHash<int>::table_size_>;
template struct At<24, CExtHash<int>, &CExtHash<int>::buckets_>;
template struct At<32, CExtHash<int>, &CExtHash<int>::snapshot_>;

template struct At<8, CFilePath, &CFilePath::drive_>;
template struct At<32, CFilePath, &CFilePath::directory_>;
template struct At<56, CFilePath, &CFilePath::file_name_>;

template struct At<0, dirent, &dirent::d_ino>;
template struct At<4, dirent, &dirent::d_off>;
template struct At<8, dirent, &dirent::d_reclen>;
template struct At<10, dirent, &dirent::d_name>;

template struct At<8, CFileSearch, &CFileSearch::stream_>;
template struct At<16, CFileSearch, &CFileSearch::entry_>;
template struct At<24, CFileSearch, &CFileSearch::status_>;
template struct At<72, CFileSearch, &CFileSearch::directory_>;
template struct At<80, CFileSearch, &CFileSearch::handle_>;
template struct At<88, CFileSearch, &CFileSearch::pattern_>;
template struct At<8, CCurrentDirectory, &CCurrentDirectory::directory_>;

template struct At<8, CStreamMemFile, &CStreamMemFile::direction_>;
template struct At<16, CStreamMemFile, &CStreamMemFile::path_>;
template struct At<40, CStreamMemFile, &CStreamMemFile::capacity_>;
template struct At<44, CStreamMemFile, &CStreamMemFile::grow_unit_>;
template struct At<48, CStreamMemFile, &CStreamMemFile::buffer_>;
template struct At<56, CStreamMemFile, &CStreamMemFile::position_>;
template struct At<60, CStreamMemFile, &CStreamMemFile::delimiter_mode_>;
template struct At<64, CStreamMemFile, &CStreamMemFile::line_>;
template struct At<68, CStreamMemFile, &CStreamMemFile::column_>;
template struct At<72, CStreamMemFile, &CStreamMemFile::error_information_>;

template struct At<8, CLexToken, &CLexToken::line_>;
template struct At<12, CLexToken, &CLexToken::column_>;
template struct At<16, CLexToken, &CLexToken::kind_>;
template struct At<24, CLexToken, &CLexToken::text_>;

template struct At<8, CLexicalAnalyzer, &CLexicalAnalyzer::token_line_>;
template struct At<12, CLexicalAnalyzer, &CLexicalAnalyzer::token_column_>;
template struct At<16, CLexicalAnalyzer, &CLexicalAnalyzer::stream_>;
template struct At<24, CLexicalAnalyzer, &CLexicalAnalyzer::current_token_>;
template struct At<72, CLexicalAnalyzer, &CLexicalAnalyzer::lexeme_>;
template struct At<96, CLexicalAnalyzer, &CLexicalAnalyzer::binder_>;
template struct At<104, CLexicalAnalyzer, &CLexicalAnalyzer::information_>;

template struct At<48, CLexTokenBlock, &CLexTokenBlock::children_>;
template struct At<72, CLexTokenBlock, &CLexTokenBlock::grammar_type_>;
template struct At<76, CLexTokenBlock, &CLexTokenBlock::no_write_delimiter_>;
template struct At<77, CLexTokenBlock, &CLexTokenBlock::closed_>;
template struct At<80, CLexTokenBlock, &CLexTokenBlock::parent_>;

template struct At<8, CTokenParser, &CTokenParser::error_message_>;
template struct At<32, CTokenParser, &CTokenParser::source_path_>;
template struct At<56, CTokenParser, &CTokenParser::stream_>;
template struct At<152, CTokenParser, &CTokenParser::keep_comments_>;

template struct At<8, CTokenRegister, &CTokenRegister::message_>;
template struct At<32, CTokenRegister, &CTokenRegister::target_path_>;
template struct At<56, CTokenRegister, &CTokenRegister::stream_>;
template struct At<152, CTokenRegister, &CTokenRegister::indent_level_>;
template struct At<156, CTokenRegister, &CTokenRegister::indent_width_>;
template struct At<160, CTokenRegister, &CTokenRegister::use_tab_>;

template struct At<8, CMessageMap, &CMessageMap::subject_text_>;
template struct At<32, CMessageMap, &CMessageMap::subject_code_>;
template struct At<40, CMessageMap, &CMessageMap::items_>;
template struct At<64, CMessageMap, &CMessageMap::index_>;
template struct At<0, CMessageMap::CMsgMapItem, &CMessageMap::CMsgMapItem::code>;
template struct At<8, CMessageMap::CMsgMapItem, &CMessageMap::CMsgMapItem::text>;

template struct At<8, CMessageManager, &CMessageManager::codes_>;
template struct At<32, CMessageManager, &CMessageManager::maps_>;
template struct At<72, CMessageManager, &CMessageManager::titles_>;

template struct At<0, adl_link_t, &adl_link_t::prev>;
template struct At<8, adl_link_t, &adl_link_t::next>;
template struct At<0, arbt_node_t, &arbt_node_t::parent>;
template struct At<8, arbt_node_t, &arbt_node_t::left>;
template struct At<16, arbt_node_t, &arbt_node_t::right>;
template struct At<0, arbt_root_t, &arbt_root_t::node>;
template struct At<8, arbt_root_t, &arbt_root_t::count>;

template struct At<0, vpr_set_t, &vpr_set_t::records>;
template struct At<16, vpr_set_t, &vpr_set_t::tree>;
template struct At<32, vpr_set_t, &vpr_set_t::block_size>;
template struct At<36, vpr_set_t, &vpr_set_t::pool_count>;
template struct At<40, vpr_set_t, &vpr_set_t::free_list>;
template struct At<56, vpr_set_t, &vpr_set_t::blocks>;
template struct At<0, __aVPRESTVITEM_t, &__aVPRESTVITEM_t::type>;
template struct At<8, __aVPRESTVITEM_t, &__aVPRESTVITEM_t::value>;
template struct At<8, CVarResource, &CVarResource::set_>;
template struct At<72, CVarResource, &CVarResource::resource_>;

template struct At<0, vpdp_root_t, &vpdp_root_t::list>;
template struct At<16, vpdp_root_t, &vpdp_root_t::tree>;
template struct At<0, vpdp_cont_t, &vpdp_cont_t::name>;
template struct At<8, vpdp_cont_t, &vpdp_cont_t::entries>;
template struct At<24, vpdp_cont_t, &vpdp_cont_t::build>;
template struct At<32, vpdp_cont_t, &vpdp_cont_t::build_arg>;
template struct At<40, vpdp_cont_t, &vpdp_cont_t::width1>;
template struct At<44, vpdp_cont_t, &vpdp_cont_t::width2>;
template struct At<48, vpdp_cont_t, &vpdp_cont_t::caption1>;
template struct At<56, vpdp_cont_t, &vpdp_cont_t::caption2>;
template struct At<64, vpdp_cont_t, &vpdp_cont_t::tvdir>;
template struct At<68, vpdp_cont_t, &vpdp_cont_t::flags>;
template struct At<72, vpdp_cont_t, &vpdp_cont_t::userdata>;
template struct At<80, vpdp_cont_t, &vpdp_cont_t::root>;
template struct At<88, vpdp_cont_t, &vpdp_cont_t::link>;
template struct At<104, vpdp_cont_t, &vpdp_cont_t::node>;
template struct At<0, vpdpc_entry_t, &vpdpc_entry_t::label>;
template struct At<8, vpdpc_entry_t, &vpdpc_entry_t::value>;
template struct At<16, vpdpc_entry_t, &vpdpc_entry_t::number>;
template struct At<24, vpdpc_entry_t, &vpdpc_entry_t::children>;
template struct At<40, vpdpc_entry_t, &vpdpc_entry_t::link>;

template struct At<0, VPLIST, &VPLIST::prev>;
template struct At<8, VPLIST, &VPLIST::next>;
template struct At<8, CVpItem, &CVpItem::prev>;
template struct At<16, CVpItem, &CVpItem::next>;
template struct At<24, CVpItem, &CVpItem::list_>;
template struct At<32, CVpItem, &CVpItem::name_>;
template struct At<56, CVpItem, &CVpItem::flags_>;
template struct At<8, CVpList, &CVpList::prev>;
template struct At<24, CVpList, &CVpList::case_sensitive_>;
template struct At<28, CVpList, &CVpList::bucket_count_>;
template struct At<32, CVpList, &CVpList::count_>;
template struct At<40, CVpList, &CVpList::index_>;

template struct At<8, C2DPoint, &C2DPoint::x>;
template struct At<16, C2DPoint, &C2DPoint::y>;
template struct At<8, C2DLine, &C2DLine::start>;
template struct At<32, C2DLine, &C2DLine::end>;
template struct At<8, C2DVectorLine, &C2DVectorLine::base>;
template struct At<32, C2DVectorLine, &C2DVectorLine::vector>;
template struct At<8, C2DEllipse, &C2DEllipse::center>;
template struct At<32, C2DEllipse, &C2DEllipse::axis>;
template struct At<56, C2DEllipse, &C2DEllipse::ratio>;
template struct At<64, C2DEllipse, &C2DEllipse::start>;
template struct At<72, C2DEllipse, &C2DEllipse::end>;
template struct At<8, C2DMatrixItem, &C2DMatrixItem::base>;
template struct At<32, C2DMatrixItem, &C2DMatrixItem::move>;
template struct At<56, C2DMatrixItem, &C2DMatrixItem::scale>;
template struct At<80, C2DMatrixItem, &C2DMatrixItem::angle>;
template struct At<8, C3DPoint, &C3DPoint::x>;
template struct At<16, C3DPoint, &C3DPoint::y>;
template struct At<24, C3DPoint, &C3DPoint::z>;
template struct At<8, C3DLine, &C3DLine::start>;
template struct At<40, C3DLine, &C3DLine::end>;
template struct At<8, C3DVectorLine, &C3DVectorLine::base>;
template struct At<40, C3DVectorLine, &C3DVectorLine::vector>;
template struct At<8, C3DMatrixItem, &C3DMatrixItem::base>;
template struct At<40, C3DMatrixItem, &C3DMatrixItem::move>;
template struct At<72, C3DMatrixItem, &C3DMatrixItem::scale>;
template struct At<104, C3DMatrixItem, &C3DMatrixItem::angle>;

template struct At<8, CNurbsCtrlPoint, &CNurbsCtrlPoint::point>;
template struct At<40, CNurbsCtrlPoint, &CNurbsCtrlPoint::weight>;
template struct At<8, CNurbsFitPoint, &CNurbsFitPoint::point>;
template struct At<8, CCalcNurbs, &CCalcNurbs::dimension_>;
template struct At<16, CCalcNurbs, &CCalcNurbs::knots_>;
template struct At<40, CCalcNurbs, &CCalcNurbs::ctrl_points_>;
template struct At<64, CCalcNurbs, &CCalcNurbs::fit_points_>;
template struct At<88, CCalcNurbs, &CCalcNurbs::lines_>;
template struct At<0, TCalcNurbsWorkBuffer, &TCalcNurbsWorkBuffer::matrix>;
template struct At<8, TCalcNurbsWorkBuffer, &TCalcNurbsWorkBuffer::rhs>;
template struct At<16, TCalcNurbsWorkBuffer, &TCalcNurbsWorkBuffer::index>;
template struct At<24, TCalcNurbsWorkBuffer, &TCalcNurbsWorkBuffer::scale>;
template struct At<32, TCalcNurbsWorkBuffer, &TCalcNurbsWorkBuffer::solution>;

// --- Virtual slots ------------------------------------------------------------------------------------------------

// Here a destructor takes two slots: the one that ends the object, and the one that frees its memory too.
const std::string kDestructor = "~";

// The virtual operations of a class in the order of their slots, as the linker writes them.
struct VirtualTable {
    std::string class_name;  // with its length in front
    std::size_t slot_count;
    std::vector<std::string> operations = {kDestructor};
};

// The first slot that a derived class adds is the number of the class's own. A pointer to a virtual member function
// holds 1 + the byte offset of its slot.
template <typename Class>
std::size_t slots_of() {
    struct Derived : Class {
        virtual void next() {}
    };
    void (Derived::*next)() = &Derived::next;
    std::size_t words[2];
    static_assert(sizeof words == sizeof next);
    std::memcpy(words, &next, sizeof words);
    return (words[0] - 1) / sizeof(void*);
}

const VirtualTable kVirtualTables[] = {
    {"10CExtString", slots_of<CExtString>()},
    {"12CExtStrArray", slots_of<CExtStrArray>()},
    {"11CExtStrList", slots_of<CExtStrList>()},
    {"11CExtStrHash", slots_of<CExtStrHash>()},
    {"9CFilePath", slots_of<CFilePath>(), {kDestructor, "_ZNK9CFilePath15GetCopyInstanceEv"}},
    {"11CFileSearch", slots_of<CFileSearch>()},
    {"17CCurrentDirectory", slots_of<CCurrentDirectory>()},
    {"14CStreamMemFile", slots_of<CStreamMemFile>()},
    {"9CLexToken",
     slots_of<CLexToken>(),
     {"_ZN9CLexToken15GetCopyInstanceEv", "_ZNK9CLexToken14MakeDumpStringER10CExtStringi", kDestructor}},
    {"14CLexTokenBlock",
     slots_of<CLexTokenBlock>(),
     {"_ZN9CLexToken15GetCopyInstanceEv", "_ZNK14CLexTokenBlock14MakeDumpStringER10CExtStringi", kDestructor}},
    {"16CLexicalAnalyzer", slots_of<CLexicalAnalyzer>()},
    {"12CTokenParser", slots_of<CTokenParser>()},
    {"14CTokenRegister", slots_of<CTokenRegister>()},
    {"11CMessageMap", slots_of<CMessageMap>(), {kDestructor, "_ZNK11CMessageMap15GetCopyInstanceEv"}},
    {"14CMessageLoader", slots_of<CMessageLoader>()},
    {"16CMessageRegister", slots_of<CMessageRegister>()},
    {"15CMessageManager", slots_of<CMessageManager>(), {kDestructor, "_ZNK15CMessageManager15GetCopyInstanceEv"}},
    {"12CVarResource", slots_of<CVarResource>()},
    {"7CVpItem",
     slots_of<CVpItem>(),
     {kDestructor, "_ZNK7CVpItem9duplicateEv", "_ZNK7CVpItem7CompareEPS_", "_ZN7CVpItem9OnDestroyEv",
      "_ZN7CVpItem12OnAttachListEP7CVpList", "_ZN7CVpItem12OnDetachListEP7CVpList"}},
    {"7CVpList",
     slots_of<CVpList>(),
     {kDestructor, "_ZN7CVpList12OnInsertItemEP7CVpItem", "_ZN7CVpList12OnRemoveItemEP7CVpItem",
      "_ZN7CVpList12OnRenameItemEP7CVpItemPKc"}},
    {"8C2DPoint", slots_of<C2DPoint>()},
    {"7C2DLine", slots_of<C2DLine>()},
    {"13C2DVectorLine", slots_of<C2DVectorLine>()},
    {"10C2DEllipse", slots_of<C2DEllipse>()},
    {"13C2DMatrixItem", slots_of<C2DMatrixItem>(), {kDestructor, "_ZNK13C2DMatrixItem15GetCopyInstanceEv"}},
    {"13C2DMatrixList", slots_of<C2DMatrixList>()},
    {"8C3DPoint", slots_of<C3DPoint>()},
    {"7C3DLine", slots_of<C3DLine>()},
    {"13C3DVectorLine", slots_of<C3DVectorLine>()},
    {"13C3DMatrixItem", slots_of<C3DMatrixItem>(), {kDestructor, "_ZNK13C3DMatrixItem15GetCopyInstanceEv"}},
    {"13C3DMatrixList", slots_of<C3DMatrixList>()},
    {"15CNurbsCtrlPoint", slots_of<CNurbsCtrlPoint>(), {kDestructor, "_ZNK15CNurbsCtrlPoint15GetCopyInstanceEv"}},
    {"14CNurbsFitPoint", slots_of<CNurbsFitPoint>(), {kDestructor, "_ZNK14CNurbsFitPoint15GetCopyInstanceEv"}},
    {"10CCalcNurbs", slots_of<CCalcNurbs>()},
};

std::vector<std::string> slot_names(const VirtualTable& table) {
    std::vector<std::string> names;
    for (const std::string& operation : table.operations) {
        if (operation == kDestructor) {
            names.push_back("_ZN" + table.class_name + "D1Ev");
            names.push_back("_ZN" + table.class_name + "D0Ev");
        } else {
            names.push_back(operation);
        }
    }
    return names;
}

// What stands in a slot. Two words come first: the offset to the top, and the type information.
const void* slot(const VirtualTable& table, std::size_t index) {
    const void* exported = orvil::test::library_symbol(("_ZTV" + table.class_name).c_str());
    return exported == nullptr ? nullptr : static_cast<const void* const*>(exported)[2 + index];
}

bool has_row(const std::string& class_name) {
    for (const VirtualTable& table : kVirtualTables) {
        if (table.class_name == class_name) {
            return true;
        }
    }
    return false;
}

}  // namespace

TEST(BinaryInterface, TypesHaveTheirSizes) {
    for (const Size& size : kSizes) {
        EXPECT_EQ(size.actual, size.expected) << size.type;
    }
}

TEST(BinaryInterface, FieldsLieAtTheirPlaces) {
    ASSERT_GT(fields().size(), 150u);
    for (const Field& field : fields()) {
        EXPECT_EQ(field.actual, field.expected) << field.description;
    }
}

TEST(BinaryInterface, VirtualOperationsStandInTheirSlots) {
    ASSERT_NE(orv_heap_gettype(), 0u);  // the program needs the library, so that it is loaded
    for (const VirtualTable& table : kVirtualTables) {
        const std::vector<std::string> names = slot_names(table);
        EXPECT_EQ(table.slot_count, names.size()) << table.class_name;
        for (std::size_t i = 0; i < names.size(); ++i) {
            const void* operation = orvil::test::library_symbol(names[i].c_str());
            ASSERT_NE(operation, nullptr) << names[i];
            EXPECT_EQ(slot(table, i), operation) << names[i] << " in slot " << i << " of " << table.class_name;
        }
    }
}

TEST(BinaryInterface, EachExportedVirtualTableHasARow) {
    std::ifstream exports("tests/house/exports.txt");
    int count = 0;
    for (std::string name; std::getline(exports, name);) {
        if (name.rfind("_ZTV", 0) == 0) {
            EXPECT_TRUE(has_row(name.substr(4))) << name;
            ++count;
        }
    }
    EXPECT_EQ(count, static_cast<int>(std::size(kVirtualTables)));
}
