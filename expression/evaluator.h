// The expression evaluator: a rewriting evaluator over text. There are no
// tokens, no tree and no stack: each pass finds an operator by scanning the
// string, reads its operands out of the text around it, calculates with a
// guarded operation and writes the result back as number text. So between
// two steps a value is text (at most 29 significant digits) and its kind,
// decimal or double, is decided anew by Hvt数转数 at each reading.
//
// Order of operations: brackets, variables, functions, postfix ! % ‰,
// powers, * / \ (equal rank, left to right), + -.
//
// Contract shared by every procedure here: the caller resets the state
// (清除计算状态) and tests 计算状态.错误数 afterwards, since "1" is both the
// failure marker and a legal result. A call made while 错误数 > 0 does
// nothing and gives "1". Nothing here throws. Only the bracket failures of
// 表达式计算 (and the infinity notices of the function pass) speak to the
// user, through 交互().告知; all other failures go to the collector only.
// Positions are 1-based UTF-16 code units.
#pragma once

#include "numeric/state.h"

#include <QChar>
#include <QString>

// 29-digit constants inserted as text for Π and Ε (truncated/rounded
// decimal expansions of pi and e to 28 places).
inline const QString 圆周率文本 = QStringLiteral("3.1415926535897932384626433833");
inline const QString 自然常数文本 = QStringLiteral("2.7182818284590452353602874714");

// The entry all callers use: text in, number text out.
// Valid input: text that went through 算式字符规整/表达式规整 (the blanks,
// case and display form are folded here). "" gives "0". Brackets are
// checked (count, order, pairing); a bracket failure reports
// "<text> 算式中--括号…--错误,请修改算式！", shows it in a box, and gives "1".
// Any other failure gives "1" with the message in the collector.
QString 表达式计算(const QString& 文本);

// One bracket-free text through the ten passes: constants, variables,
// functions, postfix operators, powers, products, sums. "1" on failure.
QString 无括号表达式计算(const QString& 文本);

// A digit gives itself; A..Z without O the trimmed text of that variable;
// Π π Ε ε the constants. Anything else: "1" and the report
// "表达式计算过程中：[ c ] 字符错误！返回1值。".
QString 取变量值(QChar c);
QString 取变量值(const QString& c);  // its first character; "" gives "1" with the report

// The number that ends at position p of s, read backwards (a sign that
// follows a blank or an operator belongs to it; one behind E belongs to
// the exponent). On a malformed number: reports and gives the text up to p.
QString 向前取数字(const QString& s, int p);

// The number that begins at position p of s, read forwards; blanks ahead
// of it are included so that lengths add up. "" when nothing is read.
// Reports on a malformed number.
QString 向后取数字(const QString& s, int p);

// The run of Latin letters A-Z a-z that begins at p (p < 1 counts as 1);
// "" when p lies beyond the text. Never reports.
QString 取字母串(const QString& s, int p);

// Blanks and U+3000 gone ("0" if nothing is left), "++" → "+", then
// "-+" → "-" (one pass each), upper-cased. Never reports.
QString 整理符号(const QString& s);

// As 整理符号 with the folds "++" → "+", "-+" → "-", "--" → "+", "+-" → "-"
// in this order (three signs in a row fold only in part). Never reports.
QString 合并正负号(const QString& s);

// The guard bound that every scan loop of the evaluator carries.
constexpr int 扫描上限 = 999999999;

// Shared by the passes of evaluator.cpp and functions.cpp; not for callers.
namespace 求值内部 {
inline bool 已失败() { return 计算状态.错误数 > 0; }
// The run-time fault report of 无括号表达式计算 for the working text.
void 运行时故障报告(const QString& 文本);
// " " + s + " ".
QString 加垫(QStringView s);
// 整理符号 (四折 false) or 合并正负号 (四折 true), padded with one blank
// at each end when 垫空.
QString 符号规整(const QString& s, bool 四折, bool 垫空);
// t becomes " " + t trimmed + " ".
void 重垫(QString& t);
}  // namespace 求值内部
