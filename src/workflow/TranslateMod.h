#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// clang-format off
// The record of the process-wide state. Each object is declared beside its class:
//   gTrace              foundation/CTrace.h           the trace, first to come and last to go
//   gMessageHandler     foundation/CMessageHandler.h  messages and protocol, a fresh one for each package
//   gInterfaceLanguage  foundation/modMultiLanguage.h language code in lower case
//   gPxfFile            model/CPxfFile.h              the package file
//   gTouchedBeforeLoad  model/CPxfFile.h              whether it was touched before its load; nothing reads it
//   gLoios              model/CLoioEntry.h            the documents of the open package
//   gEditorSlots        editors/CEditorSlots.h        documents that are out in editors
//   gTwb                editors/CTradosTwb.h          the link to TRADOS Translator's Workbench
//   gMultiTerm          editors/CMultiTerm.h          the link to TRADOS MultiTerm
//   gVisioWindows       editors/EditorState.h         Visio windows to be closed before any command runs
//   gSessionStamp       editors/EditorState.h         opening time of the package
//   gUserID             editors/EditorState.h         user name of the options
// and those of the workflow itself below.
// clang-format on
#include "editors/CEditorSlots.h"
#include "editors/CMultiTerm.h"
#include "editors/CTradosTwb.h"
#include "editors/EditorState.h"
#include "foundation/CMessageHandler.h"
#include "foundation/CTrace.h"
#include "foundation/modMultiLanguage.h"
#include "model/CPxfFile.h"

namespace qb {

extern std::int32_t gSessionNumber;    ///< number of this run of the program
extern std::int32_t gTimerInterval;    ///< refresh period in milliseconds
extern bool gViewDetailed;             ///< the list is shown, not the tree
extern bool gTraceOn;                  ///< the trace is active
extern bool gMessageHandlerReady;      ///< set once a message handler exists; nothing reads it
extern std::string gHelpFile;          ///< `<language>\<file>`
extern std::string gWebBrowser;        ///< command line of the web browser
extern std::string gInstallationPath;  ///< directory of the program and its language files
extern std::string gProgramGroup;      ///< stored and written back only
extern std::string gLastFile1;         ///< recent files, newest first, empty when unused
extern std::string gLastFile2;
extern std::string gLastFile3;
extern std::string gLastFile4;
extern std::int32_t gRecentCount;       ///< entries added to the recent files since the start
extern std::string gTraceFile;          ///< path of the trace file
extern bool gQuitting;                  ///< a quit is in progress
extern std::string gPhase;              ///< "INIT" at the end of `Main`; nothing reads it
extern std::string gTitleDialogResult;  ///< answer of the title dialog: "1" for Ok, "2" for Cancel

/// The process entry: brings the globals to life, opens the package of the command tail and shows the window.
void Main(std::string_view commandTail);

/// The mouse pointer as an hourglass, and back as usual.
void SetBusyCursor();
void SetNormalCursor();

/// The one way out for the user; `force` skips the question.
void QbtQuit(bool force);

/// Puts all process-wide state of the program back to that of a fresh process.
void ResetProgramState();

}  // namespace qb
