// The style atlas: for every measured quantity and every file column, how its curve is drawn.
#pragma once

#include "RowLookup.h"

#include <algorithm>
#include <vector>

class k_QuantityPool;

// The table and what is done with it as a whole. The atlas owns its rows; the pointers that it hands out stay
// its own and are good until the rows are replaced. A slot of Rows can be empty, and everything that walks
// the table passes over such a slot. A failed allocation raises the memory exception.
class AFX_EXT_CLASS k_StyleAtlas : public CObject
{
public:
    k_StyleAtlas() = default;
    ~k_StyleAtlas() override;

    // ---- Table and lookup

    // Deletes all rows; the counters and the paths stay.
    void Clear();

    // Makes this atlas a deep copy of another.
    k_StyleAtlas& Assign(const k_StyleAtlas& source);

    // The same, but takes the rows of the other, which is left without any, instead of copying them.
    k_StyleAtlas& Assign(k_StyleAtlas&& source);

    // Appends a row with a record as constructed for each file column, and gives its index.
    INT_PTR AddRow(QuantityKey key, BYTE level);

    // The index of the row that fits a key best, -1 if none has its Quantity: see FindBestRow.
    FORCEINLINE INT_PTR FindRow(QuantityKey key) const { return FindBestRow(Rows, key); }

    // Null for an index outside the table.
    k_QuantityDesc* GetRow(INT_PTR row) const;

    // Null for a row or a file column that is not there. A negative number raises the invalid argument
    // exception.
    k_LineDef* GetRowStyle(INT_PTR row, int column) const
    {
        if (row >= Rows.GetSize())
            return nullptr;
        k_QuantityDesc* const pRow = Rows.GetAt(row);
        return pRow != nullptr ? pRow->GetColumnStyle(column) : nullptr;
    }

    // The file columns that are built, shown, and walked by a rule: ColumnCount, but no more than 32.
    int GetBoundedColumnCount() const
    {
        return static_cast<int>(std::min<DWORD>(ColumnCount, k_MaxFileColumns));
    }

    // The text of a row in the outline: the symbol of its quantity and, at level 0, " - " and the name of the
    // device if it has one; "?" for an empty slot. Empty for an index past the table; a negative one raises
    // the invalid argument exception.
    CString GetRowLabel(INT_PTR row) const;

    // ---- Catalogue

    // Replaces the rows by an outline of the quantities that the unit library reports now, all styles as
    // constructed. Gives the number of rows.
    INT_PTR BuildCatalogue();

    // ---- Bulk rules: each gives distinct shapes and fills, or distinct colours, to the whole table

    // By file column, from first to end, which is not included.
    void SetFileColors(int first, int end);
    void SetFileSymbols(int first, int end);

    // By main quantity: neighbouring rows of one Quantity look alike.
    void SetMainQuantityColors();
    void SetMainQuantitySymbols();

    // The pair of rules that suits the host.
    void ApplyDefaultStyles();

    // ---- Layout file

    // Writes the table, or reads a stored table and lays it over the rows that are there: a stored row
    // replaces the first row of an equal key, or is appended.
    void Serialize(CArchive& ar) override;

    // Builds the catalogue and lays the layout file over it: the file at the path, or, for an empty path, the
    // one that the registry names, which becomes FilePath. 0 when the table came from a file; 1 when there is
    // none, and the default styles stand, or when it is damaged, which a message tells, and the bare
    // catalogue stands. A file that could not be read is remembered for Save.
    int Load(CString path);

    // Writes the table to the path, or, for an empty path, to FilePath; the path becomes FilePath when the
    // whole file is on disk. Always false. A name that leads nowhere, as in a folder that doesn't exist, ends
    // silently; an exception out of the opening is told in a message; a failure while the bytes go out raises
    // the file exception. The old file stands in each case. One that Load could not read is kept as
    // NAME.damaged before it is written over (or with a number behind it, where there is such a file); if
    // that fails, the message is shown and nothing is written.
    bool Save(CString path);

    // Makes the path FilePath and stores it in the registry; false for an empty path, which changes nothing.
    bool SetFilePath(CString path);

    // Changes the subkey and carries the file in use over to it.
    void SetRegistryPath(CString subKey);

    // Moves to the settings in the user's root and the key below it, joined by one backslash, and loads the
    // file that they name; settings that name none are given FilePath.
    void ChangeUserInfo(CString userRoot, CString subKey);

    // Writes the list of quantities that the unit library reports now, a line each, to the log for the
    // service. Nothing happens where the file can't be made. Gives an empty text.
    static CString WriteUnitLog();

    DWORD Version = 1;
    DWORD ColumnCount = k_MaxFileColumns; // as the file has it; at most 32 file columns are built or shown
    k_QuantityList Rows;
    CString RegistryPath;             // subkey below HKEY_USERS
    CString FilePath;                 // of the layout file in use
    std::vector<CString> UnreadFiles; // paths that Load could not read, and Save hasn't written over

private:
    void AssignHead(const k_StyleAtlas& source);
    void AddGroup(k_QuantityPool& group);
    void AddSubQuantity(const k_QuantityPool& records);
    void ReadRows(CArchive& ar);
    void WriteRows(CArchive& ar);
    void ReadFilePath();
    void RememberUnread(const CString& path);
    void ForgetUnread(const CString& path);
    void KeepUnread(const CString& path);
};

AFX_EXT_DATA extern k_StyleAtlas g_StyleAtlas; // the module's table, which answers the host
