#pragma once

namespace qb {

/// Makes `gEditorQuestions` answer with the office of this system.
void InstallHostOffice();

}  // namespace qb
