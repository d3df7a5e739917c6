// The ids of the dialogs, their controls and the menu, shared by StyleAtlas.rc and the dialog classes. They
// are macros because the resource compiler reads them too.
#pragma once

// Dialogs and menus
#define IDD_STYLE_ATLAS 102
#define IDD_CURVE_LAYOUT 131
#define IDR_STYLE_ATLAS_MENU 134

// Controls of the style atlas dialog
#define IDC_COLUMN_TREE 1001
#define IDC_LOAD 1022
#define IDC_SAVE_AS 1023
#define IDC_FILE_PATH 1024
#define IDC_UNIT_LOG 1025

// Controls of the curve style dialog
#define IDC_SYMBOL_SHAPE 1004
#define IDC_SYMBOL_COLOR 1005
#define IDC_LINE_STYLE 1009
#define IDC_LINE_COLOR 1012
#define IDC_USE_SYMBOL_COLOR 1013
#define IDC_SYMBOL_SIZE 1019
#define IDC_LINE_WIDTH 1020
#define IDC_SYMBOL_FILL 1021

// Commands of the menu
#define ID_SET_FILE_SYMBOLS 32771
#define ID_SET_FILE_COLORS 32772
#define ID_SET_MAIN_QUANTITY_COLORS 32773
#define ID_SET_MAIN_QUANTITY_SYMBOLS 32774
#define ID_EXPAND_ALL 32775
#define ID_COLLAPSE_ALL 32776
