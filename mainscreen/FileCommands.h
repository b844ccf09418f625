// The File menu's schedule commands: New, Open, Save, Save As, and the ask-to-save step.
#pragma once

#include <string>

#include "core/SharedState.h"

namespace vantrellion {

void mnuFileNew(System& s);
void mnuFileOpen(System& s);
void mnuFileSave(System& s);
void mnuFileSaveAs(System& s);
// Opens a file of the recent files list: the save question, then the rest of Open as if the
// dialog had chosen that file. False when the file did not load.
bool mnuMRUFiles(System& s, const std::string& fileName);
// The part of Open after the dialog: load the chosen file, or fall back to a new schedule
// with the load error. True when the file loaded.
bool OpenChosenRunFile(System& s, const std::string& chosen);

// At a start without a restart file: the Run File last opened or saved (the first recent file)
// comes back when it exists and loads cleanly, with the "Open" event as File > Open writes it.
// Otherwise the schedule stays New, and one message names the file and what is wrong.
void ReopenLastRunFile(System& s);

// "Save File?" with Yes, No and Cancel. 2 when the user chose Cancel, otherwise 0.
int FormAskFileSaveCancel(System& s, const std::string& Path, const std::string& FileName);
// With unsaved changes, asks "Save File?"; true when the user cancelled (Cancel or Escape), so
// that the command stops and the schedule stays.
bool CancelledAtSaveQuestion(System& s);
void ShowFileSaveDialog(System& s);
// Splits the dialog's full name at its last "/": DataFileName is the last piece, DataFilePath
// the rest with its trailing "/".
void SplitChosenFileName(System& s, const std::string& chosen);

}  // namespace vantrellion
