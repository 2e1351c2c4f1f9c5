// The two passes of the bracket-free evaluation that call the elementary
// functions: the function pass (fourth) and the power pass (sixth), and the
// table of function names.
//
// Both passes take the working text of 无括号表达式计算 and rewrite it in
// place. They return false after a failure, which they have reported into
// the collector already (the caller then gives "1"); the text is then
// undefined. The three infinity notices (sec, csc, coth of a zero
// denominator) are shown through 交互().告知, give 1E+28 as a double, and
// are not errors.
#pragma once

#include "numeric/value.h"

#include <QString>
#include <array>

// The names the function pass knows, exactly (upper case).
inline const std::array<QString, 18> 函数名称 = {
    QStringLiteral("SIN"),  QStringLiteral("COS"),  QStringLiteral("TAN"),  QStringLiteral("COT"),
    QStringLiteral("SEC"),  QStringLiteral("CSC"),  QStringLiteral("ATAN"), QStringLiteral("ASIN"),
    QStringLiteral("ACOS"), QStringLiteral("ACOT"), QStringLiteral("ASEC"), QStringLiteral("ACSC"),
    QStringLiteral("SINH"), QStringLiteral("COSH"), QStringLiteral("TANH"), QStringLiteral("COTH"),
    QStringLiteral("LG"),   QStringLiteral("LN"),
};
static_assert(std::tuple_size_v<decltype(函数名称)> == 18);

// The name table of the typed-text check: a plain text search for w + ";"
// in this list, as loose as it looks ("OS" is found inside "COS;"). It
// admits names (ABS, INT, SQR, SING, RAND, the inverse hyperbolics) that no
// pass evaluates; those end in the function failure.
inline const QString 名称表文本 = QStringLiteral(
    "SIN;COS;TAN;COT;ASIN;ACOS;ATAN;ACOT;LG;LN;SINH;COSH;TANH;COTH;ASINH;ACOSH;ATANH;ACOTH;"
    "SEC;CSC;ASEC;ACSC;ABS;INT;SQR;SING;RAND;A;B;C;D;E;F;G;H;I;J;K;L;M;N;P;Q;R;S;T;U;V;W;X;Y;Z;");

// True if w + ";" occurs anywhere in 名称表文本 (case sensitive; callers
// upper-case first). Never reports.
bool 名称表中有(const QString& w);

// True if w is one of 函数名称 exactly.
bool 是函数名(const QString& w);

// Degrees per radian, a quarter turn, and the stand-in for an infinite
// result (1E+28 as a double).
inline const QString 每弧度度数文本 = QStringLiteral("57.295779513082320876798154814");
inline const QString 四分之一圆周文本 = QStringLiteral("1.5707963267948966192313216916");
constexpr double 无穷大替代值 = 1E+28;

// One function on one operand text (the name exactly as in 函数名称).
// Circular functions read x in 计算状态.角度单位; inverse ones answer in it
// (radians for 3, packed 度分秒 for 60, decimal degrees otherwise).
// Failure: reports the function's own sentence and gives the text "1".
// Functions computed in double count one fall (精度损失数 + 1,
// 可达有效位数 15).
数值 函数值(const QString& 名称, const QString& 参数);

// Fourth pass: every run of letters that is a function name takes the
// number right behind it, with its sign; "E" alone is an exponent and is
// passed over; any other run fails with "<four chars> 函数错误！请修改算式后计算。".
bool 函数运算(QString& t);

// Sixth pass: each "^" from the left, operands read around it, 乘方 applied,
// the scan restarting from the left: 2^3^2 = 64, -3^2 = 9, 2-3^2 = -7.
bool 乘方运算(QString& t);
