// The last check before an interval becomes a result.
#pragma once

// True when [lower, upper] may be printed as the interval about estimate:
// both limits finite and lower <= upper. Limits that fail this come from a
// critical value that failed, and are never shown as a result; the one
// exception is an estimate or spread that is itself not finite (a constant
// file B makes the variance ratio infinite, a file of huge values the
// standard deviation), which is the data's doing and is reported as it is.
bool st_IntervalHolds(double estimate, double spread, double lower, double upper);
