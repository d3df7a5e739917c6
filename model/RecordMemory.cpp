#include "RecordMemory.h"

#include <afxobj.h>
#include <cstdint>
#include <new>

namespace
{

constexpr std::size_t blockSize = 0x10000; // and its alignment, so that a place tells its block
constexpr std::size_t headSize = 64;

} // namespace

struct RecordMemory::Place {
    Place* Next;
};

struct RecordMemory::Block {
    bool IsFull() const { return Free == nullptr && Fresh == blockSize; }

    Block* Next = nullptr; // of those with room
    Block* Previous = nullptr;
    Place* Free = nullptr;        // the places that were given back
    std::size_t Fresh = headSize; // offset of the first place that was never taken
    std::size_t InUse = 0;        // places
};

void* RecordMemory::Take()
{
    static_assert(sizeof(Block) <= headSize && (blockSize - headSize) % placeSize == 0);
    if (m_withRoom == nullptr)
        AddBlock();
    Block& block = *m_withRoom;
    void* place = block.Free;
    if (place != nullptr) {
        block.Free = block.Free->Next;
    } else {
        place = reinterpret_cast<std::byte*>(&block) + block.Fresh;
        block.Fresh += placeSize;
    }
    ++block.InUse;
    if (block.IsFull())
        Unlink(block);
    return place;
}

void RecordMemory::Return(void* place) noexcept
{
    const auto address = reinterpret_cast<std::uintptr_t>(place);
    Block& block = *reinterpret_cast<Block*>(address & ~(blockSize - 1));
    if (block.IsFull())
        Link(block);
    block.Free = new (place) Place{block.Free};
    if (--block.InUse > 0)
        return;
    Unlink(block);
    if (m_withRoom != nullptr)
        ::operator delete (&block, std::align_val_t{blockSize});
    else
        Link(*new (&block) Block); // the places are taken in their order again
}

void RecordMemory::AddBlock()
{
    void* const memory = ::operator new (blockSize, std::align_val_t{blockSize}, std::nothrow);
    if (memory == nullptr)
        AfxThrowMemoryException();
    Link(*new (memory) Block);
}

void RecordMemory::Link(Block& block)
{
    block.Previous = nullptr;
    block.Next = m_withRoom;
    if (m_withRoom != nullptr)
        m_withRoom->Previous = &block;
    m_withRoom = &block;
}

void RecordMemory::Unlink(Block& block)
{
    (block.Previous != nullptr ? block.Previous->Next : m_withRoom) = block.Next;
    if (block.Next != nullptr)
        block.Next->Previous = block.Previous;
}
