// A list that picks out records of others.
#pragma once

#include <model/LineDefList.h>

// Lets its records go at the end instead of deleting them: they stay with their rows.
class k_StyleSelection : public k_LineDefList
{
public:
    k_StyleSelection() = default;
    ~k_StyleSelection() override { SetSize(0, -1); }
};
