// A list of records that are owned elsewhere.
#pragma once

#include <model/LineDefList.h>

// Doesn't delete its records at the end: they stay with their rows.
class k_StyleSelection : public k_LineDefList
{
public:
    k_StyleSelection() = default;
    ~k_StyleSelection() override { SetSize(0, -1); }
};
