#include "QuantityPool.h"

#include "OwnedElement.h"

#include <new>

k_QuantityPool::~k_QuantityPool()
{
    for (INT_PTR i = 0; i < GetSize(); ++i)
        delete GetAt(i);
}

void k_QuantityPool::AddRecord(const QuantityKey& key)
{
    std::unique_ptr<QuantityKey> record(new (std::nothrow) QuantityKey(key));
    if (!record)
        AfxThrowMemoryException();
    AddOwned(*this, std::move(record));
}
