// Memory for the many small records of a table.
#pragma once

#include <cstddef>

// Places of one size, in large blocks. A table has a hundred thousand records, which are made and deleted all
// at once, so a place is had and given back in a few steps. A block of which no place is in use goes back to
// the heap, but for the last one. Not for two threads at once, and never destroyed: a record may outlive all
// that is.
class RecordMemory
{
public:
    static constexpr std::size_t placeSize = 32;

    // Raises the memory exception when there is no memory.
    void* Take();

    // Gives back a place that was taken here.
    void Return(void* place) noexcept;

private:
    struct Place;
    struct Block;

    void AddBlock();
    void Link(Block& block);
    void Unlink(Block& block);

    Block* m_withRoom = nullptr; // a list of the blocks that have room
};
