// The rows of a style atlas, in table order.
#pragma once

#include "QuantityDesc.h"

// Holds the rows for the atlas that owns them, and deletes none.
class k_QuantityList : public CPtrArray
{
public:
    k_QuantityList() = default;
    ~k_QuantityList() override;
};
