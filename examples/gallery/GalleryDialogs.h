#pragma once

#include "velkan/Velkan.h"

// The dialogs the gallery's Dialogs menu opens, each modal on owner. They
// return a line for the status bar.
namespace GalleryDialogs {

Velkan::CString ShowAbout(Velkan::CWnd& owner);
Velkan::CString ShowShowIf(Velkan::CWnd& owner);
Velkan::CString ShowPropertySheet(Velkan::CWnd& owner);
Velkan::CString ShowWizard(Velkan::CWnd& owner);
Velkan::CString ShowOpenFiles(Velkan::CWnd& owner);
Velkan::CString ShowSaveAs(Velkan::CWnd& owner);
Velkan::CString ShowFolderPicker(Velkan::CWnd& owner);
Velkan::CString ShowMessageBox(Velkan::CWnd& owner);
Velkan::CString ShowTaskDialog(Velkan::CWnd& owner);

}  // namespace GalleryDialogs
