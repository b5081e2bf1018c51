// A CExtStrHash whose protected members can be reached.
#pragma once

#include "orvil/strings/ext_str_hash.h"

namespace orvil::test {

class HashProbe : public CExtStrHash {
public:
    explicit HashProbe(int size = 37, bool ignoreCase = false) : CExtStrHash(size, ignoreCase) {}
    explicit HashProbe(const CExtStrHash& pairs) { CopyData(pairs); }

    using CExtStrHash::buckets_;
    using CExtStrHash::CalcHashValue;
    using CExtStrHash::count_;
    using CExtStrHash::CreateNewNode;
    using CExtStrHash::FreeNode;
    using CExtStrHash::ignore_case_;
    using CExtStrHash::IsExistItem;
    using CExtStrHash::IsValueExist;
    using CExtStrHash::LookupItem;
    using CExtStrHash::MakeItemNode;
    using CExtStrHash::RemoveItem;
    using CExtStrHash::SearchNode;
    using CExtStrHash::SetAtItem;
    using CExtStrHash::snapshot_;
    using CExtStrHash::table_size_;
};

}  // namespace orvil::test
