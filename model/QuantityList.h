// The rows of a style atlas, in table order.
#pragma once

#include "QuantityDesc.h"

// Holds the rows for the atlas that owns them, and deletes none.
class AFX_EXT_CLASS k_QuantityList : public CPtrArray
{
public:
    k_QuantityList() = default;
    ~k_QuantityList() override;
};
