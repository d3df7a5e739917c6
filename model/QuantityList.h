// The rows of a style atlas, in table order.
#pragma once

#include "QuantityDesc.h"

// The atlas owns the rows; the list never deletes them.
class AFX_EXT_CLASS k_QuantityList : public CTypedPtrArray<CPtrArray, k_QuantityDesc*>
{
public:
    k_QuantityList() = default;
    ~k_QuantityList() override;
};
