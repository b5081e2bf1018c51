/// @file
/// CVarResource, a record set as an object.
#pragma once

#include <cstdarg>

#include "orvil/export.h"
#include "orvil/params/typed_records.h"

/// A set of named, typed values: the functions of typed_records.h as members. What they say of names, types, orders,
/// conversions and how long a string holds is valid here; a `bool` is true where they return 0.
///
/// Copies are shallow. An object that is made by copying, and one that is assigned to, uses the records of its source:
/// it must not outlive the source, and destroying it deletes the source's records. Copy(), Update() and MaskedCopy()
/// copy the records themselves.
///
/// When there was no memory for the pool the object has no set: members that change something return false, those that
/// read return 0, 0.0 or "".
/// @code
/// CVarResource pen;
/// pen.AddInt("colour", 7);
/// pen.AddStrFormat("name", "pen %d", pen.RefInt("colour"));
/// CVarResource copy;
/// copy.Copy(pen);
/// @endcode
class ORVIL_API CVarResource {
public:
    /// An empty set whose pool grows by 8 records and begins with 16.
    CVarResource();
    /// An empty set whose pool grows by @p blockSize records (4 at least) and begins with @p initialCount (8 at least).
    CVarResource(int blockSize, int initialCount);
    /// An object that uses the records of @p source.
    CVarResource(const CVarResource& source);
    /// Deletes the records of this object, if they are its own, and uses those of @p source.
    CVarResource& operator=(const CVarResource& source);
    /// Destroys the set: that of the source, too, in an object that was made by copying.
    virtual ~CVarResource();

    /// As vpr_clear().
    bool Clear();
    /// As vpr_copy().
    bool Copy(const CVarResource& source);
    /// As vpr_masked_copy().
    bool MaskedCopy(const CVarResource& source, const char* mask, char separator);
    /// As vpr_update().
    bool Update(const CVarResource& source);

    /// As vpr_add().
    bool Add(const char* name, char type, const void* value);
    /// As vpr_delete(). @return whether a record has been deleted
    bool Delete(const char* name);
    /// As vpr_add_int().
    bool AddInt(const char* name, int value);
    /// As vpr_add_dbl().
    bool AddDbl(const char* name, double value);
    /// As vpr_add_str().
    bool AddStr(const char* name, const char* value);
    /// As vpr_add_strf().
    bool AddStrFormat(const char* name, const char* format, ...) ORVIL_PRINTF(3, 4);
    /// As vpr_add_vstrf().
    bool AddStrFormatV(const char* name, const char* format, va_list args) ORVIL_PRINTF(3, 0);

    /// As vpr_count().
    int Count() const;
    /// As vpr_type().
    char Type(const char* name) const;
    /// As vpr_ref_int().
    int RefInt(const char* name) const;
    /// As vpr_ref_dbl().
    double RefDbl(const char* name) const;
    /// As vpr_ref_str().
    const char* RefStr(const char* name) const;
    /// As vpr_get_int().
    int GetInt(const char* name, char* typeOut) const;
    /// As vpr_get_dbl().
    double GetDbl(const char* name, char* typeOut) const;
    /// As vpr_get_str().
    const char* GetStr(const char* name, char* typeOut) const;
    /// As vpr_traverse(). @return -1 when there is no set
    int Traverse(int order, vpr_visit_t callback, void* user) const;

protected:
    vpr_set_t set_;        ///< this object's own set
    vpr_set_t* resource_;  ///< the set in use: the own one, or that of the source; null when there is none
};
