#pragma once

// Test art: the graphics tests' generated strips, and one PNG of our own.
#define IDB_STRIP16 1001
#define IDB_STRIP32 1002
#define IDB_STRIP20_PNG 1010

// Commands and their help strings.
#define ID_HELP_AND_TIP 0x8001
#define ID_TIP_ONLY 0x8002
#define ID_TWO_LINE_FEEDS 0x8003
#define ID_EMPTY_TIP 0x8004
#define ID_LONG_TIP 0x8005
#define ID_NO_STRING 0x8006
