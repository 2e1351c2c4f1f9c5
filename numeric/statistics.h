// Statistics over a list of number values, in the guarded arithmetic, so a
// statistic over decimals stays exact as far as it can.
//
// Every procedure takes a count n and a list a whose first n entries count:
// a[0] is the first value (C++ index), entries may be text, a blank entry
// (empty value or blank text) counts as 0. n below 1 gives the decimal 0
// from all eight; n above the length of the list is a fault (the message of
// the procedure, decimal 0).
#pragma once

#include "numeric/value.h"

#include <QList>

// Sum by 求两数和 from decimal 0. Fault: decimal 0 and
// "对数组[求合计值]时超出本程序计算范围！返回 [0] 。".
数值 求合计值(int n, const QList<数值>& a);

// Greatest (smallest) value, each read by Hvt数转数; among equal values the
// first stands ("1", "1.0", "2" → 2). Fault: decimal 0 and
// "对数组[求最大值]时超出本程序计算范围！返回 [0] 。" (求最小值 likewise).
数值 求最大值(int n, const QList<数值>& a);
数值 求最小值(int n, const QList<数值>& a);

// 求合计值 / n by 求两数商: (1, 2, 2) → 1.6666666666666666666666666667.
// Fault: decimal 0 and "对数组[求平均值]时超出本程序计算范围！返回 [0] 。".
数值 求平均值(int n, const QList<数值>& a);

// Standard deviation: S = Σ (mean - a(i))² in plain tagged arithmetic, then
// 乘方(S / (n - 1), 0.5), that is 开平方, so an iterated root leaves
// 可达有效位数 at 28. n = 1 gives the decimal 0. Fault: decimal 0 and
// "对数组[求均方差]时超出本程序计算范围！返回 [0] 。".
数值 求均方差(int n, const QList<数值>& a);

// The same with divisor n (also for n = 1). Fault: decimal 0 and
// "对数组[求均方差n]时超出本程序计算范围！返回 [0] 。".
数值 求均方差n(int n, const QList<数值>& a);

// Coefficient of variation 求均方差 / 求平均值 (求均方差n / 求平均值).
// A zero mean gives the double 1E+28 (infinite by decree, no error); a zero
// deviation gives the decimal 0. Faults are ignored: a failing step leaves
// the empty value and reports nothing of its own (the inner procedures
// report as told above).
数值 求变异系数(int n, const QList<数值>& a);
数值 求变异系数n(int n, const QList<数值>& a);
