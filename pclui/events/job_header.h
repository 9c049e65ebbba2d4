// The header of a job: five private escapes that tell the rendering side when, where and for whom it prints.
#pragma once

#include "platform/gdi.h"

inline constexpr int ESCAPE_JOB_DATE = 20736;    // "20051231"
inline constexpr int ESCAPE_JOB_TIME = 20737;    // "1745"
inline constexpr int ESCAPE_JOB_SYSTEM = 20738;  // "OS: Microsoft Windows XP (5.1.2600.2) ENU"
inline constexpr int ESCAPE_JOB_USER = 20739;    // "Username: anna;App Filename: "
inline constexpr int ESCAPE_JOB_STAMP = 20740;   // ";31/12/2005;17:45"

// Sends all five in this order; what the rendering side answers is not looked at.
void SendJobHeader(HDC job);
