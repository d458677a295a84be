#pragma once

#define IDS_APP_NAME 0xE000
#define IDS_COMPANY 0xE002
#define IDS_TITLE 100
#define IDS_ALREADY_RUNNING 101
