#pragma once

// The frame tests' menu, accelerators and command strings.
#define IDR_FRAME 500
#define IDS_FRAME_IDLE 501
#define ID_CMD_OPEN 40001
#define ID_CMD_REFRESH 40002
#define ID_CMD_LOW 300
