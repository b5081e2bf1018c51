/// @file
/// The node of a token-block tree: a token with an ordered list of child nodes.
///
/// A node has one of three forms, or none:
///
/// | form | the node's own token | its children |
/// |---|---|---|
/// | assignment | the name, a symbol | `=`, the value tokens in order, `;` |
/// | block | the name, a symbol | `{`, the entries (assignments, blocks, plain tokens), `}` |
/// | listing | a name | the value tokens, with no delimiters |
/// | root of a parsed file (a block) | a reset token | the top-level entries, with no braces |
/// | none (invalid) | any token | none: this is a plain token |
///
/// The delimiters are children too, so that a tree keeps the token sequence of its file.
///
/// A node owns its children, at every depth, and nothing else. Pointers to nodes stay valid until the node, or one
/// that it hangs in, is deleted, cleared or assigned to. Trees may be nested as deep as memory allows: no operation
/// recurses. Texts are bytes of the current code page. Objects are not locked: one thread at a time.
///
/// @code
/// CLexTokenBlock view;
/// CLexTokenBlock width;
/// view.SetupBlockTypeFactor("View");
/// width.SetupAssignmentDecimal("Width", 640, nullptr);
/// view.InsertBlockEntityBlock(width);  // View { Width = 640; }
/// @endcode
#pragma once

#include <cstddef>
#include <new>

#include "orvil/export.h"
#include "orvil/strings/ext_array.h"
#include "orvil/strings/ext_string.h"
#include "orvil/tokens/lex_token.h"

namespace orvil::detail {
struct BlockAccess;
}

/// The form of a node. Every int is a valid value; those without a name count as no form.
enum EGrammerType : int {
    eGrammerInvalid = 0,  ///< a plain token
    eGrammerAssign = 1,   ///< name `=` values `;`
    eGrammerBlock = 2,    ///< name `{` entries `}`
    eGrammerListing = 3   ///< values
};

/// A token that owns an ordered list of child nodes.
///
/// A *closed* node (one made by the Setup operations) has its delimiters already: it refuses AddToken(), AddBlock() and
/// SetupGrammerType(), and a block takes further entries by InsertBlockEntityBlock() only. An *open* node is the
/// opposite. Copies are closed as their source is.
class ORVIL_API CLexTokenBlock : public CLexToken {
public:
    /// A reset token, no form, no children, open, without parent.
    CLexTokenBlock();

    /// That token and nothing else.
    CLexTokenBlock(const CLexToken& token);

    /// A deep copy without parent. When memory runs out the copy is what the default constructor makes.
    CLexTokenBlock(const CLexTokenBlock& source);

    /// As CopyData().
    CLexTokenBlock& operator=(const CLexTokenBlock& source);

    /// Releases the children, at every depth. Linear in their number; allocates nothing.
    ~CLexTokenBlock() override;

    /// @name Storage of nodes
    /// @{

    /// Nodes made by `new` come from the library, whichever module asks. Without memory `new` yields null, also
    /// in its plain form.
    static void* operator new(std::size_t size) noexcept;
    static void* operator new(std::size_t size, const std::nothrow_t&) noexcept;
    static void* operator new(std::size_t, void* place) noexcept { return place; }
    static void operator delete(void* block) noexcept;
    static void operator delete(void* block, const std::nothrow_t&) noexcept;
    static void operator delete(void*, void*) noexcept {}
    /// @}

    /// Replaces the token, the children (by deep copies), the form and both flags by those of @p source, which may be
    /// this node or one below it. The parent stays. Pointers to former children are invalidated.
    /// @return false when memory runs out; then nothing has changed
    bool CopyData(const CLexTokenBlock& source);

    /// @return a deep copy, which the caller deletes; null when memory runs out
    CLexTokenBlock* GetCopy() const;

    /// Sets the form. Ignored while the node is closed.
    void SetupGrammerType(EGrammerType type);

    /// @return the form
    EGrammerType QueryGrammerType() const;

    /// @return whether the form is an assignment
    bool IsAssignType() const;

    /// @return whether the form is a block
    bool IsBlockType() const;

    /// @return whether the form is a listing
    bool IsListingType() const;

    /// @return whether the node is a plain token
    bool IsInvalidType() const;

    /// Says whether the writer is to leave out the line end behind this assignment, so that the next output goes on in
    /// the same line.
    void SetNoWriteDelimiter(bool noWriteDelimiter);

    /// @return what SetNoWriteDelimiter() said; false at first
    bool IsNoWriteDelimiter() const;

    /// @return the number of children
    int GetBlockCount() const;

    /// @return the child at @p index, which this node keeps; null outside 0..count-1
    CLexTokenBlock* GetAt(int index) const;

    /// @return the node in which this one hangs; null for a root. DeleteAllBlocks() and the Setup operations clear it,
    /// also when the node stays where it hangs.
    CLexTokenBlock* GetParentBlock() const;

    /// Deletes the children; the form becomes invalid, the node open and without parent. The token stays.
    /// @return true
    bool DeleteAllBlocks();

    /// Appends a childless node with a copy of @p token.
    /// @return its index; -1 when the node is closed or memory runs out
    int AddToken(const CLexToken& token);

    /// Appends a deep copy of @p block, which may be this node or one of its tree.
    /// @return its index; -1 when the node is closed or memory runs out, and then nothing has changed
    int AddBlock(const CLexTokenBlock& block);

    /// Inserts a deep copy of @p block, which may be this node or one of its tree, before the first `}` among the
    /// children of a closed block. While this node has handed out no child, that takes constant time beside the copy;
    /// else time linear in the number of children.
    /// @return its index; -1 when this is no closed block, has no `}`, or memory runs out, and then nothing has changed
    int InsertBlockEntityBlock(const CLexTokenBlock& block);

    /// Never succeeds: a closed node refuses plain tokens here, and an open one refuses insertion.
    /// @return -1
    int InsertBlockEntityToken(const CLexToken& token);

    /// Looks for a child of kind @p kind, and with exactly the text @p text unless that is null or empty.
    /// @param start the index to begin at; a negative one counts as 0
    /// @return the first such index, or -1. Linear in the number of children.
    int SearchTokenBlockIndex(ETokenKind kind, const char* text, int start) const;

    /// Looks among the children of a block, not below them, for a block whose token is the symbol @p name.
    /// @param name null or empty for any symbol
    /// @return the first one, or null; always null when this is no block
    CLexTokenBlock* FindTokenBlockEntity(const char* name) const;

    /// Looks for an assignment in document order: an assignment among the children is tested itself, a block is
    /// searched through before what follows it. Listings are not searched. Linear in the size of the tree.
    /// @param name null or empty for any assignment
    /// @return the first one, at whatever depth, or null
    CLexTokenBlock* FindAssignmentBlockEntity(const char* name) const;

    /// @name Building the forms
    /// Each clears the node first (children, token, form, both flags, parent) and leaves a closed node. A null or empty
    /// name is refused. The texts may be those of this node or of its children.
    /// @{

    /// Makes an empty block: the symbol @p name with the children `{` and `}`.
    /// @return false for a null or empty name, and then nothing has changed; false when memory runs out, and then the
    /// node is cleared and open
    bool SetupBlockTypeFactor(const char* name);

    /// Makes an assignment: the symbol @p name with the children `=`, the value and `;`.
    /// @param value the text of the value, as it is; null counts as empty. An empty text becomes a token of kind empty.
    /// @param kind the kind of the value. Decimal, hexadecimal and double are refused unless the text has that form;
    /// kind 0 is decided by the text.
    /// @return whether it was made; otherwise the node is cleared and open
    bool SetupAssignmentFactor(const char* name, const char* value, ETokenKind kind);

    /// Makes an assignment of a decimal value.
    /// @param format a printf format that takes exactly one int, which the caller answers for; null for "%d"
    bool SetupAssignmentDecimal(const char* name, int value, const char* format);

    /// Makes an assignment of a hexadecimal value.
    /// @param format a printf format that takes exactly one unsigned int; null for "0x%08X"
    bool SetupAssignmentHexaDecimal(const char* name, unsigned int value, const char* format);

    /// Makes an assignment of a floating-point value. Infinities and NaN are refused: their texts are no numbers.
    /// @param format a printf format that takes exactly one double; null for "%.*g" with RefDoublePercision()
    bool SetupAssignmentDouble(const char* name, double value, const char* format);

    /// Makes an assignment of a string.
    bool SetupAssignmentString(const char* name, const char* value);

    /// Makes an assignment of a symbol. A symbol that reads as a number or holds separators does not read back as one.
    bool SetupAssignmentSymbol(const char* name, const char* value);

    /// @}

    /// @name Reading the forms
    /// @{

    /// Each looks in a block for the assignment @p name as FindAssignmentBlockEntity() does and converts its first
    /// value of the wanted kind. The first assignment of the name decides, at whatever depth, also when it holds no
    /// value of that kind.
    /// @return false when this is no block, or there is no such assignment or value, or it does not convert; then the
    /// output is untouched
    bool GetAssignmentDecimal(const char* name, int& value) const;
    bool GetAssignmentHexaDecimal(const char* name, unsigned int& value) const;
    bool GetAssignmentDouble(const char* name, double& value) const;
    bool GetAssignmentString(const char* name, CExtString& value) const;
    bool GetAssignmentSymbol(const char* name, CExtString& value) const;
    /// @}

    /// @return one line that describes a form, empty for a plain token: "View { ... Token(3) ... }" with the number of
    /// children for a block, "Listing { ... Token(2) ... }", and for an assignment the name and the children's texts
    /// with a blank between any two
    CExtString QueryInformationString() const;

    /// Appends a description of the whole tree to @p out: the token's own for a plain token; for a form a rule and
    /// QueryInformationString(), both indented by 4 x (@p indent + 1) blanks, and then the children at @p indent + 1.
    /// The size is quadratic in the depth; the description ends where memory does.
    void MakeDumpString(CExtString& out, int indent) const override;

    /// Sets the number of significant digits of doubles written by the default format, for the whole process.
    static void SetupDoublePercision(int precision);

    /// @return that number; 15 at first
    static int RefDoublePercision();

protected:
    /// Inserts a deep copy of @p block before the child at @p index, or at the end when there is no such child. Neither
    /// the form nor the flags of this node are asked for.
    /// @return the index of the copy; -1 for null or when memory runs out
    int InsertBlockArray(int index, const CLexTokenBlock* block);

private:
    friend struct orvil::detail::BlockAccess;

    /// What is known of the place of the closing brace.
    enum class Closing : unsigned char {
        kUnknown,  ///< nothing
        kLast,     ///< the last child is the first `}`
        kExposed   ///< nothing, as children have been handed out and may have become anything
    };

    CExtArray<CLexTokenBlock> children_;
    EGrammerType grammar_type_ = eGrammerInvalid;
    bool no_write_delimiter_ = false;
    bool closed_ = false;
    mutable Closing closing_ = Closing::kUnknown;
    CLexTokenBlock* parent_ = nullptr;
};
