// Guarded arithmetic: every operation works in the 96-bit decimal while it
// can, falls to double where it cannot (counting the fall with
// 记录精度损失()), and when even the double fails answers with a marker and
// a message in the shared collector (报告错误). Nothing here throws.
//
// Any argument may be given as text: blanks at both ends, optional sign,
// digits with at most one ".", optional exponent E/e with optional sign.
// Messages quote the trimmed argument texts exactly as the user typed them.
#pragma once

#include "numeric/value.h"

#include <QString>

// Reads any value as a number.
//   * blank (empty value, empty or all-blank text) → decimal 0, no report;
//   * d = the value as a double; if that fails → text "1" and the report
//     "  进行[Hvt数转数]运算时， " + trimmed text + " 数值超出计算范围！返回数值用[1]表示。";
//   * 高精度开关 off → d as a double, counted as a fall;
//   * decimal only for d == 0 or -7.92281625142642E+28 < d <= -1E-28 or
//     1E-28 <= d < 7.92281625142642E+28, and only when the decimal made from
//     the value itself keeps at least as many significant digits as the
//     text of d; otherwise d as a double, counted as a fall.
数值 Hvt数转数(const 数值& x);

// Significant digits of the value's trimmed text: digits 1-9 count, a 0
// counts once a digit has been counted; " ", ".", "+", "-" are passed over;
// the walk stops at any other character (so an exponent is not counted).
// A value with no number text (an infinite or NaN double) fails: -1 and
// "进行[判断数的有效字符长度]运算时， " + text + " 出现错误！".
int 判断数的有效字符长度(const 数值& x);

// The same walk counting every digit 0-9. Fails like the above, with
// "进行[判断数的有效019字符长度]运算时， ".
int 判断数的有效019字符长度(const 数值& x);

// Cuts (never rounds) the trimmed text to `位数` significant digits, but only
// once a point has been seen, so an integer part is never cut; an exponent
// part (from the last E/e) is kept. "1234.5678", 3 → "1234.5".
// Failure: "-1" and "进行[Hvt有效长度]运算时，" + text + "数值超出计算范围！返回数值 -1。".
QString Hvt有效长度(const 数值& x, int 位数);

// Minus signs, respectively points, in the upper-cased trimmed text ahead
// of the first "E". Failure: -1 and "进行[Hvt减号数]运算时， " /
// "进行[Hvt点号数]运算时， " + text + " 出现错误！".
int Hvt减号数(const 数值& x);
int Hvt点号数(const 数值& x);

// 1-based place of the first "E" in the upper-cased trimmed text, 0 if none.
// A decimal's text never has one, so an E marks a double out of the plain
// form. Failure: -1 and "进行[HvtE位置]运算时，" + text + " 数值超出范围！返回数值用 -1 表示。".
int HvtE位置(const 数值& x);

// The guarded binary operations, three tiers each:
//   1. both operands through Hvt数转数; an operand with an E goes to tier 2;
//      the result on those values must succeed, must not be an underflow to
//      0 (product and quotient only) and must have no E; then the result is
//      recomputed as decimals from x and y themselves and returned;
//   2. any fault above: x and y as doubles, result a double, counted as a
//      fall (in addition to falls counted by the conversions);
//   3. the double fails too: text "1" and the report
//      "  进行[求两数积]运算时， " + x + "*" + y + " 数值超出计算范围！返回数值用 [1] 表示。"
//      (商 "/", 和 "+", 差 "-"). Division by zero always ends here.
数值 求两数积(const 数值& x, const 数值& y);
数值 求两数商(const 数值& x, const 数值& y);
数值 求两数和(const 数值& x, const 数值& y);
数值 求两数差(const 数值& x, const 数值& y);

// Remainder with the sign of the dividend: x - trunc(x / y) * y, built from
// the guarded quotient, product and difference (7 余 3 = 1, -7 余 3 = -1,
// 7.5 余 2 = 1.5). If any of those steps reports, the result is the text "1"
// and "  进行[求两数余]运算时， " + x + "余" + y + " 数值超出计算范围！返回数值用 [1] 表示。"
// is reported after the inner message.
数值 求两数余(const 数值& x, const 数值& y);

// a + b through the decimal (each rounded to 15 digits, summed exactly,
// back to the nearest double), which keeps long sums of doubles free of
// binary noise. If the decimal cannot hold them: plain a + b. If that is
// not finite either: 1.0 and "进行[Double和]运算时，[" + a + " + " + b + "]出现错误！".
// Counters never change.
double Double和(double a, double b);
