#include "QuantityDesc.h"

#include "PooledObjects.h"

static_assert(sizeof(k_QuantityDesc) == 64, "a search reads one cache line of each row");

k_QuantityDesc::k_QuantityDesc(QuantityKey key)
    : Device(key.Device), Quantity(key.Quantity), SubQuantity(key.SubQuantity), Index(key.Index),
      Flags(key.Flags)
{
}

k_QuantityDesc::k_QuantityDesc(const k_QuantityDesc& source)
    : CObject(), Device(source.Device), Quantity(source.Quantity), SubQuantity(source.SubQuantity),
      Index(source.Index), Flags(source.Flags), ColumnCount(source.ColumnCount),
      ReservedFlag(source.ReservedFlag), Level(source.Level)
{
    Styles.Assign(source.Styles);
}

k_QuantityDesc::~k_QuantityDesc() = default;

void* k_QuantityDesc::operator new(std::size_t size)
{
    return k_PooledObjects<k_QuantityDesc>::New(size);
}

void k_QuantityDesc::operator delete(void* row, std::size_t size) noexcept
{
    k_PooledObjects<k_QuantityDesc>::Delete(row, size);
}

bool k_QuantityDesc::GetKey(QuantityKey& key) const
{
    key = {Quantity, SubQuantity, Index, Device, Flags};
    return true;
}

k_LineDef* k_QuantityDesc::GetScratchRecord() noexcept
{
    static k_LineDef scratch;
    scratch = k_LineDef();
    return &scratch;
}

bool k_QuantityDesc::SetColumnStyle(int column, k_LineDef* pStyle)
{
    if (column >= k_MaxFileColumns)
        return false;
    Styles.SetAtGrow(column, pStyle);
    return true;
}
