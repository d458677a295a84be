#pragma once

// Dialog templates.
#define IDD_BASIC 1000
#define IDD_RESIZABLE 1001
#define IDD_CHILD 1002
#define IDD_SHOWIF 1003
#define IDD_EDIT_AS_OK 1004

// Controls.
#define IDC_FIRST_EDIT 100
#define IDC_SECOND_EDIT 101
#define IDC_FIRST_LABEL 102
#define IDC_SECOND_LABEL 103
#define IDC_OTHER 104
#define IDC_SHOW_AGAIN 57344

// Strings.
#define IDS_FORMAT 200
#define IDS_CAPTION 201
#define IDS_BUTTON 202
#define IDS_RADIO 203
#define IDS_INSTRUCTION_FORMAT 204
#define IDS_TITLE 205

// Property sheet and wizard pages, and the wizard's watermark.
#define IDD_PAGE_ONE 1100
#define IDD_PAGE_TWO 1101
#define IDD_PAGE_THREE 1102
#define IDB_WATERMARK 1110
#define IDS_SHEET_CAPTION 206
#define IDS_FILTER_TEXT 207
