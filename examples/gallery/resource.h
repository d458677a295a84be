#pragma once

#include "velkan/app/ResourceIds.h"

#define IDS_TITLE 100
#define IDS_ALREADY_RUNNING 101
#define IDS_READY 102
#define IDS_ICON_STRIP 200
#define IDB_TOOLBAR24 201
#define IDB_TOOLBAR48 202
#define IDR_MAINMENU 300

// Commands; their strings are "status-bar help\ntooltip". Help strings
// belong to ids from 40000 on.
#define ID_FILE_NEW 40001
#define ID_FILE_OPEN 40002
#define ID_FILE_SAVE 40003
#define ID_FILE_EXIT 40005
#define ID_VIEW_PALETTE 40101
#define ID_VIEW_POPUP 40102
#define ID_LOOK_CLASSIC 40201
#define ID_LOOK_THEMED 40202
#define ID_LOOK_VISUAL 40203
#define ID_HELP_ABOUT 40301
#define ID_DIALOG_SHEET 40401
#define ID_DIALOG_WIZARD 40402
#define ID_DIALOG_OPEN 40403
#define ID_DIALOG_SAVE 40404
#define ID_DIALOG_FOLDER 40405
#define ID_DIALOG_MESSAGE 40406
#define ID_DIALOG_TASK 40407
#define ID_DIALOG_SHOWIF 40408
// The recent files: four ids from here.
#define ID_FILE_MRU_FIRST 40501

// Pages of the sheet and the wizard, and the controls panel.
#define IDD_SHEET_GENERAL 500
#define IDD_SHEET_VIEW 501
#define IDD_WIZARD_WELCOME 502
#define IDD_WIZARD_DETAILS 503
#define IDC_NAME 510
#define IDC_SHOW_GRID 511
#define IDC_LIST 520
#define IDC_TREE 521
#define IDC_LINK 522
#define IDC_PROGRESS 523
#define IDC_EDIT 524
#define IDC_COMBO 525
// The controls of the pages.
#define IDC_PAGE_INPUT 530
#define IDC_PAGE_OUTPUT 531
#define IDC_PAGE_ACTION 532
#define IDC_PAGE_ACTION2 533
#define IDD_ABOUT 540
#define IDD_SHOWIF 541
#define IDB_WATERMARK 203
#define IDB_WATERMARK144 204
#define IDB_WATERMARK192 205
// The frame's own commands: toggle the rebar and the status bar.
#define ID_VIEW_REBAR 0xE800
#define ID_VIEW_STATUSBAR 0xE801
