#pragma once

#include <string>
#include <string_view>

#include "model/CLoioEntry.h"
#include "ui/frmTranslateTitle.h"

namespace qb {

/// Answers of the title dialog, as `gTitleDialogResult` holds them.
inline constexpr std::string_view kTitleTaken = "1";
inline constexpr std::string_view kTitleCancelled = "2";

/// Why the package could not give `title` back as it is, or cannot be written at all now; empty if it can.
/// `title` without the blanks around it, which do not count.
std::string TitleObjection(const CLoioEntry& loio, std::string_view title);

/// What the dialog's buttons do. Ok says what speaks against the title and stays if anything does.
void TitleOkPressed(frmTranslateTitle& form);
void TitleCancelPressed(frmTranslateTitle& form);

/// Closing the dialog's window cancels it; the form itself stays.
bool TitleAskedToUnload(frmTranslateTitle& form);

}  // namespace qb
