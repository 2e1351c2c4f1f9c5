// Powers, square roots and logarithms.
//
// 乘方 and 开平方 work in the 96-bit decimal wherever it can hold the result,
// so a power keeps 28 significant digits instead of the 15 of a double; an
// iterated result lowers 计算状态.可达有效位数 from 29 to 28 (it can no longer
// claim the 29th digit). Logarithms have no decimal form: they work in
// double and cost the digits (可达有效位数 15).
//
// Nothing here throws. A failure answers with the text "1" (a legal number:
// callers test 计算状态.错误数 > 0) and a message in the shared collector.
#pragma once

#include "numeric/value.h"

// x to the power y, three tiers.
//   Decimal tier (高精度开关 on, neither operand beyond the plain text form,
//   and a double probe of x^y that Hvt数转数 can carry as a decimal):
//     * y reading 0 → decimal 1 for every x (also 0^0); no counter changes;
//     * y = 0.5 → 开平方(x); y = -0.5 → 1 / 开平方(x);
//     * x = 0, y > 0 → decimal 0, counters unchanged;
//     * otherwise x^|y| = x^int(|y|) by repeated doubling (about two decimal
//       products per doubling) times the roots of x that the binary digits of
//       the fraction of |y| select (at most 93 square roots); for y < 0 the
//       decimal 1 divided by that;
//     then 可达有效位数 29 becomes 28; 精度损失数 does not change.
//   Double tier (any fault above, 高精度开关 off, a result the decimal
//   cannot carry such as 10^30, a negative base with a broken exponent):
//     x and y as doubles; counted as a fall (精度损失数 + 1, 可达有效位数 15).
//   Failure (the double faults too: 0^-1, (-8)^0.25, overflow, not a number):
//     text "1" and the report trimmed x + "^" + trimmed y +
//     " 乘方计算超出本程序计算范围！返回 [1] 。". A negative base with the
//     exponent 0.5 or -0.5 is the failure of 开平方 instead (its message).
数值 乘方(const 数值& x, const 数值& y);

// Square root.
//   * 高精度开关 off: the square root in double, counted as a fall;
//   * a perfect square of the 15-digit double root is exact and takes no
//     further step (开平方(16) is the decimal 4, 开平方(0) is 0);
//   * otherwise Newton's iteration in decimal, two steps a round with
//     Aitken's acceleration, at most 50 rounds, from a start 1E-14 above the
//     double root; then 可达有效位数 above 28 becomes 28.
// Failure (x below 0, x not a number, x beyond the decimal's range): text
// "1" and "  进行[开平方]运算时， " + trimmed x + " 数值超出计算范围！返回数值用 [1] 表示。".
数值 开平方(const 数值& x);

// Natural and common logarithm, in double (common: log(x) / log(10)). The
// argument is read through Hvt数转数; a successful result is a double and
// counts one fall. x <= 0 fails with the text "1" and the report
// "ln(x)的x 小于等于0错误。" respectively "lg(x)的x 小于等于0错误。". An
// argument that is no number reads as the marker 1 of Hvt数转数, whose
// report stands (so ln gives 0 then, with 错误数 above 0).
数值 求自然对数(const 数值& x);
数值 求常用对数(const 数值& x);
