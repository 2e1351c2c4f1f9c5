// The formula script language of the calculation atlas.
//
// A script is one text of statements separated by ";", run from left to
// right over the shared letter variables (变量状态.字母变量) and the arrays
// 脚本状态.数组U/V/W. Seven statement kinds are told apart by a plain search for
// their mark anywhere in the statement, first hit wins:
//
//   1 "IF"  conditional     If(1)(F=1)(F=0)       条件判断算式
//   2 ","   array           U=(1,3,5)             数组赋值算式
//   3 "Σ"   summation       F=Σ(0)(5)(U)          累计赋值算式
//   4 "∫"   integral        F=∫(0)(2)(X)(100)     积分赋值算式
//   5 "→"   arrow output    →Y=3+4*X-Z            常规输出算式
//   6 "="   assignment      F=X+1                 赋值算式
//   7 none  plain output    X+1                   表达式计算
//
// The order is part of the language: "F=SIN(X),1" is an array statement,
// and any statement holding "IF" is a conditional.
//
// All positions are 1-based UTF-16 code-unit positions (numeric/text.h).
// Nothing here throws. Failures go into the shared collector (报告错误) and
// the caller reads 计算状态.错误数 after a run; the runner itself never stops
// early, it relies on 表达式计算 doing nothing once 错误数 > 0.
// One thread; a run is not re-entrant (it works on 公共 throughout).
#pragma once

#include "expression/evaluator.h"  // 取字母串, 表达式计算

#include <QString>

// ---------------------------------------------------------------- runner

// Kind 1..7 of one statement (upper case, blanks removed), by the table
// above. Never reports.
int 语句种类(const QString& 语句);

// Runs a script. Blanks are removed and the text is upper-cased; a blank
// script gives "0". Each statement runs by its kind; kinds 5 and 7 add their
// result to the output, joined by "; ". The output is also left in
// 脚本状态.脚本输出. The caller resets the collector (清除计算状态) before and
// tests 计算状态.错误数 after: a failed run still returns text (a plain output
// after an error adds "1").
QString 运行算式(const QString& 脚本);

// Arrow output "→label=expr": the value of expr, rounded by 四舍五入 to
// 计算状态.输出小数位数 places, as "label = value" (or the value alone when the
// label is blank). A leading "." gets a "0" ahead of it. On any failure the
// literal "计算常规输出算式时---出错了！", which adds no error of its own.
// The value is not stored anywhere.
QString 常规输出算式(const QString& 语句);

// Assignment "name=expr": evaluates expr and stores it (through Hvt数转数)
// into the first letter of the letters left of "=", or F when there are
// none, O or anything outside the store also going to F. False without any
// message when there is no "="; false, storing nothing, when 错误数 > 0
// after the evaluation.
bool 赋值算式(const QString& 语句);

// --------------------------------------------------- bracket group helpers

// 取字母串(text, start), the run of ASCII letters at a position, is shared
// with the normaliser and lives with the evaluator (expression/evaluator.h).

// Position of the ")" closing the "(" at `开括号位置`: depth starts at 1,
// each "(" behind the start adds 1, each ")" takes 1, the first ")" that
// brings it below 1 is the answer. 0 when the text ends first or when
// 开括号位置 is below 1. The character at 开括号位置 itself is not looked at.
int 配对括号位置(const QString& 文本, int 开括号位置);

// Finds up to four bracket groups from `起点` (below 1 counts as 1) and
// writes them into 脚本状态.括号组位置 (open1, close1, open2, close2, ...; 0 for
// a group not found). Group 4 is looked for only when group 3 is well formed
// and opens at 6 or later; it counts only when its "(" stands at 8 or later,
// its match closes it, and no stray ")" stands between group 3 and it.
// True when groups 1-3 stand in strictly rising order from 起点 on.
bool 分析括号组(const QString& 文本, int 起点);

// End of the last group (the greater of the ends of groups 3 and 4) when
// 分析括号组 succeeds, else 0. Leaves 脚本状态.括号组位置 set either way.
int 括号组末位(const QString& 文本, int 起点);

// ------------------------------------------ summation, array, conditional
// Each takes one statement (upper case, no blanks), drops one closing ";",
// and returns true on success. Failure: one error reported with the
// handler's literal (also after the evaluator has reported its own), false.

// "F=Σ(from)(to)(expr)": from/to evaluated and rounded half-even to 32-bit
// integers, swapped if from > to, each raised to at least 1; for i in
// from..to the letter variables U, V, W take element i of 数组U/V/W (the
// integer 0 past an array's count) and expr is summed with 求两数和. U, V, W
// are put back after a success, not after a failure in the loop. No limit on
// the range. Literal: "计算累计赋值算式时----出现错误了！".
bool 累计赋值算式(const QString& 语句);

// "U=(1,3,5)": fills 数组U, 数组V or 数组W (by the first character; anything
// but U/V tells W) with the items converted by Hvt数转数, not evaluated.
// The first "," must stand at 4 or later and "=" at 2 or later. The array
// keeps its former content when the statement fails.
// Literal: "计算数组赋值算式时----出现错误了！".
bool 数组赋值算式(const QString& 语句);

// "IF(cond)(then)(else)": cond > 0 runs `then` by 赋值算式 (a then shorter
// than 3 characters is a failure); cond <= 0 runs `else` (an else shorter
// than 3 characters means no else, and is no failure).
// Literal: "计算条件判断算式时----出现错误了！".
bool 条件判断算式(const QString& 语句);

// ------------------------------------------------------- definite integral

// "F=∫(A)(B)(expr)(N)": integrates expr over X by 定积分计算 and stores the
// double result into the target, counting one fall to double (记录精度损失).
// A statement whose "∫" stands before position 3 or whose groups end before
// 7 goes straight to the failure step: it reports 脚本状态.积分错误 only when
// that is not blank (what the last integral left), else fails silently.
bool 积分赋值算式(const QString& 语句);

// The midpoint rule over the term "∫(A)(B)(expr)(N)" (the term starts with
// "∫"; N optional). A > B are swapped (the sign does not change); A == B
// gives 0. N: rounded half-even, below 1 → 100, above 100000 → 100000,
// absent → 1000. dx = (B-A)/N rounded half-even to 12 places; N is then
// recomputed from dx. Every evaluation is read as a double by the lenient
// leading-number rule (no number reads 0); both running sums use Double和.
// X is the integration variable: restored after success and after an
// evaluation error, left inside the range when the user stops the loop.
// After 100 rounds, when the time estimate reaches 2 minutes, asks once
// through 交互().询问 (title "提醒：耗时太多！"); yes stops.
// Result: the integral, or 0 with 脚本状态.积分错误 set; 脚本状态.积分提示 is
// "已经成功处理完积分表达式。" after success. Reports nothing itself.
double 定积分计算(const QString& 积分项);

// The clock of the time estimate: seconds (with fractions) of a monotonic
// source. Tests install a fake one to reach the prompt quickly; nullptr
// restores the steady clock. Returns the previous source.
using 秒钟源 = double (*)();
秒钟源 安装积分时钟(秒钟源 源);

// ------------------------------------------------------------ canonicaliser

// Canonical form of a script as the formula editor saves it: blanks and
// characters outside the script alphabet dropped, upper case, each
// statement in its canonical form followed by ";  ". "0" when nothing is
// left. A statement that cannot be accepted stands as its rejection text
// (e.g. "请修改F=0"). Expressions go through 表达式规整, which resets the
// calculation state, so afterwards 错误数 is that of the last expression.
QString 规整算式(const QString& 脚本);

// The canonicalisers of the single kinds (upper-case statement, no blanks,
// no ";"). Each returns the canonical text or its rejection text.
QString 规整赋值算式(const QString& 语句);   // "F = E"            / "请修改F=0"
QString 规整输出算式(const QString& 语句);   // "→L = E"           / "请修改→F=0"
QString 规整数组算式(const QString& 语句);   // "U = (E1,E2,)"     / "请修改U=(1,3,5)"
QString 规整累计算式(const QString& 语句);   // "F = Σ(E1)(E2)(E3)" / "请修改F=Σ(0)(5)(U)"
QString 规整条件算式(const QString& 语句);   // "If(E)(A)(B)"      / "请修改If(1)(F=1)(F=0)"
// "F = " + 规整积分算式 of the term from "∫";
// without "∫": "积分赋值算式的格式应为 F=∫(0)(2)(X)(100)".
QString 规整积分赋值算式(const QString& 语句);
// "∫(E1)(E2)(E3)(N)", N being "100" when the term has no fourth group;
// "积分算式的格式应为 ∫(0)(2)(X)(100)" when the groups are not found or end
// before position 7.
QString 规整积分算式(const QString& 积分项);
