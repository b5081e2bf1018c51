/// @file
/// CCurrentDirectory, which brings the working directory back.
#pragma once

#include "orvil/export.h"

/// Remembers the process's working directory when it begins, and makes it the working directory again when it ends.
///
/// What is remembered is a text in the process's code page, which the object owns. When there is no memory for it, or
/// the working directory has none, the end changes nothing. A failure to go back is not reported. Nothing throws.
///
/// It cannot be copied: two ends would go back twice. The working directory is the whole process's, so use it on one
/// thread at a time.
///
/// @code
/// {
///     const CCurrentDirectory here;
///     std::filesystem::current_path("C:/plans");
/// }  // back again
/// @endcode
class ORVIL_API CCurrentDirectory {
public:
    /// Remembers the working directory.
    CCurrentDirectory();
    /// Goes back to it.
    virtual ~CCurrentDirectory();

    CCurrentDirectory(const CCurrentDirectory&) = delete;             ///< not copyable
    CCurrentDirectory& operator=(const CCurrentDirectory&) = delete;  ///< not copyable

protected:
    char* directory_;  ///< the working directory that is remembered, or null; memory of the C runtime
};
