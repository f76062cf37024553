// Numbers read from text as the C library of Windows reads them.
#pragma once

// White space, a sign and digits; what follows is ignored. 0 for no digits or null, the nearest
// int for a number that does not fit.
int _wtoi(const char16_t* text);  // NOLINT(bugprone-reserved-identifier): the name on Windows
