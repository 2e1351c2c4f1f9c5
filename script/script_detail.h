// Helpers shared by the statement handlers of script/. Not part of the
// interface that other subsystems use.
#pragma once

#include "numeric/value.h"

#include <QString>
#include <cstdint>

namespace script_detail {

// The statement without one closing ";", trimmed of blanks.
QString 去末分号(const QString& 语句);

// Target letter of an assignment-like statement: the first letter of the
// run of letters at the start of `左侧`, "F" when there is none; O (no
// variable) becomes F too. Always one of the 25 letters of the store.
QChar 目标字母(const QString& 左侧);

// Stores `值` into the letter variable `名` (anything outside the store
// goes to F).
void 存入变量(QChar 名, const 数值& 值);

// The text between the brackets of bracket group `组` (1..4) as
// 分析括号组 left it in 脚本状态.括号组位置; "" when the group is empty or
// missing.
QString 括号组文本(const QString& 文本, int 组);

// -1, 0 or 1: sign of a number's text (exact for decimals: "-0.000" is 0).
// Text without any digit counts as 0.
int 数值符号(const 数值& 值);

// Number text → 32-bit integer, rounded to nearest with ties to even. Exact
// for decimal texts (via Decimal96), by the double otherwise. False when
// the text is no number or the result lies outside the 32-bit range.
bool 取整数(const QString& 数字文本, std::int32_t& 结果);

// The lenient leading-number reading: blanks skipped, optional sign,
// digits with at most one point, optional exponent; whatever follows is
// ignored; a text without a leading number reads 0. An exponent too large
// gives an infinity (the caller treats it as an arithmetic fault).
double 宽松读数(const QString& 文本);

// Where the list of an array statement lies: the first "(" from the "="
// at `等号`; behind it up to the character before its match (to the end
// without a match); with no "(" behind the "=", from behind "=" to the end.
// Start and end are 1-based and inclusive; start > end means empty.
void 数组列表范围(const QString& 语句, int 等号, int& 起, int& 止);

}  // namespace script_detail
