#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qb {

/// Loads every setting from the registry, writing the defaults first if this is the first run.
void QbtGetRegistrySettings();

/// Writes every setting and the recent files of the File menu to the registry.
void QbtSetRegistrySettings();

/// Stores the three settings and makes the language effective in all loaded forms. `timerInterval` in
/// milliseconds.
void ApplySettings(std::string_view language, std::string_view userID, std::int32_t timerInterval);

/// The three settings as they are held, for the options dialog.
void GetSettings(std::string& language, std::string& userID, std::int32_t& timerInterval);

/// Gives every loaded form its wording, for a localization package that of localization.
void InitAllForms();

/// Inverts the trace flag.
void ToggleTrace();
bool GetTraceFlag();

}  // namespace qb
