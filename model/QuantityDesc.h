// A row of the style atlas: a measured quantity and its curve style for each file column.
#pragma once

#include "LineDefList.h"
#include "QuantityKey.h"

// File columns that a row answers for, 0 to 31. A layout file can bring more records; those beyond can't be
// reached.
constexpr int k_MaxFileColumns = 32;

class AFX_EXT_CLASS k_QuantityDesc : public CObject
{
public:
    k_QuantityDesc() = default; // no device; for the reader of the layout file, which fills the row at once
    explicit k_QuantityDesc(QuantityKey key);
    k_QuantityDesc(const k_QuantityDesc& source); // with new copies of all records
    k_QuantityDesc& operator=(const k_QuantityDesc&) = delete;
    ~k_QuantityDesc() override;

    // Fills all members of the key; true.
    bool GetKey(QuantityKey& key) const;

    // The record of a file column, which stays the row's; null for a column that the row has no record for. A
    // negative column raises the invalid argument exception.
    k_LineDef* GetColumnStyle(int column)
    {
        if (column >= k_MaxFileColumns || column >= Styles.GetSize())
            return nullptr;
        k_LineDef* const pStyle = Styles.GetAt(column);
        return pStyle != nullptr ? pStyle : GetEmptyPlace();
    }

    // Puts a record, which is the row's from then on, in the place of a file column; false, and nothing, from
    // column 32 upward. A record that stood there is not deleted.
    bool SetColumnStyle(int column, k_LineDef* pStyle);

    k_LineDefList* GetStyles() { return &Styles; }

    // The symbol of the quantity, and " - " and the name of the device if it has one.
    CString GetLabel() const;

    // The name of the device alone; empty where there is none.
    CString GetTooltipLabel() const;

    // The row in the layout file: 17 bytes and the records.
    void Serialize(CArchive& ar) override;

    short Device = -1;
    WORD Quantity = 0;
    WORD SubQuantity = 0;
    BYTE Index = 0;
    DWORD Flags = 0;
    int ColumnCount = k_MaxFileColumns; // of a stored row, the number of records in the file; the size of
                                        // Styles is what counts
    bool ReservedFlag = false;          // travels with every copy and through the file
    BYTE Level = 0;                     // depth in the outline
    k_LineDefList Styles;               // position = file column

private:
    // What an empty place reads as: a record as constructed, whatever was written to the last one handed out.
    static k_LineDef* GetEmptyPlace();
};
