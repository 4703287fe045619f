#pragma once

#include <memory>

#include "editors/DocumentBridge.h"
#include "editors/libreoffice/Office.h"

namespace qb {

/// A view onto the office of the process; nothing if its helper is not installed.
std::shared_ptr<IBridge> MakeOfficeBridge(const std::shared_ptr<Office>& office);

/// Makes `gEditorQuestions` answer with one office for the process, whose helper stands beside the program.
void InstallOfficeBridge();

}  // namespace qb
