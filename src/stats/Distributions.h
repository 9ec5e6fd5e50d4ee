// Distribution functions and critical values. Upper-tail convention throughout:
// a quantile function takes p and returns the point exceeded with probability p.
#pragma once

// Returned by st_TQuantile when its inner root comes out exactly 0.
inline constexpr double kQuantileFailure = 15929.0;
inline constexpr double kTQuantileTolerance = 0.001;
inline constexpr double kFQuantileTolerance = 0.001;

double st_NormalUpperTail(double z);
double st_NormalQuantile(double p, double tol);
// prob = I_x(a/2, b/2); returns d prob / dx.
double st_FUpperTail(int a, int b, double x, double* prob);
// The finite series behind st_FUpperTail at every a and b, and the t
// quantile refined on it alone: the references that the faster form for
// large degrees of freedom is held to.
double st_FTailSeries(int a, int b, double x, double* prob);
double st_TQuantileBySeries(int df, double p);
// x with I_x(a/2, b/2) = p; *complement, when asked for, receives 1 - x
// with the precision of the method that gave x. The second form refines on
// the given tail function.
double st_FBetaQuantile(int a, int b, double p, double tol, double* complement = nullptr);
using FTail = double (*)(int a, int b, double x, double* prob);
double st_FBetaQuantileOn(FTail tail, int a, int b, double p, double tol, double* complement);
double st_TQuantile(int df, double p);
double st_FQuantile(int m, int n, double p);
// q(alpha; k1 + 1, df) from the studentized range table, or 0.0.
double LookupStudentizedRange(int k1, int df, double alpha);
// The studentized range of k means on df error degrees of freedom (df may be
// fractional or infinite): P(Q > q), and q with P(Q > q) = p.
double st_StudentizedRangeUpperTail(double q, int k, double df);
double st_StudentizedRangeQuantile(int k, double df, double p);
// P(F(m, n) > f), accurate to the last digits in the far tail; m and n may be
// fractional.
double st_FUpperProbability(double m, double n, double f);

// Chi-square: upper tail into *tail, density as the result; and the quantile.
double st_ChiSquareUpperTail(int df, double x, double* tail);
double st_ChiSquareQuantile(int df, double p);
// The finite series behind st_ChiSquareUpperTail at every df, and the
// quantile refined on it alone: the references that the faster form for
// large df is held to.
double st_ChiSquareTailSeries(int df, double x, double* tail);
double st_ChiSquareQuantileBySeries(int df, double p);
