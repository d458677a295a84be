#pragma once

#define IDS_APP_NAME 0xE000
#define IDS_COMPANY 0xE002
#define IDS_TITLE 100
#define IDS_ALREADY_RUNNING 101
#define IDS_ICON_STRIP 200
#define IDR_MAINMENU 300

// Commands; their strings are "status-bar help\ntooltip".
#define ID_FILE_NEW 1001
#define ID_FILE_OPEN 1002
#define ID_FILE_SAVE 1003
#define ID_FILE_RECENT 1004
#define ID_FILE_EXIT 1005
#define ID_VIEW_TOOLBAR 1101
#define ID_VIEW_STATUSBAR 1102
#define ID_LOOK_CLASSIC 1201
#define ID_LOOK_THEMED 1202
#define ID_LOOK_VISUAL 1203
#define ID_HELP_ABOUT 1301
