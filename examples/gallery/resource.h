#pragma once

#define IDS_APP_NAME 0xE000
#define IDS_COMPANY 0xE002
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
#define ID_FILE_RECENT 40004
#define ID_FILE_EXIT 40005
#define ID_VIEW_PALETTE 40101
#define ID_LOOK_CLASSIC 40201
#define ID_LOOK_THEMED 40202
#define ID_LOOK_VISUAL 40203
#define ID_HELP_ABOUT 40301
// The frame's own commands: toggle the rebar and the status bar.
#define ID_VIEW_REBAR 0xE800
#define ID_VIEW_STATUSBAR 0xE801
