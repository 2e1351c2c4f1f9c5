// Input normalisation: turns what a Chinese input method gives the user
// (full-width digits and operators, Chinese numerals and operator words,
// every sort of bracket and dash, formulas without a multiplication sign)
// into the canonical expression text that 表达式计算 reads.
//
// Screens run two stages one after the other and write the result back
// into their input box:
//   1. 算式字符规整: characters and words by a fixed ordered table; never fails.
//   2. 表达式规整 (validate.cpp): 清除计算状态, then 算式结构规整 (here),
//      算式数字规范, 修复相邻运算符, 检查运算符相邻, 算式显示形式.
// Beside them stand small cleaners for a single number or a list of
// numbers, for plain number boxes.
//
// Everything here takes and gives text (UTF-16, 1-based positions in the
// comments), except 规整数字, which gives a 数值. Nothing throws.
#pragma once

#include "numeric/value.h"

#include <QString>

// Removes U+3000 and blanks; "" if nothing is left. Then maps characters
// and words by the fixed ordered table (each row replaces all occurrences,
// later rows see the output of earlier ones). The order is kept on
// purpose: "乘" stands ahead of "乘以", "除" ahead of "除以", "余" ahead of
// "求余", so the two-character words never match and a leftover "以"/"求"
// falls to the character filter of 算式结构规整; "、" becomes a point;
// "±", "负", "_" become minus; "：" and "｜" become division (3：4 is a
// ratio); ">=" "=>" "≧" become "≥", "<=" "=<" "≦" become "≤"; Chinese
// numerals are mapped digit by digit ("二十" gives "2十"). Never reports.
QString 算式字符规整(const QString& 文本);

// 清除计算状态, then the five steps 算式结构规整, 算式数字规范,
// 修复相邻运算符, 检查运算符相邻, 算式显示形式. The result is the tidy
// display text (still a valid input of 表达式计算), followed by "请修改"
// when 错误数 is above 0 at the end; such a text must never be given to
// 表达式计算 — callers test 计算状态.错误数 first. Leaves in the collector what
// the steps found. Implemented in validate.cpp.
QString 表达式规整(const QString& 文本);

// Junk cut and implied multiplication: trim and upper-case; keep only the
// characters of an expression; cut the tail behind the last character that
// can end an expression and the head ahead of the first that can begin
// one; 修复相邻运算符; drop points that are not between a digit-side and a
// digit; check every run of letters against the known names (SIN, COS, …,
// SING, RAND and the letters A..Z without O) by a plain text search — an
// unknown name reports "输入的公式表达式中：" w CR LF CR LF
// "存在无法识读的函数或变量，请修改！", shows it in a box and is kept;
// insert "*" ahead of and behind names, between closers and openers and
// for ")(". "0" whenever nothing is left.
// Examples: "2X" → "2*X", "X2" → "X*2", "2(3)" → "2*(3)", "2E3" stays,
// "2sin30" → "2*SIN30", "+5" → "5", "5." → "5", ".5" stays.
QString 算式结构规整(const QString& 文本);

// A number box: trim, upper-case, map Chinese/full-width digits, points,
// plus and minus forms; keep only digits + - . E; drop a sign/point/E
// right ahead of an E; fold "++" "--" "+-" "-+" ".."; cut at a second
// point, a point behind E or a second E; the result is Hvt数转数 of what is
// left (decimal 0 for a blank text; a text with no number left ends in
// Hvt数转数's failure tier: text "1" and its report).
// "一二三．五" → 123.5, "1.2.3" → 1.2, "--5" → 5.
数值 规整数字(const 数值& x);

// Removes U+3000, blanks and group separators "﹐" "，" ","; "0" if empty.
// Maps full-width points, signs, percent, E and digits, then reads the
// longest leading number (blanks, optional sign, digits with one point,
// optional exponent; 0 if none, faults ignored, an overflowing exponent
// also gives 0) as a double and gives its text (15 significant digits).
// Never reports.
QString 规整数字文本(const QString& 文本);

// As 规整数字文本, but the mapped text goes whole through Hvt数转数 and its
// trimmed text is the result, so up to 29 digits stand. A text that is no
// number gives "1" and Hvt数转数's report.
QString 规整高精度数字文本(const QString& 文本);

// A list of numbers: removes U+3000 and blanks ("0, " if empty); maps
// "﹐" "，" to "," and the forms of 规整数字文本; each piece between commas
// is read by the lenient rule as a double; the result is each number
// followed by ", " ("1，2,3" → "1, 2, 3, "; an empty piece reads 0).
// Never reports.
QString 规整数字列表(const QString& 文本);

// Free text in which blanks and punctuation mean something: full-width
// punctuation, brackets, letters, digits and Chinese numerals made
// half-width; U+3000 becomes a blank; nothing is removed; "" stays "".
// Never reports.
QString 规整文本字符(const QString& 文本);
