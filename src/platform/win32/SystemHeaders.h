#pragma once

// The system's headers, in the order that they need, without the macros that would rename functions of the
// program's own interfaces.

// clang-format off
#include <windows.h>
#include <aclapi.h>
#include <commdlg.h>
#include <cderr.h>
#include <shellapi.h>
// clang-format on

#undef GetOpenFileName
#undef GetPrivateProfileSectionNames
#undef GetPrivateProfileString
#undef WritePrivateProfileString
