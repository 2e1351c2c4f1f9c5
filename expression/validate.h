// Syntax validation: the four steps that complete 表达式规整. They repair
// what fixed text rules can repair, write every number in its canonical
// text, refuse what remains wrong with a message (counted into the
// collector and shown at once through 交互().告知), and produce the tidy
// display form. 表达式计算 has its own bracket check for callers that
// come without these steps.
//
// Nothing here throws; no step stops the chain.
#pragma once

#include "expression/normalise.h"

#include <QString>

// Folds doubled and impossible operator pairs by a fixed ordered list of
// replacements (the doubles twice, operators behind "(" and ahead of ")",
// "()" → "(0)", a binary operator ahead of ! % ‰, two binary operators
// where the second wins, a plus behind an operator, "+-" → "-",
// "--" → "+"). Blanks and U+3000 are removed first; "0" if nothing is
// left or the text is "算式错误". Never reports.
// "1+*2" → "1*2", "1---2" → "1-2", "(*3)" → "(3)", "3!!" → "3!".
QString 修复相邻运算符(const QString& 文本);

// Trim and upper-case ("0" if blank); every number (a run that begins
// with a digit or point, read by 向后取数字) is replaced by the trimmed
// text of Hvt数转数: "007" → "7", "1.50" → "1.5", "2E3" → "2000",
// "1E29" → "1E+29". Reports what those two report (a malformed number,
// a number out of range); may count a fall to double.
QString 算式数字规范(const QString& 文本);

// The text with blanks and U+3000 removed ("0" if nothing is left or it is
// "算式错误"); the rest is checking. Each pair of operators that cannot
// stand side by side counts one fault; if any, 错误数 grows by their
// count, 错误提示 is " 算式中存在多个运算符相临的错误，请修改算式！！！",
// it goes into 错误记录 once, 首个错误 is set only if 错误数 is then
// exactly 1, and it is shown. Then at most one bracket message:
// " 算式中--括号顺序--错误,请修改。" or " 算式中--括号无法配对--错误,请修改。"
// (错误数 + 1, reported and shown).
QString 检查运算符相邻(const QString& 文本);

// The display form: blanks removed, upper case, a blank on each side of
// - + * / \ ^ =, a sign behind an operator closed up, function names in
// display case ("Sin", "Asinh", "Lg", "If "), exponents closed up,
// a function with nothing behind it given "(0)", Π → π, Ε → ε,
// ")(" → ")*(", "( - " → "(-", "( + " → "(". "0" if blank. Never reports.
// "-5" → "- 5", "2*SIN30" → "2 * Sin30".
QString 算式显示形式(const QString& 文本);
