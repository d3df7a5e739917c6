// The head of a layout file, which says how many rows follow it; the rows are k_QuantityDesc. Reader and
// writer of all of them stand in StyleAtlasFormat.cpp.
#pragma once

#include "QuantityDesc.h"

// The largest number of records that a row of a file may claim. A host asks for file columns by a signed
// 16-bit number, so no record beyond can be reached. Bounds the memory that a sparse file can take.
constexpr int k_MaxStoredRecords = 1 << 15;

// Rows of a file that may replace earlier ones with the same key, beyond the rows that the table had before:
// only a catalogue with equal rows leads to any. Bounds the time that a sparse file can take.
constexpr INT_PTR k_MaxReplacedRows = 1 << 20;

// Writes the head, or reads it: a value that isn't all there keeps what it was.
AFX_EXT_API void k_SerializeLayoutHead(CArchive& ar, DWORD& version, DWORD& columnCount, DWORD& rowCount);
