#include "LineDefPool.h"

#include <afxobj.h>

void k_LineDefPool::AddBlock()
{
    static_assert(sizeof(Block) <= headSize && (blockSize - headSize) % slotSize == 0);
    void* const memory = ::operator new (blockSize, std::align_val_t{blockSize}, std::nothrow);
    if (memory == nullptr)
        AfxThrowMemoryException();
    Link(*new (memory) Block);
}

// Frees a block without used slots; the last block with room is kept and starts anew, so that its slots are
// taken in order of address.
void k_LineDefPool::Release(Block& block)
{
    Unlink(block);
    if (m_withRoom != nullptr)
        ::operator delete (&block, std::align_val_t{blockSize});
    else
        Link(*new (&block) Block);
}

// The block is new, or became full as the first of the list: it has no previous one.
void k_LineDefPool::Link(Block& block)
{
    block.Next = m_withRoom;
    if (m_withRoom != nullptr)
        m_withRoom->Previous = &block;
    m_withRoom = &block;
}

void k_LineDefPool::Unlink(Block& block)
{
    (block.Previous != nullptr ? block.Previous->Next : m_withRoom) = block.Next;
    if (block.Next != nullptr)
        block.Next->Previous = block.Previous;
}
