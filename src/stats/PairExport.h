// The pair analyses' results for scripts: one object per computed pair.
#pragma once

#include "report/ResultValue.h"

class CComprDoc;
class CVarDoc;

// Comparison of means: "difference" is mean_a - mean_b, "half_width" that of
// its interval, "df" the t quantile's degrees of freedom.
ResultRecord st_CompareRecord(const CComprDoc& doc);
// Comparison of variances: "ratio" is var_a / var_b, "df_a" and "df_b" the F
// quantile's; "df" is null, an F interval having two.
ResultRecord st_VartestRecord(const CVarDoc& doc);
