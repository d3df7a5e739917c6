// A row of the style atlas: a measured quantity and its curve style for each file column.
#pragma once

#include "LineDefList.h"
#include "QuantityKey.h"

// Number of file columns of a row. A layout file can hold more records; those can't be reached.
constexpr int k_MaxFileColumns = 32;

class AFX_EXT_CLASS k_QuantityDesc : public CObject
{
public:
    k_QuantityDesc() = default; // no device; for the layout file reader, which fills the row
    explicit k_QuantityDesc(QuantityKey key);
    k_QuantityDesc(const k_QuantityDesc& source); // copies the records
    k_QuantityDesc& operator=(const k_QuantityDesc&) = delete;
    ~k_QuantityDesc() override;

    // Raises the memory exception when there is no memory.
    static void* operator new(std::size_t size);
    static void operator delete(void* row, std::size_t size) noexcept;

    // Fills all members of the key. Always true.
    bool GetKey(QuantityKey& key) const;

    // The record of a file column, owned by the row; null if the row's list ends before the column. A
    // negative column raises the invalid argument exception.
    k_LineDef* GetColumnStyle(int column)
    {
        const INT_PTR position = column; // as wide as the array's own check, so that one comparison does
        if (position >= k_MaxFileColumns || position >= Styles.GetSize())
            return nullptr;
        k_LineDef* const pStyle = Styles.GetAt(position);
        return pStyle != nullptr ? pStyle : GetScratchRecord();
    }

    // Puts a record, which the row then owns, into a file column. The previous record isn't deleted. From
    // column 32 on, returns false and changes nothing.
    bool SetColumnStyle(int column, k_LineDef* pStyle);

    k_LineDefList* GetStyles() { return &Styles; }

    // The symbol of the quantity, followed by " - " and the name of the device if it has one.
    CString GetLabel() const;

    // The name of the device, or an empty text.
    CString GetTooltipLabel() const;

    // Reads or writes the row in the layout file: 17 bytes and the records.
    void Serialize(CArchive& ar) override;

    short Device = -1;
    WORD Quantity = 0;
    WORD SubQuantity = 0;
    BYTE Index = 0;
    DWORD Flags = 0;
    int ColumnCount = k_MaxFileColumns; // as read from the file; the size of Styles is what counts
    bool ReservedFlag = false;          // unused, but copied and stored
    BYTE Level = 0;                     // depth in the outline
    k_LineDefList Styles;               // position = file column

private:
    // Scratch record for an empty slot, reset on every call; writes to it are lost.
    static k_LineDef* GetScratchRecord() noexcept;
};
