/// @file
/// A whole file in one memory buffer: loaded at once and consumed byte by byte or line by line, or written into and put
/// on the disk in one piece.
///
/// The stream owns its buffer, which comes from the C runtime's malloc(). Bytes are read and written untranslated; text
/// is in the process's code page, and a double-byte character is always delivered whole. One object belongs to one
/// thread. No operation throws: failure is a false result.
///
/// @code
/// CStreamMemFile file(eTransRead, 4096);
/// CExtString line;
/// if (file.OpenFile("view.txt")) {
///     while (file.ReadString(line)) {
///         std::puts(line.GetString());
///     }
/// }
/// @endcode
#pragma once

#include <cstddef>

#include "orvil/export.h"
#include "orvil/strings/ext_string.h"

namespace orvil::detail {
struct StreamAccess;
}

/// Which way a stream works; fixed at its construction.
enum ETransDirection : int {
    eTransRead = 1,   ///< the file is loaded and consumed
    eTransWrite = 2,  ///< the buffer is filled and then written to the file
};

/// How a line end is written.
enum EDelimiterMode : int {
    eDelimiterCrLf = 0,  ///< CR LF
    eDelimiterCr = 1,    ///< CR alone
    eDelimiterLf = 2,    ///< LF alone
};

/// A file in memory, with a position and a running count of lines and columns.
///
/// Counting: each consumed byte adds 1 to the column; CR then sets the column to 0, LF adds 1 to the line. LF does not
/// reset the column, so in a file whose lines end in LF alone the column keeps growing, and after CR LF it is 1. The
/// line is 0 when a file has been opened; the column is -1 after construction and no opening resets it.
///
/// Files of more than 0x7FFFFFFF bytes are refused, and so is any growth past that size. Where the stream has no buffer
/// or its position is -1 (before OpenFile(), after WriteFile() and after CloseFile()), reading and writing give false.
class ORVIL_API CStreamMemFile {
public:
    /// @param direction what the stream is for
    /// @param growUnit by how many bytes the buffer grows; below 1 it cannot grow. 4096 is usual.
    CStreamMemFile(ETransDirection direction, int growUnit);

    /// A deep copy, as CopyData() makes it.
    CStreamMemFile(const CStreamMemFile& source);

    /// Closes the stream. What was not written by WriteFile() is lost.
    virtual ~CStreamMemFile();

    /// As CopyData().
    CStreamMemFile& operator=(const CStreamMemFile& source);

    /// Becomes a deep copy of @p source: direction, path, buffer, position, counters and error text. Linear in the
    /// buffer's size.
    /// @return true; false when there is no memory for the buffer, and then the stream is as an unopened one
    bool CopyData(const CStreamMemFile& source);

    /// Reading: loads the file, whole and untranslated; the line becomes 0, the column stays. Writing: prepares an
    /// empty buffer; nothing is put on the disk yet. The buffer held before is released. A closed stream cannot be
    /// opened for writing again.
    /// @param path kept for WriteFile() and for messages
    /// @return false when @p path is null or empty, or there is no memory; when reading, if there is no such file, it
    /// is a folder, larger than 0x7FFFFFFF bytes or cannot be read whole; when writing, if a file is there that its
    /// owner may not both read and write
    bool OpenFile(const char* path);

    /// Writes the bytes before the position to the file, in one piece. The position becomes -1, so that a second call
    /// is refused; the buffer is kept until CloseFile().
    /// @param append adds to the file instead of replacing it
    /// @return whether all bytes were written; false, and no file is touched, unless the stream is open for writing
    bool WriteFile(bool append);

    /// Releases the buffer and empties the path. The grow unit becomes -1: the stream is not meant to be used again.
    /// @return true
    bool CloseFile();

    /// Goes back to the first byte and to line 0. The column stays.
    /// @return true
    bool Rewind();

    /// @return whether a stream in the read direction stands at its end; always false in the write direction and before
    /// the first OpenFile(). A loop must look at the reading operations' results as well.
    bool IsEof() const;

    /// @return the line counter: 0 in the first line, -1 before OpenFile()
    int QueryCurrentLine() const;

    /// @return the column counter; see the class for how it counts
    int QueryCurrentColm() const;

    /// Chooses how WriteString() writes line ends; CR LF after construction.
    /// @return true
    bool SetDelimiterMode(EDelimiterMode mode);

    /// @return the last error text, "path(line) : EOF"; never null. It lives until the next operation that reads.
    const char* GetErrorInformation() const;

    /// @return the path given to OpenFile(); empty after CloseFile()
    const CExtString& GetFilePath() const;

    /// Consumes and counts one character.
    /// @param first receives the character, or its lead byte; 0 when there is none
    /// @param second receives the trail byte of a double-byte character, else 0
    /// @return true; false at the end, and for a lead byte that is the file's last byte, with nothing consumed and the
    /// error text set. Such a lone lead byte stands in @p first all the same. A double-byte character that ends the
    /// file also gives false and sets the error text, although both bytes are delivered and consumed: there a
    /// @p second other than 0 tells that they came.
    bool GetCurrentData(char& first, char& second);

    /// As GetCurrentData(), without consuming, counting or setting the error text.
    /// @return false at the end. A lead byte without a trail byte gives true and a @p second of 0.
    bool QueryCurrentData(char& first, char& second) const;

    /// The character that begins @p offset bytes after the position, without consuming it. A negative offset looks
    /// back.
    /// @return false, and both bytes are 0, when there is no byte
    bool QueryNextData(char& first, char& second, int offset) const;

    /// Consumes one line, of the read direction only. CR, LF and CR LF end a line.
    ///
    /// The line is taken in chunks of 1024 bytes, each up to its first NUL. A last line without a line end gives false,
    /// and of it only the full chunks are stored: for callers it is the end of the input.
    /// @param line receives the text without the line end
    /// @return whether a line end was found; the line counter grows by 1 then. The column stays.
    bool ReadString(CExtString& line);

    /// Consumes one line or as much of it as fits, of the read direction only.
    ///
    /// When @p size - 1 bytes have been stored, the last of them is not consumed: the next call delivers it again. So a
    /// size of 2 never gets past a byte; use 3 or more.
    /// @param buffer has room for @p size + 1 bytes: when it is filled, zeros are stored at @p size - 1 and at @p size
    /// @param size how many bytes a line may take, its terminator included
    /// @return true, and the line counter grows by 1; false at the end of the file, with the bytes of an unterminated
    /// last line stored and terminated; false for a null buffer or a size of 0
    bool ReadString(char* buffer, size_t size);

    /// Appends a text, of the write direction only. CR is dropped, LF is written as the chosen line end. Linear in the
    /// text's length.
    /// @param text must not be null
    /// @param addLineEnd adds one more line end
    /// @return false when the stream is not open for writing or cannot grow; what was written before stays
    bool WriteString(const char* text, bool addLineEnd);

protected:
    /// @return the byte at the position; 0 at the end or when the stream is not open
    char QueryQue() const;

    /// Steps over one byte, in either direction.
    /// @param count counts the byte as GetCurrentData() does
    /// @return whether the position is still before the end
    bool IncrementQue(bool count);

    /// Stores a byte at the position and steps over it. The buffer grows as soon as it is full.
    /// @return false at the end, when the stream is not open, and when the buffer is full and cannot grow
    bool AddQue(char c);

    /// Replaces the buffer by a zero-filled one; the position is moved back into it.
    /// @param size in bytes; below 1 the grow unit is taken
    /// @return false, and there is no buffer then, when there is no memory or both sizes are below 1
    bool GetBuffer(int size);

    /// Grows the buffer by the grow unit. The new bytes are zero.
    /// @return false, and nothing changes, when there is no memory, the grow unit is below 1 or the size would pass
    /// 0x7FFFFFFF
    bool ReallocBuffer();

private:
    friend struct orvil::detail::StreamAccess;

    ETransDirection direction_;
    CExtString path_;
    int capacity_ = 0;
    int grow_unit_;
    char* buffer_ = nullptr;
    int position_ = -1;
    EDelimiterMode delimiter_mode_ = eDelimiterCrLf;
    int line_ = -1;
    int column_ = -1;
    CExtString error_information_;
};
