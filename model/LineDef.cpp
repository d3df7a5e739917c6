#include "LineDef.h"

#include "PooledObjects.h"

k_LineDef::~k_LineDef() = default;

void* k_LineDef::operator new(std::size_t size)
{
    return k_PooledObjects<k_LineDef>::New(size);
}

void k_LineDef::operator delete(void* record, std::size_t size) noexcept
{
    k_PooledObjects<k_LineDef>::Delete(record, size);
}
