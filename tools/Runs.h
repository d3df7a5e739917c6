// Numbers in runs of equal meaning, such as the file columns that differ in the same way.
#pragma once

#include <cstddef>
#include <utility>

namespace atlaslayout
{

// Divides the numbers below count into runs of equal keyOf(number), and calls use(first, last, key) for each.
template <class KeyOf, class Use> void ForEachRun(std::size_t count, KeyOf keyOf, Use use)
{
    if (count == 0)
        return;
    std::size_t first = 0;
    auto key = keyOf(first);
    for (std::size_t i = 1; i < count; ++i) {
        auto next = keyOf(i);
        if (next == key)
            continue;
        use(first, i - 1, key);
        first = i;
        key = std::move(next);
    }
    use(first, count - 1, key);
}

} // namespace atlaslayout
