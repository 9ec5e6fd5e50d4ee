// Settings the core reads from the environment, so that every host and
// every run of one user agrees on them.
#pragma once

// Non-zero: data files are written with 8-byte records; zero: 4-byte records.
// Read from OPROC_DOUBLE_PRECISION (unset means 1) on first use.
int cfg_GetDoublePrecOutput();
// Overrides the setting for the rest of the run (command-line flag, tests).
void cfg_SetDoublePrecOutput(int value);

// Non-zero on hosts whose edit controls hold at most 32767 characters. Always 0
// here; tests inject other values to exercise the cut.
int IsWin95();
void cfg_SetWin95ForTesting(int value);
