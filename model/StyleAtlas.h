// The style atlas: for every measured quantity and every file column, how its curve is drawn.
#pragma once

#include "RowLookup.h"

#include <algorithm>
#include <vector>

class k_QuantityPool;

// The table and the operations on all of it. The atlas owns its rows; the pointers that it returns are valid
// until the rows are replaced. Slots of Rows can be empty and are skipped by everything that walks the table.
// A failed allocation raises the memory exception.
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

    // The same, but moves the rows instead of copying them; the source has none afterwards.
    k_StyleAtlas& Assign(k_StyleAtlas&& source);

    // Appends a row with a default record for each file column, and returns its index.
    INT_PTR AddRow(QuantityKey key, BYTE level);

    // The index of the row that fits a key best, or -1 if none has its Quantity: see row_lookup.
    INT_PTR FindRow(QuantityKey key) const
    {
        const row_lookup::Slot slot = row_lookup::FindBestRow(Rows, key);
        return slot != nullptr ? slot - Rows.GetData() : -1;
    }

    // GetRowStyle of that row; null if there is none.
    FORCEINLINE k_LineDef* FindStyle(QuantityKey key, int column) const
    {
        const row_lookup::Slot slot = row_lookup::FindBestRow(Rows, key);
        return slot != nullptr ? row_lookup::RowOf(slot)->GetColumnStyle(column) : nullptr;
    }

    // Null for an index outside the table.
    k_QuantityDesc* GetRow(INT_PTR row) const;

    // Null if there is no such row or file column. A negative number raises the invalid argument exception.
    k_LineDef* GetRowStyle(INT_PTR row, int column) const
    {
        if (row >= Rows.GetSize())
            return nullptr;
        k_QuantityDesc* const pRow = Rows.GetAt(row);
        return pRow != nullptr ? pRow->GetColumnStyle(column) : nullptr;
    }

    // The number of file columns that are built, shown and changed by rules: ColumnCount, but at most 32.
    int GetBoundedColumnCount() const
    {
        return static_cast<int>(std::min<DWORD>(ColumnCount, k_MaxFileColumns));
    }

    // The text of a row in the outline: the symbol of its quantity and, at level 0, " - " and the name of the
    // device if it has one; "?" for an empty slot. Empty for an index past the end; a negative one raises the
    // invalid argument exception.
    CString GetRowLabel(INT_PTR row) const;

    // ---- Catalogue

    // Replaces the rows by an outline of the quantities that the unit library currently reports, with default
    // styles. Returns the number of rows.
    INT_PTR BuildCatalogue();

    // ---- Bulk rules: each assigns distinct shapes and fills, or distinct colours, to the whole table

    // By file column, for the columns in [first, end).
    void SetFileColors(int first, int end);
    void SetFileSymbols(int first, int end);

    // By main quantity: adjacent rows of one Quantity look alike.
    void SetMainQuantityColors();
    void SetMainQuantitySymbols();

    // Applies the pair of rules for the current host.
    void ApplyDefaultStyles();

    // ---- Layout file

    // Writes the table, or reads a stored table into the existing rows: a stored row replaces the first row
    // of an equal key, or is appended.
    void Serialize(CArchive& ar) override;

    // Builds the catalogue and reads the layout file over it: the file at the path or, if the path is empty,
    // the one that the registry names, which becomes FilePath.
    //
    // Returns 0 if the file was read, else 1: if there is no file, the table has the default styles; if it is
    // damaged, which is reported in a message, the table is the bare catalogue. A file that could not be read
    // is remembered for Save.
    int Load(CString path);

    // The path that Load takes from the registry, or the default path. Stores nothing.
    CString GetStoredFilePath() const;

    // Writes the table to the path or, if it is empty, to FilePath. The path becomes FilePath once the whole
    // file is on disk. The result is always false.
    //
    // Failures leave the old file as it was. A path that leads nowhere, as in a missing folder, is ignored
    // silently; an exception while opening is reported in a message; a failure while writing raises the file
    // exception. A file that Load could not read is copied to NAME.damaged (or NAME.damaged2 and so on, if
    // that exists) before it is overwritten; if the copy fails, the message is shown and nothing is written.
    bool Save(CString path);

    // Makes the path FilePath and stores it in the registry. An empty path changes nothing and returns false.
    bool SetFilePath(CString path);

    // Changes the subkey and stores FilePath there, unless it is empty.
    void SetRegistryPath(CString subKey);

    // Switches to the settings at userRoot\subKey (one backslash between them) and loads the file that they
    // name. If they name none, FilePath is stored there first.
    void ChangeUserInfo(CString userRoot, CString subKey);

    // Writes the quantities that the unit library currently reports to the log for the service, a line each.
    // Does nothing if the file can't be created. The result is always empty.
    static CString WriteUnitLog();

    DWORD Version = 1;
    DWORD ColumnCount = k_MaxFileColumns; // as in the file; see GetBoundedColumnCount
    k_QuantityList Rows;
    CString RegistryPath;             // subkey below HKEY_USERS
    CString FilePath;                 // of the layout file in use
    std::vector<CString> UnreadFiles; // paths that Load could not read and Save hasn't overwritten

private:
    void AssignHead(const k_StyleAtlas& source);
    void AddGroup(k_QuantityPool& group);
    void AddSubQuantity(const k_QuantityPool& records);
    void ReadRows(CArchive& ar);
    void WriteRows(CArchive& ar);
    void ReadFilePath();
    void RememberUnread(const CString& path);
    void ForgetUnread(const CString& path);
    void BackUpUnread(const CString& path);
};

AFX_EXT_DATA extern k_StyleAtlas g_StyleAtlas; // the module's table, used by the exports
