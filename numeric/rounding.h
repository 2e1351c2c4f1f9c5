// Rounding and number text. Rounding works on the digits of the number's
// text, not on a binary value, so a 28-digit decimal is rounded the way a
// person rounds it. Every procedure reads its argument through Hvt数转数.
#pragma once

#include "numeric/value.h"

#include <QString>

// x rounded to `小数位数` places (clamped to 0..28).
//   * 高精度开关 off: at most 15 places, rounded in double, ties to even;
//     counted as a fall;
//   * a number beyond the plain text form (an E in its text): at most 15
//     places, ties to even, in its own kind; no counter changes;
//   * otherwise half away from zero on the one digit behind the cut, later
//     digits not looked at: 1.235 → 1.24, -1.235 → -1.24, 1.2349999 → 1.23,
//     0.999 → 1; the result is a decimal.
// Failure (x not a number): decimal 0 and
// "进行[四舍五入]运算时，" + trimmed x + "数值超出计算范围！返回 [0值] 。".
数值 四舍五入(const 数值& x, int 小数位数);

// The digits ahead of the point, as text, truncated: "7" for 7.9, "-0" for
// -0.5 (the sign survives for the caller). A number beyond the plain form
// with magnitude above 10000 is given whole ("1E+30"); a tiny one gives "0"
// (positive) or "-0". Failure: "0" and
// "进行[取数值的整数部分]运算时，" + trimmed x + "数值超出计算范围！返回数值 0 。".
QString 取数值的整数部分(const 数值& x);

// The digits behind the point, as text ("05" for 1.05), "0" if none. A
// number beyond the plain form gives "0" above 10000 in magnitude, else its
// text whole. Failure: "0" and
// "进行[取数值的小数部分]运算时，" + trimmed x + "数值超出计算范围！返回数值 0 。".
QString 取数值的小数部分(const 数值& x);

// Scientific form d.dddE+n: 1234.5 → "1.2345E+3", 0.00123 → "1.23E-3",
// 1.5 → "1.5E0", 0 → "0E+0"; a text that already holds an E is returned
// as it is. A decimal keeps all its digits; other values are read as the
// double. Failure (not a number): "0E+0" and
// "进行[科学计数形式]运算时，" + trimmed x + "数值超出计算范围！返回数值 0E+0 。".
QString 科学计数形式(const 数值& x);

// The trimmed text of x without a leading "-". Never reports.
QString 去负号(const 数值& x);

// Width of a text in half-width columns: East Asian wide and full-width
// characters (CJK, full-width forms, the degree and minute signs ...) count
// 2, others 1; a surrogate pair is one character. Never reports.
int 显示宽度(const QString& t);

// Formats a number by a pattern such as "0000000.000", "###0.000",
// "00.00000000": "0" is a digit always shown, "#" a digit shown when
// significant, "." the point, "," (between integer placeholders) groups
// thousands; other characters ahead of or behind the placeholders are
// copied. The value is rounded to the pattern's decimals half away from
// zero, on its decimal digits (a double first to 15 significant digits). A
// value that rounds to zero shows no "-". A value that is not a number
// formats as 0. Never reports.
QString 格式化数值(const 数值& x, const QString& 格式);
QString 格式化数值(double x, const QString& 格式);
