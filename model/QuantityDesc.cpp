#include "QuantityDesc.h"

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

bool k_QuantityDesc::GetKey(QuantityKey& key) const
{
    key = {Quantity, SubQuantity, Index, Device, Flags};
    return true;
}

k_LineDef* k_QuantityDesc::GetScratchRecord()
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
