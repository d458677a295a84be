#pragma once

// String and control ids that the library reads from the host's own
// resources. Plain macros, so that resource scripts can include this file:
//
//   #include "velkan/app/ResourceIds.h"
//   STRINGTABLE
//   BEGIN
//       VELKAN_IDS_APP_TITLE "My Program"
//       VELKAN_IDS_COMPANY "My Company"
//   END

/// The application's title: the registry key of its settings, the prefix of
/// its single-instance name, and the default title of task dialogs and
/// folder pickers. Every host carries it.
#define VELKAN_IDS_APP_TITLE 57344
/// The company name: the registry key above the application's. Every host
/// carries it.
#define VELKAN_IDS_COMPANY 57346
/// The "show this again" check box that a show-if dialog's template holds.
#define VELKAN_IDC_SHOW_AGAIN 57344
