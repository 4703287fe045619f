#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "model/CState.h"

namespace qb {

/// Address of the maker's home page.
inline constexpr std::string_view kMakerHomePage = "https://www.example.com/";

/// Puts a text into the status line of the main window.
void SetStatusText(std::string_view text);

/// Shows the list if `detailed`, else the tree.
void QbtSetViewDetailed(bool detailed);

/// Shows the help file, that of the current directory before that of the program's.
void QbtOnlineHelp();

/// Shows the maker's home page in the browser.
void QbtOrbOnTheWorldWideWeb();

/// Writes the product's name letter by letter into the status line, then the maker's.
void QbtShow();

/// Says that there is no such connection.
void QbtTechnicalSupport();

/// Points to the other program that checks packages in, in the protocol only.
void QbtCheckIn();

/// A place in the menu: does nothing.
void QbtPrint();

/// The persisted name of a state; empty without a state.
std::string GetStateText(const std::shared_ptr<CState>& state);

}  // namespace qb
